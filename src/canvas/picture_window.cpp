#include "canvas/picture_window.h"

#include <algorithm>

namespace orvent::canvas {

namespace {

constexpr float kLargestMax = 32767;
constexpr float kLeastLength = 270;

}  // namespace

void PictureWindow::settle(Axis& axis, float size) {
    axis.bar.Max = std::clamp(size - axis.length, 0.0F, kLargestMax);
    if (axis.bar.Value > axis.bar.Max) {
        scroll(axis, axis.bar.Max);
    }
    axis.bar.SmallChange = size / 100;
    axis.bar.LargeChange = size / 10;
    axis.bar.Length = std::max(axis.length - kBarThickness, kLeastLength);
}

void PictureWindow::scroll(Axis& axis, float to) {
    axis.seen = to;
    axis.bar.Value = std::clamp(to, 0.0F, axis.bar.Max);
}

void PictureWindow::settle() {
    settle(horizontal_, picture_.Width());
    settle(vertical_, picture_.Height());
}

void PictureWindow::resize(float width, float height) {
    horizontal_.length = width;
    vertical_.length = height;
    settle();
}

void PictureWindow::scrollTo(float horizontal, float vertical) {
    scroll(horizontal_, horizontal);
    scroll(vertical_, vertical);
}

void PictureWindow::toEnd(Axis& axis, float size) {
    settle(axis, size);
    scroll(axis, std::max(size - axis.length, 0.0F));
}

float PictureWindow::dragOver(Axis& axis, float size, float at, float length) const {
    if (axis.length <= 0) {
        return size;  // nothing is on screen yet
    }
    if (at > axis.length + axis.seen - length) {
        if (axis.seen < size - axis.length - kStep) {
            scroll(axis, axis.seen + kStep);
        } else {
            size = picture_.held(size + kStep);
            toEnd(axis, size);
        }
    }
    if (at < axis.seen + length && axis.seen > 0) {
        scroll(axis, std::max(axis.seen - kStep, 0.0F));
    }
    return size;
}

bool PictureWindow::dragOver(Point at, float width, float height) {
    const float across = dragOver(horizontal_, picture_.Width(), at.x, width);
    const float down = dragOver(vertical_, picture_.Height(), at.y, height);
    const bool grew = across != picture_.Width() || down != picture_.Height();
    picture_.setSize(across, down);
    return grew;
}

float PictureWindow::dragCorner(Axis& axis, float size, float distance) const {
    if (size + distance < axis.length) {
        return size;
    }
    size = picture_.held(size + distance);
    toEnd(axis, size);
    return size;
}

void PictureWindow::dragCorner(float dx, float dy) {
    picture_.setSize(dragCorner(horizontal_, picture_.Width(), dx), dragCorner(vertical_, picture_.Height(), dy));
}

}  // namespace orvent::canvas
