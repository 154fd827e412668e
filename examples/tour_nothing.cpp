#include "tour_nothing.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QTabWidget>
#include <QTreeView>
#include <fstream>
#include <iterator>
#include <string>

#include "qt/shell/desk_area.h"
#include "tour_hand.h"
#include "tour_wizard.h"

namespace orvent::tour {

namespace {

namespace fs = std::filesystem;
using canvas::Point;
using shell::Command;

constexpr const char* kName = "Bookshop Orders";
constexpr const char* kSource = "ORVENT Bookshop";
constexpr Point kOrders{2000, 3000}, kLarge{6000, 3000}, kTarget{10000, 3000};

QModelIndex find(const QTreeView& tree, const QString& words, const QModelIndex& parent = {}) {
    for (int row = 0; row < tree.model()->rowCount(parent); ++row) {
        const QModelIndex at = tree.model()->index(row, 0, parent);
        if (at.data().toString() == words) {
            return at;
        }
        if (const QModelIndex inner = find(tree, words, at); inner.isValid()) {
            return inner;
        }
    }
    return {};
}

class FromNothing {
  public:
    FromNothing(Player& player, qt::FrameWindow& window, shell::MDIForm1& frame, qt::Theme& theme)
        : player_(player), window_(window), frame_(frame), theme_(theme), hand_(window) {}

    void play(const fs::path& home) {
        player_.during("an empty canvas", [&] { hand_.choose("NewScenarioM"); }, {[](QWidget& box) {
                           Player::type(*box.findChild<QLineEdit*>(), QLatin1String(kName));
                           Player::press(box, "OK");
                       }});
        hand_.show({kTarget.x + 600, kTarget.y});
        placeRecordSet("ORDER_LINES", kOrders, true);
        placeRecordSet("LARGE_LINES", kTarget, false);
        placeActivity();
        connectAll();
        defineActivity();
        player_.picture(window_, "nothing-drawn");
        theme_.setMode(qt::ThemeMode::dark);
        player_.during("look at the activity again", [&] { open(kLarge); }, {[&](QWidget& dialog) {
                           player_.picture(dialog, "activity-dark");
                           Player::press(dialog, "Cancel");
                       }});
        theme_.setMode(qt::ThemeMode::light);
        saveAndLoad(home);
        program(home);
        player_.during("close it", [&] { frame_.run(Command::closeScenario); },
                       {[](QWidget& box) { Player::press(box, "OK"); }});
    }

  private:
    canvas::DrawForm& form() { return window_.area().active()->scenario(); }

    /// Presses a node's tool on the canvas; the dialog of what was placed opens.
    void place(const char* tool, Point at, std::deque<Player::Answer> answers) {
        player_.during(
            tool,
            [&] {
                hand_.tool(tool);
                hand_.press(at);
                hand_.release(at);
            },
            std::move(answers));
    }

    void open(Point at) {
        hand_.tool("Arrow");
        hand_.doubleClick({at.x - 300, at.y});
    }

    static QTreeView& tree(QWidget& dialog, const char* name) {
        return static_cast<QTreeView&>(Player::child(dialog, name));
    }

    /// The space bar on a node of a tree.
    void check(QWidget& dialog, const char* name, const char* words) {
        QTreeView& view = tree(dialog, name);
        const QModelIndex at = find(view, QLatin1String(words));
        player_.expect(at.isValid(), std::string(words) + " is not in the tree");
        view.setCurrentIndex(at);
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent key(type, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "));
            QApplication::sendEvent(&view, &key);
        }
    }

    void placeRecordSet(const char* name, Point at, bool pictures) {
        place("RecordSet", at,
              {[this, name, pictures](QWidget& dialog) {
                   Player::type(Player::child(dialog, "txtRecordSetName"), QLatin1String(name));
                   if (pictures) {
                       player_.picture(dialog, "record-set-empty");
                   }
                   Player::press(dialog, "butLoadDB");
                   check(dialog, "DBView", "ORDER_LINES");
                   Player::press(dialog, "SQLAuto");
                   if (pictures) {
                       player_.picture(dialog, "record-set");
                       theme_.setMode(qt::ThemeMode::dark);
                       player_.picture(dialog, "record-set-dark");
                       theme_.setMode(qt::ThemeMode::light);
                   }
                   Player::press(dialog, "OK");
               },
               [this, pictures](QWidget& login) {
                   auto& names = static_cast<QComboBox&>(Player::child(login, "DSNNames"));
                   names.setCurrentIndex(names.findText(QLatin1String(kSource)));
                   if (pictures) {
                       player_.picture(login, "source-login");
                   }
                   Player::press(login, "cmdOK");
               },
               // The catalogue does not know one of the shop's types.
               [](QWidget& box) { Player::press(box, "Cancel"); }});
        const canvas::LabelsD* node = form().nodeNamed(name);
        player_.expect(node && node->Ready() && node->recordSet()->RecordSet_Outputs.count() == 6,
                       std::string(name) + " was not made");
    }

