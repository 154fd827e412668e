#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "zoom/zoom_view.h"

namespace orvent::zoom {

/// How edges run that a hand has led other than expanding draws them, by the names of their ends: taken before nodes
/// are collapsed for a while, and given back when they are expanded again.
class EdgeStrokes {
  public:
    explicit EdgeStrokes(const ZoomView& view);

    /// Leads the edges that are there again as they ran. Linear in the edges of the view.
    void restore(ZoomView& view) const;

  private:
    struct Stroke {
        std::string from, to;
        canvas::EdgeTypeCode kind;
        std::int16_t fromGrab, toGrab;
        canvas::AngleCode angle;
        canvas::Point middle;  ///< where a hand has put it, as far as the angle leaves it free
    };

    static void lead(canvas::LinesD& edge, const Stroke& stroke);

    std::vector<Stroke> strokes_;
};

}  // namespace orvent::zoom
