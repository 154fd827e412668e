#include "canvas/scaling.h"

#include <algorithm>
#include <limits>

#include "platform/text.h"

namespace orvent::canvas {

namespace {

// Nothing is placed beyond, so that no ratio ever makes a place that is no number.
constexpr double kFarthest = 1e30;

float scaled(float value, double factor) {
    return static_cast<float>(std::clamp(value * factor, -kFarthest, kFarthest));
}

}  // namespace

double GetRatio(platform::InputBox& input, platform::MessageBox& messages, const std::string& direction) {
    for (;;) {
        std::string text = input.ask("ZOOM " + direction + " RATIO :", "Zooming " + direction, "");
        if (text.empty()) {
            return 1;
        }
        std::replace(text.begin(), text.end(), ',', '.');
        const double ratio = platform::parseNumber(text).value_or(0);
        if (ratio > 1) {
            return ratio;
        }
        messages.tell(ratio == 0 ? "WRONG NUMBER FORMAT!!" : "PLEASE GIVE A ZOOM RATIO MORE THAN ONE!!", "",
                      platform::Icon::warning);
    }
}

void Zoom(Canvas& canvas, bool ZoomIN, double By, platform::Progress& progress) {
    if (By == 1) {
        return;
    }
    const platform::Busy busy(progress);
    const double shown = std::min(By, double{std::numeric_limits<float>::max()});
    progress.status((ZoomIN ? "Zooming In By " : "Zooming Out By") + platform::numberText(static_cast<float>(shown)) +
                    "...");
    const double factor = ZoomIN ? By : 1 / By;
    const ManyChanges many(canvas);
    for (LabelsD& node : canvas.Labels) {
        node.setBox({scaled(node.Left(), factor), scaled(node.Top(), factor), scaled(node.Width(), factor),
                     scaled(node.Height(), factor)});
    }
    for (LinesD& edge : canvas.Lines) {
        edge.centreMiddle();
    }
    canvas.PicForm.setSize(scaled(canvas.PicForm.Width(), factor), scaled(canvas.PicForm.Height(), factor));
    canvas.growPicture();
    progress.status("Ready");
}

}  // namespace orvent::canvas
