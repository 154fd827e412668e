#include "canvas/picture_area.h"

#include <algorithm>

namespace orvent::canvas {

namespace {

constexpr float kLargestMax = 32767;
constexpr float kLeastLength = 270;

}  // namespace

float PictureArea::held(float size) const {
    return largest_ > 0 ? std::min(size, largest_) : size;
}

void PictureArea::settle(Axis& axis) const {
    axis.bar.Max = std::clamp(axis.size - axis.window, 0.0F, kLargestMax);
    if (axis.bar.Value > axis.bar.Max) {
        scroll(axis, axis.bar.Max);
    }
    axis.bar.SmallChange = axis.size / 100;
    axis.bar.LargeChange = axis.size / 10;
    axis.bar.Length = std::max(axis.window - kBarThickness, kLeastLength);
}

void PictureArea::scroll(Axis& axis, float to) {
    axis.seen = to;
    axis.bar.Value = std::clamp(to, 0.0F, axis.bar.Max);
}

void PictureArea::resizeWindow(float width, float height) {
    horizontal_.window = width;
    vertical_.window = height;
    settle(horizontal_);
    settle(vertical_);
}

void PictureArea::scrollTo(float horizontal, float vertical) {
    scroll(horizontal_, horizontal);
    scroll(vertical_, vertical);
}

void PictureArea::setSize(float width, float height) {
    horizontal_.size = held(width);
    vertical_.size = held(height);
    settle(horizontal_);
    settle(vertical_);
}

bool PictureArea::dragOver(Point at, float width, float height) {
    const bool across = dragOver(horizontal_, at.x, width);
    return dragOver(vertical_, at.y, height) || across;
}

bool PictureArea::dragOver(Axis& axis, float at, float length) const {
    if (axis.window <= 0) {
        return false;  // nothing is on screen yet
    }
    const float formerSeen = axis.seen;
    const float formerSize = axis.size;
    if (at > axis.window + axis.seen - length) {
        if (axis.seen < axis.size - axis.window - kStep) {
            scroll(axis, axis.seen + kStep);
        } else {
            axis.size = held(axis.size + kStep);
            settle(axis);
            scroll(axis, std::max(axis.size - axis.window, 0.0F));
        }
    }
    if (at < axis.seen + length && axis.seen > 0) {
        scroll(axis, std::max(axis.seen - kStep, 0.0F));
    }
    return axis.seen != formerSeen || axis.size != formerSize;
}

void PictureArea::dragCorner(float dx, float dy) {
    dragCorner(horizontal_, dx);
    dragCorner(vertical_, dy);
}

void PictureArea::dragCorner(Axis& axis, float distance) const {
    if (axis.size + distance < axis.window) {
        return;
    }
    axis.size = held(axis.size + distance);
    settle(axis);
    scroll(axis, std::max(axis.size - axis.window, 0.0F));
}

}  // namespace orvent::canvas
