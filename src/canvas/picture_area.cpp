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
    axis.bar.Value = std::min(axis.bar.Value, axis.bar.Max);
    axis.bar.SmallChange = axis.size / 100;
    axis.bar.LargeChange = axis.size / 10;
    axis.bar.Length = std::max(axis.window - kBarThickness, kLeastLength);
}

void PictureArea::resizeWindow(float width, float height) {
    horizontal_.window = width;
    vertical_.window = height;
    settle(horizontal_);
    settle(vertical_);
}

void PictureArea::scrollTo(float horizontal, float vertical) {
    horizontal_.bar.Value = std::clamp(horizontal, 0.0F, horizontal_.bar.Max);
    vertical_.bar.Value = std::clamp(vertical, 0.0F, vertical_.bar.Max);
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
    ScrollBar& bar = axis.bar;
    const float formerValue = bar.Value;
    const float formerSize = axis.size;
    if (at > axis.window + bar.Value - length) {
        if (bar.Value < bar.Max - kStep) {
            bar.Value += kStep;
        } else {
            axis.size = held(axis.size + kStep);
            settle(axis);
            bar.Value = bar.Max;
        }
    }
    if (at < bar.Value + length) {
        bar.Value = std::max(bar.Value - kStep, 0.0F);
    }
    return bar.Value != formerValue || axis.size != formerSize;
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
    axis.bar.Value = axis.bar.Max;
}

}  // namespace orvent::canvas
