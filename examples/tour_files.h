#pragma once

#include <filesystem>

#include "qt/shell/frame_window.h"
#include "qt/theme/theme.h"
#include "shell/mdi_form.h"
#include "tour_player.h"

namespace orvent::tour {

/// Writes the scenario in front as a file, drops one on the window that another designer has changed, and copies nodes
/// of that. The first scenario, as it was, is in front at the end.
void carryFiles(Player& player, qt::FrameWindow& window, shell::MDIForm1& frame, qt::Theme& theme,
                const std::filesystem::path& home);

}  // namespace orvent::tour
