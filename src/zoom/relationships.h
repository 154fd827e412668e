#pragma once

#include <cstdint>

#include "canvas/labels.h"
#include "canvas/lines.h"

namespace orvent::zoom {

class ZoomForm;

/// What an edge of the zoom view stands for: the links, the ownership, and which nodes may be joined.
class Relationships {
  public:
    virtual ~Relationships() = default;

    /// The edge was drawn, or an end of it was moved: writes its links, or removes it with a message. It may be
    /// replaced by another edge. False: it was refused.
    virtual bool create(ZoomForm& form, std::int32_t edge) = 0;

    /// Takes back what stands behind the edge. The edge itself stays.
    virtual void remove(ZoomForm& form, std::int32_t edge) = 0;

    /// Unties a function from the activity that has it; nothing without an activity.
    virtual void detachFunction(ZoomForm& form, canvas::LabelsD& function, canvas::LabelsD* activity) = 0;

    /// Whether an edge of that kind from one node to the other would stand.
    virtual bool mayRelate(const ZoomForm& form, canvas::EdgeTypeCode kind, const canvas::LabelsD& from,
                           const canvas::LabelsD& to) const = 0;
};

}  // namespace orvent::zoom
