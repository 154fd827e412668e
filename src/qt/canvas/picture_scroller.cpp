#include "qt/canvas/picture_scroller.h"

#include <QScrollBar>
#include <algorithm>
#include <cmath>

namespace orvent::qt {

namespace {

constexpr double kMargin = 40;          // pixels around the picture
constexpr double kFarthestPixel = 1e8;  // scroll bars count in whole pixels
constexpr int kAround = 24;             // pixels around a node that is revealed
constexpr double kReadableScale = 0.75;

}  // namespace

Transform PictureScroller::transform() const {
    return {scale_, QPointF(area_.horizontalScrollBar()->value(), area_.verticalScrollBar()->value())};
}

/// `PicForm` and what lies beyond it with a margin, in pixels from the picture's origin.
QRectF PictureScroller::pictureArea() const {
    const Transform unscrolled{scale_, {}};
    const QRectF form = unscrolled.toPixels(Extent{0, 0, picture_.Width(), picture_.Height()});
    const std::optional<Extent> bounds = index_.bounds();
    if (!bounds) {
        return form;
    }
    const QRectF area = unscrolled.toPixels(*bounds).adjusted(-kMargin, -kMargin, kMargin, kMargin);
    const auto limited = [](double value) { return std::clamp(value, -kFarthestPixel, kFarthestPixel); };
    return QRectF(QPointF(std::min(0.0, limited(bounds->left < 0 ? area.left() : 0)),
                          std::min(0.0, limited(bounds->top < 0 ? area.top() : 0))),
                  QPointF(std::max(limited(form.right()), limited(area.right())),
                          std::max(limited(form.bottom()), limited(area.bottom()))));
}

void PictureScroller::updateBars() {
    const QRectF area = pictureArea();
    const QSize room = area_.viewport()->size();
    const double pixels = scale_ / kTwipsPerPixel;
    const auto set = [pixels](QScrollBar* bar, double from, double to, int length, const canvas::ScrollBar& steps) {
        const int least = static_cast<int>(std::floor(from));
        bar->setRange(least, std::max(least, static_cast<int>(std::ceil(to)) - length));
        // The steps follow the size of the picture, but never pass over what was not seen.
        bar->setPageStep(std::clamp(static_cast<int>(std::lround(steps.LargeChange * pixels)), 1, std::max(1, length)));
        bar->setSingleStep(
            std::clamp(static_cast<int>(std::lround(steps.SmallChange * pixels)), 1, std::max(1, length / 8)));
    };
    set(area_.horizontalScrollBar(), area.left(), area.right(), room.width(), window_.ScrollBarHor());
    set(area_.verticalScrollBar(), area.top(), area.bottom(), room.height(), window_.ScrollBarVer());
}

void PictureScroller::measureWindow() {
    const double twips = kTwipsPerPixel / scale_;
    window_.resize(static_cast<float>(area_.viewport()->width() * twips),
                   static_cast<float>(area_.viewport()->height() * twips));
    shownSize_ = {};
    followWindow();
}

void PictureScroller::followWindow() {
    if (shownSize_.x != picture_.Width() || shownSize_.y != picture_.Height()) {
        shownSize_ = {picture_.Width(), picture_.Height()};
        window_.settle();
        index_.ensure();
        updateBars();
    }
    const canvas::Point scroll = window_.seen();
    const QPointF pixels = Transform{scale_, {}}.toPixels(scroll);
    following_ = true;
    if (scroll.x != shownScroll_.x) {
        area_.horizontalScrollBar()->setValue(static_cast<int>(std::lround(pixels.x())));
    }
    if (scroll.y != shownScroll_.y) {
        area_.verticalScrollBar()->setValue(static_cast<int>(std::lround(pixels.y())));
    }
    following_ = false;
    shownScroll_ = scroll;
}

void PictureScroller::setScale(double scale) {
    setScale(scale, QRectF(area_.viewport()->rect()).center());
}

void PictureScroller::setScale(double scale, QPointF anchor) {
    const double wanted = std::isnan(scale) ? 1 : std::clamp(scale, kLeastScale, kLargestScale);
    if (wanted == scale_) {
        return;
    }
    index_.ensure();
    const QPointF place = (anchor + transform().origin) / scale_;
    scale_ = wanted;
    measureWindow();
    const QPointF origin = place * scale_ - anchor;
    area_.horizontalScrollBar()->setValue(static_cast<int>(std::lround(origin.x())));
    area_.verticalScrollBar()->setValue(static_cast<int>(std::lround(origin.y())));
    scaled_();
}

void PictureScroller::fit() {
    index_.ensure();
    const std::optional<Extent> bounds = index_.bounds();
    if (!bounds) {
        return;
    }
    const double left = std::min(0.0F, bounds->left);
    const double top = std::min(0.0F, bounds->top);
    const QSizeF room = QSizeF(area_.maximumViewportSize()) - QSizeF(2 * kMargin, 2 * kMargin);
    const double wide = room.width() * kTwipsPerPixel / std::max(1.0, bounds->right - left);
    const double high = room.height() * kTwipsPerPixel / std::max(1.0, bounds->bottom - top);
    setScale(std::min({wide, high, 2.0}));
    area_.horizontalScrollBar()->setValue(area_.horizontalScrollBar()->minimum());
    area_.verticalScrollBar()->setValue(area_.verticalScrollBar()->minimum());
}

void PictureScroller::present(const canvas::LabelsD& node) {
    fit();
    if (scale_ >= kReadableScale) {
        setScale(std::min(scale_, 1.0));
        return;
    }
    setScale(1);
    const Extent box = boxOf(node);
    centreOn({(box.left + box.right) / 2, (box.top + box.bottom) / 2});
}

void PictureScroller::centreOn(canvas::Point place) {
    scrollBy(transform().toPixels(place).toPoint() -
             QPoint(area_.viewport()->width() / 2, area_.viewport()->height() / 2));
}

void PictureScroller::reveal(const canvas::LabelsD& node) {
    const QRect box = transform().toPixels(extentOf(node)).toAlignedRect();
    // A little of what is around it is seen, too, where there is room.
    const auto shift = [](QScrollBar* bar, int from, int to, int room) {
        const int around = std::clamp((room - (to - from)) / 2, 0, kAround);
        from -= around;
        to += around;
        bar->setValue(bar->value() + (from < 0 ? from : std::min(std::max(0, to - room), from)));
    };
    shift(area_.horizontalScrollBar(), box.left(), box.right(), area_.viewport()->width());
    shift(area_.verticalScrollBar(), box.top(), box.bottom(), area_.viewport()->height());
}

void PictureScroller::scrollBy(QPoint pixels) {
    area_.horizontalScrollBar()->setValue(area_.horizontalScrollBar()->value() + pixels.x());
    area_.verticalScrollBar()->setValue(area_.verticalScrollBar()->value() + pixels.y());
}

void PictureScroller::followBars() {
    if (!following_) {
        const QPointF twips = transform().origin * (kTwipsPerPixel / scale_);
        window_.scrollTo(static_cast<float>(twips.x()), static_cast<float>(twips.y()));
        shownScroll_ = window_.seen();
    }
}

}  // namespace orvent::qt
