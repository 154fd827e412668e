#pragma once

#include <QRectF>

#include "canvas/labels.h"
#include "qt/canvas/captions.h"

namespace orvent::qt {

/// The scroll bar of a comment whose text is longer than its box, in pixels of the viewport. It lies in the strip at
/// the right end that is kept free for it.
struct CommentBar {
    QRectF track;
    QRectF thumb;

    /// `box` is the comment's, at a scale.
    CommentBar(const QRectF& box, double scale, const CaptionCache::Caption& caption);

    /// The first line to show when the thumb's middle is at that height.
    int firstLineAt(double y, const CaptionCache::Caption& caption) const;
};

/// The strip of a box at a scale.
QRectF commentStrip(const QRectF& box, double scale);

}  // namespace orvent::qt
