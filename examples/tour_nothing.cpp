#include "tour_nothing.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QTabBar>
#include <QTabWidget>
#include <fstream>
#include <iterator>
#include <string>

#include "qt/shell/desk_area.h"
#include "qt/shell/desk_window.h"
#include "tour_dialogs.h"
#include "tour_docks.h"
#include "tour_hand.h"
#include "tour_wizard.h"

namespace orvent::tour {

namespace {

namespace fs = std::filesystem;
using canvas::Point;
using shell::Command;

constexpr const char* kName = "First Load";
constexpr const char* kShop = "ORVENT Bookshop";
constexpr const char* kFrom = "BOOK_AUTHORS";
constexpr const char* kTo = "FIRST_AUTHORS";
constexpr const char* kColumns[] = {"BOOK_ID", "AU_ID", "AU_ORDER", "ROYALTY_SHARE"};
constexpr Point kAuthors{2000, 3000}, kFirst{6000, 3000}, kTarget{10000, 3000};

class FromNothing {
  public:
    FromNothing(Player& player, qt::FrameWindow& window, shell::MDIForm1& frame, qt::Theme& theme)
        : player_(player), window_(window), frame_(frame), theme_(theme), hand_(window) {}

    void play(const fs::path& home) {
        player_.words().clear();
        player_.picture(window_, "nothing-open");
        player_.during("an empty canvas", [&] { hand_.choose("NewScenarioM"); }, {[](QWidget& box) {
                           Player::type(*box.findChild<QLineEdit*>(), QLatin1String(kName));
                           Player::press(box, "OK");
                       }});
        hand_.show({kTarget.x + 600, kTarget.y});
        placeRecordSet(kFrom, kAuthors, true);
        placeRecordSet(kTo, kTarget, false);
        placeActivity();
        connectAll();
        feedTarget();
        player_.picture(window_, "nothing-drawn");
        saveIt();
        program(home);
        expectAllNames(player_, "README.md");
        expectAllNames(player_, "docs/help/start.html");
        lookInTheDark();
        loadAgain(home);
        showRows(player_, window_, frame_, theme_, "First");
        closeScenario(player_, frame_);
    }

  private:
    canvas::DrawForm& form() { return window_.area().active()->scenario(); }

    /// Presses a node's tool on the canvas; the dialog of what was placed opens.
    void place(const char* tool, Point at, std::deque<Player::Answer> answers) {
        player_.during(
            tool, [&] { hand_.put(tool, at); }, std::move(answers));
    }

    void placeRecordSet(const char* name, Point at, bool pictures) {
        place("RecordSet", at,
              {[this, name, pictures](QWidget& dialog) {
                   Player::type(Player::child(dialog, "txtRecordSetName"), QLatin1String(name));
                   if (pictures) {
                       player_.picture(dialog, "record-set-empty");
                   }
                   Player::press(dialog, "butLoadDB");
                   tick(player_, dialog, "DBView", {kFrom});
                   if (pictures) {
                       player_.picture(dialog, "record-set");
                       theme_.setMode(qt::ThemeMode::dark);
                       player_.picture(dialog, "record-set-dark");
                       theme_.setMode(qt::ThemeMode::light);
                   }
                   Player::press(dialog, "OK");
               },
               [this, pictures](QWidget& login) {
                   chooseSource(login, kShop);
                   if (pictures) {
                       player_.picture(login, "source-login");
                   }
                   Player::press(login, "cmdOK");
               }});
        const canvas::LabelsD* node = form().nodeNamed(name);
        player_.expect(node && node->Ready() && node->recordSet()->RecordSet_Outputs.count() == 4,
                       std::string(name) + " was not made");
    }

    void placeActivity() {
        place("Activity", kFirst,
              {[&](QWidget& dialog) {
                   Player::type(Player::child(dialog, "txtName"), QStringLiteral("First"));
                   chooseType(dialog, "Selection");
                   tick(player_, dialog, "DBView", {kFrom});
                   player_.picture(dialog, "activity");
                   Player::press(dialog, "butRefresh");
                   player_.picture(dialog, "activity-generated");
                   Player::press(dialog, "OK");
               },
               [&](QWidget& wizard) { selectByWizard(player_, wizard, "nothing-wizard"); },
               [](QWidget& box) { Player::press(box, "OK"); },    // created
               [](QWidget& box) { Player::press(box, "OK"); }});  // saved
        const canvas::LabelsD* node = form().nodeNamed("First");
        player_.expect(node && node->Ready() && node->activity()->Act_Inputs.count() == 4 &&
                           node->activity()->Act_LDL.find('@') == std::string::npos &&
                           !node->activity()->Act_LDL.empty(),
                       "the activity was not defined");
    }

