// Which rows are shown of those that a run has.

#include <algorithm>

#include "platform/text.h"
#include "shell/rows_form.h"
#include "shell/rows_state.h"

namespace orvent::shell {

using run::Outcome;

namespace {

constexpr const char* kReading = "Reading the rows.";

}  // namespace

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

/// The table without its rows, which are to be read.
RowTable RowsForm::tableOf(const State& its, std::size_t predicate, const std::string& title) {
    RowTable table;
    const Outcome& outcome = its.outcomes[predicate];
    const bool atSource = its.run == &its.source;
    const bool asked = atSource && outcome.state == Outcome::State::waiting;
    table.title = title;
    table.words = outcome.words + (outcome.statement.empty() ? "" : "\n" + outcome.statement);
    if (outcome.state == Outcome::State::there || asked) {
        if (atSource && notWanted_ == shownFocus_) {
            table.words = "Cancelled. Refresh shows the rows.";
        } else {
            table.words += std::string(table.words.empty() ? "" : "\n") + kReading;
            wanted_.push_back({tables_.size(), predicate});
        }
    } else if (table.words.empty()) {
        table.words = its.running ? "Not there yet." : "Refresh shows the rows.";
    }
    return table;
}

/// The tables get the rows that were read for them.
void RowsForm::takePages() {
    const State& its = *working_;
    for (Brought& each : brought_) {
        RowTable& table = tables_[each.wanted.table];
        const Outcome& outcome = its.outcomes[each.wanted.predicate];
        if (!each.fault.empty()) {
            table.words = each.fault;
            continue;
        }
        table.words = outcome.words;
        table.page = std::move(each.page);
        const auto shown = static_cast<long long>(table.page.rows.size());
        const long long count = std::max(shown, outcome.count);
        table.title += ": " + std::to_string(count) + (count == 1 ? " row" : " rows") +
                       (shown < count ? ", the first " + std::to_string(shown) : "");
        if (each.held) {
            table.title += ", in; it holds " + std::to_string(*each.held);
        } else if (!each.heldFault.empty()) {
            table.words += (table.words.empty() ? "" : "\n") + ("What it holds is not known: " + each.heldFault);
        }
        narrow(table);
        table.filter(filter_);
    }
}

void RowsForm::fillOverview(const State& its) {
    RowTable table;
    table.title = "Number of rows";
    table.page.columns = {"Node", "In", "Out", "Remark"};
    table.page.numbers = {false, true, true, false};
    const canvas::DrawForm& form = form_->scenario();
    const std::vector<Outcome>& outcomes = its.outcomes;
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

std::map<canvas::NodeNumber, entities::NodeFacts> RowsForm::sampleOf(const canvas::DrawForm& form) {
    const auto known = states_.find(&form);
    std::map<canvas::NodeNumber, entities::NodeFacts> sample;
    if (known == states_.end()) {
        return sample;
    }
    State& its = *known->second;
    if (its.run != &its.sample || its.old || its.running || working_ == &its || !its.sample.readsSources()) {
        return sample;
    }
    its.sample.resume();
    const auto& predicates = its.sample.program().predicates;
    for (std::size_t at = 0; at < predicates.size(); ++at) {
        if (predicates[at].kind == program::PredicateKind::given && its.outcomes[at].state == Outcome::State::there) {
            run::Page page = its.sample.page(at, static_cast<std::size_t>(its.outcomes[at].count));
            entities::Facts& facts = sample[predicates[at].node].facts.emplace();
            for (const program::Column& column : predicates[at].columns) {
                facts.columns.push_back(column.name);
            }
            facts.rows = std::move(page.rows);
        }
    }
    return sample;
}

void RowsForm::fill() {
    shownFocus_ = focus();
    tables_.clear();
    wanted_.clear();
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
    outdated_ = piece_ == Piece::pages;
    if (outdated_) {
        working_->run->cancel();
    }
    const std::size_t shows = shows_;
    goOn();
    if (shows_ == shows) {
        showTables();
    }
}

void RowsForm::showTables() {
    ++shows_;
    if (onTables) {
        onTables();
    }
}

}  // namespace orvent::shell
