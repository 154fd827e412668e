#pragma once

#include "canvas/deletion.h"

namespace orvent::links {

/// How a canvas takes the entity of a node that is deleted out of all links.
class CanvasLinks : public canvas::EntityLinks {
  public:
    void unsynchronise(canvas::Canvas& canvas, canvas::LabelsD& node) override;
};

}  // namespace orvent::links
