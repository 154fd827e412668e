#include "qt/shell/desk_area.h"

#include <QMenu>
#include <QMouseEvent>
#include <QTabBar>
#include <QToolButton>
#include <algorithm>

#include "qt/canvas/canvas_editor.h"
#include "qt/canvas/canvas_print.h"
#include "qt/shell/desk_window.h"
#include "qt/text.h"
#include "qt/theme/icons.h"
#include "qt/theme/theme.h"
#include "shell/mdi_form.h"

namespace orvent::qt {

namespace {

constexpr int kTabNameWidth = 220;  // of a scenario's name in a tab or menu, in pixels
constexpr int kCloseSize = 18;

/// A window's name as a tab or menu shows it: not too long, its mark whole behind it, and "&" as itself.
QString shortName(const DeskWindow& window, const QFontMetrics& metrics) {
    const QString name = text(window.form()->Caption()).simplified();
    QString whole = metrics.elidedText(name, Qt::ElideRight, kTabNameWidth) + text(window.form()->titleMark());
    return whole.replace(u'&', QLatin1String("&&"));
}

QToolButton* newCloseButton(DeskWindow* window, QTabBar* tabs) {
    auto* button = new QToolButton(tabs);
    button->setIcon(icon(QStringLiteral("close")));
    button->setIconSize({kCloseSize - 6, kCloseSize - 6});
    button->setFixedSize(kCloseSize, kCloseSize);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    button->setToolTip(QObject::tr("Close Scenario"));
    QObject::connect(button, &QToolButton::clicked, window, &QWidget::close);
    return button;
}

/// A list that one goes along with the keys, while the canvas shows each of its rows.
bool keepsKeyboard(const QWidget& widget) {
    for (const QWidget* at = &widget; at; at = at->parentWidget()) {
        if (at->property(kKeepsKeyboard).toBool()) {
            return true;
        }
    }
    return false;
}

}  // namespace

DeskArea::DeskArea(const Theme& theme, QWidget* parent) : QMdiArea(parent), theme_(theme), names_(font()) {
    setDocumentMode(true);
    setFrameShape(NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setTabsMovable(true);
    setViewMode(TabbedView);
    connect(this, &QMdiArea::subWindowActivated, this, &DeskArea::activated);
}

DeskArea::~DeskArea() {
    // Windows that go one by one would activate each other.
    disconnect(this, &QMdiArea::subWindowActivated, this, nullptr);
}

void DeskArea::show(canvas::CanvasForm& form) {
    Q_EMIT aboutToShow();
    auto* window = new DeskWindow(form, theme_, logic_->pointerPorts(),
                                  [this](canvas::CanvasForm& asked) { logic_->close(asked); });
    windows_.push_back(window);
    window->showMinimap(minimaps_);
    addSubWindow(window);
    connect(window, &DeskWindow::cornerShown, this, [this, window] {
        if (window == active_) {
            Q_EMIT cornerShown(window->corner());
        }
    });
    connect(window, &DeskWindow::formShown, this, &DeskArea::activeChanged);
    connect(window, &DeskWindow::settled, this, [this, window] { logic_->noticeChanges(*window->form()); });
    if (viewMode() == SubWindowView) {
        window->resize(window->sizeHint());
    }
    window->show();
    bringForward(window);
}

void DeskArea::drop(canvas::CanvasForm& form) {
    DeskWindow* window = windowOf(form);
    if (!window) {
        return;
    }
    DeskWindow* next = window == active_ ? behind(*window) : active_;
    dropWindow(window);
    if (next) {
        bringForward(next);  // the keyboard goes on there
    }
}

/// What comes forward when a window closes: the one below a view, also while it takes no input, or the neighbour among
/// the tabs.
DeskWindow* DeskArea::behind(const DeskWindow& window) const {
    if (DeskWindow* below = windowOf(window.form()->scenario()); below && below != &window) {
        return below;
    }
    const std::vector<DeskWindow*> list = inTabOrder();
    const auto place = std::find(list.begin(), list.end(), &window);
    if (place == list.end() || list.size() == 1) {
        return nullptr;
    }
    return place + 1 != list.end() ? *(place + 1) : *(place - 1);
}

// It is deleted later, since its own close request may be under way.
void DeskArea::dropWindow(DeskWindow* window) {
    std::erase(windows_, window);
    if (active_ == window) {
        active_ = nullptr;
    }
    removeSubWindow(window);
    window->release();
    window->deleteLater();
    if (!active_) {
        activated(currentSubWindow());
    }
}

void DeskArea::dropAll() {
    while (!windows_.empty()) {
        dropWindow(windows_.front());
    }
}

void DeskArea::activated(QMdiSubWindow* window) {
    // Nothing is told when the whole program goes to the background; the last window stays the active one.
    if (DeskWindow* next = own(window)) {
        if (active_ && active_ != next) {
            active_->editor().cancelGesture();
            active_->showInFront(false);
        }
        next->showInFront(true);
        active_ = next;
        fillTab(*next);
        Q_EMIT activeChanged();
        Q_EMIT cornerShown(next->corner());
    }
}

DeskWindow* DeskArea::own(const QMdiSubWindow* window) const {
    const auto place = std::find(windows_.begin(), windows_.end(), window);
    return place == windows_.end() ? nullptr : *place;
}

std::vector<DeskWindow*> DeskArea::inTabOrder() const {
    std::vector<DeskWindow*> list;
    for (const QMdiSubWindow* window : subWindowList()) {
        if (DeskWindow* found = own(window)) {
            list.push_back(found);
        }
    }
    return list;
}

DeskWindow* DeskArea::windowOf(const canvas::CanvasForm& form) const {
    const auto place = std::find_if(windows_.begin(), windows_.end(),
                                    [&](const DeskWindow* window) { return window->form() == &form; });
    return place == windows_.end() ? nullptr : *place;
}

canvas::CanvasForm* DeskArea::active() {
    return active_ ? active_->form() : nullptr;
}

void DeskArea::changeView(canvas::CanvasForm& form, shell::ViewChange change) {
    CanvasViewWidget& view = windowOf(form)->editor();
    switch (change) {
        case shell::ViewChange::larger:
            view.stepScale(1);
            break;
        case shell::ViewChange::smaller:
            view.stepScale(-1);
            break;
        case shell::ViewChange::actualSize:
            view.setScale(1);
            break;
        case shell::ViewChange::fit:
            view.fit();
            break;
    }
}

void DeskArea::reveal(canvas::CanvasForm& form, const canvas::LabelsD& node) {
    DeskWindow* window = windowOf(form);
    QWidget* keyboard = this->window()->focusWidget();
    bringForward(window);
    if (keyboard && keepsKeyboard(*keyboard)) {
        keyboard->setFocus();
    }
    window->editor().reveal(node);
}

canvas::Point DeskArea::middleOf(const canvas::CanvasForm& form) const {
    return windowOf(form)->editor().state().window.middle();
}

void DeskArea::beginTyping(canvas::CanvasForm& form) {
    DeskWindow* window = windowOf(form);
    bringForward(window);
    window->editor().beginTyping();
}

void DeskArea::present(canvas::CanvasForm& form, const canvas::LabelsD& node) {
    DeskWindow* window = windowOf(form);
    bringForward(window);
    window->editor().present(node);
}

void DeskArea::showMinimaps(bool shown) {
    minimaps_ = shown;
    for (DeskWindow* window : windows_) {
        window->showMinimap(shown);
    }
}

void DeskArea::showNotes(canvas::CanvasForm& form, const canvas::NodeNotes* notes) {
    windowOf(form)->editor().setNotes(notes);
}

void DeskArea::showTints(canvas::CanvasForm& form, canvas::Tints* tints) {
    windowOf(form)->editor().showTints(tints);
}

void DeskArea::showMenu(canvas::CanvasForm& form, const canvas::ContextMenu& menu, canvas::Point at) {
    windowOf(form)->editor().showMenu(menu, at);
}

std::optional<canvas::Point> DeskArea::pointerIn(const canvas::CanvasForm& form) const {
    const DeskWindow* window = windowOf(form);
    return window ? window->editor().pointerPlace() : std::nullopt;
}

void DeskArea::paint(canvas::CanvasForm& form, shell::PictureTarget target) {
    const PagePicture picture{text(form.Caption()), form.PicForm.Width() > form.PicForm.Height(),
                              [&form, tints = windowOf(form)->editor().tints()](QPainter& painter, const QRectF& page) {
                                  paintOnPage(form, painter, page, tints);
                              }};
    printer_.print(picture, target == shell::PictureTarget::preview, this);
}

float DeskArea::widthForName(const canvas::LabelsD& node) const {
    return names_.widthForName(node);
}

void DeskArea::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange) {
        names_.setFont(font());
    }
    QMdiArea::changeEvent(event);
}

