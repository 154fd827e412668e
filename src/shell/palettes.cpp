#include "shell/palettes.h"

#include <utility>

namespace orvent::shell {

void Palettes::tell() {
    if (changed) {
        changed();
    }
}

void Palettes::toggle(Palette palette) {
    of(palette).floating = !of(palette).floating;
    tell();
}

void Palettes::dock(Palette palette, DockSide side) {
    of(palette).floating = side == DockSide::none;
    if (side != DockSide::none) {
        of(palette).side = side;
    }
    tell();
}

void Palettes::close(Palette palette) {
    of(palette).floating = false;
    tell();
}

void Palettes::drop() {
    toolChange_ = moveBand_.has_value();
}

void Palettes::place() {
    if (!std::exchange(toolChange_, false)) {
        return;
    }
    const Palette palette = *std::exchange(moveBand_, std::nullopt);
    of(palette).floating = true;
    tell();
    if (atPointer) {
        atPointer(palette);
    }
}

void Palettes::showBands(bool on) {
    if (bandsOn_ != on) {
        bandsOn_ = on;
        tell();
    }
}

void Palettes::minimize(bool minimized) {
    if (minimized_ != minimized) {
        minimized_ = minimized;
        tell();
    }
}

}  // namespace orvent::shell
