#include "canvas/arrangement.h"

#include <algorithm>
#include <array>
#include <vector>

#include "canvas/node_moves.h"
#include "canvas/select_along.h"

namespace orvent::canvas {

namespace {

enum class Axis { across, down };

/// A box along one of the two axes.
struct Stretch {
    LabelsD* node;
    float from, size;

    float end() const { return from + size; }
};

std::vector<Stretch> selectedAlong(Canvas& canvas, Axis axis) {
    std::vector<Stretch> stretches;
    for (const NodeNumber index : canvas.SelectedLabels.members()) {
        LabelsD* node = canvas.Labels.byIndex(index);
        stretches.push_back(axis == Axis::across ? Stretch{node, node->Left(), node->Width()}
                                                 : Stretch{node, node->Top(), node->Height()});
    }
    return stretches;
}

void moveTo(Canvas& canvas, const Stretch& stretch, Axis axis, float from) {
    Box box = stretch.node->box();
    (axis == Axis::across ? box.Left : box.Top) = from;
    if (box != stretch.node->box()) {
        reshape(canvas, *stretch.node, box);
    }
}

/// Brings the same share of each box (0 its beginning, 1 its end) to that share of what all take together.
template <Axis axis, int percent>
std::string_view align(CanvasForm& form) {
    constexpr float kShare = static_cast<float>(percent) / 100;
    const ManyChanges many(form);
    const std::vector<Stretch> stretches = selectedAlong(form, axis);
    float from = stretches.front().from, end = stretches.front().end();
    for (const Stretch& stretch : stretches) {
        from = std::min(from, stretch.from);
        end = std::max(end, stretch.end());
    }
    for (const Stretch& stretch : stretches) {
        moveTo(form, stretch, axis, from + kShare * (end - from - stretch.size));
    }
    return {};
}

/// Leaves the first and the last box where they are, and the same room between any two.
template <Axis axis>
std::string_view distribute(CanvasForm& form) {
    const ManyChanges many(form);
    std::vector<Stretch> stretches = selectedAlong(form, axis);
    std::stable_sort(stretches.begin(), stretches.end(),
                     [](const Stretch& a, const Stretch& b) { return a.from + a.end() < b.from + b.end(); });
    float room = stretches.back().end() - stretches.front().from;
    for (const Stretch& stretch : stretches) {
        room -= stretch.size;
    }
    room /= static_cast<float>(stretches.size() - 1);
    float next = stretches.front().from;
    for (const Stretch& stretch : stretches) {
        moveTo(form, stretch, axis, next);
        next += stretch.size + room;
    }
    return {};
}

template <Along way>
std::string_view addAlong(CanvasForm& form) {
    selectAlong(form, way);
    return {};
}

struct Arrangement {
    EditAction action;
    std::string_view words;
    int least;  ///< selected nodes
    std::string_view (*run)(CanvasForm&);
};

constexpr std::array kArrangements = {
    Arrangement{
        EditAction::tidyUp, "Tidy Up", 0,
        [](CanvasForm& form) -> std::string_view { return form.tidyUp() ? "" : "The nodes stand in order already."; }},
    Arrangement{EditAction::alignLeft, "Align Left", 2, align<Axis::across, 0>},
    Arrangement{EditAction::alignCentre, "Align Centre", 2, align<Axis::across, 50>},
    Arrangement{EditAction::alignRight, "Align Right", 2, align<Axis::across, 100>},
    Arrangement{EditAction::alignTop, "Align Top", 2, align<Axis::down, 0>},
    Arrangement{EditAction::alignMiddle, "Align Middle", 2, align<Axis::down, 50>},
    Arrangement{EditAction::alignBottom, "Align Bottom", 2, align<Axis::down, 100>},
    Arrangement{EditAction::distributeAcross, "Distribute Across", 3, distribute<Axis::across>},
    Arrangement{EditAction::distributeDown, "Distribute Down", 3, distribute<Axis::down>},
    Arrangement{EditAction::selectUpstream, "", 1, addAlong<Along::upstream>},
    Arrangement{EditAction::selectDownstream, "", 1, addAlong<Along::downstream>},
    Arrangement{EditAction::selectConnected, "", 1, addAlong<Along::connected>},
    Arrangement{EditAction::selectBetween, "", 2,
                [](CanvasForm& form) -> std::string_view {
                    return form.SelectedLabels.Count() > 2 ? "Select two nodes alone."
                           : selectBetween(form)           ? ""
                                                           : "No edges lead from one of the two nodes to the other.";
                }},
    Arrangement{EditAction::selectSameType, "", 1,
                [](CanvasForm& form) {
                    selectSameType(form);
                    return std::string_view();
                }},
};

const Arrangement* arrangementOf(EditAction action) {
    const auto row = std::find_if(kArrangements.begin(), kArrangements.end(),
                                  [action](const Arrangement& each) { return each.action == action; });
    return row == kArrangements.end() ? nullptr : &*row;
}

constexpr std::array<std::string_view, 4> kTooFew = {"", "Select a node first.", "Select at least two nodes.",
                                                     "Select at least three nodes."};

}  // namespace

bool isArrangement(EditAction action) {
    return arrangementOf(action) != nullptr;
}

std::string_view wordsOf(EditAction action) {
    return arrangementOf(action)->words;
}

std::string_view arrange(CanvasForm& form, EditAction action) {
    const Arrangement& row = *arrangementOf(action);
    return form.SelectedLabels.Count() < row.least ? kTooFew[static_cast<std::size_t>(row.least)] : row.run(form);
}

}  // namespace orvent::canvas
