#include "tour_docks.h"

#include <QTreeView>

namespace orvent::tour {

void listProblems(Player& player, qt::FrameWindow& window, shell::MDIForm1& frame, qt::Theme& theme) {
    frame.run(shell::Command::viewProblems);
    auto& list = dynamic_cast<QTreeView&>(Player::child(window, "lstProblems"));
    player.expect(list.model()->rowCount() > 0, "the sample has no problems");
    const QModelIndex last = list.model()->index(list.model()->rowCount() - 1, 0);
    list.setCurrentIndex(last);
    Q_EMIT list.activated(last);
    player.expect(frame.activeScenario()->SelectedLabels.Count() == 1, "the list led to no node");
    player.picture(window, "problems");
    const qt::ThemeMode mode = theme.mode();
    theme.setMode(qt::ThemeMode::dark);
    player.picture(window, "problems-dark");
    theme.setMode(mode);
    player.during("choose what is told", [&] { frame.run(shell::Command::options); }, {[&](QWidget& dialog) {
                      player.picture(dialog, "options");
                      dialog.close();
                  }});
    frame.run(shell::Command::viewProblems);
    frame.activeScenario()->ClearCrop();
}

}  // namespace orvent::tour
