#include "canvas/canvas_form.h"

#include <utility>
#include <vector>

#include "canvas/straighten.h"

namespace orvent::canvas {

void CanvasForm::tellForm() {
    listeners().tell([](CanvasListener& listener) { listener.formChanged(); });
}

std::optional<Offer> CanvasForm::offer() const {
    if (putBack_ && putBack_->isOpen()) {
        return Offer{"Tidied up by the flow from left to right.", "Put Back"};
    }
    const LinesD* edge = Lines.byIndex(crooked_);
    return edge && isCrooked(*this, *edge)
               ? std::optional(Offer{"The new edge does not run straight from box to box.", "Straighten"})
               : std::nullopt;
}

void CanvasForm::answerOffer(bool taken) {
    if (const auto putBack = std::move(putBack_); putBack && putBack->isOpen()) {
        if (taken) {
            putBack->run();
        }
        tellForm();
        return;
    }
    if (LinesD* edge = Lines.byIndex(crooked_); edge && taken) {
        straighten(*this, *edge);
    }
    crooked_ = {};
    tellForm();
}

void CanvasForm::edgeDrawn(const LinesD& edge) {
    if (!straightOffered_ && isCrooked(*this, edge)) {
        straightOffered_ = true;
        crooked_ = edge.Index();
        tellForm();
    }
}

void CanvasForm::forgetEdge(const LinesD& edge) {
    Canvas::forgetEdge(edge);
    if (edge.Index() == crooked_) {
        crooked_ = {};
        tellForm();
    }
}

void CanvasForm::straightenEdges(LinesD* edge) {
    edge && !edge->Selected() ? straighten(*this, *edge) : straightenSelected(*this);
    tellForm();
}

bool CanvasForm::tidyUp() {
    const std::vector<NodeNumber> nodes = nodesToTidy(*this);
    FormerPlaces former(*this, nodes);
    const std::uint64_t before = changes();
    canvas::tidyUp(*this, nodes, SelectedLabels.Count() < 2);
    if (changes() == before) {
        return false;
    }
    putBack_ = std::make_unique<PutBack>(*this, std::move(former), [this] { tellForm(); });
    tellForm();
    return true;
}

void CanvasForm::setCaption(const std::string& value) {
    caption_ = value;
    tellForm();
}

void CanvasForm::setEnabled(bool value) {
    if (enabled_ != value) {
        enabled_ = value;
        tellForm();
    }
}

}  // namespace orvent::canvas
