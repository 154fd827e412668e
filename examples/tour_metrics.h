#pragma once

#include "qt/shell/frame_window.h"
#include "qt/theme/theme.h"
#include "shell/mdi_form.h"
#include "tour_player.h"

namespace orvent::tour {

/// Counts the scenario in front, by attributes and by nodes, and shows its nodes in shades.
void countMetrics(Player& player, qt::FrameWindow& window, shell::MDIForm1& frame, qt::Theme& theme);

}  // namespace orvent::tour
