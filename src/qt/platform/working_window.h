#pragma once

#include <QList>
#include <QPointer>
#include <QWidget>

class QProgressDialog;

namespace orvent::qt {

/// The window that works at the moment: the modal one, or the one in front. Boxes, choosers and dialogs open over it,
/// so that none of them lies behind it. While one of these objects lives, windows that show progress step back, also
/// those that would have come up meanwhile. It is in front again afterwards.
class WorkingWindow {
  public:
    /// `frame` is the window over which to open when no other one is at work; null: the main window that is shown.
    explicit WorkingWindow(QWidget* frame = nullptr);
    ~WorkingWindow();
    WorkingWindow(const WorkingWindow&) = delete;
    WorkingWindow& operator=(const WorkingWindow&) = delete;

    /// Null when none is shown.
    QWidget* widget() const { return window_; }

  private:
    QList<QPointer<QProgressDialog>> steppedBack_;
    QPointer<QWidget> window_;
};

}  // namespace orvent::qt
