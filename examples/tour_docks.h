#pragma once

#include "qt/shell/frame_window.h"
#include "qt/theme/theme.h"
#include "shell/mdi_form.h"
#include "tour_player.h"

namespace orvent::tour {

/// Lists what is missing in the scenario in front, and goes to a node of it.
void listProblems(Player& player, qt::FrameWindow& window, shell::MDIForm1& frame, qt::Theme& theme);
/// Searches the scenario in front, and goes to the first hit.
void findThings(Player& player, qt::FrameWindow& window, shell::MDIForm1& frame, qt::Theme& theme);

/// Shows the scenario in front as a tree, and a node by way of it.
void outlineScenario(Player& player, qt::FrameWindow& window, shell::MDIForm1& frame, qt::Theme& theme);

/// Shows the rows of the scenario in front at its nodes: how many there are, those of the activity of that name, and
/// the numbers in the picture.
void showRows(Player& player, qt::FrameWindow& window, shell::MDIForm1& frame, qt::Theme& theme, const char* activity);

}  // namespace orvent::tour
