#pragma once

#include <QPixmap>
#include <map>
#include <tuple>
#include <unordered_map>

#include "canvas/labels.h"
#include "qt/canvas/captions.h"
#include "qt/canvas/paint_context.h"
#include "qt/theme/node_colours.h"

namespace orvent::qt {

/// What a node's picture shows beside the node itself.
struct NodeState {
    bool selected = false;
    bool dimmed = false;    ///< others are lit
    std::int32_t mask = 0;  ///< taken out of the node's colour
    bool beyond = false;    ///< it is joined with something that is not shown
};

/// What lets the central node of a canvas stand out, behind it.
void paintCentre(const PaintContext& context, const canvas::LabelsD& node);
/// Marks a node that a search has found.
void paintFound(const PaintContext& context, const canvas::LabelsD& node);

/// Paints nodes: shape by figure, fill by colour, caption, and an outline around a selected one. Boxes of one figure,
/// size and colour look alike, so each such picture is drawn once and kept.
class NodePainter {
  public:
    explicit NodePainter(const QFont& font) : captions_(font) {}

    void paint(const PaintContext& context, const canvas::LabelsD& node, NodeState state);

    /// The width of a node's box, in twips, in which its name stands in one line.
    float widthForName(const canvas::LabelsD& node);

    /// Call it before a round of painting; it drops what no longer fits the scale and what has grown too large.
    void prepare(const PaintContext& context);
    /// Drops the kept pictures, for other colours.
    void forgetPictures() {
        pictures_.clear();
        colours_.clear();
    }
    const NodeColours& coloursOf(std::int32_t modelColour, const CanvasColours& theme);
    void forgetCaption(canvas::NodeNumber index) { captions_.forget(index); }
    void setFont(const QFont& font) { captions_.setFont(font); }
    /// The captions that were painted lately.
    CaptionCache& cache() { return captions_; }
    const CaptionCache& cache() const { return captions_; }

  private:
    /// Figure, width and height in device pixels, fill, and whether it is faint.
    using PictureKey = std::tuple<canvas::Figure, int, int, QRgb, bool>;

    void paintBox(const PaintContext& context, canvas::Figure figure, const QRectF& box, const QColor& fill,
                  bool faint);
    void paintCaption(const PaintContext& context, const canvas::LabelsD& node, const QRectF& box,
                      const QColor& colour);

    CaptionCache captions_;
    std::map<PictureKey, QPixmap> pictures_;
    std::unordered_map<std::int32_t, NodeColours> colours_;  ///< by the model's colour
    double scale_ = 0;
    double pixelRatio_ = 0;
};

}  // namespace orvent::qt
