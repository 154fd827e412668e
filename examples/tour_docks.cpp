#include "tour_docks.h"

#include <QApplication>
#include <QLineEdit>
#include <QTableView>
#include <QTreeView>

namespace orvent::tour {

void listProblems(Player& player, qt::FrameWindow& window, shell::MDIForm1& frame, qt::Theme& theme) {
    frame.run(shell::Command::viewProblems);
    QApplication::processEvents();  // the canvas has the room that the list leaves it
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

void findThings(Player& player, qt::FrameWindow& window, shell::MDIForm1& frame, qt::Theme& theme) {
    frame.run(shell::Command::findText);
    auto& field = dynamic_cast<QLineEdit&>(Player::child(window, "txtFind"));
    auto& found = dynamic_cast<QTreeView&>(Player::child(window, "lstFound"));
    field.setText(QStringLiteral("au_id"));
    player.expect(found.model()->rowCount() > 3, "the sample has no such names");
    frame.run(shell::Command::findNext);
    player.expect(frame.activeScenario()->SelectedLabels.Count() == 1, "the first hit led to no node");
    player.picture(window, "find");
    const qt::ThemeMode mode = theme.mode();
    theme.setMode(qt::ThemeMode::dark);
    player.picture(window, "find-dark");
    theme.setMode(mode);
    field.setText(QStringLiteral("is:unfinished kind:activity"));
    player.picture(window, "find-unfinished");
    field.clear();
    frame.lists().toggle(shell::Dock::find);
    player.expect(frame.activeScenario()->found().empty(), "what was found is still marked");
}

void outlineScenario(Player& player, qt::FrameWindow& window, shell::MDIForm1& frame, qt::Theme& theme) {
    frame.run(shell::Command::viewOutline);
    auto& tree = dynamic_cast<QTreeView&>(Player::child(window, "treOutline"));
    const QAbstractItemModel& rows = *tree.model();
    const canvas::DrawForm& form = *frame.activeScenario();
    player.expect(rows.rowCount() > 3, "the outline lacks nodes");
    const QModelIndex last = rows.index(rows.rowCount() - 1, 0);
    tree.setCurrentIndex(last);
    tree.expand(last);
    tree.expand(rows.index(0, 0, last));
    player.expect(form.SelectedLabels.Count() == 1, "the outline selects no node");
    player.picture(window, "outline");
    const qt::ThemeMode mode = theme.mode();
    theme.setMode(qt::ThemeMode::dark);
    player.picture(window, "outline-dark");
    theme.setMode(mode);
    frame.run(shell::Command::viewOutline);
    frame.run(shell::Command::viewMinimap);
    player.picture(window, "minimap");
    theme.setMode(qt::ThemeMode::dark);
    player.picture(window, "minimap-dark");
    theme.setMode(mode);
    frame.run(shell::Command::viewMinimap);
    frame.activeScenario()->ClearCrop();
}

void showRows(Player& player, qt::FrameWindow& window, shell::MDIForm1& frame, qt::Theme& theme, const char* activity) {
    frame.run(shell::Command::viewRows);
    frame.activeScenario()->ClearCrop();
    Player::press(window, "cmdRefresh");
    while (frame.lists().rows().isRunning()) {
        frame.idle();
    }
    auto& list = dynamic_cast<QTableView&>(Player::child(window, "lstRows0"));
    player.expect(list.model()->rowCount() == frame.activeScenario()->Labels.Count(), "not every node has its rows");
    frame.run(shell::Command::countRows);
    player.picture(window, "rows-of-all");
    canvas::DrawForm& form = *frame.activeScenario();
    form.SelectedLabels.Add(form.nodeNamed(activity)->Index());
    frame.lists().rows().follow();
    auto& in = dynamic_cast<QTableView&>(Player::child(window, "lstRows1"));
    player.expect(list.model()->rowCount() > 0 && list.model()->rowCount() < in.model()->rowCount(),
                  "the activity selects nothing");
    player.picture(window, "rows");
    const qt::ThemeMode mode = theme.mode();
    theme.setMode(qt::ThemeMode::dark);
    player.picture(window, "rows-dark");
    theme.setMode(mode);
    frame.run(shell::Command::countRows);
    frame.run(shell::Command::viewRows);
    form.ClearCrop();
}

}  // namespace orvent::tour