void DeskArea::cancelGesture() {
    if (active_) {
        active_->editor().cancelGesture();
    }
}

void DeskArea::refresh() {
    for (DeskWindow* window : windows_) {
        const bool woke = !window->isEnabled() && window->form()->Enabled();
        window->showEnabled();
        window->changeSeen();
        if (woke && window == active_) {
            window->setFocus();
        }
    }
    dressTabs();
}

void DeskArea::dressTabs() {
    auto* tabs = findChild<QTabBar*>();
    if (!tabs) {
        return;
    }
    tabs->setExpanding(false);
    tabs->setDrawBase(false);
    connect(tabs, &QTabBar::tabBarClicked, this, &DeskArea::showActiveTab,
            static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::UniqueConnection));
    const std::vector<DeskWindow*> list = inTabOrder();
    for (int i = 0; i < tabs->count() && i < static_cast<int>(list.size()); ++i) {
        DeskWindow* window = list[static_cast<std::size_t>(i)];
        const QString name = window->windowTitle();
        tabs->setTabText(i, shortName(*window, tabs->fontMetrics()) + numberAmong(*window));
        tabs->setTabToolTip(i, name);
        if (!tabs->tabButton(i, QTabBar::RightSide)) {
            tabs->setTabButton(i, QTabBar::RightSide, newCloseButton(window, tabs));
        }
    }
}

