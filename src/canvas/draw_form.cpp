#include "canvas/draw_form.h"

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

bool DrawForm::QueryUnload() {
    using namespace platform;
    return messages().showWith(stored.changed ? "Changes that were not saved will be lost." : "Everything is saved.",
                               "ARE YOU SURE YOU WANT TO CLOSE " + Caption() + " ?", "Closing Scenario", Icon::question,
                               Buttons::destroyOkCancel) == Answer::ok;
}

}  // namespace orvent::canvas
