#include "tour_drawing.h"

#include <QApplication>
#include <QEventLoop>
#include <QListWidget>
#include <QMenu>
#include <QScrollBar>
#include <QTabWidget>
#include <QTimer>
#include <QToolTip>
#include <string>
#include <string_view>

#include "qt/shell/desk_area.h"
#include "qt/shell/desk_window.h"
#include "tour_dialogs.h"
#include "tour_hand.h"

namespace orvent::tour {

namespace {

using canvas::Point;
using shell::Command;

struct NodeStep {
    const char* tool;
    Point at;
};

constexpr NodeStep kNodes[] = {
    {"RecordSet", {1500, 1800}}, {"RecordSet", {1500, 5100}}, {"RecordSet", {12900, 3400}}, {"Activity", {4500, 1800}},
    {"Activity", {4500, 5100}},  {"Activity", {8100, 3400}},  {"Comment", {8100, 6600}},    {"Log", {12900, 6600}},
};

struct EdgeStep {
    const char* tool;
    int from, to;  // rows of kNodes
};

constexpr EdgeStep kEdges[] = {{"Provider", 0, 3},    {"Provider", 1, 4}, {"Provider", 3, 5},   {"Provider", 4, 5},
                               {"Description", 6, 5}, {"Provider", 5, 2}, {"Description", 5, 7}};

/// Each record set and activity asks what it is as it is placed, and the canvas waits for the answer.
void drawNodes(Player& player, Hand& hand) {
    for (const NodeStep& step : kNodes) {
        const std::string_view tool = step.tool;
        const bool asks = tool == "RecordSet" || tool == "Activity";
        const std::deque<Player::Answer> later(asks ? 1 : 0, [](QWidget& dialog) { Player::press(dialog, "Cancel"); });
        player.during(
            step.tool,
            [&] {
                hand.tool(step.tool);
                hand.click(step.at);
            },
            later);
    }
}

void drawEdges(Player& player, qt::FrameWindow& window, Hand& hand) {
    for (const EdgeStep& step : kEdges) {
        hand.tool(step.tool);
        const Point from = kNodes[step.from].at;
        const Point to = kNodes[step.to].at;
        hand.edge({from.x + 400, from.y}, {to.x - 400, to.y});
    }
    hand.tool("Provider");
    hand.pull({kNodes[0].at.x + 400, kNodes[0].at.y}, {3600, 3600});
    player.picture(window, "drawing-an-edge");
    hand.key(Qt::Key_Escape);
    hand.release({3600, 3600});
    hand.move({6000, 9000});
}

/// What the arrow does with lines, nodes and the ground.
void useArrow(Player& player, qt::FrameWindow& window, Hand& hand) {
    canvas::CanvasForm& form = *window.area().active();
    hand.tool("Arrow");
    Player::press(*window.area().activeWindow(), "closeOffer");
    const canvas::LinesD* line = form.Lines.at(3);
    hand.click({(line->X1() + line->X2()) / 2, (line->Y1() + line->Y2()) / 2});
    player.expect(form.SelectedLines.Count() == 1, "a click on a line did not select it");
    hand.pull({600, 600}, {6000, 6000});
    player.picture(window, "rubber-band");
    hand.release({6000, 6000});
    player.expect(form.SelectedLabels.Count() == 4, "the rubber band did not select what lies in it");
    hand.pull(kNodes[3].at, {kNodes[3].at.x + 700, kNodes[3].at.y + 500});
    player.picture(window, "moving-a-group");
    hand.key(Qt::Key_Escape);
    hand.release(kNodes[3].at);
    hand.click({600, 8000});
}

/// A name edited in its box, and boxes as wide as their names.
void giveNames(Player& player, qt::FrameWindow& window, Hand& hand) {
    canvas::CanvasForm& form = *window.area().active();
    const std::string former = form.Labels.at(1)->Caption();
    for (const std::string& name : {std::string("ordersOfTheLastMonth"), former}) {
        hand.click(kNodes[0].at);
        hand.key(Qt::Key_F2);
        hand.type(QString::fromStdString(name));
        player.picture(window, "naming-in-the-box");
        hand.key(Qt::Key_Return);
        player.expect(form.Labels.at(1)->Caption() == name, "the name was not taken");
        player.picture(window, "named-in-the-box");
    }
    hand.click({600, 8000});
}

/// A tool by its letter, a node and an edge by Enter, the tip of a node.
void useKeys(Player& player, qt::FrameWindow& window, Hand& hand) {
    canvas::CanvasForm& form = *window.area().active();
    window.area().activeWindow()->editor().verticalScrollBar()->setValue(0);
    hand.key(Qt::Key_C);
    hand.key(Qt::Key_Return);
    hand.key(Qt::Key_D);
    hand.key(Qt::Key_Return);
    player.picture(window, "edge-by-keys");
    hand.key(Qt::Key_Left);
    hand.key(Qt::Key_Return);
    player.expect(form.Labels.Count() == 9 && form.Lines.Count() == 8, "the keys did not place and join a node");
    form.SelectedLabels.Clear();
    form.SelectedLabels.Add(form.LabelsNo);
    hand.key(Qt::Key_Delete);
    hand.key(Qt::Key_Escape);
    hand.key(Qt::Key_Escape);
    hand.rest(kNodes[3].at);
    for (QWidget* tip : QApplication::topLevelWidgets()) {
        if (tip->inherits("QTipLabel")) {
            player.picture(*tip, "tool-tip");
        }
    }
    QToolTip::hideText();
}

void showGestures(Player& player, qt::FrameWindow& window, Hand& hand) {
    hand.doubleClick({7700, 6500});
    hand.type(QStringLiteral("Rows that arrive late wait for the next day."));
    player.picture(window, "editing-a-comment");
    hand.key(Qt::Key_Escape);
    player.expect(window.area().active()->Labels.at(7)->Comment().ends_with("the next day."),
                  "the comment was not typed");
    hand.tool("Move");
    hand.pull(kNodes[5].at, {8400, 4500});
    player.picture(window, "moving-a-node");
    hand.key(Qt::Key_Escape);
    hand.tool("Crop");
    hand.pull({600, 600}, {6000, 6000});
    player.picture(window, "selecting");
    hand.release({6000, 6000});
    useArrow(player, window, hand);
    giveNames(player, window, hand);
    useKeys(player, window, hand);
    hand.tool("Arrow");
    const canvas::LinesD* edge = window.area().active()->Lines.at(2);
    hand.click({edge->X2(), edge->Y2()});
    hand.press({edge->X2(), edge->Y2()}, Qt::RightButton);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    player.expect(menu != nullptr, "the edge has no menu");
    if (menu) {
        player.picture(*menu, "edge-menu");
        menu->close();
    }
}

/// All nodes by the flow, and back to where they were.
void tidyUp(Player& player, qt::FrameWindow& window, shell::MDIForm1& frame, qt::Theme& theme) {
    const canvas::CanvasForm& form = *window.area().active();
    const canvas::Box former = form.Labels.at(3)->box();
    player.during("tidy up", [&frame] { frame.run(Command::tidyUp); });
    player.expect(form.Labels.at(3)->box() != former, "tidying up moved nothing");
    player.picture(window, "tidied-up");
    theme.setMode(qt::ThemeMode::dark);
    player.picture(window, "tidied-up-dark");
    theme.setMode(qt::ThemeMode::light);
    player.during("put back", [&] { Player::press(*window.area().activeWindow(), "takeOffer"); });
    player.expect(form.Labels.at(3)->box() == former, "the nodes were not put back");
}

void showDialogs(Player& player, shell::MDIForm1& frame, const std::string& suffix) {
    player.during("options", [&frame] { frame.run(Command::options); }, {[&player, suffix](QWidget& dialog) {
                      player.picture(dialog, "options" + suffix);
                      dialog.close();
                  }});
    player.during("keyboard shortcuts", [&frame] { frame.run(Command::shortcuts); },
                  {[&player, suffix](QWidget& dialog) {
                      player.picture(dialog, "shortcuts" + suffix);
                      dialog.close();
                  }});
}

/// The catalogue's editors, each with an entry chosen, and the template of an activity type as it is edited.
void showTypes(Player& player, shell::MDIForm1& frame, const std::string& suffix) {
    struct Row {
        Command command;
        const char* list;
        const char* type;
        const char* picture;
    };
    for (const Row& row : {Row{Command::showDataTypes, "DataTypes", "DATE", "data-types"},
                           Row{Command::showFunctionTypes, "FunctionTypes", "SUBSTRING", "function-types"},
                           Row{Command::showActivityTypes, "ActTypes", "Aggregation", "activity-types"}}) {
        player.during(row.picture, [&] { frame.run(row.command); }, {[&](QWidget& dialog) {
                          auto& types = static_cast<QListWidget&>(Player::child(dialog, row.list));
                          types.setCurrentItem(types.findItems(QLatin1String(row.type), Qt::MatchExactly).value(0));
                          player.picture(dialog, row.picture + suffix);
                          if (row.command == Command::showActivityTypes) {
                              Player::press(dialog, "But_EDIT");
                              dialog.findChild<QTabWidget*>()->setCurrentIndex(2);
                              player.picture(dialog, "activity-type-template" + suffix);
                              Player::press(dialog, "But_Cancel");
                          }
                          Player::press(dialog, "But_OK");
                      }});
    }
}

}  // namespace

void drawByHand(Player& player, qt::FrameWindow& window, shell::MDIForm1& frame, qt::Theme& theme) {
    Hand hand(window);
    player.during("an empty drawing", [&] {
        std::string name = "Drawn by hand";
        frame.NewScenario(name);
        QApplication::processEvents();
        hand.show({13500, 7000});
    });
    drawNodes(player, hand);
    player.during("draw a scenario by hand", [&] {
        drawEdges(player, window, hand);
        showGestures(player, window, hand);
    });
    const canvas::DrawForm& form = window.area().active()->scenario();
    player.expect(form.Labels.Count() == 8 && form.Lines.Count() == 7, "the scenario was not drawn whole");
    player.expect(form.SelectedLines.Count() == 1, "no edge was selected");
    // The mark of unsaved work follows a drawing after a while only.
    QEventLoop waiting;
    QTimer::singleShot(400, &waiting, &QEventLoop::quit);
    waiting.exec();
    player.expect(window.windowTitle().contains(QChar(0x2022)), "unsaved work is not marked");
    player.picture(window, "drawn");
    tidyUp(player, window, frame, theme);
    player.during("palettes", [&frame] {
        frame.run(Command::toggleNodes);
        frame.run(Command::toggleEdges);
    });
    player.picture(Player::child(window, "NodeForm"), "node-palette");
    player.picture(Player::child(window, "EdgeForm"), "edge-palette");
    player.during("dock a palette at the left", [&] { Player::press(Player::child(window, "NodeForm"), "DockL"); });
    player.picture(window, "docked");
    theme.setMode(qt::ThemeMode::dark);
    player.picture(window, "drawn-dark");
    showDialogs(player, frame, "-dark");
    showTypes(player, frame, "-dark");
    theme.setMode(qt::ThemeMode::light);
    showDialogs(player, frame, "");
    showTypes(player, frame, "");
    closeScenario(player, frame);
    player.expect(window.area().active() == nullptr || window.area().active() != &form, "the drawing did not close");
}

}  // namespace orvent::tour
