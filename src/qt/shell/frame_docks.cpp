#include "qt/shell/frame_docks.h"

#include <QMainWindow>
#include <QStatusBar>
#include <QToolButton>
#include <utility>

#include "qt/shell/history_dock.h"
#include "qt/shell/problems_dock.h"
#include "qt/theme/icons.h"
#include "shell/mdi_form.h"

namespace orvent::qt {

using shell::Dock;

FrameDocks::FrameDocks(QMainWindow& frame, std::function<shell::MDIForm1*()> logic)
    : QObject(&frame),
      logic_(std::move(logic)),
      history_(new HistoryDock([this](std::size_t line) { logic_()->goToStep(line); }, &frame)),
      problems_(new ProblemsDock([this](canvas::NodeNumber node) { logic_()->goToNode(node); }, &frame)),
      count_(new QToolButton(&frame)) {
    frame.addDockWidget(Qt::RightDockWidgetArea, history_);
    frame.addDockWidget(Qt::BottomDockWidgetArea, problems_);
    const auto closed = [this](Dock dock) {
        if (shell::MDIForm1* its = logic_()) {
            its->dockClosed(dock);
        }
    };
    // It is hidden only behind its event.
    connect(
        history_, &HistoryDock::closed, this, [closed] { closed(Dock::history); }, Qt::QueuedConnection);
    connect(
        problems_, &ProblemsDock::closed, this, [closed] { closed(Dock::problems); }, Qt::QueuedConnection);
    history_->hide();
    problems_->hide();
    count_->setObjectName(QStringLiteral("problemCount"));
    count_->setAutoRaise(true);
    count_->setIcon(icon(QStringLiteral("warning")));
    count_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    count_->hide();
    frame.statusBar()->addPermanentWidget(count_);
    connect(count_, &QToolButton::clicked, this, [this] { logic_()->run(shell::Command::viewProblems); });
}

QDockWidget* FrameDocks::widget(Dock dock) const {
    return dock == Dock::history ? static_cast<QDockWidget*>(history_) : problems_;
}

void FrameDocks::show(Dock dock, bool shown) {
    widget(dock)->setVisible(shown);
}

bool FrameDocks::isShown(Dock dock) const {
    return !widget(dock)->isHidden();
}

void FrameDocks::setEnabled(bool enabled) {
    history_->setEnabled(enabled);
    problems_->setEnabled(enabled);
}

void FrameDocks::refresh() {
    if (const shell::MDIForm1* logic = logic_(); logic && isShown(Dock::history)) {
        history_->showLines(logic->stepsInFront());
    }
}

void FrameDocks::refreshProblems() {
    const shell::MDIForm1* logic = logic_();
    const bool isOpen = logic && logic->front() != canvas::WindowKind::none;
    std::vector<shell::ProblemLine> lines = isOpen ? logic->problems() : std::vector<shell::ProblemLine>();
    const int count = static_cast<int>(lines.size());
    count_->setVisible(isOpen && count > 0);
    count_->setText(count_->locale().toString(count));
    count_->setToolTip(count == 1 ? tr("1 problem") : tr("%1 problems").arg(count_->text()));
    count_->setAccessibleName(count_->toolTip());
    problems_->showLines(std::move(lines), isOpen);
}

}  // namespace orvent::qt
