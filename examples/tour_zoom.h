#pragma once

#include "qt/shell/frame_window.h"
#include "qt/theme/theme.h"
#include "shell/mdi_form.h"
#include "tour_player.h"

namespace orvent::tour {

/// Zooms into an activity of the scenario in front and looks at it: draws an edge of every kind by hand, is refused
/// once, redirects one, shows each filter, applies and saves, and closes the view. Then the scenario is closed and
/// loaded, and must be equal; at last its consistency is checked. The scenario has identifiers already.
void zoomIntoActivity(Player& player, qt::FrameWindow& window, shell::MDIForm1& frame, qt::Theme& theme);

}  // namespace orvent::tour
