// Reading the type catalogue.

#include <algorithm>
#include <utility>
#include <vector>

#include "platform/letter_case.h"
#include "repository/catalogue.h"
#include "repository/catalogue_statements.h"
#include "repository/type_rows.h"

namespace orvent::repository {

using entities::ActivityTypeProperties;
using entities::FunctionTypeProperties;
using platform::Answer;
using platform::Buttons;
using platform::Icon;
using platform::Statement;

Catalogue::Catalogue(Services& services, std::function<void()> endProgram, std::function<bool()> workIsOpen)
    : services_(services), endProgram_(std::move(endProgram)), workIsOpen_(std::move(workIsOpen)) {}

void Catalogue::loadOrEnd(const std::function<void(StatementCache&)>& load) {
    try {
        StatementCache repository = openRepository(services_);
        load(repository);
    } catch (const platform::Fault& fault) {
        const std::string words = "Error Accessing DataBase\n";
        if (workIsOpen_ && workIsOpen_()) {
            throw platform::Fault(words + fault.description());
        }
        services_.messages.tell(words + "THE PROGRAM WILL EXIT!!", {}, Icon::critical);
        endProgram_();
    }
}

namespace {

std::vector<std::string> namesIn(StatementCache& repository, std::string_view sql) {
    std::vector<std::string> names;
    Statement& row = repository.run(sql);
    while (row.fetch()) {
        names.push_back(row.text(1));
    }
    return names;
}

}  // namespace

/// The one way by which a name table takes what is stored.
void Catalogue::reload(entities::NameTable& table, const std::vector<std::string>& names, bool keepIndices) {
    if (renaming_ && renaming_->table == &table) {
        const auto isStored = [&names](const std::string& name) {
            return std::ranges::find(names, name) != names.end();
        };
        if (isStored(renaming_->newName) && !isStored(table.name(renaming_->index))) {
            table.rename(renaming_->index, renaming_->newName);
        }
        renaming_.reset();
    }
    table.reload(names, keepIndices);
}

void Catalogue::readDataTypes(StatementCache& repository, bool keepIndices) {
    reload(tables.dataTypes, namesIn(repository, sql::kDataTypes), keepIndices);
}

void Catalogue::readFunctionTypes(StatementCache& repository, bool keepIndices) {
    reload(tables.functionTypes, namesIn(repository, sql::kFunctionTypes), keepIndices);
}

void Catalogue::readActivityTypes(StatementCache& repository, bool keepIndices) {
    std::vector<std::string> names;
    std::vector<std::pair<std::string, std::string>> texts;
    Statement& types = repository.run(sql::kActivityTypes);
    while (types.fetch()) {
        names.push_back(types.text(1));
        texts.emplace_back(types.text(2), types.text(3));
    }
    reload(tables.activityTypes, names, keepIndices);
    // The texts stand parallel to the names, of which there is always one. A type that is gone keeps its own.
    tables.activityTypeSql.resize(keepIndices ? tables.activityTypeSql.size() : 0);
    tables.activityTypeLdl.resize(keepIndices ? tables.activityTypeLdl.size() : 0);
    tables.activityTypeSql.resize(tables.activityTypes.size());
    tables.activityTypeLdl.resize(tables.activityTypes.size());
    for (std::size_t at = 0; at < names.size(); ++at) {
        const auto index = static_cast<std::size_t>(*tables.activityTypes.indexOf(names[at]));
        tables.activityTypeSql[index] = std::move(texts[at].first);
        tables.activityTypeLdl[index] = std::move(texts[at].second);
    }
}

void Catalogue::refreshTables(StatementCache& repository) {
    readDataTypes(repository, true);
    readFunctionTypes(repository, true);
    readActivityTypes(repository, true);
}

void Catalogue::LoadDataTypes() {
    loadOrEnd([this](StatementCache& repository) { readDataTypes(repository, keepsIndices()); });
}

void Catalogue::LoadFunctionTypes() {
    loadOrEnd([this](StatementCache& repository) { readFunctionTypes(repository, keepsIndices()); });
}

void Catalogue::LoadActivityTypes() {
    loadOrEnd([this](StatementCache& repository) { readActivityTypes(repository, keepsIndices()); });
}

std::vector<ActivityTypeWords> Catalogue::activityTypeWords() {
    std::vector<ActivityTypeWords> all;
    StatementCache repository = openRepository(services_);
    Statement& row = repository.run(sql::kActivityTypeWords);
    while (row.fetch()) {
        all.push_back({row.text(1), row.text(2), static_cast<int>(row.number(3))});
    }
    return all;
}

namespace {

ActivityTypeProperties activityTypeAt(const entities::NameTable& names, std::int16_t index) {
    ActivityTypeProperties type;
    type.ActType_Name = names.name(index);
    type.ActType_NameIndex = index;
    return type;
}

FunctionTypeProperties functionTypeAt(const entities::NameTable& names, std::int16_t index) {
    FunctionTypeProperties type;
    type.FunctionType_Name = names.name(index);
    type.FunctionType_NameIndex = index;
    return type;
}

const std::string& nameOf(const ActivityTypeProperties& type) {
    return type.ActType_Name;
}

const std::string& nameOf(const FunctionTypeProperties& type) {
    return type.FunctionType_Name;
}

}  // namespace

template <class Type>
bool Catalogue::read(Type& type) {
    StatementCache repository = openRepository(services_);
    return TypeRows(repository, tables).read(type, [this](const std::string& name) { return DataTypeIndex(name); });
}

template <class Type>
Type Catalogue::readAll(Type type) {
    if (!read(type)) {
        throw TypeGone(nameOf(type));
    }
    return type;
}

template <class Type>
Type Catalogue::readWhatComes(Type type) {
    try {
        read(type);
    } catch (const platform::Fault&) {
        // The caller gets what has been read so far, with no word to the user.
    }
    return type;
}

ActivityTypeProperties Catalogue::GetActivityType(std::int16_t index) {
    return readWhatComes(activityTypeAt(tables.activityTypes, index));
}

ActivityTypeProperties Catalogue::wholeActivityType(std::int16_t index) {
    return readAll(activityTypeAt(tables.activityTypes, index));
}

FunctionTypeProperties Catalogue::GetFunctionType(std::int16_t index) {
    return readWhatComes(functionTypeAt(tables.functionTypes, index));
}

FunctionTypeProperties Catalogue::wholeFunctionType(std::int16_t index) {
    return readAll(functionTypeAt(tables.functionTypes, index));
}

std::int16_t Catalogue::DataTypeIndex(const std::string& name) {
    if (const auto index = tables.dataTypes.indexOf(name)) {
        return *index;
    }
    const std::string question = "The Data Type " + platform::upperLetters(name) +
                                 "  Does Not Exist Among The Defined Data Types" +
                                 "\nWould You Like It To Be Added To The Existing Data Types?" +
                                 "\n\n(if you choose CANCEL ,the object's datatype will be reset to" +
                                 tables.dataTypes.name(tables.dataTypes.first()) + ")";
    const Answer answer =
        services_.messages.show(question, "DATA TYPE NOT RPOPERLY SET", Icon::question, Buttons::okCancel);
    return answer == Answer::ok ? SaveDataType(name) : tables.dataTypes.first();
}

std::int16_t Catalogue::FunctionTypeIndex(const std::string& name) const {
    return tables.functionTypes.indexOf(name).value_or(tables.functionTypes.first());
}

std::int16_t Catalogue::ActivityTypeIndex(const std::string& name) const {
    return tables.activityTypes.indexOf(name).value_or(tables.activityTypes.first());
}

}  // namespace orvent::repository
