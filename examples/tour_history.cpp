#include "tour_history.h"

#include <QApplication>
#include <QLabel>

#include "qt/shell/desk_area.h"
#include "tour_hand.h"

namespace orvent::tour {

using shell::Command;

void goBackAndForward(Player& player, qt::FrameWindow& window, shell::MDIForm1& frame, qt::Theme& theme) {
    Hand hand(window);
    canvas::DrawForm& form = window.area().active()->scenario();
    const auto inBothThemes = [&](QWidget& shown, const std::string& name) {
        player.picture(shown, name);
        theme.setMode(qt::ThemeMode::dark);
        player.picture(shown, name + "-dark");
        theme.setMode(qt::ThemeMode::light);
    };
    const int nodes = form.Labels.Count();
    player.during("change something and go back", [&] {
        hand.choose("ViewHistoryM");
        frame.run(Command::straighten);
        form.SelectedLabels.Clear();
        form.SelectedLabels.Add(form.NamesColl.Item("Activity1"));
        hand.choose("CopyM");
        hand.move({6000, 8000});
        hand.choose("PasteM");
        player.expect(form.Labels.Count() == nodes + 1, "nothing was pasted");
        hand.choose("StepBackM");
        player.expect(form.Labels.Count() == nodes, "the way back did not take the copy away");
    });
    inBothThemes(window, "history");
    player.during("look at earlier states", [&] { frame.run(Command::earlierStates); }, {[&](QWidget& dialog) {
                      inBothThemes(dialog, "earlier-states");
                      Player::press(dialog, "cmdClose");
                  }});
    player.during("go back to the beginning", [&] {
        frame.goToStep(0);
        hand.choose("ViewHistoryM");
        player.expect(!form.stored.changed, "the way back to what is stored leaves it unsaved");
    });
}

}  // namespace orvent::tour
