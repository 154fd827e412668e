#pragma once

#include <cstdint>
#include <string>

#include "canvas/canvas.h"

namespace orvent::zoom {

// What becomes of an edge that was just drawn, whatever it stands for. Edges are named by their `Index`.

/// Whether no other edge of that kind joins the two nodes in that direction. If one does, the edge goes, with a
/// message.
bool CheckDuplicateLine(canvas::Canvas& view, canvas::EdgeNumber edge);

/// `why` stands below the message, where the picture does not tell it.
void RejectRelationship(canvas::Canvas& view, canvas::EdgeNumber edge, const std::string& why = {});

/// Replaces the edge by its reverse.
void FlipLine(canvas::Canvas& view, canvas::EdgeNumber& edge);

}  // namespace orvent::zoom
