#include "qt/shell/desk_window.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QMenu>
#include <QVBoxLayout>
#include <algorithm>
#include <chrono>
#include <utility>
#include <vector>

#include "qt/canvas/canvas_editor.h"
#include "qt/canvas/legend.h"
#include "qt/canvas/minimap.h"
#include "qt/shell/offer_bar.h"
#include "qt/text.h"
#include "qt/theme/icons.h"

namespace orvent::qt {

namespace {

/// Long enough that a drag costs nothing, short enough to be seen as one with its gesture.
constexpr std::chrono::milliseconds kSettling(300);

}  // namespace

bool walkFocus(QWidget& from, bool next) {
    const auto step = [next](const QWidget* at) { return next ? at->nextInFocusChain() : at->previousInFocusChain(); };
    for (QWidget* at = step(&from); at && at != &from; at = step(at)) {
        if (at->focusPolicy() & Qt::TabFocus && at->isVisible() && at->isEnabled() && !from.isAncestorOf(at)) {
            at->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
            return true;
        }
    }
    return false;
}

DeskWindow::DeskWindow(canvas::CanvasForm& form, const Theme& theme, const canvas::PointerPorts& ports,
                       AskClose askClose)
    : form_(&form),
      subscription_(form.listen(*this)),
      theme_(theme),
      askClose_(std::move(askClose)),
      editor_(new CanvasEditor(form, theme, ports, this)),
      offer_(new OfferBar(form, *editor_, this)),
      legend_(new Legend(form, theme, this)) {
    setAttribute(Qt::WA_DeleteOnClose, false);
    // Tabs take the place of a maximized window, for which the toolkit would rewrite the frame's title.
    setWindowFlag(Qt::WindowMaximizeButtonHint, false);
    // The keys are those of the frame's menu; the same key in both places would do nothing.
    for (QAction* action : systemMenu()->actions()) {
        action->setShortcuts(QList<QKeySequence>());
    }
    setWindowIcon(icon(QStringLiteral("scenario")));
    auto* content = new QWidget(this);
    auto* rows = new QVBoxLayout(content);
    rows->setContentsMargins({});
    rows->setSpacing(0);
    rows->addWidget(offer_);
    rows->addWidget(editor_, 1);
    rows->addWidget(legend_);
    setWidget(content);
    setFocusProxy(editor_);
    settling_.setSingleShot(true);
    settling_.setInterval(kSettling);
    connect(&settling_, &QTimer::timeout, this, &DeskWindow::settled);
    connect(editor_, &CanvasEditor::pointed, this, &DeskWindow::showCorner);
    connect(editor_, &CanvasViewWidget::scaleChanged, this, [this] { showCorner(std::nullopt); });
    showCorner(std::nullopt);
    formChanged();
}

void DeskWindow::showCorner(std::optional<canvas::Point> place) {
    const QLocale plain = locale();
    corner_ = tr("%1 %").arg(plain.toString(qRound(editor_->scale() * 100)));
    if (place) {
        corner_ = tr("%1, %2   %3").arg(plain.toString(qRound(place->x)), plain.toString(qRound(place->y)), corner_);
    }
    Q_EMIT cornerShown();
}

DeskWindow::~DeskWindow() {
    release();
}

void DeskWindow::release() {
    if (form_) {
        subscription_.end();
        settling_.stop();
        form_ = nullptr;
        delete std::exchange(offer_, nullptr);
        delete std::exchange(editor_, nullptr);
        delete std::exchange(legend_, nullptr);
    }
}

void DeskWindow::showMinimap(bool shown) {
    if (!shown) {
        delete minimap_;
    } else if (!minimap_) {
        minimap_ = new Minimap(*editor_, theme_);
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
    setWindowTitle(text(form_->Caption() + form_->titleMark()));
    offer_->refresh();
    legend_->refresh();
    changeSeen();
    Q_EMIT formShown();
}

// The toolkit keeps the Tab key within a child window. Here it goes from the canvas to what the window offers, and on.
bool DeskWindow::focusNextPrevChild(bool next) {
    std::vector<QWidget*> stops{editor_};
    if (offer_ && offer_->isVisible()) {
        stops.insert(stops.end(), offer_->buttons().begin(), offer_->buttons().end());
    }
    const auto at = std::find(stops.begin(), stops.end(), QApplication::focusWidget());
    const bool ends = at == stops.end() || (next ? at + 1 == stops.end() : at == stops.begin());
    if (ends) {
        return walkFocus(*this, next);
    }
    (*(next ? at + 1 : at - 1))->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

void DeskWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (form_) {
        askClose_(*form_);
    }
}

}  // namespace orvent::qt
