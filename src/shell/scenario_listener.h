#pragma once

#include "canvas/draw_form.h"
#include "platform/listeners.h"

namespace orvent::shell {

/// What the frame tells those who follow its open scenarios.
class ScenarioListener {
  public:
    virtual ~ScenarioListener() = default;

    /// A scenario has its window, and is empty: what it is to hold comes by its canvas.
    virtual void scenarioOpened(canvas::DrawForm& form) { static_cast<void>(form); }
    /// A scenario goes, and the views over it have gone. It is whole for the last time, but no longer found by its
    /// slot.
    virtual void scenarioClosed(canvas::DrawForm& form) { static_cast<void>(form); }
};

using ScenarioListeners = platform::Listeners<ScenarioListener>;
using ScenarioSubscription = ScenarioListeners::Subscription;

}  // namespace orvent::shell
