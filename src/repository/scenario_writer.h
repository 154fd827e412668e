#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "canvas/labels.h"
#include "canvas/lines.h"
#include "entities/name_tables.h"
#include "platform/dialogs.h"
#include "repository/new_row.h"
#include "repository/scenario_statements.h"
#include "repository/statement_cache.h"

namespace orvent::repository {

/// Writes the nodes and edges of one scenario over one connection.
///
/// A record is stored when its identifier is not 0; it is then updated only when `Changed` says so. A new record is
/// inserted, and its identifier read back from the sequence. A node gets its identifier when both of its rows stand.
/// When the reply to an INSERT or the identifier is lost, a row may stand that nobody knows; then the whole node is
/// made new. So all rows that an interrupted save has lost belong to stored nodes that the window does not know.
///
/// A stored record that another program has removed is written as a new one; only what is rewritten is looked for.
class ScenarioWriter {
  public:
    ScenarioWriter(StatementCache& repository, const entities::CatalogueTables& tables, std::int16_t ScenarioID)
        : repository_(repository), tables_(tables), ScenarioID_(ScenarioID) {}

    /// Writes what the node stands for; other kinds than activity, record set, comment and log are skipped. An
    /// activity without a type is not saved, which is told.
    void saveNode(canvas::LabelsD& node, platform::MessageBox& messages);

    /// Writes an edge by the captions of its ends.
    void saveLine(const canvas::LinesD& line, const std::string& from, const std::string& to);

    /// No identifier is left. From then on what is new stays unsaved, with all that refers to it, and what is stored is
    /// still written.
    bool exhausted() const { return exhausted_; }

  private:
    void saveEntity(canvas::LabelsD& node, platform::MessageBox& messages);
    void saveActivity(entities::ActivityProperties& activity, canvas::LabelsD& node);
    void saveSourceOrder(const entities::ActivityProperties& activity);
    void saveActivityFunctions(entities::ActivityProperties& activity);
    void saveRecordSet(entities::RecordSetProperties& recordSet, canvas::LabelsD& node);

    void SaveRecordSetNode(entities::RecordSetProperties& recordSet, canvas::LabelsD& node);
    void SaveRecordSetOutput(const entities::RecordSetProperties& recordSet, entities::AttributeProperties& attribute);
    void SaveActivityNode(entities::ActivityProperties& activity, canvas::LabelsD& node);
    void SaveActivityFunction(const entities::ActivityProperties& activity, entities::FunctionProperties& function);
    void SaveAttributeSubNode(const entities::ActivityProperties& activity, entities::AttributeProperties& attribute);
    void SaveParameterSubNode(const entities::ActivityProperties& activity, entities::ParameterProperties& parameter);
    void SaveFunctionSubNode(const entities::FunctionProperties& function, entities::ParameterProperties& parameter);
    void SaveProviderLink(std::int16_t NodeID, std::int16_t SubNode_ID, sql::LinkKind kind,
                          const entities::ProviderProperties& link);
    void SaveRegulatorLink(std::int16_t NodeID, std::int16_t SubNode_ID, const entities::RegulatorProperties& link);
    void SaveCommentNode(entities::CommentProperties& comment, canvas::LabelsD& node);
    void SavePlainNode(canvas::LabelsD& node);

    void saveProviders(const entities::Lazy<entities::ProviderLinks>& links, std::int16_t NodeID,
                       std::int16_t SubNode_ID, sql::LinkKind kind);
    void saveRegulators(const entities::Lazy<entities::RegulatorLinks>& links, std::int16_t NodeID,
                        std::int16_t SubNode_ID);
    template <class Member>
    void saveSubNode(const entities::ActivityProperties& activity, Member& member, const std::string& name,
                     std::int16_t dataType);
    template <class Entity, class Add, class Change>
    bool saveRows(Entity& entity, const std::string& name, canvas::LabelsD& node, Add addOwn, Change changeOwn);
    template <class... Values>
    std::int16_t add(const NewRow& row, const Values&... values);
    template <class... Values>
    void change(std::int16_t& identifier, std::string_view has, std::string_view sql, const Values&... values);
    std::int16_t addNodeRow(const std::string& name, const canvas::LabelsD& node);
    void changeNodeRow(const std::string& name, canvas::LabelsD& node, std::int16_t& NodeID);

    StatementCache& repository_;
    const entities::CatalogueTables& tables_;
    std::int16_t ScenarioID_;
    bool identifierLost_ = false;
    bool exhausted_ = false;
};

}  // namespace orvent::repository
