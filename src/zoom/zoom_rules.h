#pragma once

#include "canvas/canvas_rules.h"
#include "zoom/zoom_view.h"

namespace orvent::zoom {

/// The rules of the zoom window.
class ZoomRules : public canvas::CanvasRules {
  public:
    explicit ZoomRules(ZoomView& view) : view_(view) {}

    canvas::LabelsD* placeNode(canvas::Canvas& canvas, std::string_view tool, canvas::Point at) override;
    bool places(std::string_view tool) const override;
    std::optional<canvas::EdgeTypeCode> edgeTypeOf(std::string_view tool) const override;
    bool mayStart(canvas::EdgeTypeCode edgeType, const canvas::LabelsD& source) const override;
    bool mayRelate(const canvas::Canvas& canvas, canvas::EdgeTypeCode edgeType, const canvas::LabelsD& from,
                   const canvas::LabelsD& to) const override;
    bool mayRedirect(canvas::Canvas& canvas, canvas::LinesD& edge, bool atStart,
                     const canvas::LabelsD& target) override;
    void edgeCompleted(canvas::Canvas& canvas, canvas::LinesD& edge) override;
    void edited(canvas::Canvas& canvas) override;
    void middleOnOwnEnd(canvas::LinesD& edge) override;
    bool releaseEdge(canvas::Canvas& canvas, canvas::LinesD& edge) override;
    bool mayDelete(canvas::Canvas& canvas, const canvas::LabelsD& node) override;
    bool releaseFunction(canvas::Canvas& canvas, canvas::LabelsD& node) override;
    std::span<const canvas::ContextMenu> menus() const override;
    bool toggleExpanded(canvas::Canvas& canvas, canvas::LabelsD& node) override;
    canvas::Light pathOf(const canvas::Canvas& canvas, const canvas::LabelsD& node) const override;
    /// What repeats another node is not edited there.
    canvas::ItemState stateOf(const canvas::Canvas& canvas, const canvas::ContextItem& item,
                              const canvas::LabelsD* node) const override;

  private:
    ZoomView& view_;
};

}  // namespace orvent::zoom
