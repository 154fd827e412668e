#pragma once

#include <optional>
#include <span>
#include <string>

#include "zoom/zoom_rules.h"
#include "zoom/zoom_view.h"

namespace orvent::zoom {

/// The window over a zoom view: its rules, Save and closing, what it offers, and its legend. The design window takes no
/// input while it lives.
class ZoomForm : public ZoomView, private canvas::CanvasListener {
  public:
    ZoomForm(const ZoomServices& services, canvas::DrawForm& design);
    ~ZoomForm() override;

    canvas::CanvasRules& rules() override { return rules_; }
    /// Gives the changes to the scenario and stores it.
    void Save() override;
    bool QueryUnload() override;
    std::string titleMark() const override;
    std::string beyondOf(const canvas::LabelsD& node) const override;
    std::optional<canvas::Offer> offer() const override;
    void answerOffer(bool taken) override;
    std::span<const canvas::LegendEntry> legend() const override;

  private:
    void formChanged() override;
    bool offersRoom() const { return disorder() != Disorder::none && !roomDeclined_; }

    ZoomRules rules_{*this};
    canvas::CanvasSubscription design_;
    bool roomDeclined_ = false;
};

}  // namespace orvent::zoom
