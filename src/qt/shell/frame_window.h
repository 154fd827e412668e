#pragma once

#include <QMainWindow>
#include <QPointer>
#include <functional>
#include <string>
#include <vector>

#include "qt/forms/window_sizes.h"
#include "qt/shell/command_actions.h"
#include "shell/frame_host.h"

class QLabel;
class QStackedWidget;

namespace orvent::qt {

class FrameDocks;
class FrameTools;
class SideMenu;
class DeskArea;
class Theme;

/// The window of `MDIForm1`: menus, tool bar, vertical menu, the scenarios' windows and the status bar. It shows the
/// state of the frame's logic and hands every command to it.
class FrameWindow : public QMainWindow, public shell::FrameHost {
    Q_OBJECT

  public:
    /// `endAtOnce` ends the process; the standard one writes out all open files and leaves without any clean-up, since
    /// dialogs may be open in nested event loops.
    explicit FrameWindow(const Theme& theme, std::function<void()> endAtOnce = leaveProcess);
    ~FrameWindow() override;

    /// Gives the frame its logic, which needs the frame first. Commands do nothing before.
    void attach(shell::MDIForm1& logic);
    /// Takes the logic away before it goes; the windows of its scenarios go now.
    void detach();

    /// The windows with a canvas.
    DeskArea& area() { return *area_; }

    /// Opens the files of scenarios, but not before the frame was painted: opening may ask, over a frame that has its
    /// place by then.
    void openFiles(const std::vector<std::string>& paths);

    // FrameHost, the frame itself
    const forms::Dialogs& dialogs() const override { return dialogs_; }
    void placePalette(shell::Palette palette) override;
    void placeFrame(int left, int top, int width, int height) override;
    void maximizeFrame() override;
    void enableFrame(bool enabled) override;
    void commandsChanged() override;
    void showDock(shell::Dock dock, bool shown) override;
    bool dockShown(shell::Dock dock) const override;
    void enterDock(shell::Dock dock) override;
    void problemsChanged() override;
    void unloadFrame() override { close(); }
    void endProgram() override { endAtOnce_(); }

  protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    static void leaveProcess();

    void build();
    void buildCommands();
    void buildCentre();
    void run(shell::Command command);
    void openFile(const std::string& path);
    void showTitle();

    const Theme& theme_;
    std::function<void()> endAtOnce_;
    shell::MDIForm1* logic_ = nullptr;
    SizeMemory sizes_;
    forms::Dialogs dialogs_;
    CommandActions commands_;
    QMenu* windowMenu_ = nullptr;
    FrameTools* tools_ = nullptr;
    QStackedWidget* centre_ = nullptr;
    DeskArea* area_;
    SideMenu* sideMenu_ = nullptr;
    FrameDocks* docks_ = nullptr;
    QLabel* whoAndWhere_ = nullptr;
    QLabel* viewCorner_ = nullptr;  ///< the scale of the view in front and the pointer's place in it
    bool takesInput_ = true;
    std::vector<std::string> waiting_;  ///< files to be opened
    QPointer<QWidget> focusBefore_;     ///< where the focus was when the frame was disabled
};

}  // namespace orvent::qt
