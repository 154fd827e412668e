#include "qt/canvas/picture_index.h"

#include <algorithm>
#include <cmath>

namespace orvent::qt {

namespace {

constexpr std::size_t kFewChanges = 256;  // below this the index is kept up to date change by change

/// The square of the distance of a place to a line from one point to another.
float squareToLine(canvas::Point place, canvas::Point from, canvas::Point to) {
    const float dx = to.x - from.x;
    const float dy = to.y - from.y;
    const float length = dx * dx + dy * dy;
    const float along =
        length > 0 ? std::clamp(((place.x - from.x) * dx + (place.y - from.y) * dy) / length, 0.0F, 1.0F) : 0.0F;
    const float x = place.x - from.x - along * dx;
    const float y = place.y - from.y - along * dy;
    return x * x + y * y;
}

}  // namespace

void PictureIndex::ensure() const {
    if (!stale_) {
        return;
    }
    stale_ = false;
    nodes_.clear();
    edges_.clear();
    for (const canvas::LabelsD& node : canvas_.Labels) {
        nodes_.put(node, extentOf(node));
    }
    for (const canvas::LinesD& edge : canvas_.Lines) {
        if (canvas::isGiven(edge.ToLabel())) {
            edges_.put(edge, extentOf(edge));
        }
    }
}

void PictureIndex::drop() {
    stale_ = true;
    nodes_.clear();
    edges_.clear();
}

// While a canvas is being filled, or all of it changes, keeping the index up to date item by item and asking for single
// areas costs more than building it once at the next painting.
bool PictureIndex::takesChange() {
    return !stale_ && ++changes_ <= kFewChanges + count() / 4;
}

std::optional<Extent> PictureIndex::bounds() const {
    const std::optional<Extent> nodes = nodes_.bounds();
    const std::optional<Extent> edges = edges_.bounds();
    return nodes && edges ? nodes->united(*edges) : nodes ? nodes : edges;
}

const canvas::LabelsD* PictureIndex::nodeAt(canvas::Point place) const {
    ensure();
    const canvas::LabelsD* topmost = nullptr;
    for (const canvas::LabelsD* node : nodes_.at({place.x, place.y, place.x, place.y})) {
        if (node->Visible() && boxOf(*node).contains(place)) {
            topmost = node;
        }
    }
    return topmost;
}

/// One look at the edges near a place serves both. Handles of selected edges lie above others.
PictureIndex::EdgeHit PictureIndex::edgeAt(canvas::Point place, float handleReach, float lineReach) const {
    ensure();
    const auto holds = [&](float x, float y) {
        return std::abs(place.x - x) <= handleReach && std::abs(place.y - y) <= handleReach;
    };
    const float reach = std::max(handleReach, lineReach);
    const Extent around{place.x - reach, place.y - reach, place.x + reach, place.y + reach};
    constexpr canvas::HandleNumber kNone{};
    EdgeHit hit;
    bool foundSelected = false;
    float nearest = lineReach * lineReach;
    for (const canvas::LinesD* edge : edges_.at(around)) {
        if (!edge->Visible()) {
            continue;
        }
        const canvas::Point start{edge->X1(), edge->Y1()};
        const canvas::Point middle{edge->Xm(), edge->Ym()};
        const canvas::Point end{edge->X2(), edge->Y2()};
        const canvas::HandleNumber handle = holds(end.x, end.y)       ? edge->EndBox()
                                            : holds(start.x, start.y) ? edge->StartBox()
                                            : edge->middleHandleVisible() && holds(middle.x, middle.y) ? edge->MidBox()
                                                                                                       : kNone;
        if (handle != kNone && (edge->Selected() || !foundSelected)) {
            hit.handle = handle;
            foundSelected = edge->Selected();
        } else if (hit.handle == kNone && lineReach > 0) {
            const float away = std::min(squareToLine(place, start, middle), squareToLine(place, middle, end));
            if (away <= nearest) {
                nearest = away;
                hit.line = edge->Index();
            }
        }
    }
    return hit;
}

}  // namespace orvent::qt
