// Removing rows: of a whole scenario, and of what was deleted on its canvas.

#include <array>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/steps.h"
#include "repository/node_rows.h"
#include "repository/scenario_load_save.h"
#include "repository/scenario_statements.h"

namespace orvent::repository {

namespace {

/// The statements of one kind, each with the identifier as its only parameter.
template <class Code>
struct KindStatements {
    Code kind;
    std::array<std::string_view, 6> statements;  // up to the first empty one
};

/// How the rows of one node are removed, by `Node_Type`, when its whole scenario goes.
constexpr std::array<KindStatements<canvas::NodeTypeCode>, 3> kWholeNodes = {{
    {canvas::NodeTypeRecordSet, {sql::kDropRecordSetOutputs, sql::kDropRecordSet}},
    {canvas::NodeTypeActivity,
     {sql::kDropActivitySubNodes, sql::kDropActivityFunctionSubNodes, sql::kDropActivityFunctions, sql::kDropActivity}},
    {canvas::NodeTypeComment, {sql::kDropComment}},
}};

/// How one deleted node or sub-node is removed, by the `NodeKind` of its entry.
constexpr std::array<KindStatements<entities::NodeKindCode>, 11> kDeletions = {{
    {entities::DeletedActivity,
     {sql::kDropNodeLinks, sql::kDropActivityFunctionSubNodes, sql::kDropActivityFunctions, sql::kDropActivitySubNodes,
      sql::kDropActivity, sql::kDropNode}},
    {entities::KindInput, {sql::kDropActivitySubNode}},
    {entities::KindOutput, {sql::kDropActivitySubNode, sql::kDropSubNodeLinks}},
    {entities::KindParameter, {sql::kDropActivitySubNode, sql::kDropSubNodeLinks}},
    {entities::KindFunction, {sql::kDropFunctionSubNodes, sql::kDropFunction}},
    {entities::KindFunctionOutput, {sql::kDropFunctionSubNode}},
    {entities::KindFunctionInput, {sql::kDropFunctionSubNode, sql::kDropSubNodeLinks}},
    {entities::DeletedRecordSet,
     {sql::kDropNodeLinks, sql::kDropRecordSetOutputs, sql::kDropRecordSet, sql::kDropNode}},
    {entities::KindRecordSetAttribute, {sql::kDropRecordSetOutput, sql::kDropSubNodeLinks}},
    {entities::DeletedComment, {sql::kDropComment, sql::kDropNode}},
    {entities::DeletedLog, {sql::kDropNode}},
}};

template <class Code, std::size_t rows>
void runForKind(StatementCache& repository, const std::array<KindStatements<Code>, rows>& table, Code kind,
                long long id) {
    for (const KindStatements<Code>& row : table) {
        if (row.kind == kind) {
            for (const std::string_view statement : row.statements) {
                if (!statement.empty()) {
                    repository.run(statement, id);
                }
            }
            return;
        }
    }
}

}  // namespace

canvas::NodeTypeCode nodeType(long long stored) {
    return std::in_range<std::int32_t>(stored) ? static_cast<canvas::NodeTypeCode>(stored) : canvas::NodeTypeCode{};
}

std::vector<StoredNode> nodesOf(StatementCache& repository, std::int16_t ScenarioID) {
    std::vector<StoredNode> nodes;
    platform::Statement& row = repository.run(sql::kNodeTypes, ScenarioID);
    while (row.fetch()) {
        nodes.push_back({row.number(1), nodeType(row.number(2))});
    }
    return nodes;
}

void removeMembers(StatementCache& repository, const StoredNode& node) {
    repository.run(sql::kDropRelationShips, node.id);
    runForKind(repository, kWholeNodes, node.type, node.id);
}

void removeRows(Services& services, ScenarioWindows& windows, std::int16_t ScenarioID, bool DeleteRow,
                const canvas::DrawForm* except) {
    const platform::Busy busy(services.progress);
    StatementCache repository = openRepository(services);
    const std::vector<StoredNode> nodes = nodesOf(repository, ScenarioID);
    // Before the first row goes: an interrupted removal has broken the scenario for these windows, too.
    windows.scenarioGone(ScenarioID, except);
    platform::Steps steps(services.progress, nodes.size());
    for (const StoredNode& node : nodes) {
        removeMembers(repository, node);
        steps.next();
    }
    repository.run(sql::kDropLines, ScenarioID);
    repository.run(sql::kDropNodes, ScenarioID);
    if (DeleteRow) {
        repository.run(sql::kDropScenario, ScenarioID);
    }
}

void ScenarioLoadSave::RemoveScenario(std::int16_t ScenarioID, bool DeleteRow) {
    removeRows(services_, windows_, ScenarioID, DeleteRow, nullptr);
    interrupted().scenarios.erase(ScenarioID);
}

void ScenarioLoadSave::ApplyDeletions(const canvas::DrawForm& form, std::int16_t ScenarioID,
                                      StatementCache& repository) {
    for (const canvas::DeletedNode& deleted : *form.DeletedNodes) {
        runForKind(repository, kDeletions, deleted.NodeKind, deleted.NodeID);
    }
    repository.run(sql::kDropLines, ScenarioID);
}

}  // namespace orvent::repository