/// The tab of a window that takes no input can be pressed, but the window does not come to the front.
void DeskArea::showActiveTab() {
    const std::vector<DeskWindow*> list = inTabOrder();
    const auto active = std::find(list.begin(), list.end(), active_);
    if (auto* tabs = findChild<QTabBar*>(); tabs && active != list.end()) {
        tabs->setCurrentIndex(static_cast<int>(active - list.begin()));
    }
}

/// " (2)" for the second window of one caption, in order of opening; nothing for a caption that stands alone.
QString DeskArea::numberAmong(const DeskWindow& window) const {
    int all = 0;
    int place = 0;
    for (const DeskWindow* other : windows_) {
        if (other->form()->Caption() == window.form()->Caption()) {
            ++all;
            place = other == &window ? all : place;
        }
    }
    return all > 1 ? QStringLiteral(" (%1)").arg(place) : QString();
}

void DeskArea::bringForward(DeskWindow* window) {
    setActiveSubWindow(window);
    fillTab(*window);
    window->setFocus();
    activated(window);
}

// The toolkit lets a window fill its tab only when it takes input at once and another one was filling it before.
void DeskArea::fillTab(DeskWindow& window) {
    if (viewMode() == TabbedView && !window.isMaximized()) {
        window.showMaximized();
    }
}

/// Presses on a window that takes no input come through to the area.
void DeskArea::mousePressEvent(QMouseEvent* event) {
    for (QWidget* at = viewport()->childAt(event->position().toPoint()); at; at = at->parentWidget()) {
        if (qobject_cast<DeskWindow*>(at) && !at->isEnabled()) {
            Q_EMIT pressedInVain(at);
            break;
        }
    }
    QMdiArea::mousePressEvent(event);
}

void DeskArea::arrange(ViewMode mode, void (QMdiArea::*step)()) {
    setViewMode(mode);
    if (step) {
        (this->*step)();
    } else if (active_) {
        fillTab(*active_);
    }
    refresh();
}

void DeskArea::fillMenu(QMenu& menu) {
    menu.clear();
    const auto addArrangement = [this, &menu](const QString& name, const QString& caption, ViewMode mode,
                                              void (QMdiArea::*step)()) {
        QAction* action = menu.addAction(caption, this, [this, mode, step] { arrange(mode, step); });
        action->setObjectName(name);
    };
    addArrangement(QStringLiteral("TabsM"), tr("Tabs"), TabbedView, nullptr);
    addArrangement(QStringLiteral("CascadeM"), tr("Cascade"), SubWindowView, &QMdiArea::cascadeSubWindows);
    addArrangement(QStringLiteral("TileM"), tr("Tile"), SubWindowView, &QMdiArea::tileSubWindows);
    menu.addSeparator();
    for (DeskWindow* window : inTabOrder()) {
        QAction* action = menu.addAction(shortName(*window, menu.fontMetrics()) + numberAmong(*window), window,
                                         [this, window] { bringForward(window); });
        action->setCheckable(true);
        action->setChecked(window == active_);
        action->setEnabled(window->isEnabled());
    }
}

}  // namespace orvent::qt
