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

/// The channels of a colour apart from each other, with room for a product by 256 each.
std::uint64_t spread(QRgb colour) {
    return (colour & 0xFF00FFU) | static_cast<std::uint64_t>(colour & 0x00FF00U) << 24;
}

/// `covered` of 256 parts of the pixel take the colour, which comes spread.
void cover(QRgb& pixel, std::uint64_t colour, unsigned covered) {
    const std::uint64_t present = spread(pixel);
    const std::uint64_t mixed = ((present << kCoveredBits) + (colour - present) * covered) >> kCoveredBits;
    pixel = 0xFF000000U | (static_cast<QRgb>(mixed) & 0xFF00FFU) | (static_cast<QRgb>(mixed >> 24) & 0x00FF00U);
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
    const Steps seen = stepsAt(course, 0, (static_cast<std::int64_t>(course.room) << kFraction) - 1);
    std::int64_t at = course.at + (seen.first - course.first) * course.step;
    QRgb* pixel = bits_ + seen.first * course.nextAlong;
    for (int i = seen.first; i <= seen.last; ++i, at += course.step, pixel += course.nextAlong) {
        pixel[(at >> kFraction) * course.nextAcross] = colour;
    }
}

void Pixels::smoothLine(const QLineF& line, double width, QRgb colour) {
    const Course course = courseOf(line, width * ratio_ / 2);
    const double slope = static_cast<double>(course.step) / kOne;
    const auto extent = static_cast<std::int64_t>(width * ratio_ * std::sqrt(1 + slope * slope) * kCovered + 0.5);
    const Strips strips{extent, extent / 2, colour, spread(colour)};
    const std::int64_t room = static_cast<std::int64_t>(course.room) << kCoveredBits;
    const Steps seen = stepsAt(course, (strips.above - extent) << kCoarser, (room + strips.above) << kCoarser);
    // At its ends a line covers only a part of the step, and at the image's borders a part of the strip.
    Steps whole = stepsAt(course, strips.above << kCoarser, (room + strips.above - extent) << kCoarser);
    whole.first = std::max(whole.first, static_cast<int>(std::ceil(course.from)));
    whole.last = std::min(whole.last, static_cast<int>(std::floor(course.to)) - 1);
    if (whole.first > whole.last) {
        paintParts(course, strips, seen);
        return;
    }
    paintParts(course, strips, {seen.first, whole.first - 1});
    paintWhole(course, strips, whole);
    paintParts(course, strips, {whole.last + 1, seen.last});
}

void Pixels::paintParts(const Course& course, const Strips& strips, Steps steps) {
    for (int i = steps.first; i <= steps.last; ++i) {
        const double share = std::min(i + 1.0, course.to) - std::max(static_cast<double>(i), course.from);
        const auto weight = share >= 1 ? kCovered : static_cast<unsigned>(share * kCovered + 0.5);
        QRgb* pixels = bits_ + i * course.nextAlong;
        std::int64_t from = startOf(course, strips, i);
        for (const std::int64_t end = from + strips.extent; from < end;) {
            const std::int64_t place = from >> kCoveredBits;
            const std::int64_t next = std::min(end, (place + 1) << kCoveredBits);
            if (place >= 0 && place < course.room) {
                cover(pixels[place * course.nextAcross], strips.channels,
                      static_cast<unsigned>(next - from) * weight >> kCoveredBits);
            }
            from = next;
        }
    }
}

void Pixels::paintWhole(const Course& course, const Strips& strips, Steps steps) {
    QRgb* pixels = bits_ + steps.first * course.nextAlong;
    for (int i = steps.first; i <= steps.last; ++i, pixels += course.nextAlong) {
        const std::int64_t from = startOf(course, strips, i);
        QRgb* pixel = pixels + (from >> kCoveredBits) * course.nextAcross;
        std::int64_t left = strips.extent;
        if (const std::int64_t before = from & (kCovered - 1); before > 0 || left < kCovered) {
            const std::int64_t part = std::min(left, kCovered - before);
            cover(*pixel, strips.channels, static_cast<unsigned>(part));
            pixel += course.nextAcross;
            left -= part;
        }
        for (; left >= kCovered; left -= kCovered, pixel += course.nextAcross) {
            *pixel = strips.colour;
        }
        if (left > 0) {
            cover(*pixel, strips.channels, static_cast<unsigned>(left));
        }
    }
}

std::int64_t Pixels::startOf(const Course& course, const Strips& strips, int step) {
    return ((course.at + (step - course.first) * course.step) >> kCoarser) - strips.above;
}

Pixels::Steps Pixels::stepsAt(const Course& course, std::int64_t from, std::int64_t to) {
    if (course.step == 0) {
        return course.at >= from && course.at <= to ? Steps{course.first, course.last} : Steps{};
    }
    if (course.step < 0) {
        std::swap(from, to);
    }
    // The step that is the last not to be behind the place, or the first not to be before it.
    const auto stepAt = [&](std::int64_t place, bool behind) {
        const std::int64_t way = place - course.at;
        const std::int64_t steps = way / course.step;
        const bool cut = steps * course.step != way;
        const bool backwards = (way < 0) != (course.step < 0);
        return course.first + steps + (cut && behind && !backwards ? 1 : cut && !behind && backwards ? -1 : 0);
    };
    const std::int64_t first = std::max<std::int64_t>(course.first, stepAt(from, true));
    const std::int64_t last = std::min<std::int64_t>(course.last, stepAt(to, false));
    return first <= last ? Steps{static_cast<int>(first), static_cast<int>(last)} : Steps{};
}

}  // namespace orvent::qt
