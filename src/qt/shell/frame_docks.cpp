#include "qt/shell/frame_docks.h"

#include <QAbstractEventDispatcher>
#include <QMainWindow>
#include <QStatusBar>
#include <QToolButton>
#include <utility>

#include "qt/shell/find_dock.h"
#include "qt/shell/history_dock.h"
#include "qt/shell/outline_dock.h"
#include "qt/shell/problems_dock.h"
#include "qt/shell/rows_dock.h"
#include "qt/shell/types_dock.h"
#include "qt/theme/icons.h"
#include "shell/mdi_form.h"

namespace orvent::qt {

using shell::Dock;

namespace {

constexpr Dock kDocks[] = {Dock::history, Dock::problems, Dock::find, Dock::outline, Dock::types, Dock::rows};

}  // namespace

FrameDocks::FrameDocks(QMainWindow& frame, std::function<shell::MDIForm1*()> logic)
    : QObject(&frame),
      logic_(std::move(logic)),
      history_(new HistoryDock([this](std::size_t line) { logic_()->goToStep(line); }, &frame)),
      problems_(new ProblemsDock([this](canvas::NodeNumber node) { logic_()->lists().goToNode(node); }, &frame)),
      find_(new FindDock(listOf(&shell::SideLists::find), &frame)),
      outline_(new OutlineDock(listOf(&shell::SideLists::outline), &frame)),
      types_(new TypesDock(listOf(&shell::SideLists::types), &frame)),
      rows_(new RowsDock(listOf(&shell::SideLists::rows), &frame)),
      count_(new QToolButton(&frame)) {
    frame.addDockWidget(Qt::RightDockWidgetArea, history_);
    frame.addDockWidget(Qt::BottomDockWidgetArea, problems_);
    frame.tabifyDockWidget(problems_, find_);
    frame.tabifyDockWidget(problems_, rows_);
    frame.addDockWidget(Qt::LeftDockWidgetArea, outline_);
    frame.addDockWidget(Qt::LeftDockWidgetArea, types_);
    logic_()->lists().types().onRows = [this] { types_->renew(); };
    logic_()->lists().outline().onOutline = [this] { outline_->renew(); };
    logic_()->lists().outline().onFollow = [this] { outline_->follow(); };
    logic_()->lists().find().onRows = [this](bool others) { find_->follow(others); };
    logic_()->lists().rows().onTables = [this] { rows_->renewTables(); };
    // The loop comes back to where it is about to wait, and there the program looks what there is to do.
    logic_()->lists().rows().setWake([dispatcher = QAbstractEventDispatcher::instance()] { dispatcher->wakeUp(); });
    logic_()->lists().rows().onState = [this] { rows_->renewState(); };
    const auto closed = [this](Dock dock) {
        if (shell::MDIForm1* its = logic_()) {
            its->lists().closed(dock);
        }
    };
    // It is hidden only behind its event.
    connect(
        history_, &HistoryDock::closed, this, [closed] { closed(Dock::history); }, Qt::QueuedConnection);
    connect(
        problems_, &ProblemsDock::closed, this, [closed] { closed(Dock::problems); }, Qt::QueuedConnection);
    connect(
        find_, &FindDock::closed, this, [closed] { closed(Dock::find); }, Qt::QueuedConnection);
    connect(
        outline_, &OutlineDock::closed, this, [closed] { closed(Dock::outline); }, Qt::QueuedConnection);
    connect(
        types_, &TypesDock::closed, this, [closed] { closed(Dock::types); }, Qt::QueuedConnection);
    connect(
        rows_, &RowsDock::closed, this, [closed] { closed(Dock::rows); }, Qt::QueuedConnection);
    for (const Dock dock : kDocks) {
        widget(dock)->hide();
    }
    count_->setObjectName(QStringLiteral("problemCount"));
    count_->setAutoRaise(true);
    count_->setIcon(icon(QStringLiteral("warning")));
    count_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    count_->hide();
    frame.statusBar()->addPermanentWidget(count_);
    connect(count_, &QToolButton::clicked, this, [this] { logic_()->run(shell::Command::viewProblems); });
}

QDockWidget* FrameDocks::widget(Dock dock) const {
    switch (dock) {
        case Dock::history:
            return history_;
        case Dock::problems:
            return problems_;
        case Dock::find:
            return find_;
        case Dock::types:
            return types_;
        case Dock::rows:
            return rows_;
        case Dock::outline:
        case Dock::minimap:
            break;
    }
    return outline_;
}

void FrameDocks::show(Dock dock, bool shown) {
    widget(dock)->setVisible(shown);
    if (shown) {
        widget(dock)->raise();
    }
}

void FrameDocks::enter(Dock dock) {
    widget(dock)->raise();
    if (dock == Dock::find) {
        find_->enter();
    } else if (dock == Dock::outline) {
        outline_->enter();
    } else if (dock == Dock::types) {
        types_->enter();
    } else {
        widget(dock)->setFocus();
    }
}

bool FrameDocks::isShown(Dock dock) const {
    return !widget(dock)->isHidden();
}

void FrameDocks::setEnabled(bool enabled) {
    for (const Dock dock : kDocks) {
        widget(dock)->setEnabled(enabled);
    }
}

void FrameDocks::refresh() {
    if (const shell::MDIForm1* logic = logic_(); logic && isShown(Dock::history)) {
        history_->showLines(logic->stepsInFront());
    }
}

void FrameDocks::refreshProblems() {
    const shell::MDIForm1* logic = logic_();
    const bool isOpen = logic && logic->front() != canvas::WindowKind::none;
    std::vector<shell::ProblemLine> lines = isOpen ? logic->lists().problems() : std::vector<shell::ProblemLine>();
    const int count = static_cast<int>(lines.size());
    count_->setVisible(isOpen && count > 0);
    count_->setText(count_->locale().toString(count));
    count_->setToolTip(count == 1 ? tr("1 problem") : tr("%1 problems").arg(count_->text()));
    count_->setAccessibleName(count_->toolTip());
    problems_->showLines(std::move(lines), isOpen);
}

}  // namespace orvent::qt
