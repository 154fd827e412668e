#pragma once

#include <QMdiArea>
#include <vector>

#include "qt/canvas/node_painter.h"
#include "qt/canvas/picture_printer.h"
#include "shell/desk.h"

class QMenu;

namespace orvent::shell {
class MDIForm1;
}

namespace orvent::qt {

class DeskWindow;
class Theme;

/// A property of lists beside the windows in which the keyboard stays when they bring a node into view.
inline constexpr const char* kKeepsKeyboard = "keepsKeyboard";

/// The child windows of the frame, as tabs or as windows side by side. It remembers which one is active also while
/// another window of the program is in front.
class DeskArea : public QMdiArea, public shell::Desk {
    Q_OBJECT

  public:
    DeskArea(const Theme& theme, QWidget* parent);
    ~DeskArea() override;

    /// The logic of the frame, asked when a window is to close; nothing before it is there and after it has gone.
    void attach(shell::MDIForm1* logic) { logic_ = logic; }

    // Desk
    void show(canvas::CanvasForm& form) override;
    void drop(canvas::CanvasForm& form) override;
    canvas::CanvasForm* active() override;
    void changeView(canvas::CanvasForm& form, shell::ViewChange change) override;
    void reveal(canvas::CanvasForm& form, const canvas::LabelsD& node) override;
    canvas::Point middleOf(const canvas::CanvasForm& form) const override;
    void beginTyping(canvas::CanvasForm& form) override;
    void present(canvas::CanvasForm& form, const canvas::LabelsD& node) override;
    /// The minimap of each window that is there, and of those that come.
    void showMinimaps(bool shown);
    bool minimapsShown() const { return minimaps_; }
    void showTints(canvas::CanvasForm& form, canvas::Tints* tints) override;
    void showNotes(canvas::CanvasForm& form, const canvas::NodeNotes* notes) override;
    void showMenu(canvas::CanvasForm& form, const canvas::ContextMenu& menu, canvas::Point at) override;
    std::optional<canvas::Point> pointerIn(const canvas::CanvasForm& form) const override;
    void paint(canvas::CanvasForm& form, shell::PictureTarget target) override;
    float widthForName(const canvas::LabelsD& node) const override;

    void dropAll();

    /// The window of a form, or nothing.
    DeskWindow* windowOf(const canvas::CanvasForm& form) const;
    DeskWindow* activeWindow() const { return active_; }

    /// Gives up what the mouse is doing in the active window.
    void cancelGesture();
    /// Shows captions, and which windows take input.
    void refresh();
    /// `WindowM`: arrangements, then the windows.
    void fillMenu(QMenu& menu);

  Q_SIGNALS:
    void aboutToShow();  ///< a window comes
    void activeChanged();
    void cornerShown(const QString& words);  ///< scale and pointer of the active window
    void pressedInVain(QWidget* window);     ///< a press on a window that takes no input

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void dropWindow(DeskWindow* window);
    void activated(QMdiSubWindow* window);
    void arrange(ViewMode mode, void (QMdiArea::*step)());
    void bringForward(DeskWindow* window);
    void fillTab(DeskWindow& window);
    DeskWindow* behind(const DeskWindow& window) const;
    QString numberAmong(const DeskWindow& window) const;
    void dressTabs();
    void showActiveTab();
    DeskWindow* own(const QMdiSubWindow* window) const;
    std::vector<DeskWindow*> inTabOrder() const;

    const Theme& theme_;
    shell::MDIForm1* logic_ = nullptr;
    bool minimaps_ = false;
    std::vector<DeskWindow*> windows_;
    DeskWindow* active_ = nullptr;
    PicturePrinter printer_;
    mutable NodePainter names_;  ///< measures them
};

}  // namespace orvent::qt
