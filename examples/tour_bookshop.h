#pragma once

#include <filesystem>

#include "qt/shell/frame_window.h"
#include "qt/theme/theme.h"
#include "shell/mdi_form.h"
#include "tour_player.h"

namespace orvent::tour {

/// Draws what the bookshop has taken in each city with each subject: eight activities over six tables and a target that
/// no database has yet. Looks at its rows, and leaves it as `bookshop.orvent` in a folder.
void loadBookshop(Player& player, qt::FrameWindow& window, shell::MDIForm1& frame, qt::Theme& theme,
                  const std::filesystem::path& folder);

}  // namespace orvent::tour
