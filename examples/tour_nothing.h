#pragma once

#include <filesystem>

#include "qt/shell/frame_window.h"
#include "qt/theme/theme.h"
#include "shell/mdi_form.h"
#include "tour_player.h"

namespace orvent::tour {

/// Plays the first five minutes as the README and the help's first steps tell them, from an empty canvas to a program
/// in `home` that loads a table, and holds what they name against what the windows showed. Then loads what was saved.
void drawFromNothing(Player& player, qt::FrameWindow& window, shell::MDIForm1& frame, qt::Theme& theme,
                     const std::filesystem::path& home);

}  // namespace orvent::tour
