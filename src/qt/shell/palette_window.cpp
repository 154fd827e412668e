#include "qt/shell/palette_window.h"

#include <QCloseEvent>
#include <QMainWindow>
#include <QToolButton>
#include <QVBoxLayout>

#include "qt/theme/icons.h"
#include "qt/theme/theme.h"

namespace orvent::qt {

namespace {

constexpr int kPaletteColumns = 4;
constexpr int kSmallIcon = 14;
constexpr int kTitleExtras = 110;  // what a title bar has beside the title, in pixels

struct DockButton {
    const char* name;
    const char* icon;
    const char* toolTip;
    shell::DockSide side;
};

constexpr DockButton kDockButtons[] = {
    {"DockU", "dock-up", QT_TRANSLATE_NOOP("PaletteWindow", "Dock at the top"), shell::DockSide::up},
    {"DockD", "dock-down", QT_TRANSLATE_NOOP("PaletteWindow", "Dock at the bottom"), shell::DockSide::down},
    {"DockL", "dock-left", QT_TRANSLATE_NOOP("PaletteWindow", "Dock at the left"), shell::DockSide::left},
    {"DockR", "dock-right", QT_TRANSLATE_NOOP("PaletteWindow", "Dock at the right"), shell::DockSide::right},
    {"DockNo", "dock-none", QT_TRANSLATE_NOOP("PaletteWindow", "Float"), shell::DockSide::none},
};

QToolButton* newButton(int iconSize, QWidget* parent) {
    auto* button = new QToolButton(parent);
    button->setAutoRaise(true);
    button->setIconSize({iconSize, iconSize});
    button->setFocusPolicy(Qt::NoFocus);
    return button;
}

}  // namespace

PaletteWindow::PaletteWindow(const QString& name, const QString& title, QWidget* frame)
    : QWidget(frame, Qt::Tool | Qt::WindowStaysOnTopHint | Qt::WindowDoesNotAcceptFocus), tools_(new QGridLayout) {
    setObjectName(name);
    setWindowTitle(title);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_QuitOnClose, false);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(Spacing::gap, Spacing::gap, Spacing::gap, Spacing::gap);
    rows->setSpacing(Spacing::gap);
    rows->setSizeConstraint(QLayout::SetFixedSize);
    tools_->setSpacing(2);
    rows->addLayout(tools_);
    rows->addSpacerItem(new QSpacerItem(fontMetrics().horizontalAdvance(title) + kTitleExtras, 0));  // a whole title
    auto* docks = new QHBoxLayout;
    docks->setSpacing(0);
    docks->addStretch();
    for (const DockButton& row : kDockButtons) {
        QToolButton* button = newButton(kSmallIcon, this);
        button->setObjectName(QLatin1String(row.name));
        button->setIcon(icon(QLatin1String(row.icon)));
        button->setToolTip(tr(row.toolTip));
        connect(button, &QToolButton::clicked, this, [this, side = row.side] { Q_EMIT sideChosen(side); });
        docks->addWidget(button);
    }
    rows->addLayout(docks);
}

void PaletteWindow::addTools(const std::vector<QAction*>& actions) {
    int at = 0;
    for (QAction* action : actions) {
        QToolButton* button = newButton(Spacing::icon, this);
        button->setDefaultAction(action);
        tools_->addWidget(button, at / kPaletteColumns, at % kPaletteColumns);
        ++at;
    }
}

void PaletteWindow::moveTo(QPoint globally) {
    placed_ = true;
    move(globally);
}

void PaletteWindow::showNear(const QWidget& frame) {
    if (!placed_) {
        const QWidget* middle = static_cast<const QMainWindow&>(frame).centralWidget();
        adjustSize();
        move(middle->mapToGlobal(QPoint(middle->width() - width() - 2 * Spacing::section, 3 * Spacing::section)));
        for (const PaletteWindow* other : frame.findChildren<PaletteWindow*>()) {
            if (other != this && other->isVisible() && other->frameGeometry().intersects(frameGeometry())) {
                move(other->x() - width() - 2 * Spacing::section, other->y());
            }
        }
    }
    show();
}

void PaletteWindow::closeEvent(QCloseEvent* event) {
    event->ignore();  // hidden by the state that follows
    Q_EMIT closed();
}

}  // namespace orvent::qt
