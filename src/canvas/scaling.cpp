#include "canvas/scaling.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "platform/text.h"

namespace orvent::canvas {

namespace {

// Nothing is placed beyond, so that no ratio ever makes a place that is no number.
constexpr double kFarthest = 1e30;

constexpr double kFarthestZoomed = 1e6;  // twips that a zoom may carry a node to
constexpr double kApart = 100;           // twips between nodes that a zoom must not push into one

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

bool mayZoom(const Canvas& canvas, bool ZoomIN, double By) {
    std::vector<Point> places;
    for (const LabelsD& node : canvas.Labels) {
        const Box& box = node.box();
        const double farthest =
            std::max({std::abs(box.Left), std::abs(box.Top), std::abs(box.right()), std::abs(box.bottom())});
        if (ZoomIN && farthest <= kFarthestZoomed && farthest * By > kFarthestZoomed) {
            return false;
        }
        places.push_back({box.Left, box.Top});
    }
    if (ZoomIN || By <= kApart) {
        return true;
    }
    std::sort(places.begin(), places.end(), [](const Point& a, const Point& b) { return a.x < b.x; });
    for (auto one = places.begin(); one != places.end(); ++one) {
        for (auto other = one + 1; other != places.end() && double{other->x} - one->x < By; ++other) {
            const double distance = std::hypot(double{other->x} - one->x, double{other->y} - one->y);
            if (distance >= kApart && distance < By) {
                return false;
            }
        }
    }
    return true;
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
