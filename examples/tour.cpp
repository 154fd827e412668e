// The tour: plays the program through its real windows on a real embedded repository in a throw-away folder, and leaves
// pictures of each step and the files written. Usage: orvent_tour FOLDER [WIDTHxHEIGHT]; the screen has that size, 1280
// x 800 when none is given. QT_SCALE_FACTOR=2 plays it on a fine screen. Exits with 1 when a step fails.

#include <QListWidget>
#include <QScreen>
#include <QTemporaryDir>
#include <cstdio>
#include <fstream>
#include <iterator>

#include "app/program.h"
#include "qt/platform/application.h"
#include "qt/shell/desk_area.h"
#include "qt/shell/frame_window.h"
#include "qt/theme/theme.h"
#include "shell/mdi_form.h"
#include "tour_bookshop.h"
#include "tour_docks.h"
#include "tour_drawing.h"
#include "tour_files.h"
#include "tour_history.h"
#include "tour_metrics.h"
#include "tour_nothing.h"
#include "tour_player.h"
#include "tour_quick.h"
#include "tour_wizard.h"
#include "tour_zoom.h"

namespace orvent::tour {

namespace fs = std::filesystem;
using shell::Command;

namespace {

constexpr const char* kName = "Publishing Warehouse";

std::string fileText(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

class Tour {
  public:
    Tour(const fs::path& folder, const fs::path& home, qt::Theme& theme)
        : folder_(folder), home_(home), theme_(theme), player_(folder), program_(app::Places::in(home), theme) {}

    int play() {
        login();
        openSample();
        save();
        closeAndLoad();
        listProblems(player_, window(), frame(), theme_);
        findThings(player_, window(), frame(), theme_);
        outlineScenario(player_, window(), frame(), theme_);
        countMetrics(player_, window(), frame(), theme_);
        writeFiles();
        goBackAndForward(player_, window(), frame(), theme_);
        carryFiles(player_, window(), frame(), theme_, home_);
        zoomIntoActivity(player_, window(), frame(), theme_);
        drawQuickly(player_, window(), frame(), theme_);
        drawFromNothing(player_, window(), frame(), theme_, home_);
        loadBookshop(player_, window(), frame(), theme_, folder_);
        drawByHand(player_, window(), frame(), theme_);
        playWizard(player_, window(), frame(), theme_);
        darkPicture();
        closeAll();
        std::printf("tour: %s\n", player_.failures() == 0 ? "every step went well" : "FAILED");
        return player_.failures() == 0 ? 0 : 1;
    }

  private:
    qt::FrameWindow& window() { return program_.window(); }
    shell::MDIForm1& frame() { return program_.frame(); }

    /// An answer that takes a picture and presses a button.
    Player::Answer pressing(const char* button, const char* name = nullptr) {
        return [this, button, name](QWidget& box) {
            if (name) {
                player_.picture(box, name);
            }
            Player::press(box, button);
        };
    }

    void login() {
        player_.during("start and log in", [this] { player_.expect(program_.start(), "the login was not taken"); },
                       {[this](QWidget& dialog) {
                            Player::press(dialog, "ChangeRepos");
                            player_.picture(dialog, "login");
                            Player::press(dialog, "Login");
                        },
                        [this](QWidget& dialog) {
                            player_.picture(dialog, "repository");
                            Player::press(dialog, "TestConn");
                            Player::press(dialog, "cmdOK");
                        },
                        pressing("OK", "connection-tested")});
        window().showNormal();
        window().setGeometry(window().screen()->availableGeometry());
        QApplication::processEvents();
        player_.expect(window().size() == window().screen()->availableSize(), "the frame does not fit the screen");
        player_.picture(window(), "empty-frame");
    }

    void openSample() {
        player_.during("load the sample scenario", [this] { frame().run(Command::loadTestGraph); });
        player_.expect(window().area().active() != nullptr, "the sample has no window");
        player_.picture(window(), "sample");
    }

    void save() {
        player_.during("save it", [this] { frame().run(Command::saveScenario); },
                       {[this](QWidget& dialog) {
                            Player::type(Player::child(dialog, "txtScenarioName"), QLatin1String(kName));
                            player_.picture(dialog, "save-dialog");
                            Player::press(dialog, "OKButton");
                        },
                        pressing("OK", "saved")});
        player_.expect(window().area().active()->scenario().ScenarioID != 0, "the scenario has no identifier");
        unsavedLdl_ = writeLdl("write the LDL program of the saved scenario");
    }

    std::string writeLdl(const char* what) {
        std::deque<Player::Answer> answers = leaveWizards(window().area().active()->scenario());
        const bool unfinished = !answers.empty();
        answers.push_back(pressing("OK", "ldl-written"));
        if (unfinished) {
            answers.push_back(pressing("cmdClose", "ldl-unfinished"));
        }
        player_.during(
            what, [this] { frame().run(Command::createLdl); }, std::move(answers));
        return fileText(home_ / "LDLS" / (std::string(kName) + ".ldl"));
    }

    void closeAndLoad() {
        player_.during("close it", [this] { frame().run(Command::closeScenario); }, {pressing("OK", "close-question")});
        player_.expect(window().area().active() == nullptr, "the scenario did not close");
        player_.during("load it again", [this] { frame().run(Command::loadScenario); }, {[this](QWidget& dialog) {
                           auto& list = static_cast<QListWidget&>(Player::child(dialog, "ScenarioView"));
                           list.setCurrentRow(0);
                           player_.picture(dialog, "load-dialog");
                           Player::press(dialog, "OKButton");
                       }});
        player_.expect(window().area().active() && window().area().active()->Labels.Count() == 9,
                       "the scenario did not come back whole");
        player_.picture(window(), "loaded");
    }

    void writeFiles() {
        const std::string ldl = writeLdl("write the LDL program");
        player_.expect(!ldl.empty() && ldl == unsavedLdl_, "the LDL program changed with loading");
        player_.during("write the text export", [this] { frame().run(Command::exportText); },
                       {pressing("OK", "export-written")});
        for (const fs::path& file : {fs::path("LDLS") / (std::string(kName) + ".ldl"), fs::path(kName) += ".txt"}) {
            player_.expect(fs::exists(home_ / file), file.string() + " was not written");
            fs::copy_file(home_ / file, folder_ / file.filename(), fs::copy_options::overwrite_existing);
        }
    }

    void darkPicture() {
        theme_.setMode(qt::ThemeMode::dark);
        player_.picture(window(), "dark");
        player_.during("about", [this] { frame().run(Command::about); }, {[this](QWidget& dialog) {
                           player_.picture(dialog, "about");
                           dialog.close();
                       }});
        theme_.setMode(qt::ThemeMode::light);
    }

    void closeAll() {
        player_.during("end", [this] { window().close(); }, {pressing("OK")});
        player_.expect(!window().isVisible(), "the frame did not close");
    }

    fs::path folder_;
    fs::path home_;
    qt::Theme& theme_;
    Player player_;
    app::Program program_;
    std::string unsavedLdl_;
};

}  // namespace
}  // namespace orvent::tour

// What the platform without a screen cannot do is no news.
static void quietHandler(QtMsgType, const QMessageLogContext&, const QString& message) {
    if (!message.startsWith(QLatin1String("This plugin does not support")) &&
        !message.startsWith(QLatin1String("QStandardPaths:"))) {
        std::fprintf(stderr, "%s\n", qPrintable(message));
    }
}

/// Gives the platform without a display a screen of that size, in pixels of the toolkit's.
static void makeScreen(const QDir& folder, QSize size) {
    const double factor = std::max(1.0, qEnvironmentVariable("QT_SCALE_FACTOR").toDouble());
    QFile file(folder.filePath(QStringLiteral("screen.json")));
    file.open(QIODevice::WriteOnly);
    file.write(
        QStringLiteral(R"({"screens":[{"name":"tour","x":0,"y":0,"width":%1,"height":%2,"logicalDpi":96,"dpr":1}]})")
            .arg(qRound(size.width() * factor))
            .arg(qRound(size.height() * factor))
            .toUtf8());
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + file.fileName().toUtf8());
}

int main(int argc, char* argv[]) {
    using namespace orvent;
    QSize screen(1280, 800);
    if (argc == 3) {
        const QStringList sides = QString::fromLocal8Bit(argv[2]).split(QLatin1Char('x'));
        screen = {sides.value(0).toInt(), sides.value(1).toInt()};
    }
    if (argc < 2 || argc > 3 || screen.isEmpty()) {
        std::fprintf(stderr, "usage: %s FOLDER [WIDTHxHEIGHT]\n", argv[0]);
        return 2;
    }
    const tour::fs::path folder = tour::fs::absolute(argv[1]);  // the program has another folder for relative names
    tour::fs::remove_all(folder);
    tour::fs::create_directories(folder);
    qInstallMessageHandler(quietHandler);
    const QTemporaryDir home;
    makeScreen(QDir(home.path()), screen);
    qt::Application application(argc, argv);
    qt::Theme theme(qt::ThemeMode::light);
    theme.apply(application);
    try {
        return tour::Tour(folder, home.path().toStdString(), theme).play();
    } catch (const std::exception& fault) {
        std::fprintf(stderr, "tour: FAILED: %s\n", fault.what());
        return 1;
    }
}
