#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "canvas/canvas.h"

namespace orvent::canvas {

/// A design window: one scenario on screen. It owns all of the scenario.
class DrawForm : public Canvas {
  public:
    explicit DrawForm(const CanvasServices& services) : Canvas(services) {}

    std::string Tag;              ///< the slot in the table of scenario windows, as decimal text
    std::int16_t ScenarioID = 0;  ///< repository key, 0 until the scenario was saved or loaded
    bool Enabled = true;          ///< false while one of its dialogs or its zoom view is open

    /// The window's title, which is the scenario's name.
    const std::string& Caption() const { return caption_; }
    void setCaption(const std::string& value) {
        caption_ = value;
        if (captionChanged) {
            captionChanged();
        }
    }
    const std::string& ScenarioName() const { return caption_; }
    void setScenarioName(const std::string& value) { setCaption(value); }

    /// The caption as it was before the scenario dialog changed it; put back when that save is given up.
    std::string KeptCaption;

    int slot() const { return Tag.empty() ? -1 : std::stoi(Tag); }

    std::function<void()> captionChanged;  ///< the window shows the new caption

  private:
    std::string caption_;
};

}  // namespace orvent::canvas
