// Loading a scenario into an empty window.

#include <optional>
#include <utility>
#include <vector>

#include "links/synchronize_functions.h"
#include "platform/steps.h"
#include "repository/load_check.h"
#include "repository/scenario_load_save.h"
#include "repository/scenario_reader.h"
#include "repository/scenario_statements.h"
#include "repository/stored_content.h"

namespace orvent::repository {

namespace {

using canvas::DrawForm;
using canvas::LabelsD;
using platform::Statement;

/// Keeps the frame from taking input: the questions of a load run a nested event loop, and the half-filled window
/// must not be closed or saved meanwhile.
class FrameAtRest {
  public:
    explicit FrameAtRest(ScenarioWindows& windows) : windows_(windows) { windows_.enableFrame(false); }
    ~FrameAtRest() { windows_.enableFrame(true); }
    FrameAtRest(const FrameAtRest&) = delete;
    FrameAtRest& operator=(const FrameAtRest&) = delete;

  private:
    ScenarioWindows& windows_;
};

struct NodeRow {
    std::int16_t id;
    std::string name;
    canvas::NodeTypeCode type;
    canvas::Box box;
};

std::optional<std::string> scenarioName(StatementCache& repository, std::int16_t ScenarioID) {
    std::optional<std::string> name;
    Statement& row = repository.run(sql::kScenarioName, ScenarioID);
    while (row.fetch()) {
        name = row.text(1);
    }
    return name;
}

std::vector<NodeRow> nodeRows(StatementCache& repository, std::int16_t ScenarioID) {
    std::vector<NodeRow> rows;
    Statement& row = repository.run(sql::kNodes, ScenarioID);
    while (row.fetch()) {
        rows.push_back({identifier(row, 1),
                        row.text(2),
                        codeAs<canvas::NodeTypeCode>(row, 3),
                        {row.realNumber(4), row.realNumber(5), row.realNumber(6), row.realNumber(7)}});
    }
    return rows;
}

void loadNode(DrawForm& form, ScenarioReader& reader, const NodeRow& row) {
    LabelsD& node = form.Labels.Add(row.box, row.name, row.type);
    if (auto* activity = node.activity()) {
        activity->NodeID = row.id;
        activity->Act_Name = row.name;
        reader.LoadActivity(*activity);
    } else if (auto* recordSet = node.recordSet()) {
        recordSet->NodeID = row.id;
        recordSet->RecordSet_Name = row.name;
        reader.LoadRecordSet(*recordSet);
    } else if (auto* comment = node.entity<entities::CommentProperties>()) {
        comment->NodeID = row.id;
        node.setComment(reader.commentText(row.id));
    } else if (row.type == canvas::NodeTypeLog) {
        node.Properties = row.id;
    }
}

/// A line whose end is not found leads to no node, and is not drawn.
void loadLines(DrawForm& form, StatementCache& repository) {
    Statement& row = repository.run(sql::kLines, form.ScenarioID);
    while (row.fetch()) {
        const canvas::NodeNumber from = form.NamesColl.Item(row.text(1));
        const canvas::NodeNumber to = form.NamesColl.Item(row.text(3));
        form.Lines.addFullLine(from, code(row, 2), to, code(row, 4), codeAs<canvas::EdgeTypeCode>(row, 5),
                               codeAs<canvas::AngleCode>(row, 6), 0);
    }
}

/// Writes the ends of links that are not stored, and marks the nodes whose data is complete.
void finishNodes(DrawForm& form) {
    for (LabelsD& node : form.Labels) {
        if (auto* activity = node.activity()) {
            links::SynchronizeActivity(form, *activity, nullptr);
        } else if (auto* recordSet = node.recordSet()) {
            links::SynchronizeRecordSet(form, *recordSet);
        }
    }
    for (LabelsD& node : form.Labels) {
        if (node.activity()) {
            node.setReady(true);
        } else if (const auto* recordSet = node.recordSet()) {
            node.setReady(recordSet->RecordSet_Outputs.count() > 0);
        }
    }
}

}  // namespace

bool ScenarioLoadSave::LoadScenario(DrawForm& form, std::int16_t ScenarioID) {
    try {
        return load(form, ScenarioID);
    } catch (const platform::Fault& fault) {
        form.ScenarioID = 0;
        form.setCaption(form.Caption() + " (in part)");
        markStored(form);
        showFault(services_, fault);
        return true;
    }
}

bool ScenarioLoadSave::load(DrawForm& form, std::int16_t ScenarioID) {
    const FrameAtRest rest(windows_);
    const platform::Busy busy(services_.progress);
    StatementCache repository = openRepository(services_);
    const std::optional<std::string> name = scenarioName(repository, ScenarioID);
    if (!name) {
        return false;
    }
    form.setScenarioName(*name);
    form.ScenarioID = ScenarioID;
    catalogue_.LoadFunctionTypes();
    catalogue_.LoadActivityTypes();

    // Read first: what another program changes from now on is seen at the next save.
    const StoredRows stored = readStoredRows(repository, catalogue_.tables, ScenarioID);
    const std::vector<NodeRow> rows = nodeRows(repository, ScenarioID);
    ScenarioReader reader(repository, catalogue_);
    platform::Steps steps(services_.progress, rows.size());
    for (const NodeRow& row : rows) {
        loadNode(form, reader, row);
        steps.next();
    }
    loadLines(form, repository);
    finishNodes(form);
    markStored(form);
    form.stored.rows = marksOf(stored);
    const LoadFindings found = damageOf(form, catalogue_.tables, stored);
    if (found.differs) {
        markUnsaved(form);
    }
    if (!found.words.empty()) {
        services_.messages.tell(found.words, {}, platform::Icon::warning);
    }
    return true;
}

}  // namespace orvent::repository
