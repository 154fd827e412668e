#pragma once

#include <cstdint>

#include "canvas/canvas.h"
#include "zoom/drawn_edge.h"
#include "zoom/member_ties.h"
#include "zoom/relationships.h"

namespace orvent::zoom {

// What a drawn edge of the zoom view means. An edge alone means nothing: it stands for a pair of links, or for a member
// of an activity. Every refusal removes the edge, and no link is written before all conditions and the data types hold.
// All edges are named by their `Index`.

/// Writes what the edge stands for, by the kinds of its two ends. The edge may be replaced by its reverse, and is
/// removed with a message when it is refused.
void CreateRelationship(ZoomForm& form, std::int32_t& edge);

/// Takes back what the edge stands for. The edge itself stays.
void RemoveRelationship(ZoomForm& form, std::int32_t edge);

/// Whether two nodes (attributes or parameters) have one data type. A target whose type its source defines takes it
/// over. False: the edge went, with a message.
bool CheckDataTypes(ZoomForm& form, const canvas::LabelsD& from, canvas::LabelsD& to, std::int32_t edge);

/// The rules above, as the zoom view asks for them.
class RelationshipRules : public Relationships {
  public:
    bool create(ZoomForm& form, std::int32_t edge) override;
    void remove(ZoomForm& form, std::int32_t edge) override { RemoveRelationship(form, edge); }
    void detachFunction(ZoomForm& form, canvas::LabelsD& function, canvas::LabelsD* activity) override {
        DetachFunction(form, function, activity);
    }
    bool mayRelate(const ZoomForm& form, canvas::EdgeTypeCode kind, const canvas::LabelsD& from,
                   const canvas::LabelsD& to) const override;
};

}  // namespace orvent::zoom
