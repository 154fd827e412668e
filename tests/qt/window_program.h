#pragma once

#include "dialog_script.h"
#include "qt/canvas/canvas_print.h"
#include "qt/platform/adapters.h"
#include "qt/shell/desk_area.h"
#include "qt/shell/frame_window.h"
#include "qt/theme/theme.h"
#include "shell/mdi_form.h"
#include "testkit/embedded_repository.h"
#include "testkit/questions.h"
#include "testkit/test_frame.h"

namespace orvent::qt {

/// The control of that name in a window; the test fails when there is none.
template <class Control>
Control* control(const QWidget& window, const char* name) {
    auto* found = window.findChild<Control*>(QLatin1String(name));
    if (!found) {
        failQt(std::string("no control ") + name);
    }
    return found;
}

inline void click(const QWidget& window, const char* name) {
    QTest::mouseClick(control<QPushButton>(window, name), Qt::LeftButton);
}

/// A canvas as it is printed on white paper of that size.
inline QImage onPage(const canvas::Canvas& canvas, QSize size, const canvas::Tints* tints = nullptr) {
    QImage page(size, QImage::Format_RGB32);
    page.fill(Qt::white);
    QPainter painter(&page);
    paintOnPage(canvas, painter, QRectF(QPointF(), QSizeF(size)), tints);
    painter.end();
    return page;
}

inline bool isBlank(const QImage& paper) {
    QImage white(paper.size(), paper.format());
    white.fill(Qt::white);
    return paper == white;
}

/// Replaces the text of a field as a user does, with any letters.
inline void typeInto(const QWidget& window, const char* name, const QString& text) {
    auto* field = control<QLineEdit>(window, name);
    field->setFocus();
    field->selectAll();
    QTest::keyClick(field, Qt::Key_Backspace);
    field->insert(text);
}

/// The program's windows over its real logic and a real repository in a folder of its own. Message and input boxes are
/// scripted and strict; the product's own modal windows are real and driven by `dialogs`.
class WindowProgram {
  public:
    WindowProgram()
        : folder_(repository.folder.path()),
          logic({repository.hooked, repository.dataSources, messages, input, repository.files, colours_,
                 repository.store, progress, help_, folder_, saveDialog_, clipboard, states_},
                frame, frame.area()) {
        progress.attach(frame.statusBar());
        frame.attach(logic);
        repository.store.setValue("DB", "ReposConnString", source());
        repository.store.setValue("General", "SQLPath", std::string(ORVENT_SOURCE_DIR) + "/sql/ORVENTII.sql");
    }
    ~WindowProgram() {
        frame.detach();
        progress.attach(nullptr);
    }

    const std::string& source() const { return repository.settings.login.ReposConnString; }

    /// Starts as "anna", through the login window.
    void start() {
        dialogs.at(QStringLiteral("UserLogin"), [](QDialog& window) {
            typeInto(window, "txtUser", QStringLiteral("anna"));
            click(window, "Login");
        });
        QVERIFY(logic.start());
    }

    /// Chooses an item of the menu bar.
    void choose(const char* item) { menuItem(item)->trigger(); }
    QAction* menuItem(const char* item) {
        for (QMenu* menu : frame.menuBar()->findChildren<QMenu*>()) {
            for (QAction* action : menu->actions()) {
                if (action->objectName() == QLatin1String(item)) {
                    return action;
                }
            }
        }
        failQt(std::string("no menu item ") + item);
        return nullptr;
    }

    canvas::DrawForm* open(std::string name) { return logic.scenario(logic.NewScenario(name)); }

    /// Saves the scenario in front under a name of its own.
    void saveAs(const char* name) {
        messages.expect("Saved");
        dialogs.at(QStringLiteral("ViewScenarios"), [name](QDialog& window) {
            typeInto(window, "txtScenarioName", QLatin1String(name));
            click(window, "OKButton");
        });
        choose("SaveScenarioAsM");
    }

    void answerClose(const std::string& name, platform::Answer answer) { testkit::expectClose(messages, name, answer); }

    testkit::TestRepository repository;
    testkit::ScriptedMessageBox messages{failQt};
    testkit::ScriptedInputBox input{failQt};
    DialogScript dialogs;
    QtProgress progress;
    Theme theme{ThemeMode::light};
    FrameWindow frame{theme, [] {}};

  private:
    testkit::NoColours colours_;
    testkit::NoHelp help_;
    testkit::ChosenFile saveDialog_;
    testkit::OwnClipboard clipboard;
    platform::StateFolder states_{repository.folder.path() / "states"};
    platform::ProgramFolder folder_;

  public:
    shell::MDIForm1 logic;
};

struct StartedProgram : WindowProgram {
    StartedProgram() { start(); }
};

}  // namespace orvent::qt
