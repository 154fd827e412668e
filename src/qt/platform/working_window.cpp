#include "qt/platform/working_window.h"

#include <QApplication>
#include <QMainWindow>
#include <QProgressDialog>
#include <QTimer>

namespace orvent::qt {

namespace {

bool isShown(const QWidget* window) {
    return window && window->isVisible() && !qobject_cast<const QProgressDialog*>(window);
}

QWidget* mainWindow() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (qobject_cast<QMainWindow*>(window) && window->isVisible()) {
            return window;
        }
    }
    return nullptr;
}

}  // namespace

WorkingWindow::WorkingWindow(QWidget* frame) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        auto* progress = qobject_cast<QProgressDialog*>(window);
        if (!progress) {
            continue;
        }
        for (QTimer* due : progress->findChildren<QTimer*>()) {
            due->stop();  // by which it would come up later; its next step shows it all the same
        }
        if (progress->isVisible()) {
            steppedBack_.append(progress);
            progress->hide();
            window_ = progress->parentWidget() ? progress->parentWidget()->window() : nullptr;
        }
    }
    // The window system may not have told yet which window is in front; which one is modal is known at once.
    for (QWidget* front : {QApplication::activeModalWidget(), window_.data(), QApplication::activeWindow()}) {
        if (isShown(front)) {
            window_ = front;
            return;
        }
    }
    window_ = isShown(frame) ? frame : mainWindow();
}

WorkingWindow::~WorkingWindow() {
    // A widget whose press opened the box was not told that the pointer has left it.
    for (QWidget* widget : QApplication::allWidgets()) {
        if (widget->underMouse() && !widget->rect().contains(widget->mapFromGlobal(QCursor::pos()))) {
            QEvent left(QEvent::Leave);
            QApplication::sendEvent(widget, &left);
            widget->setAttribute(Qt::WA_UnderMouse, false);
            widget->update();
        }
    }
    for (const QPointer<QProgressDialog>& progress : steppedBack_) {
        if (progress && !progress->wasCanceled()) {
            progress->show();
        }
    }
    // A box and the dialog below it may close at one time; the window system then gives nobody the keys.
    if (isShown(window_)) {
        window_->activateWindow();
    }
}

}  // namespace orvent::qt
