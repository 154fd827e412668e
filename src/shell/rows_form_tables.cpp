// Which rows are shown of those that a run has.

#include <algorithm>

#include "platform/text.h"
#include "shell/rows_form.h"
#include "shell/rows_state.h"

namespace orvent::shell {

using run::Outcome;

/// In a view the node of the scenario that is shown there, and the column of a member.
RowsForm::Focus RowsForm::focus() const {
    if (!form_ || form_->SelectedLabels.Count() != 1) {
        return {};
    }
    const canvas::LabelsD* node = form_->Labels.byIndex(form_->SelectedLabels.members().front());
    if (!node || !form_->isZoom()) {
        return {node ? node->Index() : canvas::kNoNode, {}};
    }
    const auto* member = node->entity<entities::AttributeProperties>();
    const canvas::LabelsD* its = form_->scenario().nodeNamed(member ? member->ParentKeyName : node->KeyName());
    return {its ? its->Index() : canvas::kNoNode, its && member ? member->Attribute_Name : ""};
}

void RowsForm::follow() {
    if (shown_ && !(focus() == shownFocus_)) {
        fill();
        tell();
    }
}

/// Leaves the column that is selected.
void RowsForm::narrow(RowTable& table) const {
    const auto column = std::find_if(table.page.columns.begin(), table.page.columns.end(), [this](const auto& name) {
        return platform::equalIgnoringCase(name, shownFocus_.column);
    });
    if (shownFocus_.column.empty() || column == table.page.columns.end()) {
        return;
    }
    const auto at = static_cast<std::size_t>(column - table.page.columns.begin());
    table.page.columns = {*column};
    table.page.numbers = {table.page.numbers[at]};
    for (entities::FieldRow& row : table.page.rows) {
        row = {row[at]};
    }
}

RowTable RowsForm::tableOf(State& its, std::size_t predicate, const std::string& title) {
    RowTable table;
    const Outcome& outcome = its.run->outcomes()[predicate];
    const bool asked = its.run == &its.source && outcome.state == Outcome::State::waiting;
    table.title = title;
    table.words = outcome.words + (outcome.statement.empty() ? "" : "\n" + outcome.statement);
    if (outcome.state == Outcome::State::there || asked) {
        try {
            table.page = its.run->page(predicate, run::kShownRows);
            const auto shown = static_cast<long long>(table.page.rows.size());
            const long long count = std::max(shown, outcome.count);
            table.title += ": " + std::to_string(count) + (count == 1 ? " row" : " rows") +
                           (shown < count ? ", the first " + std::to_string(shown) : "");
        } catch (const platform::Fault& fault) {
            table.words = fault.description();
        }
    } else if (table.words.empty()) {
        table.words = its.running ? "Not there yet." : "Refresh shows the rows.";
    }
    narrow(table);
    return table;
}

void RowsForm::fillOverview(const State& its) {
    RowTable table;
    table.title = "Number of rows";
    table.page.columns = {"Node", "In", "Out", "Remark"};
    table.page.numbers = {false, true, true, false};
    const canvas::DrawForm& form = form_->scenario();
    const std::vector<Outcome>& outcomes = its.run->outcomes();
    const auto number = [&outcomes](std::size_t at) {
        return outcomes[at].state == Outcome::State::there ? entities::Field(std::to_string(outcomes[at].count))
                                                           : entities::Field();
    };
    for (std::size_t at = 0; at < outcomes.size(); ++at) {
        const canvas::NodeNumber label = its.run->program().predicates[at].node;
        const canvas::LabelsD* node = form.Labels.byIndex(label);
        const run::NodeRows& rows = its.run->nodes().at(label);
        if (!node || rows.out != at) {
            continue;
        }
        std::string in;
        for (const std::size_t each : rows.in) {
            in += (in.empty() ? "" : " + ") + number(each).value_or("?");
        }
        std::string remark = outcomes[at].words;
        for (const run::Verdict& verdict : its.verdicts) {
            if (verdict.node == label && !verdict.met) {
                remark += (remark.empty() ? "" : "; ") + run::wordsOf(verdict.expectation) + ", but " + verdict.words;
            }
        }
        table.page.rows.push_back({node->Caption(), in, number(at), remark});
        table.nodes.push_back(label);
    }
    tables_.push_back(std::move(table));
}

void RowsForm::fill() {
    shownFocus_ = focus();
    tables_.clear();
    State* its = shown_ ? state() : nullptr;
    if (its && its->run) {
        const auto rows = its->run->nodes().find(shownFocus_.node);
        if (rows == its->run->nodes().end()) {
            fillOverview(*its);
        } else {
            const run::NodeRows& node = rows->second;
            if (node.out) {
                tables_.push_back(tableOf(*its, *node.out, its->run->nameOf(*node.out)));
            }
            for (const std::size_t in : node.in) {
                tables_.push_back(
                    tableOf(*its, in, "In, from " + its->run->nameOf(run::sourceOf(its->run->program(), in))));
            }
        }
    }
    for (RowTable& table : tables_) {
        table.filter(filter_);
    }
    if (onTables) {
        onTables();
    }
}

}  // namespace orvent::shell
