#pragma once

#include "zoom/zoom_view.h"

namespace orvent::zoom {

/// Whether the node stands for a data type or a function type in the instance-of view.
inline bool isTypeNode(const canvas::LabelsD& node) {
    return node.NodeType() == canvas::NodeTypeDataType || node.NodeType() == canvas::NodeTypeFunctionType;
}

/// Shows and hides edges, and the nodes of parameters, functions and constants, as the view's marks say. Nothing of it
/// touches a link. Linear in nodes and edges.
void applyFilters(ZoomView& view);

/// After nodes were made or collapsed: builds the instance-of view and the derived edges anew while their marks are on,
/// and applies all filters.
void refreshFilters(ZoomView& view);

/// After an edit: hides what a filter hides of it, and brings the instance-of view and the derived edges up to date. A
/// view that is up to date stays as it stands.
void followEdits(ZoomView& view);

// The items of the view menu: each turns its mark and shows or hides what it stands for.
void toggleFilter(ZoomView& view, bool ViewMarks::*mark);

/// One node for each data type and each function type on the canvas, and an edge to it from each entity of the type.
void showInstanceOf(ZoomView& view);
void hideInstanceOf(ZoomView& view);

/// Edges that tell through which parameters the central activity's outputs depend on what regulates those. They carry
/// no link.
void showDerived(ZoomView& view);

}  // namespace orvent::zoom
