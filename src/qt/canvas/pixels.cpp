#include "qt/canvas/pixels.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

namespace orvent::qt {

namespace {

constexpr int kFraction = 32;  // bits behind the point of a coordinate
constexpr double kOne = 4294967296.0;
constexpr int kCoveredBits = 8;
constexpr unsigned kCovered = 1U << kCoveredBits;
constexpr int kCoarser = kFraction - kCoveredBits;

/// `covered` of 256 parts of the pixel take the colour.
void blend(QRgb& pixel, QRgb colour, unsigned covered) {
    constexpr unsigned kRedBlue = 0xFF00FF;
    constexpr unsigned kGreen = 0x00FF00;
    if (covered >= kCovered) {
        pixel = colour;
        return;
    }
    const unsigned left = kCovered - covered;
    const unsigned redBlue = ((colour & kRedBlue) * covered + (pixel & kRedBlue) * left) >> 8;
    const unsigned green = ((colour & kGreen) * covered + (pixel & kGreen) * left) >> 8;
    pixel = 0xFF000000U | (redBlue & kRedBlue) | (green & kGreen);
}

/// The nearest device pixel from 0 to `most`.
int deviceAt(double place, int most) {
    return static_cast<int>(std::clamp(place + 0.5, 0.0, static_cast<double>(most)));
}

}  // namespace

Pixels::Pixels(QImage& image, QPointF origin, double ratio)
    : bits_(reinterpret_cast<QRgb*>(image.bits())),
      stride_(image.bytesPerLine() / static_cast<qsizetype>(sizeof(QRgb))),
      width_(image.width()),
      height_(image.height()),
      origin_(origin),
      ratio_(ratio) {}

void Pixels::fill(const QRectF& box, QRgb colour) {
    const double x = (box.left() - origin_.x()) * ratio_;
    const double y = (box.top() - origin_.y()) * ratio_;
    const int left = deviceAt(x, width_);
    const int top = deviceAt(y, height_);
    const int right = deviceAt(std::max(x + box.width() * ratio_, std::floor(x + 0.5) + 1), width_);
    const int bottom = deviceAt(std::max(y + box.height() * ratio_, std::floor(y + 0.5) + 1), height_);
    for (int row = top; row < bottom; ++row) {
        std::fill(bits_ + row * stride_ + left, bits_ + row * stride_ + std::max(left, right), colour);
    }
}

void Pixels::frame(const QRectF& box, double width, QRgb colour) {
    fill({box.left(), box.top(), box.width(), width}, colour);
    fill({box.left(), box.bottom() - width, box.width(), width}, colour);
    fill({box.left(), box.top(), width, box.height()}, colour);
    fill({box.right() - width, box.top(), width, box.height()}, colour);
}

Pixels::Course Pixels::courseOf(const QLineF& line, double longer) const {
    const QLineF device((line.p1() - origin_) * ratio_, (line.p2() - origin_) * ratio_);
    const bool steep = std::abs(device.dy()) > std::abs(device.dx());
    Course course{};
    course.from = steep ? device.y1() : device.x1();
    course.to = steep ? device.y2() : device.x2();
    double across = steep ? device.x1() : device.y1();
    double acrossEnd = steep ? device.x2() : device.y2();
    if (course.from > course.to) {
        std::swap(course.from, course.to);
        std::swap(across, acrossEnd);
    }
    const double length = course.to - course.from;
    const double slope = length > 0 ? (acrossEnd - across) / length : 0;
    if (longer > 0) {
        const double by = longer / std::sqrt(1 + slope * slope);
        course.from -= by;
        course.to += by;
        across -= by * slope;
    }
    const double start = std::floor(course.from);
    course.first = static_cast<int>(std::max(0.0, start));
    course.last = static_cast<int>(std::min(steep ? height_ - 1.0 : width_ - 1.0, std::floor(course.to)));
    // Counted from the line's own start, so that it is the same whatever part is seen.
    course.step = static_cast<std::int64_t>(slope * kOne);
    course.at = static_cast<std::int64_t>((across + (start + 0.5 - course.from) * slope) * kOne) +
                (course.first - static_cast<std::int64_t>(start)) * course.step;
    course.room = static_cast<unsigned>(steep ? width_ : height_);
    course.nextAlong = steep ? stride_ : 1;
    course.nextAcross = steep ? 1 : stride_;
    return course;
}

void Pixels::line(const QLineF& line, QRgb colour) {
    const Course course = courseOf(line, 0);
    std::int64_t at = course.at;
    QRgb* pixel = bits_ + course.first * course.nextAlong;
    for (int i = course.first; i <= course.last; ++i, at += course.step, pixel += course.nextAlong) {
        const std::int64_t place = at >> kFraction;
        if (place >= 0 && place < course.room) {
            pixel[place * course.nextAcross] = colour;
        }
    }
}

void Pixels::smoothLine(const QLineF& line, double width, QRgb colour) {
    const Course course = courseOf(line, width * ratio_ / 2);
    // Each step paints a strip across, of the same length all along; where it ends within a pixel, it covers a part.
    const double slope = static_cast<double>(course.step) / kOne;
    const auto extent = static_cast<std::int64_t>(width * ratio_ * std::sqrt(1 + slope * slope) * kCovered + 0.5);
    std::int64_t at = course.at;
    for (int i = course.first; i <= course.last; ++i, at += course.step) {
        const double share = std::min(i + 1.0, course.to) - std::max(static_cast<double>(i), course.from);
        const auto weight = share >= 1 ? kCovered : static_cast<unsigned>(share * kCovered + 0.5);
        QRgb* pixels = bits_ + i * course.nextAlong;
        std::int64_t from = (at >> kCoarser) - extent / 2;
        for (const std::int64_t end = from + extent; from < end;) {
            const std::int64_t place = from >> kCoveredBits;
            const std::int64_t next = std::min(end, (place + 1) << kCoveredBits);
            if (place >= 0 && place < course.room) {
                blend(pixels[place * course.nextAcross], colour,
                      static_cast<unsigned>(next - from) * weight >> kCoveredBits);
            }
            from = next;
        }
    }
}

}  // namespace orvent::qt
