#pragma once

#include <filesystem>

#include "qt/shell/frame_window.h"
#include "qt/theme/theme.h"
#include "shell/mdi_form.h"
#include "tour_player.h"

namespace orvent::tour {

/// Draws a scenario from an empty canvas: record sets from the sample source, an activity with a type whose members
/// come from its trees, its statement by the wizard; then saves it, loads it again and writes its program into `home`.
void drawFromNothing(Player& player, qt::FrameWindow& window, shell::MDIForm1& frame, qt::Theme& theme,
                     const std::filesystem::path& home);

}  // namespace orvent::tour
