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

namespace {

bool joins(const Canvas& canvas, NodeNumber from, NodeNumber to) {
    const LabelsD& node = *canvas.Labels.byIndex(from);
    for (const EdgeNumber number : node.StartingLines()) {
        const LinesD* edge = canvas.Lines.byIndex(number);
        if (edge && edge->EdgeType() == EdgeTypeProvider && edge->ToLabel() == to) {
            return true;
        }
    }
    return false;
}

}  // namespace

std::vector<WantedEdge> DrawForm::wantedEdges() const {
    std::vector<WantedEdge> edges;
    for (const WantedEdge& edge : wanted_) {
        if (Labels.byIndex(edge.from) && Labels.byIndex(edge.to) && !joins(*this, edge.from, edge.to)) {
            edges.push_back(edge);
        }
    }
    return edges;
}

void DrawForm::offerEdges(std::vector<WantedEdge> edges) {
    wanted_ = std::move(edges);
    tellForm();
}

std::optional<Offer> DrawForm::offer() const {
    if (const std::optional<Offer> ofEdge = edgeOffer()) {
        return ofEdge;
    }
    std::vector<std::string> names;
    for (const WantedEdge& edge : wantedEdges()) {
        names.push_back("from " + Labels.byIndex(edge.from)->Caption() + " to " + Labels.byIndex(edge.to)->Caption());
    }
    if (names.empty()) {
        return CanvasForm::offer();
    }
    return Offer{"Links lead " + platform::nameList(names) + (names.size() == 1 ? ", and no edge." : ", and no edges."),
                 names.size() == 1 ? "Draw Edge" : "Draw Edges"};
}

void DrawForm::drawWanted(const std::vector<WantedEdge>& edges) {
    for (const WantedEdge& edge : edges) {
        const bool fromData = Labels.byIndex(edge.from)->activity() && !edge.control;
        Lines.addFullLine(edge.from, fromData ? 4 : 3, edge.to, edge.control ? 5 : 1, EdgeTypeProvider, AngleStraight,
                          0);
    }
}

void DrawForm::answerOffer(bool taken) {
    if (!edgeOffer()) {
        const std::vector<WantedEdge> edges = wantedEdges();
        wanted_.clear();
        if (edges.empty()) {
            CanvasForm::answerOffer(taken);
            return;
        }
        if (taken) {
            drawWanted(edges);
        }
        tellForm();
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
