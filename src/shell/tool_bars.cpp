#include "shell/tool_bars.h"

#include <algorithm>

#include "canvas/canvas.h"

namespace orvent::shell {

namespace {

constexpr std::array<ToolButton, kMenuBarButtons> kMenuBar = {{
    {"New", "Open New Scenario", "new"},
    {"Load", "Load Scenario", "open"},
    {"Save", "Save Scenario", "save"},
    {"Print", "Print Current View", "print"},
    {"Undo", "Undo Delete Node", "undo"},
}};

constexpr std::array<ToolButton, 4> kArrowBar = {{
    {"Arrow", "None", "arrow", 'V'},
    {"Move", "Move", "move", 'M'},
    {"Resize", "Resize", "resize", 'S'},
    {"Crop", "Crop", "crop", 'X'},
}};

constexpr std::array<ToolButton, 8> kNodeBar = {{
    {"RecordSet", "Record Set", "record-set", 'R'},
    {"Activity", "Activity", "activity", 'A'},
    {"Comment", "Comment", "comment", 'C'},
    {"Log", "Log", "log", 'L'},
    {"Function", "Function", "function", 'F'},
    {"Constant", "Constant", "constant", 'K'},
    {"Attribute", "Attribute", "attribute", 'T'},
    {"Parameter", "Parameter", "parameter", 'P'},
}};

constexpr std::array<ToolButton, 4> kEdgeBar = {{
    {"Provider", "Provider Relationships", "provider", 'E'},
    {"Description", "Description", "description", 'D'},
    {"Regulator", "Regulator", "regulator", 'G'},
    {"PartOf", "PartOf", "part-of", 'O'},
}};

/// What one of the three states does to a button. `off` also releases it.
enum class Effect { off, dimmed, on, unchanged, onIfDeleted, offIfDeleted };
using enum Effect;

enum Column { EmptyState, DesignState, ZoomState };

struct StateRow {
    ToolBar bar;
    int first, last;
    std::array<Effect, 3> effects;  ///< by `Column`
};

// A zoom leaves what it does not name as it found it, and dims "Description" without releasing it.
constexpr std::array<StateRow, 8> kStates = {{
    {ToolBar::NodeBar, 1, 4, {off, on, off}},
    {ToolBar::NodeBar, 5, 8, {off, off, on}},
    {ToolBar::EdgeBar, 1, 1, {off, on, on}},
    {ToolBar::EdgeBar, 2, 2, {off, on, dimmed}},
    {ToolBar::EdgeBar, 3, 4, {off, off, on}},
    {ToolBar::ArrowBar, 1, 4, {off, on, unchanged}},
    {ToolBar::MenuBar, 3, 4, {off, on, unchanged}},
    {ToolBar::MenuBar, 5, 5, {off, onIfDeleted, offIfDeleted}},
}};

constexpr std::array<std::size_t, kToolBars> kLengths = {kMenuBar.size(), kArrowBar.size(), kNodeBar.size(),
                                                         kEdgeBar.size()};

constexpr bool namesButtons(const StateRow& row) {
    return row.first >= 1 && row.first <= row.last &&
           static_cast<std::size_t>(row.last) <= kLengths[static_cast<std::size_t>(row.bar)];
}
static_assert(std::all_of(kStates.begin(), kStates.end(), namesButtons), "a row names a button that there is not");

constexpr std::array kTools = {ToolBar::ArrowBar, ToolBar::NodeBar, ToolBar::EdgeBar};

}  // namespace

std::span<const ToolButton> toolButtons(ToolBar bar) {
    switch (bar) {
        case ToolBar::ArrowBar:
            return kArrowBar;
        case ToolBar::NodeBar:
            return kNodeBar;
        case ToolBar::EdgeBar:
            return kEdgeBar;
        default:
            return kMenuBar;
    }
}

ToolBars::ToolBars() {
    for (const int position : {1, 2}) {  // "New" and "Load" are always on
        state(ToolBar::MenuBar, position).enabled = true;
    }
}

const ToolBars::Button& ToolBars::state(ToolBar bar, int position) const {
    return buttons_[static_cast<std::size_t>(bar)][static_cast<std::size_t>(position - 1)];
}

ToolBars::Button& ToolBars::state(ToolBar bar, int position) {
    return buttons_[static_cast<std::size_t>(bar)][static_cast<std::size_t>(position - 1)];
}

bool ToolBars::isMenuEnabled(std::string_view key) const {
    for (int position = 1; position <= static_cast<int>(kMenuBar.size()); ++position) {
        if (kMenuBar[static_cast<std::size_t>(position - 1)].key == key) {
            return isEnabled(ToolBar::MenuBar, position);
        }
    }
    return false;
}

void ToolBars::press(ToolBar pressed, int position) {
    for (const ToolBar bar : kTools) {
        for (Button& button : buttons_[static_cast<std::size_t>(bar)]) {
            button.pressed = false;
        }
    }
    state(pressed, position).pressed = true;
    drawMode_ = toolButtons(pressed)[static_cast<std::size_t>(position - 1)].key;
    tell();
}

void ToolBars::apply(int column, bool anyDeleted) {
    for (const StateRow& row : kStates) {
        Effect effect = row.effects[static_cast<std::size_t>(column)];
        if (effect == onIfDeleted) {
            effect = anyDeleted ? on : unchanged;
        } else if (effect == offIfDeleted) {
            effect = anyDeleted ? off : unchanged;
        }
        for (int position = row.first; position <= row.last && effect != unchanged; ++position) {
            Button& button = state(row.bar, position);
            button.enabled = effect == on;
            button.pressed = button.pressed && effect != off;
        }
    }
}

void ToolBars::setEmptyState() {
    designToolsOn_ = false;
    zoomToolsOn_ = false;
    apply(EmptyState, false);
    palettes.showBands(false);
    tell();
}

void ToolBars::setDesignState(const canvas::Canvas& canvas) {
    if (designToolsOn_) {
        return;
    }
    designToolsOn_ = true;
    zoomToolsOn_ = false;
    apply(DesignState, canvas.DeletedNodes->Count() > 0);
    palettes.showBands(true);
    tell();
}

void ToolBars::setZoomState(const canvas::Canvas& canvas) {
    if (zoomToolsOn_) {
        return;
    }
    zoomToolsOn_ = true;
    designToolsOn_ = false;
    apply(ZoomState, canvas.DeletedNodes->Count() > 0);
    tell();
}

void ToolBars::enablePrintAndSave(bool enabled) {
    for (const int position : {3, 4}) {
        state(ToolBar::MenuBar, position).enabled = enabled;
    }
    tell();
}

void ToolBars::canvasFocused(const canvas::Canvas& canvas) {
    canvas.isZoom() ? setZoomState(canvas) : setDesignState(canvas);
}

template <class Wanted>
bool ToolBars::pressFirst(const Wanted& wanted) {
    for (const ToolBar bar : kTools) {
        int position = 0;
        for (const ToolButton& button : toolButtons(bar)) {
            ++position;
            if (wanted(button) && isEnabled(bar, position)) {
                press(bar, position);
                return true;
            }
        }
    }
    return false;
}

bool ToolBars::pressTool(std::string_view key) {
    return pressFirst([key](const ToolButton& button) { return button.key == key; });
}

bool ToolBars::pressLetter(char letter) {
    return pressFirst([letter](const ToolButton& button) { return button.letter == letter; });
}

void ToolBars::hint(std::string_view words) {
    if (hinted) {
        hinted(words);
    }
}

void ToolBars::tell() {
    if (changed) {
        changed();
    }
}

}  // namespace orvent::shell
