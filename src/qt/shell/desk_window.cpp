#include "qt/shell/desk_window.h"

#include <QAction>
#include <QCloseEvent>
#include <QMenu>
#include <chrono>
#include <utility>

#include "qt/canvas/canvas_editor.h"
#include "qt/text.h"
#include "qt/theme/icons.h"

namespace orvent::qt {

namespace {

/// Long enough that a drag costs nothing, short enough to be seen as one with its gesture.
constexpr std::chrono::milliseconds kSettling(300);

}  // namespace

DeskWindow::DeskWindow(canvas::CanvasForm& form, const Theme& theme, const canvas::PointerPorts& ports,
                       AskClose askClose)
    : form_(&form),
      subscription_(form.listen(*this)),
      askClose_(std::move(askClose)),
      editor_(new CanvasEditor(form, theme, ports, this)) {
    setAttribute(Qt::WA_DeleteOnClose, false);
    // Tabs take the place of a maximized window, for which the toolkit would rewrite the frame's title.
    setWindowFlag(Qt::WindowMaximizeButtonHint, false);
    // The keys are those of the frame's menu; the same key in both places would do nothing.
    for (QAction* action : systemMenu()->actions()) {
        action->setShortcuts(QList<QKeySequence>());
    }
    setWindowIcon(icon(QStringLiteral("scenario")));
    setWidget(editor_);
    setFocusProxy(editor_);
    settling_.setSingleShot(true);
    settling_.setInterval(kSettling);
    connect(&settling_, &QTimer::timeout, this, &DeskWindow::settled);
    formChanged();
}

DeskWindow::~DeskWindow() {
    release();
}

void DeskWindow::release() {
    if (form_) {
        subscription_.end();
        settling_.stop();
        form_ = nullptr;
        delete std::exchange(editor_, nullptr);
    }
}

void DeskWindow::showEnabled() {
    setEnabled(form_ && form_->Enabled());
}

void DeskWindow::changeSeen() {
    if (form_ && !settling_.isActive()) {
        settling_.start();
    }
}

void DeskWindow::formChanged() {
    const QString mark = form_->unapplied() ? QStringLiteral(" (not applied yet)") : QString();
    setWindowTitle(text(form_->Caption() + form_->titleMark()) + mark);
    changeSeen();
    Q_EMIT formShown();
}

void DeskWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (form_) {
        askClose_(*form_);
    }
}

}  // namespace orvent::qt
