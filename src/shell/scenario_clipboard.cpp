#include "shell/scenario_clipboard.h"

#include <algorithm>

#include "canvas/deletion.h"
#include "canvas/node_tip.h"
#include "exchange/bad_document.h"
#include "shell/program_version.h"

namespace orvent::shell {

namespace {

std::string nodesWords(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " node" : " nodes");
}

}  // namespace

bool ScenarioClipboard::put(const canvas::DrawForm& form) {
    std::string text = exchange::copySelection(form, exchange_.catalogue, programVersion());
    if (text.empty()) {
        ports_.progress.status("No node is selected.");
        return false;
    }
    ports_.clipboard.put(text, exchange::kMimeType);
    known_.emplace(std::move(text));
    return true;
}

void ScenarioClipboard::copy(const canvas::DrawForm& form) {
    if (put(form)) {
        ports_.progress.status("Copied " + nodesWords(form.SelectedLabels.members().size()) + ".");
    }
}

void ScenarioClipboard::copyText(const zoom::ZoomView& view) {
    std::string text;
    for (const canvas::NodeNumber number : view.SelectedLabels.members()) {
        if (const canvas::LabelsD* node = view.Labels.byIndex(number)) {
            const canvas::NodeTip tip = canvas::tipOf(*node, {});
            text += tip.name + "\t" + tip.kind + "\t" + tip.counts + "\n";
        }
    }
    if (text.empty()) {
        ports_.progress.status("No node is selected.");
        return;
    }
    ports_.clipboard.put(text, "text/plain");
    ports_.progress.status("Copied " + nodesWords(static_cast<std::size_t>(std::ranges::count(text, '\n'))) +
                           " as text.");
}

void ScenarioClipboard::cut(canvas::DrawForm& form) {
    if (!put(form)) {
        return;
    }
    const std::size_t count = form.SelectedLabels.members().size();
    canvas::DeleteSelectedNodes(form, canvas::kEveryNodeType, ports_.links, form.rules());
    ports_.progress.status("Cut " + nodesWords(count) + ".");
}

void ScenarioClipboard::paste(canvas::DrawForm& form, std::optional<canvas::Point> at) {
    std::string text = ports_.clipboard.text(exchange::kMimeType);
    if (!exchange::mayBeDocument(text)) {
        ports_.progress.status("The clipboard holds no nodes.");
        return;
    }
    try {
        if (!known_ || known_->text() != text) {
            known_.emplace(std::move(text));
        }
        tell(exchange::paste(form, *known_, at, exchange_), "Pasted ");
    } catch (const exchange::BadDocument& bad) {
        ports_.messages.tell("This cannot be pasted.\n" + bad.description(), {}, platform::Icon::warning);
    }
}

void ScenarioClipboard::duplicate(canvas::DrawForm& form) {
    if (form.SelectedLabels.members().empty()) {
        ports_.progress.status("No node is selected.");
        return;
    }
    tell(exchange::duplicateSelection(form), "Duplicated ");
}

void ScenarioClipboard::tell(const exchange::Inserted& inserted, const char* done) {
    if (inserted.nodes.empty()) {
        return;
    }
    ports_.progress.status(done + nodesWords(inserted.nodes.size()) + ".");
    std::string words = inserted.words;
    for (const exchange::UncertainStatement& statement : inserted.uncertain) {
        words += (words.empty() ? "" : "\n") + std::string("The statement of ") + statement.activity +
                 " keeps its words: " + statement.why;
    }
    if (!words.empty()) {
        ports_.messages.tell(words);
    }
}

}  // namespace orvent::shell
