#pragma once

#include <cstdint>
#include <string>

#include "canvas/draw_form.h"

namespace orvent::repository {

/// What the scenario dialog asks of the frame that holds the scenario windows.
class ScenarioWindows {
  public:
    virtual ~ScenarioWindows() = default;

    /// Opens a window and gives its slot, or -1 when none was opened. An empty name is asked for.
    virtual int NewScenario(std::string& name) = 0;
    /// How many slots there are.
    virtual int slotCount() const = 0;
    /// The window in a slot, or nothing.
    virtual canvas::DrawForm* scenario(int slot) = 0;
    /// Closes a window without a question.
    virtual void discardScenario(int slot) = 0;

    /// The rows of a scenario have gone. Every window that shows it, but `except`, gets `ScenarioID` 0, so that its
    /// next save writes all of it under a name of its own.
    virtual void scenarioGone(std::int16_t ScenarioID, const canvas::DrawForm* except) = 0;

    /// False: the frame takes no input, while only questions of the step under way are answered.
    virtual void enableFrame(bool enabled) = 0;
};

}  // namespace orvent::repository
