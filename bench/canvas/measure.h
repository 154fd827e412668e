#pragma once

#include <functional>

#include "bench/canvas/subjects.h"

namespace orvent::bench {

/// Runs the work so many times, each time after `prepare`, and gives the median in milliseconds.
double median(
    int runs, const std::function<void()>& work, const std::function<void()>& prepare = [] {});

/// Lets everything be painted that was asked for.
void settle();

/// Bytes of the heap in use.
double heapBytes();

// Each gives milliseconds.
double openToPicture(const std::function<std::unique_ptr<Subject>()>& make);
double repaintAll(Subject& subject);
/// The minimap over it: painted anew after a change, and shown after the view has moved.
struct MinimapCosts {
    double anew;
    double moved;
};
MinimapCosts minimap(Ours& subject);
/// One notch of the wheel.
double pan(Subject& subject, canvas::NodeNumber number);
double dragStep(Subject& subject, canvas::NodeNumber number);
double drop(Subject& subject, canvas::NodeNumber number, int runs);
/// One test, anywhere in what is seen now.
double hitTest(Subject& subject);
double selectAll(Subject& subject);
double cropStep(Ours& ours, const Graph& graph);
/// One step of a drag with the arrow, with a thousand nodes around that one selected; what the step costs while their
/// outlines are shown, and what the drop of all of them costs.
struct GroupDrag {
    double step;
    double drop;
    int edges;  ///< that follow
};
GroupDrag groupDrag(Ours& ours, canvas::NodeNumber number);
/// The path of that node is worked out and lit, and the rest is dimmed.
double lightStep(Ours& ours, canvas::NodeNumber number, bool wholePicture);
/// One step nearer at that node, at the slowest of the scales between the whole picture and 1:1.
double zoomStep(Subject& subject, canvas::NodeNumber number, int runs);
/// Scroll bars cost more to paint than all else of a step, and the same on every view.
void hideBars(Subject& subject);

}  // namespace orvent::bench
