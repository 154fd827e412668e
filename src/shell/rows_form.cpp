#include "shell/rows_form.h"

#include <algorithm>
#include <chrono>

#include "platform/text.h"
#include "shell/facts_form.h"
#include "shell/options_data.h"
#include "shell/rows_state.h"

namespace orvent::shell {

namespace {

constexpr std::chrono::milliseconds kOnceMore(20);
constexpr std::chrono::milliseconds kAnswer(500);  ///< so long a driver is waited for that is to break off

std::vector<std::string> columnsOf(const canvas::LabelsD& node) {
    std::vector<std::string> columns;
    if (const auto* recordSet = node.recordSet()) {
        for (const entities::AttributeProperties& column : recordSet->RecordSet_Outputs) {
            columns.push_back(column.Attribute_Name);
        }
    }
    return columns;
}

}  // namespace

RowsForm::RowsForm(const RowsPorts& ports)
    : ports_(ports), connections_(ports.ports.database, ports.ports.dataSources, *this) {}

RowsForm::~RowsForm() {
    // The scenarios may be gone by now, so nothing is taken over.
    while (working_ && !worker_.wait(kOnceMore)) {
        if (piece_ != Piece::opening) {
            working_->run->cancel();
        }
    }
}

std::optional<run::Login> RowsForm::loginFor(const std::string& source) {
    SourceLogin dialog(source);
    ports_.dialogs.show(dialog);
    return dialog.isOk ? std::optional(run::Login{dialog.txtUser, dialog.txtPassword}) : std::nullopt;
}

RowsForm::State* RowsForm::state() const {
    const auto known = form_ ? states_.find(&form_->scenario()) : states_.end();
    return known == states_.end() ? nullptr : known->second.get();
}

bool RowsForm::isRunning() const {
    return state() && (state()->running || working_ == state());
}

bool RowsForm::isOld() const {
    return state() && state()->old;
}

std::size_t RowsForm::done() const {
    return state() && state()->running ? state()->done : 0;
}

std::size_t RowsForm::total() const {
    return state() && state()->running ? state()->run->total() : 0;
}

std::string RowsForm::status() const {
    const State* its = state();
    if (!form_) {
        return "No scenario is in front.";
    }
    if (its && working_ == its && piece_ == Piece::opening) {
        return its->cancelled ? "Cancelled; " + its->opens + " has not answered yet." : "Opening " + its->opens + ".";
    }
    if (its && !its->fault.empty()) {
        return its->fault;
    }
    if (!its || !its->run) {
        return "Refresh shows the rows.";
    }
    const auto unmet = std::count_if(its->verdicts.begin(), its->verdicts.end(),
                                     [](const run::Verdict& verdict) { return !verdict.met; });
    std::string state = its->running                        ? "Running."
                        : its->cancelled && working_ == its ? "Cancelled; the database is still at its last statement."
                        : its->old                          ? "Old: the scenario has changed since."
                        : its->cancelled                    ? "Cancelled. Refresh goes on."
                                                            : "";
    if (!its->running && !its->fallen.empty()) {
        state += (state.empty() ? "" : " ") + its->fallen;
    }
    if (its->verdicts.empty() || its->running) {
        return state;
    }
    return state + (state.empty() ? "" : " ") +
           (unmet == 0
                ? "All that is expected is so."
                : std::to_string(unmet) + " of " + std::to_string(its->verdicts.size()) + " expectations are not met.");
}

void RowsForm::tell() const {
    if (onState) {
        onState();
    }
    if (const State* its = state(); its && its->counts) {
        ports_.desk.showNotes(form_->scenario(), its);
    }
}

void RowsForm::optWay_Click(Way way) {
    way_ = way;
    if (State* its = state(); its && its->run) {
        its->old = true;
    }
    tell();
}

void RowsForm::chkKeepDuplicates_Click(bool keep) {
    if (form_ && keep != keepDuplicates()) {
        form_->scenario().KeepDuplicates = keep;
        takeDuplicates(form_->scenario());
    }
}

void RowsForm::takeDuplicates(const canvas::DrawForm& form) {
    ports_.facts.keep(form);
    touch(form);
    tell();
}

void RowsForm::cmdRefresh_Click() {
    if (!canRefresh()) {
        return;
    }
    canvas::DrawForm& form = form_->scenario();
    std::unique_ptr<State>& its = states_[&form];
    if (!its) {
        its = std::make_unique<State>(form, ports_.ports.database, connections_);
    }
    its->next = way_ == Way::sample ? static_cast<run::Run*>(&its->sample) : &its->source;
    its->options.keepDuplicates = form.KeepDuplicates;
    its->options.sampleRows = static_cast<std::size_t>(ports_.options.SampleRows);
    its->options.functions = ports_.options.functions;
    its->options.anew = its->run == its->next && !its->old && !its->cancelled;
    its->cancelled = false;
    its->fault.clear();
    its->verdicts.clear();
    notWanted_.reset();
    try {
        its->opens = its->next->ask(form, ports_.tables);
        its->opens.empty() ? begin(*its) : startOpening(*its);
    } catch (const platform::Fault& fault) {
        its->run = nullptr;
        its->fault = fault.description();
    }
    fill();
    tell();
}

void RowsForm::begin(State& its) {
    its.next->begin(its.form, ports_.tables, its.options);
    its.run = its.next;
    its.see();
    its.expected = run::expectedOf(its.form);
    its.running = true;
    its.old = false;
}

void RowsForm::cmdCancel_Click() {
    if (!isRunning()) {
        return;
    }
    State& its = *state();
    its.running = false;
    its.cancelled = true;
    notWanted_ = focus();
    stop(kAnswer);
    fill();
    tell();
}

void RowsForm::txtFilter_Change(const std::string& word) {
    filter_ = word;
    for (RowTable& table : tables_) {
        table.filter(filter_);
    }
    if (onTables) {
        onTables();
    }
}

void RowsForm::copy(std::size_t table, const std::vector<std::size_t>& rows) const {
    const std::string text = tables_[table].text('\t', rows);
    ports_.ports.clipboard.put(text, "text/tab-separated-values");
}

void RowsForm::cmdExport_Click(std::size_t table) const {
    std::string path = ports_.ports.saveDialog.saveFile(
        "Export Rows", "Rows (*.csv)|*.csv", ports_.ports.folder.root().string(), platform::OldFile::askedAbout);
    if (path.empty()) {
        return;
    }
    path += path.ends_with(".csv") ? "" : ".csv";
    platform::writeFile(path, tables_[table].text(','));
    ports_.ports.progress.status(path + " Created");
}

void RowsForm::choose(std::size_t table, std::size_t row) const {
    if (const canvas::NodeNumber node = tables_[table].nodeOf(row); node != canvas::kNoNode) {
        ports_.showNode(node);
    }
}

bool RowsForm::canGive() const {
    const canvas::LabelsD* node = form_ ? form_->scenario().Labels.byIndex(focus().node) : nullptr;
    return node && (node->recordSet() || node->activity());
}

void RowsForm::cmdFacts_Click() {
    if (!canGive()) {
        return;
    }
    canvas::DrawForm& form = form_->scenario();
    const canvas::LabelsD& node = *form.Labels.byIndex(focus().node);
    const auto known = form.facts.find(node.Index());
    FactsForm dialog({ports_.ports.messages, ports_.ports.files, ports_.ports.clipboard}, node.Caption(),
                     columnsOf(node), known == form.facts.end() ? entities::NodeFacts{} : known->second);
    ports_.dialogs.show(dialog);
    if (!dialog.isOk()) {
        return;
    }
    form.facts[node.Index()] = dialog.facts();
    ports_.facts.keep(form);
    touch(form);
}

bool RowsForm::countsShown() const {
    return state() && state()->counts;
}

void RowsForm::toggleCounts() {
    if (!form_) {
        return;
    }
    const bool shown = !countsShown();
    if (shown && (!state() || !state()->run)) {
        cmdRefresh_Click();
    }
    if (State* its = state()) {
        its->counts = shown;
        ports_.desk.showNotes(form_->scenario(), shown ? its : nullptr);
    }
}

void RowsForm::show(bool shown) {
    if (shown != shown_) {
        shown_ = shown;
        fill();
        tell();
    }
}

void RowsForm::watch(canvas::CanvasForm* form) {
    if (form != form_) {
        form_ = form;
        if (working_ && working_ != state()) {
            stop(kAnswer);  // it goes on when its scenario is in front again
        }
        fill();
        tell();
    }
}

void RowsForm::touch(const canvas::DrawForm& form) {
    const auto known = states_.find(&form);
    if (known != states_.end() && known->second->run && !known->second->old) {
        known->second->old = true;
        tell();
    }
}

void RowsForm::forget(canvas::CanvasForm& form) {
    if (form_ == &form) {
        watch(nullptr);
    }
    const auto known = form.isZoom() ? states_.end() : states_.find(&form.scenario());
    if (known != states_.end()) {
        while (working_ == known->second.get() && !stop(kAnswer) && piece_ != Piece::opening) {
        }
        if (known->second->counts) {
            ports_.desk.showNotes(form, nullptr);
        }
        if (working_ == known->second.get()) {
            leaving_ = std::move(known->second);
        }
        states_.erase(known);
    }
}

}  // namespace orvent::shell