    void placeActivity() {
        place("Activity", kLarge, {[](QWidget& dialog) { Player::press(dialog, "Cancel"); }});
    }

    void connectAll() {
        player_.during("join them", [&] {
            hand_.tool("Provider");
            hand_.edge({kOrders.x + 400, kOrders.y}, {kLarge.x - 400, kLarge.y});
            hand_.tool("Provider");
            hand_.edge({kLarge.x + 400, kLarge.y}, {kTarget.x - 400, kTarget.y});
        });
        player_.expect(form().Lines.Count() == 2, "the edges were not drawn");
    }

    void defineActivity() {
        player_.during("define the activity", [&] { open(kLarge); },
                       {[&](QWidget& dialog) {
                            Player::type(Player::child(dialog, "txtName"), QStringLiteral("Large"));
                            auto& types = static_cast<QComboBox&>(Player::child(dialog, "ActTypes"));
                            const int selection = types.findText(QStringLiteral("Selection"));
                            types.setCurrentIndex(selection);
                            Q_EMIT types.activated(selection);
                            check(dialog, "DBView", "ORDER_LINES");
                            player_.picture(dialog, "activity");
                            Player::press(dialog, "butRefresh");
                            player_.picture(dialog, "activity-generated");
                            static_cast<QTabWidget&>(Player::child(dialog, "TabStrip1")).setCurrentIndex(1);
                            player_.picture(dialog, "activity-outputs");
                            Player::press(dialog, "OK");
                        },
                        [&](QWidget& wizard) { selectByWizard(player_, wizard, "nothing-wizard"); },
                        [](QWidget& box) { Player::press(box, "OK"); },    // created
                        [](QWidget& box) { Player::press(box, "OK"); }});  // saved
        const canvas::LabelsD* node = form().nodeNamed("Large");
        player_.expect(node && node->Ready() && node->activity()->Act_Inputs.count() == 6 &&
                           node->activity()->Act_LDL.find('@') == std::string::npos &&
                           !node->activity()->Act_LDL.empty(),
                       "the activity was not defined");
    }

    /// All that the text export tells of the scenario.
    std::string exported(const fs::path& home) {
        player_.during("export it", [&] { frame_.run(Command::exportText); },
                       {[](QWidget& box) { Player::press(box, "OK"); }});
        std::ifstream file(home / (std::string(kName) + ".txt"), std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    }

    void saveAndLoad(const fs::path& home) {
        player_.during("save what was drawn", [&] { frame_.run(Command::saveScenario); },
                       {[](QWidget& dialog) {
                            Player::type(Player::child(dialog, "txtScenarioName"), QLatin1String(kName));
                            Player::press(dialog, "OKButton");
                        },
                        [](QWidget& box) { Player::press(box, "OK"); }});
        const std::string before = exported(home);
        player_.expect(before.find("ORDER_LINES") != std::string::npos, "the export does not tell of the record sets");
        player_.during("close it", [&] { frame_.run(Command::closeScenario); },
                       {[](QWidget& box) { Player::press(box, "OK"); }});
        player_.during("load it", [&] { frame_.run(Command::loadScenario); }, {[](QWidget& dialog) {
                           auto& list = static_cast<QListWidget&>(Player::child(dialog, "ScenarioView"));
                           list.setCurrentItem(list.findItems(QLatin1String(kName), Qt::MatchExactly).value(0));
                           Player::press(dialog, "OKButton");
                       }});
        player_.expect(exported(home) == before, "what was loaded differs from what was drawn");
    }

    void program(const fs::path& home) {
        player_.during("create its LDL", [&] { frame_.run(Command::createLdl); },
                       {[](QWidget& box) { Player::press(box, "OK"); }});
        player_.expect(fs::exists(home / "LDLS" / (std::string(kName) + ".ldl")), "the program was not written");
    }

    Player& player_;
    qt::FrameWindow& window_;
    shell::MDIForm1& frame_;
    qt::Theme& theme_;
    Hand hand_;
};

}  // namespace

void drawFromNothing(Player& player, qt::FrameWindow& window, shell::MDIForm1& frame, qt::Theme& theme,
                     const fs::path& home) {
    FromNothing(player, window, frame, theme).play(home);
}

}  // namespace orvent::tour
