#include "qt/shell/desk_window.h"

#include <QAction>
#include <QCloseEvent>
#include <QMenu>
#include <utility>

#include "qt/canvas/canvas_editor.h"
#include "qt/text.h"
#include "qt/theme/icons.h"

namespace orvent::qt {

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
    formChanged();
}

DeskWindow::~DeskWindow() {
    release();
}

void DeskWindow::release() {
    if (form_) {
        subscription_.end();
        form_ = nullptr;
        delete std::exchange(editor_, nullptr);
    }
}

void DeskWindow::showEnabled() {
    setEnabled(form_ && form_->Enabled());
}

void DeskWindow::formChanged() {
    const QString mark = form_->unapplied() ? QStringLiteral(" (not applied yet)") : QString();
    setWindowTitle(text(form_->Caption()) + mark);
    Q_EMIT formShown();
}

void DeskWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (form_) {
        askClose_(*form_);
    }
}

}  // namespace orvent::qt