    void connectAll() {
        player_.during("join them", [&] {
            hand_.tool("Provider");
            hand_.edge({kAuthors.x + 400, kAuthors.y}, {kFirst.x - 400, kFirst.y});
            hand_.edge({kFirst.x + 400, kFirst.y}, {kTarget.x - 400, kTarget.y});
        });
        player_.expect(form().Lines.Count() == 2, "the edges were not drawn");
    }

    /// The tool is still pressed, and the edge that was drawn last has selected the activity.
    void feedTarget() {
        player_.during("zoom in", [&] { hand_.tool("ActivityZoom"); });
        canvas::CanvasForm& zoom = *window_.area().active();
        player_.expect(zoom.kind() == canvas::WindowKind::zoom, "no zoom opened");
        Player::press(*window_.area().activeWindow(), "takeOffer");
        player_.picture(window_, "nothing-zoom");
        const auto spot = [&zoom](const std::string& name, float across) {
            const canvas::LabelsD* node = zoom.nodeNamed(name);
            return node ? Point{node->Left() + across * node->Width(), node->Top() + node->Height() / 2} : Point{};
        };
        player_.during("feed the target", [&] {
            for (const std::string column : kColumns) {
                hand_.edge(spot(std::string("First.OUT.") + kFrom + "_" + column, 0.8F),
                           spot(std::string(kTo) + "." + column, 0.2F));
            }
        });
        player_.picture(window_, "nothing-fed");
        player_.during(
            "close the zoom",
            [&] {
                const auto* tabs = window_.area().findChild<QTabBar*>();
                qobject_cast<QAbstractButton*>(tabs->tabButton(tabs->currentIndex(), QTabBar::RightSide))->click();
            },
            {[](QWidget& box) { Player::press(box, "Yes"); }});
    }

    void lookInTheDark() {
        theme_.setMode(qt::ThemeMode::dark);
        player_.during("look at the activity again",
                       [&] {
                           hand_.tool("Arrow");
                           hand_.doubleClick({kFirst.x - 300, kFirst.y});
                       },
                       {[&](QWidget& dialog) {
                           player_.picture(dialog, "activity-dark");
                           static_cast<QTabWidget&>(Player::child(dialog, "TabStrip1")).setCurrentIndex(1);
                           player_.picture(dialog, "activity-outputs");
                           Player::press(dialog, "Cancel");
                       }});
        theme_.setMode(qt::ThemeMode::light);
    }

    /// All that the text export tells of the scenario.
    std::string exported(const fs::path& home) {
        player_.during("export it", [&] { frame_.run(Command::exportText); },
                       {[](QWidget& box) { Player::press(box, "OK"); }});
        return fileText(home / (std::string(kName) + ".txt"));
    }

    static std::string fileText(const fs::path& path) {
        std::ifstream file(path, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    }

    void saveIt() {
        player_.during("save what was drawn", [&] { hand_.choose("SaveScenarioM"); },
                       {[](QWidget& dialog) { Player::press(dialog, "OKButton"); },
                        [](QWidget& box) { Player::press(box, "OK"); }});
    }

    void loadAgain(const fs::path& home) {
        const std::string before = exported(home);
        player_.expect(before.find(kFrom) != std::string::npos, "the export does not tell of the record sets");
        closeScenario(player_, frame_);
        player_.during("load it", [&] { frame_.run(Command::loadScenario); }, {[](QWidget& dialog) {
                           auto& list = static_cast<QListWidget&>(Player::child(dialog, "ScenarioView"));
                           list.setCurrentItem(list.findItems(QLatin1String(kName), Qt::MatchExactly).value(0));
                           Player::press(dialog, "OKButton");
                       }});
        player_.expect(exported(home) == before, "what was loaded differs from what was drawn");
    }

    /// Each of the target's columns is filled.
    void program(const fs::path& home) {
        player_.during("create its LDL", [&] { hand_.tool("LDL"); }, {[](QWidget& box) { Player::press(box, "OK"); }});
        std::string columns;
        for (const std::string column : kColumns) {
            columns += (columns.empty() ? "" : ",") + (std::string(kTo) + "_") + column;
        }
        const std::string rule = std::string(kTo) + "(" + columns + ")<-\r\nFirst(" + columns + ").";
        const std::string text = fileText(home / "LDLS" / (std::string(kName) + ".ldl"));
        player_.expect(text.find(rule) != std::string::npos, "the program does not load the target");
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
