#pragma once

#include <string>

namespace orvent::canvas {

class LabelsD;

/// Short texts that a canvas shows at its nodes. They are of the view alone.
class NodeNotes {
  public:
    virtual ~NodeNotes() = default;

    /// Empty for a node without one.
    virtual std::string note(const LabelsD& node) const = 0;
};

}  // namespace orvent::canvas
