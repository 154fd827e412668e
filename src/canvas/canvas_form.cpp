#include "canvas/canvas_form.h"

namespace orvent::canvas {

void CanvasForm::setCaption(const std::string& value) {
    caption_ = value;
    listeners().tell([](CanvasListener& listener) { listener.formChanged(); });
}

void CanvasForm::setEnabled(bool value) {
    if (enabled_ != value) {
        enabled_ = value;
        listeners().tell([](CanvasListener& listener) { listener.formChanged(); });
    }
}

}  // namespace orvent::canvas
