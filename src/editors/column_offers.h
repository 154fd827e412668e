#pragma once

#include "canvas/draw_form.h"

namespace orvent::editors {

/// A provider edge that was just drawn offers what dragging all columns of its source would do: the inputs of an
/// activity with their outputs, or the columns of a record set, come from the provider.
class ColumnOffers : public canvas::EdgeOffers {
  public:
    /// What is new bears the bare names of its sources while `shortNames` is true, which outlives this.
    explicit ColumnOffers(const bool& shortNames) : shortNames_(shortNames) {}

    /// Nothing once a link leads from the edge's source to its target, and for an edge that carries control.
    std::optional<canvas::Offer> offerFor(const canvas::DrawForm& form, const canvas::LinesD& edge) const override;
    void take(canvas::DrawForm& form, const canvas::LinesD& edge) const override;

  private:
    const bool& shortNames_;
};

}  // namespace orvent::editors
