#pragma once

#include "qt/shell/frame_window.h"
#include "qt/theme/theme.h"
#include "shell/mdi_form.h"
#include "tour_player.h"

namespace orvent::tour {

/// Draws a small load with what makes drawing quick: the list of types, columns from lines, columns that follow an
/// edge, and members that are joined by their names.
void drawQuickly(Player& player, qt::FrameWindow& window, shell::MDIForm1& frame, qt::Theme& theme);

}  // namespace orvent::tour
