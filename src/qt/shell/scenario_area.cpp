#include "qt/shell/scenario_area.h"

#include <QMenu>
#include <QTabBar>
#include <QToolButton>

#include "qt/shell/scenario_window.h"
#include "qt/theme/icons.h"
#include "qt/theme/theme.h"

namespace orvent::qt {

namespace {

constexpr int kNameWidth = 220;  // of a scenario's name in a tab or menu, in pixels
constexpr int kCloseSize = 18;

/// A name as a tab or menu shows it: not too long, and "&" as itself.
QString shortName(const QString& name, const QFontMetrics& metrics) {
    return metrics.elidedText(name.simplified(), Qt::ElideRight, kNameWidth).replace(u'&', QLatin1String("&&"));
}

QToolButton* newCloseButton(ScenarioWindow* window, QTabBar* tabs) {
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

}  // namespace

ScenarioArea::ScenarioArea(QWidget* parent) : QMdiArea(parent) {
    setDocumentMode(true);
    setFrameShape(NoFrame);
    setTabsMovable(true);
    setViewMode(TabbedView);
    connect(this, &QMdiArea::subWindowActivated, this, &ScenarioArea::activated);
}

ScenarioArea::~ScenarioArea() {
    // Windows that go one by one would activate each other.
    disconnect(this, &QMdiArea::subWindowActivated, this, nullptr);
}

QList<ScenarioWindow*> ScenarioArea::windows() const {
    QList<ScenarioWindow*> list;
    for (QMdiSubWindow* window : subWindowList()) {
        list.append(static_cast<ScenarioWindow*>(window));
    }
    return list;
}

void ScenarioArea::add(ScenarioWindow* window) {
    addSubWindow(window);
    connect(window, &ScenarioWindow::captionChanged, this, &ScenarioArea::activeChanged);
    if (viewMode() == SubWindowView) {
        window->resize(window->sizeHint());
    }
    window->show();
    bringForward(window);
    activated(window);
}

void ScenarioArea::drop(ScenarioWindow* window) {
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

void ScenarioArea::dropAll() {
    for (ScenarioWindow* window : windows()) {
        drop(window);
    }
}

void ScenarioArea::activated(QMdiSubWindow* window) {
    // Nothing is told when the whole program goes to the background; the last window stays the active one.
    if (window) {
        active_ = static_cast<ScenarioWindow*>(window);
        Q_EMIT activeChanged();
    }
}

ScenarioWindow* ScenarioArea::windowOf(const canvas::DrawForm& form) const {
    for (ScenarioWindow* window : windows()) {
        if (window->form() == &form) {
            return window;
        }
    }
    return nullptr;
}

canvas::DrawForm* ScenarioArea::activeScenario() const {
    return active_ ? active_->form() : nullptr;
}

void ScenarioArea::refresh() {
    for (ScenarioWindow* window : windows()) {
        window->showEnabled();
    }
    dressTabs();
}

void ScenarioArea::dressTabs() {
    auto* tabs = findChild<QTabBar*>();
    if (!tabs) {
        return;
    }
    tabs->setExpanding(false);
    tabs->setDrawBase(false);
    const QList<ScenarioWindow*> list = windows();
    for (int i = 0; i < tabs->count() && i < list.size(); ++i) {
        const QString name = list[i]->windowTitle();
        tabs->setTabText(i, shortName(name, tabs->fontMetrics()));
        tabs->setTabToolTip(i, name);
        if (!tabs->tabButton(i, QTabBar::RightSide)) {
            tabs->setTabButton(i, QTabBar::RightSide, newCloseButton(list[i], tabs));
        }
    }
}

void ScenarioArea::bringForward(ScenarioWindow* window) {
    setActiveSubWindow(window);
    window->setFocus();
}

void ScenarioArea::arrange(ViewMode mode, void (QMdiArea::*step)()) {
    setViewMode(mode);
    if (step) {
        (this->*step)();
    }
    refresh();
}

void ScenarioArea::fillMenu(QMenu& menu) {
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
    for (ScenarioWindow* window : windows()) {
        QAction* action = menu.addAction(shortName(window->windowTitle(), menu.fontMetrics()), window,
                                         [this, window] { bringForward(window); });
        action->setCheckable(true);
        action->setChecked(window == active_);
        action->setEnabled(window->isEnabled());
    }
}

}  // namespace orvent::qt
