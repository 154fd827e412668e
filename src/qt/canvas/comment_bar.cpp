#include "qt/canvas/comment_bar.h"

#include <algorithm>
#include <cmath>

#include "qt/canvas/transform.h"

namespace orvent::qt {

namespace {

constexpr double kBarWidth = 4;      // of the bar, in pixels
constexpr double kBarMargin = 3;     // above and below it
constexpr double kCommentThumb = 8;  // so that it can be taken

}  // namespace

QRectF commentStrip(const QRectF& box, double scale) {
    const double width = canvas::kCommentStrip * scale / kTwipsPerPixel;
    return {box.right() - width, box.top(), width, box.height()};
}

CommentBar::CommentBar(const QRectF& box, double scale, const CaptionCache::Caption& caption) {
    const QRectF strip = commentStrip(box, scale);
    // Below the folded corner, which takes as much as the strip is wide.
    const double top = box.top() + std::min(strip.width(), box.height() / 3) + kBarMargin;
    track = QRectF(strip.center().x() - kBarWidth / 2, top, kBarWidth, std::max(1.0, box.bottom() - kBarMargin - top));
    const double length =
        std::min(track.height(), std::max(kCommentThumb, track.height() * caption.shown / caption.lines));
    const double way = caption.scrolls() ? static_cast<double>(caption.first) / (caption.lines - caption.shown) : 0;
    thumb = QRectF(track.left(), track.top() + (track.height() - length) * way, kBarWidth, length);
}

int CommentBar::firstLineAt(double y, const CaptionCache::Caption& caption) const {
    const double way = track.height() - thumb.height();
    const double share = way > 0 ? (y - thumb.height() / 2 - track.top()) / way : 0;
    return static_cast<int>(std::lround(std::clamp(share, 0.0, 1.0) * (caption.lines - caption.shown)));
}

}  // namespace orvent::qt
