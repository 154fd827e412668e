#pragma once

#include <string>

#include "qt/shell/frame_window.h"
#include "qt/theme/theme.h"
#include "shell/mdi_form.h"
#include "tour_player.h"

namespace orvent::tour {

/// What a user does who writes the LDL program and wants no statement made: closes the wizard, which opens for each
/// activity of the scenario that has none.
std::deque<Player::Answer> leaveWizards(canvas::DrawForm& form);

/// Plays the wizard of a selection of the rows whose third input is 1, from its opening to its OK.
void selectByWizard(Player& player, QWidget& dialog, const std::string& name);

/// Makes two activities from the templates of their types in the wizard's window: a selection, and in the dark theme an
/// aggregation, which has an array.
void playWizard(Player& player, qt::FrameWindow& window, shell::MDIForm1& frame, qt::Theme& theme);

}  // namespace orvent::tour
