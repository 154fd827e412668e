#include "canvas/draw_form.h"

#include <utility>

#include "platform/name_list.h"

namespace orvent::canvas {

void DrawForm::Save() {
    if (store_) {
        store_->saveScenario(*this);
    }
}

std::string DrawForm::titleMark() const {
    std::string mark = deleted ? " (deleted)" : "";
    return stored.changed ? mark + " \u2022" : mark;
}

std::vector<std::string> DrawForm::unstorable() const {
    std::vector<std::string> names;
    for (const LabelsD& node : Labels) {
        const entities::ActivityProperties* activity = node.activity();
        if (activity && activity->Act_Type == -1) {
            names.push_back(node.Caption());
        }
    }
    return names;
}

std::optional<Offer> DrawForm::edgeOffer() const {
    const LinesD* edge = edgeOffers ? Lines.byIndex(drawn_) : nullptr;
    return edge ? edgeOffers->offerFor(*this, *edge) : std::nullopt;
}

std::optional<Offer> DrawForm::offer() const {
    const std::optional<Offer> ofEdge = edgeOffer();
    return ofEdge ? ofEdge : CanvasForm::offer();
}

void DrawForm::answerOffer(bool taken) {
    if (!edgeOffer()) {
        CanvasForm::answerOffer(taken);
        return;
    }
    const LinesD& edge = *Lines.byIndex(std::exchange(drawn_, {}));
    if (taken) {
        edgeOffers->take(*this, edge);
    }
    tellForm();
}

void DrawForm::edgeDrawn(const LinesD& edge) {
    drawn_ = edge.Index();
    CanvasForm::edgeDrawn(edge);
    tellForm();
}

void DrawForm::forgetEdge(const LinesD& edge) {
    CanvasForm::forgetEdge(edge);
    if (edge.Index() == drawn_) {
        drawn_ = {};
        tellForm();
    }
}

bool DrawForm::QueryUnload() {
    using namespace platform;
    std::string state = stored.changed ? "Changes that were not saved will be lost." : "Everything is saved.";
    if (const std::vector<std::string> names = unstorable(); stored.changed && !names.empty()) {
        state += "\nNo save keeps an activity without a type: " + nameList(names) + ".";
    }
    return messages().showWith(state, "ARE YOU SURE YOU WANT TO CLOSE " + Caption() + " ?", "Closing Scenario",
                               Icon::question, Buttons::destroyOkCancel) == Answer::ok;
}

}  // namespace orvent::canvas
