#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "canvas/labels.h"
#include "canvas/lines.h"
#include "entities/name_tables.h"
#include "platform/dialogs.h"
#include "repository/scenario_statements.h"
#include "repository/statement_cache.h"

namespace orvent::repository {

/// Writes the nodes and edges of one scenario over one connection.
///
/// A record is stored when its identifier is not 0; it is then updated only when `Changed` says so. A new record is
/// inserted, and its identifier read back from the sequence. A node gets its identifier when both of its rows stand.
/// When an identifier cannot be read back, a row stands that nobody knows; then the whole node is made new. So all
/// rows that an interrupted save has lost belong to stored nodes that the window does not know.
class ScenarioWriter {
  public:
    ScenarioWriter(StatementCache& repository, const entities::CatalogueTables& tables, std::int16_t ScenarioID)
        : repository_(repository), tables_(tables), ScenarioID_(ScenarioID) {}

    /// Writes what the node stands for; other kinds than activity, record set, comment and log are skipped. An
    /// activity without a type is not saved, which is told.
    void saveNode(canvas::LabelsD& node, platform::MessageBox& messages);

    /// Writes an edge by the captions of its ends.
    void saveLine(const canvas::LinesD& line, const std::string& from, const std::string& to);

  private:
    void saveEntity(canvas::LabelsD& node, platform::MessageBox& messages);
    void saveActivity(entities::ActivityProperties& activity, const canvas::LabelsD& node);
    void saveSourceOrder(const entities::ActivityProperties& activity);
    void saveActivityFunctions(entities::ActivityProperties& activity);
    void saveRecordSet(entities::RecordSetProperties& recordSet, const canvas::LabelsD& node);

    void SaveRecordSetNode(entities::RecordSetProperties& recordSet, const canvas::LabelsD& node);
    void SaveRecordSetOutput(const entities::RecordSetProperties& recordSet, entities::AttributeProperties& attribute);
    void SaveActivityNode(entities::ActivityProperties& activity, const canvas::LabelsD& node);
    void SaveActivityFunction(const entities::ActivityProperties& activity, entities::FunctionProperties& function);
    void SaveAttributeSubNode(const entities::ActivityProperties& activity, entities::AttributeProperties& attribute);
    void SaveParameterSubNode(const entities::ActivityProperties& activity, entities::ParameterProperties& parameter);
    void SaveFunctionSubNode(const entities::FunctionProperties& function, entities::ParameterProperties& parameter);
    void SaveProviderLink(std::int16_t NodeID, std::int16_t SubNode_ID, sql::LinkKind kind,
                          const entities::ProviderProperties& link);
    void SaveRegulatorLink(std::int16_t NodeID, std::int16_t SubNode_ID, const entities::RegulatorProperties& link);
    void SaveCommentNode(entities::CommentProperties& comment, const canvas::LabelsD& node);
    void SavePlainNode(canvas::LabelsD& node);

    void saveProviders(const entities::Lazy<entities::ProviderLinks>& links, std::int16_t NodeID,
                       std::int16_t SubNode_ID, sql::LinkKind kind);
    void saveRegulators(const entities::Lazy<entities::RegulatorLinks>& links, std::int16_t NodeID,
                        std::int16_t SubNode_ID);
    std::int16_t addNodeRow(const std::string& name, const canvas::LabelsD& node);
    void changeNodeRow(const std::string& name, const canvas::LabelsD& node, std::int16_t NodeID);
    std::int16_t given(std::string_view sequence);

    StatementCache& repository_;
    const entities::CatalogueTables& tables_;
    std::int16_t ScenarioID_;
    bool identifierLost_ = false;
};

/// The number that the last INSERT on this connection took from a sequence. Throws a `Fault` beyond 32767.
std::int16_t givenIdentifier(StatementCache& repository, std::string_view sequence);

}  // namespace orvent::repository
