#pragma once

#include "qt/shell/frame_window.h"
#include "qt/theme/theme.h"
#include "shell/mdi_form.h"
#include "tour_player.h"

namespace orvent::tour {

/// Zooms into an activity of the scenario in front, switches its filters, applies, saves, and closes the view. The
/// scenario has identifiers already.
void zoomIntoActivity(Player& player, qt::FrameWindow& window, shell::MDIForm1& frame, qt::Theme& theme);

}  // namespace orvent::tour
