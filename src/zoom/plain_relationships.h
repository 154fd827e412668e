#pragma once

#include "zoom/relationships.h"

namespace orvent::zoom {

/// Refuses every edge that is drawn. What links an edge stands for is given up on both of its ends.
class PlainRelationships : public Relationships {
  public:
    void create(ZoomForm& form, std::int32_t edge) override;
    void remove(ZoomForm& form, std::int32_t edge) override;
    void detachFunction(ZoomForm& form, canvas::LabelsD& function, canvas::LabelsD* activity) override;
    bool mayRelate(const ZoomForm& form, canvas::EdgeTypeCode kind, const canvas::LabelsD& from,
                   const canvas::LabelsD& to) const override;
};

}  // namespace orvent::zoom
