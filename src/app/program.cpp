#include "app/program.h"

#include <QStatusBar>

#include "app/first_start.h"
#include "odbc/database.h"
#include "platform/kept_settings.h"
#include "platform/settings_file.h"
#include "qt/platform/adapters.h"
#include "qt/shell/desk_area.h"
#include "qt/shell/frame_window.h"
#include "shell/mdi_form.h"

namespace orvent::app {

struct Program::Parts {
    Parts(const Places& places, const qt::Theme& theme)
        : folder(places.data),
          database(places.sources()),
          dataSources(places.sources()),
          file(places.settings),
          states(places.states),
          window(theme),
          firstStart(places, database, store, messages),
          frame({database, dataSources, messages, input, files, colours, store, progress, help, folder, saveDialog,
                 clipboard, states},
                window, window.area()) {
        progress.attach(window.statusBar());
        window.attach(frame);
    }
    ~Parts() {
        window.detach();
        progress.attach(nullptr);
    }

    platform::ProgramFolder folder;
    odbc::OdbcDatabase database;
    odbc::OdbcDataSources dataSources;
    platform::SettingsFile file;
    qt::QtMessageBox messages;
    platform::KeptSettings store{file, messages};
    qt::QtInputBox input;
    qt::QtFileDialog files;
    qt::QtColourDialog colours;
    qt::QtProgress progress;
    qt::QtHelpViewer help;
    qt::QtSaveDialog saveDialog;
    qt::QtClipboard clipboard;
    platform::StateFolder states;
    qt::FrameWindow window;
    FirstStart firstStart;
    shell::MDIForm1 frame;
};

Program::Program(const Places& places, const qt::Theme& theme) : parts_(std::make_unique<Parts>(places, theme)) {}

Program::~Program() = default;

bool Program::start() {
    parts_->firstStart.run();
    return parts_->frame.start();
}

qt::FrameWindow& Program::window() {
    return parts_->window;
}

shell::MDIForm1& Program::frame() {
    return parts_->frame;
}

}  // namespace orvent::app
