#include "canvas/canvas_form.h"

namespace orvent::canvas {

void CanvasForm::tellForm() {
    listeners().tell([](CanvasListener& listener) { listener.formChanged(); });
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
