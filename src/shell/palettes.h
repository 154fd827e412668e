#pragma once

#include <array>
#include <functional>
#include <optional>

namespace orvent::shell {

/// The palettes: `NodeForm` and `EdgeForm`. Each floats above the frame, or lies in it as a band of tools.
enum class Palette { NodeForm, EdgeForm };

/// Where a palette's buttons `DockU`, `DockD`, `DockL`, `DockR` and `DockNo` put it.
enum class DockSide { up, down, left, right, none };

/// Where the two palettes are. Each is either floating or a band at one side of the frame; never both.
class Palettes {
  public:
    bool NodeFormActive() const { return of(Palette::NodeForm).floating; }
    bool EdgeFormActive() const { return of(Palette::EdgeForm).floating; }
    /// The band that is being dragged out of the frame.
    std::optional<Palette> MoveBand() const { return moveBand_; }
    /// A band was dropped outside of the frame's bars, and its palette is not placed yet.
    bool ToolChange() const { return toolChange_; }

    bool isBandShown(Palette palette) const { return bandsOn_ && !of(palette).floating; }
    /// A palette stays hidden while the frame is minimized.
    bool isPaletteShown(Palette palette) const { return of(palette).floating && !minimized_; }
    DockSide side(Palette palette) const { return of(palette).side; }

    /// From a band to a floating palette and back.
    void toggle(Palette palette);
    void dock(Palette palette, DockSide side);
    /// The palette was closed: its band shows again.
    void close(Palette palette);

    /// A drag of a band begins; it was dropped outside of the bars; its palette is put at the pointer. The last one
    /// comes from whoever sees the pointer first, and only the first one counts.
    void startDrag(Palette band) { moveBand_ = band; }
    void drop();
    void place();

    /// The bands show from the first scenario on and go with the last one.
    void showBands(bool on);
    void minimize(bool minimized);

    std::function<void()> changed;           ///< bands and palettes have to be shown again
    std::function<void(Palette)> atPointer;  ///< moves a palette to the pointer

  private:
    struct State {
        bool floating = false;
        DockSide side = DockSide::up;
    };

    const State& of(Palette palette) const { return states_[static_cast<std::size_t>(palette)]; }
    State& of(Palette palette) { return states_[static_cast<std::size_t>(palette)]; }
    void tell();

    std::array<State, 2> states_;
    std::optional<Palette> moveBand_;
    bool toolChange_ = false;
    bool bandsOn_ = false;
    bool minimized_ = false;
};

}  // namespace orvent::shell
