#include "repository/type_usage.h"

#include <array>
#include <string_view>
#include <unordered_map>

#include "repository/scenario_statements.h"
#include "repository/statement_cache.h"

namespace orvent::repository {

namespace {

/// By `TypeKind`.
constexpr std::array<std::string_view, 3> kActivitiesOfType = {
    "SELECT Node_Name,Scenario_ID FROM ScenarioNodes WHERE Node_ID IN "
    "(SELECT Activity_ID FROM ActivitySubNodes WHERE SubNode_Type=?)",
    "SELECT Node_Name,Scenario_ID FROM ScenarioNodes WHERE Node_ID IN "
    "(SELECT Activity_ID FROM ActivityFunctions WHERE Function_Type=?)",
    "SELECT Node_Name,Scenario_ID FROM ScenarioNodes WHERE Node_ID IN "
    "(SELECT Activity_ID FROM Activities WHERE Activity_Type=?)"};

constexpr std::array<std::string_view, 3> kTypeItself = {
    "SELECT DataType_name FROM DataTypes WHERE DataType_name=?",
    "SELECT FunctionType_name FROM FunctionTypes WHERE FunctionType_name=?",
    "SELECT ActivityType_name FROM ActivityTypes WHERE ActivityType_name=?"};

}  // namespace

TypeUsage usageOfType(Services& services, TypeKind kind, const std::string& name) {
    StatementCache repository = openRepository(services);
    std::unordered_map<long long, std::string> scenarios;
    platform::Statement& own = repository.run(sql::kScenariosOfUser, services.settings.login.User);
    while (own.fetch()) {
        scenarios[own.number(2)] = own.text(1);
    }
    TypeUsage usage;
    usage.isStored = repository.run(kTypeItself[static_cast<std::size_t>(kind)], name).fetch();
    platform::Statement& row = repository.run(kActivitiesOfType[static_cast<std::size_t>(kind)], name);
    while (row.fetch()) {
        ++usage.count;
        const auto scenario = scenarios.find(row.number(2));
        if (scenario != scenarios.end()) {
            usage.own.push_back({scenario->second, row.text(1)});
        }
    }
    return usage;
}

}  // namespace orvent::repository
