#pragma once

#include <cstdint>

#include "canvas/line_numbers.h"
#include "canvas/numbers.h"

namespace orvent::canvas {

class LabelsD;
class LinesD;
class Names2IndexColl;
struct CanvasSettings;

/// What nodes, edges and selections ask of the canvas that holds them.
class Graph {
  public:
    virtual ~Graph() = default;

    virtual const CanvasSettings& settings() const = 0;
    virtual Names2IndexColl& names() = 0;
    virtual LabelsD* nodeAt(NodeNumber index) = 0;
    virtual LinesD* edgeAt(EdgeNumber index) = 0;
    virtual bool isSelected(const LabelsD& node) const = 0;

    /// A name was refused as a duplicate.
    virtual void nameRefused() = 0;
    /// A node has another box: the ends of its edges follow.
    virtual void nodeMoved(const LabelsD& node) = 0;
    /// An edge is to leave a node, whose own list is empty already.
    virtual void detachEnd(EdgeNumber edge, EdgeEnd which) = 0;
    /// The pointer means that grab point of a node.
    virtual void grabPointMeant(int grabPoint) = 0;

    virtual void tellChanged(const LabelsD& node) = 0;
    virtual void tellChanged(const LinesD& edge) = 0;

    /// Something has changed that a scenario keeps.
    virtual void touch(const LabelsD& node) = 0;
    virtual void touch(const LinesD& edge) = 0;
    /// The same when it is nothing but the box of a node.
    virtual void touchBox(const LabelsD& node) = 0;
};

}  // namespace orvent::canvas
