#include "tour_quick.h"

#include <QApplication>
#include <QMenu>
#include <QPlainTextEdit>

#include "qt/shell/desk_area.h"
#include "qt/shell/desk_window.h"
#include "tour_dialogs.h"
#include "tour_hand.h"

namespace orvent::tour {

namespace {

using canvas::Point;
using shell::Command;

constexpr const char* kTable = "CREATE TABLE BOOKS (BOOK_ID NUMBER PRIMARY KEY, TITLE VARCHAR2, PRICE NUMBER);";

class Quick {
  public:
    Quick(Player& player, qt::FrameWindow& window, shell::MDIForm1& frame, qt::Theme& theme)
        : player_(player), window_(window), frame_(frame), theme_(theme), hand_(window) {}

    void play() {
        std::string name = "Drawn quickly";
        frame_.NewScenario(name);
        frame_.run(Command::viewTypes);
        place("Record set", "BOOKS", {2000, 2400});
        place("Selection", "Cheap", {5500, 2400});
        place("Record set", "CHEAP_BOOKS", {9000, 2400});
        player_.picture(window_, "types");
        inTheDark("types-dark");
        frame_.run(Command::viewTypes);
        takeLines("BOOKS", "take-over");
        takeLines("CHEAP_BOOKS", nullptr);
        hand_.tool("Provider");
        hand_.edge(beside("BOOKS", 0.8F), beside("Cheap", 0.2F));
        player_.picture(window_, "columns-offered");
        Player::press(*window_.area().activeWindow(), "takeOffer");
        player_.expect(form().nodeNamed("Cheap")->activity()->Act_Outputs.count() == 3, "the columns were not taken");
        connect();
        showLinks();
        form().ClearCrop();
        for (const canvas::LabelsD& node : form().Labels) {
            form().SelectedLabels.Add(node.Index());
        }
        player_.during("a type and a size", [&] { frame_.run(Command::typeAndSize); }, {[this](QWidget& dialog) {
                           player_.picture(dialog, "type-and-size");
                           Player::press(dialog, "cmdCancel");
                       }});
        closeScenario(player_, frame_);
    }

  private:
    canvas::DrawForm& form() { return window_.area().active()->scenario(); }

    Point beside(const char* node, float across) {
        const canvas::LabelsD& its = *form().nodeNamed(node);
        return {its.Left() + across * its.Width(), its.Top() + its.Height() / 2};
    }

    void inTheDark(const char* name) {
        theme_.setMode(qt::ThemeMode::dark);
        player_.picture(window_, name);
        theme_.setMode(qt::ThemeMode::light);
    }

    /// Enter on a row of the list; its name is open, and the box is put where it belongs.
    void place(const char* type, const char* name, Point at) {
        placeFromList(player_, window_, type, name);
        canvas::LabelsD* node = form().nodeNamed(name);
        player_.expect(node != nullptr, std::string(name) + " was not placed");
        if (node) {
            node->setBox({at.x, at.y, node->Width(), node->Height()});
        }
    }

    /// Columns from the lines of a table's definition.
    void takeLines(const char* recordSet, const char* picture) {
        player_.during("take columns over", [&] { hand_.doubleClick(beside(recordSet, 0.5F)); },
                       {[](QWidget& dialog) {
                            Player::press(dialog, "butTakeOver");
                            Player::press(dialog, "OK");
                        },
                        [&](QWidget& lines) {
                            static_cast<QPlainTextEdit&>(Player::child(lines, "txtLines")).setPlainText(kTable);
                            if (picture) {
                                player_.picture(lines, picture);
                            }
                            Player::press(lines, "cmdOK");
                        }});
        player_.expect(form().nodeNamed(recordSet)->recordSet()->RecordSet_Outputs.count() == 3,
                       std::string(recordSet) + " has not got its columns");
    }

    void connect() {
        form().ClearCrop();
        for (const char* node : {"Cheap", "CHEAP_BOOKS"}) {
            form().SelectedLabels.Add(form().nodeNamed(node)->Index());
        }
        player_.during("connect by name", [&] { frame_.run(Command::connectByName); }, {[this](QWidget& dialog) {
                           player_.picture(dialog, "connect-by-name");
                           Player::press(dialog, "cmdOK");
                       }});
        player_.expect(
            form().nodeNamed("CHEAP_BOOKS")->recordSet()->RecordSet_Outputs->Item(1)->ProvidedFrom.count() == 1,
            "nothing was connected");
    }

    void showLinks() {
        hand_.tool("Arrow");
        const canvas::LinesD& edge = *form().Lines.at(1);
        const Point middle{edge.Xm(), edge.Ym()};
        hand_.move(middle);
        hand_.press(middle, Qt::RightButton);
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        auto* item = menu ? menu->findChild<QAction*>(QStringLiteral("EdgeShowLinksM")) : nullptr;
        player_.expect(item != nullptr, "the edge's menu shows no links");
        if (item) {
            menu->close();
            item->trigger();
            player_.expect(!form().light().isEmpty(), "the links are not lit");
            player_.picture(window_, "show-links");
        }
    }

    Player& player_;
    qt::FrameWindow& window_;
    shell::MDIForm1& frame_;
    qt::Theme& theme_;
    Hand hand_;
};

}  // namespace

void drawQuickly(Player& player, qt::FrameWindow& window, shell::MDIForm1& frame, qt::Theme& theme) {
    Quick(player, window, frame, theme).play();
}

}  // namespace orvent::tour
