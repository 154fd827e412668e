#include "repository/starter_catalogue.h"

#include <array>
#include <optional>
#include <set>
#include <string>

#include "platform/text.h"
#include "repository/repository_check.h"

namespace orvent::repository {

namespace {

using platform::Answer;
using platform::Buttons;
using platform::Icon;

/// A table of the catalogue, and the table whose row a row of it belongs to; a type's own row names itself.
struct CatalogueTable {
    std::string_view table;
    std::string_view owner;
};

constexpr std::array<CatalogueTable, 6> kCatalogueTables = {{
    {"DataTypes", "DataTypes"},
    {"FunctionTypes", "FunctionTypes"},
    {"FunctionTypesParams", "FunctionTypes"},
    {"ActivityTypes", "ActivityTypes"},
    {"ActivityTypesParams", "ActivityTypes"},
    {"ActivityTypesFunctions", "ActivityTypes"},
}};

/// One INSERT of a script: its table, and the name of the type that the row belongs to.
struct TypeRow {
    const CatalogueTable* table = nullptr;
    std::string type;
};

/// The words up to `until`, from `at`, which moves behind it.
std::string upTo(const std::string& text, const char* until, std::size_t& at) {
    const std::size_t end = text.find_first_of(until, at);
    const std::string part = text.substr(at, end - at);
    at = end == std::string::npos ? text.size() : end + 1;
    return part;
}

std::optional<TypeRow> typeRow(const std::string& statement) {
    std::size_t at = statement.find_first_not_of(' ');
    constexpr std::string_view kInsert = "INSERT INTO ";
    if (at == std::string::npos || !platform::equalIgnoringCase(statement.substr(at, kInsert.size()), kInsert)) {
        return std::nullopt;
    }
    at += kInsert.size();
    const std::string table = upTo(statement, " (", at);
    for (const CatalogueTable& known : kCatalogueTables) {
        if (platform::equalIgnoringCase(table, known.table)) {
            upTo(statement, "'", at);
            return TypeRow{&known, upTo(statement, "'", at)};
        }
    }
    return std::nullopt;
}

/// Adds the script's types with all their rows. One whose name is taken is left alone, and so are its rows.
void addTypes(StatementCache& repository, const std::vector<std::string>& statements) {
    std::set<std::pair<std::string_view, std::string>> taken;
    for (const std::string& statement : statements) {
        const std::optional<TypeRow> row = typeRow(statement);
        if (!row || taken.contains({row->table->owner, row->type})) {
            continue;
        }
        try {
            repository.run(statement);
        } catch (const platform::DatabaseError& error) {
            if (!error.integrityViolation() || row->table->table != row->table->owner) {
                throw;
            }
            taken.insert({row->table->owner, row->type});
        }
    }
}

}  // namespace

void offerStarterCatalogue(Services& services, Catalogue& catalogue) {
    const entities::CatalogueTables& tables = catalogue.tables;
    std::string missing;
    const auto lookAt = [&missing](const entities::NameTable& table, const char* words) {
        if (table.rows() == 0) {
            missing += missing.empty() ? words : std::string(", no ") + words;
        }
    };
    lookAt(tables.dataTypes, "data types");
    lookAt(tables.functionTypes, "function types");
    lookAt(tables.activityTypes, "activity types");
    if (missing.empty() || services.settings.onlyRead ||
        services.messages.show("The catalogue of this repository has no " + missing +
                                   ".\nWould you like the starter catalogue to be added?",
                               "Empty Catalogue", Icon::question, Buttons::okCancel) != Answer::ok) {
        return;
    }
    try {
        const std::optional<std::string> script = creationScript(services);
        if (!script) {
            return;
        }
        const std::vector<std::string> statements = scriptStatements(*script);
        StatementCache repository = openRepository(services);
        addTypes(repository, statements);
    } catch (const platform::Fault& fault) {
        showFault(services, fault);
    }
    catalogue.LoadDataTypes();
    catalogue.LoadFunctionTypes();
    catalogue.LoadActivityTypes();
}

}  // namespace orvent::repository
