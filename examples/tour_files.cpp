#include "tour_files.h"

#include <QApplication>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QTreeWidget>
#include <QUrl>

#include "platform/text.h"
#include "qt/shell/desk_area.h"
#include "tour_dialogs.h"
#include "tour_hand.h"
#include "tour_wizard.h"

namespace orvent::tour {

namespace {

namespace fs = std::filesystem;
using canvas::Point;
using shell::Command;

constexpr const char* kCopied = "Activity1";

void replaceAll(std::string& text, const std::string& from, const std::string& to) {
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
}

class Files {
  public:
    Files(Player& player, qt::FrameWindow& window, shell::MDIForm1& frame, qt::Theme& theme)
        : player_(player), window_(window), frame_(frame), theme_(theme), hand_(window) {}

    void exportTo(const fs::path& file) {
        player_.during("export it to a file", [&] { hand_.choose("ExportFileM"); }, {[&](QWidget& dialog) {
                           auto& name = dynamic_cast<QLineEdit&>(Player::child(dialog, "fileNameEdit"));
                           name.setText(QString::fromStdString(file.string()));
                           player_.picture(dialog, "export-dialog");
                           Player::press(dialog, "Save");
                       }});
        player_.expect(fs::exists(file), file.string() + " was not written");
    }

    /// What another designer makes of it: a type that is unknown here, and a statement with words about itself.
    static void change(const fs::path& file) {
        std::string text = platform::readFile(file.string());
        replaceAll(text, "\"Sample Transfer\"", "\"Nightly Transfer\"");
        const std::size_t node = text.find(std::string("\"name\": \"") + kCopied + "\"");
        text.insert(text.find("\"inputs\"", node), "\"ldl\": \"activity1_out(X) <- activity1_in1(X). % Activity1\", ");
        platform::writeFile(file.string(), text);
    }

    void drop(const fs::path& file) {
        QMimeData files;
        files.setUrls({QUrl::fromLocalFile(QString::fromStdString(file.string()))});
        QWidget* viewport = hand_.editor().viewport();
        const auto fall = [&] {
            QDragEnterEvent enters(QPoint(9, 9), Qt::CopyAction, &files, Qt::LeftButton, {});
            QApplication::sendEvent(viewport, &enters);
            QDropEvent falls(QPointF(9, 9), Qt::CopyAction, &files, Qt::LeftButton, {});
            QApplication::sendEvent(viewport, &falls);
        };
        player_.during("drop a file on the window", fall, {[this](QWidget& dialog) {
                           inBothThemes(dialog, "missing-types");
                           Player::press(dialog, "cmdAdd");
                       }});
        player_.expect(front().Labels.Count() == 9, "the file did not open whole");
        player_.picture(window_, "opened");
    }

    void copy() {
        select({kCopied, "RS1"});
        player_.during("duplicate nodes", [this] { hand_.choose("DuplicateM"); }, {[this](QWidget& box) {
                           player_.picture(box, "duplicated-words");
                           Player::press(box, "OK");
                       }});
        player_.picture(window_, "duplicated");
        select({"RS2", "Activity2"});
        player_.during("copy and paste nodes", [this] {
            hand_.choose("CopyM");
            hand_.move({6000, 8000});
            hand_.choose("PasteM");
        });
        player_.expect(front().Labels.Count() == 13 && front().SelectedLabels.Count() == 2, "the copies are not there");
        player_.picture(window_, "pasted");
    }

    /// The copy whose statement speaks of its original stands in the list until that is settled.
    void settleStatement() {
        std::deque<Player::Answer> answers = leaveWizards(front());
        answers.push_back([](QWidget& box) { Player::press(box, "OK"); });
        answers.push_back([this](QWidget& dialog) {
            auto& list = dynamic_cast<QTreeWidget&>(Player::child(dialog, "rows"));
            const auto rows = list.findItems(QLatin1String(kCopied) + QStringLiteral("_2"), Qt::MatchExactly);
            player_.expect(rows.size() == 1, "the copy's statement is not listed");
            list.setCurrentItem(rows.value(0));
            inBothThemes(dialog, "statement-of-a-copy");
            Player::press(dialog, "cmdConfirm");
        });
        answers.push_back([](QWidget& dialog) { Player::press(dialog, "cmdClose"); });
        player_.during(
            "settle a copy's statement", [this] { frame_.run(Command::createLdl); }, std::move(answers));
    }

    void close() { closeScenario(player_, frame_); }

  private:
    canvas::DrawForm& front() { return window_.area().active()->scenario(); }

    void select(std::initializer_list<const char*> names) {
        front().SelectedLabels.Clear();
        for (const char* name : names) {
            front().SelectedLabels.Add(front().NamesColl.Item(name));
        }
    }

    void inBothThemes(QWidget& dialog, const std::string& name) {
        player_.picture(dialog, name);
        theme_.setMode(qt::ThemeMode::dark);
        player_.picture(dialog, name + "-dark");
        theme_.setMode(qt::ThemeMode::light);
    }

    Player& player_;
    qt::FrameWindow& window_;
    shell::MDIForm1& frame_;
    qt::Theme& theme_;
    Hand hand_;
};

}  // namespace

void carryFiles(Player& player, qt::FrameWindow& window, shell::MDIForm1& frame, qt::Theme& theme,
                const fs::path& home) {
    const auto* form = window.area().active();
    Files files(player, window, frame, theme);
    const fs::path file = home / "elsewhere.orvent";
    files.exportTo(file);
    Files::change(file);
    files.drop(file);
    files.copy();
    files.settleStatement();
    files.close();
    player.expect(window.area().active() == form, "the first scenario is not in front again");
}

}  // namespace orvent::tour
