#pragma once

#include "canvas/deletion.h"

namespace orvent::links {

/// How a canvas asks for the links behind an edge, and takes the entity of a node that is deleted out of all links.
class CanvasLinks : public canvas::EntityLinks {
  public:
    canvas::EdgeLinks linksBehind(const canvas::Canvas& canvas, const canvas::LinesD& edge) const override;
    void unsynchronise(canvas::Canvas& canvas, canvas::LabelsD& node) override;
};

}  // namespace orvent::links
