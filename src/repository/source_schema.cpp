#include "repository/source_schema.h"

#include <unordered_set>

#include "platform/text.h"

namespace orvent::repository {

namespace {

constexpr const char* kTables = "SELECT table_name FROM all_tables WHERE owner=?";
constexpr const char* kColumns = "SELECT column_name,data_type FROM all_tab_columns WHERE owner=? AND table_name=?";

}  // namespace

SchemaReader::SchemaReader(platform::Database& database, const SourceDatabase& source)
    : source_(source),
      owner_(platform::upperCase(source.user)),
      connection_(database.open(source.name, source.user, source.password)) {}

SchemaReader::~SchemaReader() = default;

void SchemaReader::readTables() {
    const std::unique_ptr<platform::Statement> tables = connection_->prepare(kTables);
    tables->bind(1, owner_);
    tables->execute();
    while (tables->fetch()) {
        names_.push_back(tables->text(1));
    }
    listed_ = true;
    columns_ = connection_->prepare(kColumns);
}

const SourceTable* SchemaReader::next() {
    if (tables_.size() == names_.size()) {
        return nullptr;
    }
    SourceTable& table = *tables_.emplace_back(std::make_unique<SourceTable>());
    table.name = names_[tables_.size() - 1];
    columns_->bind(1, owner_);
    columns_->bind(2, platform::upperCase(table.name));
    columns_->execute();
    // The columns are asked for by the name in upper case, which two tables of a database may share.
    std::unordered_set<std::string> seen;
    while (columns_->fetch()) {
        std::string name = columns_->text(1);
        if (seen.insert(name).second) {
            table.columns.push_back({std::move(name), columns_->text(2)});
        }
    }
    table.isWhole = true;
    return &table;
}

bool SchemaReader::isWhole() const {
    return listed_ && tables_.size() == names_.size() && (tables_.empty() || tables_.back()->isWhole);
}

std::string SchemaReader::shortfall() const {
    const std::string name = platform::upperCase(source_.name);
    if (!listed_) {
        return "The tables of " + name + " could not be listed.";
    }
    if (names_.empty()) {
        return owner_.empty() ? name + " shows no tables." : name + " shows no tables of " + owner_ + ".";
    }
    if (isWhole()) {
        return {};
    }
    const bool cut = !tables_.empty() && !tables_.back()->isWhole;
    const std::string count = std::to_string(tables_.size() - (cut ? 1 : 0));
    return "Only " + count + " of " + std::to_string(names_.size()) + " tables of " + name + " were loaded" +
           (cut ? ", and a part of " + tables_.back()->name : std::string()) + ".";
}

}  // namespace orvent::repository
