#include "qt/shell/frame_window.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QScrollArea>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTimer>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "qt/shell/desk_area.h"
#include "qt/shell/desk_window.h"
#include "qt/shell/dialog_windows.h"
#include "qt/shell/frame_docks.h"
#include "qt/shell/frame_tools.h"
#include "qt/shell/side_menu.h"
#include "qt/shell/welcome_page.h"
#include "qt/text.h"
#include "qt/theme/theme.h"
#include "shell/mdi_form.h"

namespace orvent::qt {

namespace {

struct Choice {
    std::string_view item;
    const char* line;
};

constexpr Choice kFirstSteps[] = {
    {"NewScenarioM", QT_TR_NOOP("Start with an empty canvas.")},
    {"LoadScenarioM", QT_TR_NOOP("Open one of your scenarios from the repository.")},
    {"LoadTestGraph", QT_TR_NOOP("Look around in a ready-made example.")},
};

}  // namespace

FrameWindow::FrameWindow(const Theme& theme, std::function<void()> endAtOnce)
    : theme_(theme),
      endAtOnce_(std::move(endAtOnce)),
      commands_([this](shell::Command command) { run(command); }, nullptr),
      area_(new DeskArea(theme, this)) {
    setObjectName(QStringLiteral("MDIForm1"));
    addDialogWindows(dialogs_, *this, sizes_);
    statusBar()->setObjectName(QStringLiteral("StatusBar1"));
    statusBar()->setSizeGripEnabled(false);
    viewCorner_ = new QLabel(this);
    viewCorner_->setObjectName(QStringLiteral("viewCorner"));
    viewCorner_->setTextFormat(Qt::PlainText);
    viewCorner_->setContentsMargins(Spacing::gap, 2, Spacing::gap, 2);
    whoAndWhere_ = new QLabel(this);
    whoAndWhere_->setObjectName(QStringLiteral("whoAndWhere"));
    whoAndWhere_->setTextFormat(Qt::PlainText);
    whoAndWhere_->setForegroundRole(QPalette::PlaceholderText);
    whoAndWhere_->setContentsMargins(Spacing::gap, 2, Spacing::gap, 2);
}

FrameWindow::~FrameWindow() {
    detach();
}

void FrameWindow::attach(shell::MDIForm1& logic) {
    logic_ = &logic;
    area_->attach(&logic);
    sizes_.attach(&logic.services().store);
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this, [this] {
        if (logic_ && logic_->idle()) {
            QCoreApplication::postEvent(this, new QEvent(QEvent::None));  // the loop comes back here
        }
    });
    // At the right of what a progress display has put there.
    statusBar()->addPermanentWidget(viewCorner_);
    statusBar()->addPermanentWidget(whoAndWhere_);
}

void FrameWindow::detach() {
    // Their logic stands on that of the program.
    qDeleteAll(findChildren<QObject*>(QLatin1String(kOpenDialog), Qt::FindDirectChildrenOnly));
    area_->dropAll();
    area_->attach(nullptr);
    sizes_.attach(nullptr);
    if (tools_) {
        tools_->attach(nullptr);
    }
    logic_ = nullptr;
}

// Only when the frame is placed, behind the login: the login window is to appear at once.
void FrameWindow::build() {
    if (centre_) {
        return;
    }
    buildCommands();
    buildCentre();
    tools_->attach(&logic_->tools());
    commandsChanged();
}

void FrameWindow::buildCommands() {
    commands_.fill(*menuBar());
    commands_.addMenu("OpenRecentM", [this](QMenu& menu) {
        for (const std::string& path : logic_->recentFiles()) {
            menu.addAction(text(path).replace(u'&', QStringLiteral("&&")), this, [this, path] { openFile(path); });
        }
    });
    setAcceptDrops(true);
    windowMenu_ = new QMenu(tr("&Window"), this);
    windowMenu_->setObjectName(QStringLiteral("WindowM"));
    menuBar()->insertMenu(menuBar()->actions().constLast(), windowMenu_);
    connect(windowMenu_, &QMenu::aboutToShow, this, [this] { area_->fillMenu(*windowMenu_); });

    tools_ = new FrameTools(*this, commands_);
    tools_->setParent(this);
}

void FrameWindow::buildCentre() {
    auto* welcome = new WelcomePage(this);
    for (const Choice& step : kFirstSteps) {
        welcome->addChoice(*commands_.menuAction(step.item), tr(step.line));
    }
    connect(area_, &DeskArea::activeChanged, this, &FrameWindow::commandsChanged);
    connect(area_, &DeskArea::activeChanged, this, [this] {
        if (logic_) {
            logic_->frontChanged();
            problemsChanged();
        }
    });
    connect(area_, &DeskArea::aboutToShow, this, [this] { centre_->setCurrentWidget(area_); });
    connect(area_, &DeskArea::cornerShown, viewCorner_, &QLabel::setText);
    centre_ = new QStackedWidget(this);
    // It scrolls when it has to, so that it does not hold the frame open.
    auto* rolling = new QScrollArea(centre_);
    rolling->setFrameShape(QFrame::NoFrame);
    rolling->setWidgetResizable(true);
    rolling->setWidget(welcome);
    centre_->addWidget(rolling);
    centre_->addWidget(area_);

    auto* row = new QWidget(this);
    auto* columns = new QHBoxLayout(row);
    columns->setContentsMargins({});
    columns->setSpacing(0);
    sideMenu_ = new SideMenu(
        commands_, [this](int group) { logic_->chooseGroup(group); }, row);
    columns->addWidget(sideMenu_->scrolling());
    columns->addWidget(centre_, 1);
    setCentralWidget(row);
    docks_ = new FrameDocks(*this, [this] { return logic_; });
}

void FrameWindow::openFile(const std::string& path) {
    if (logic_ && takesInput_) {
        logic_->openFile(path);
    }
}

void FrameWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasUrls()) {
        event->acceptProposedAction();
    }
}

void FrameWindow::openFiles(const std::vector<std::string>& paths) {
    waiting_.insert(waiting_.end(), paths.begin(), paths.end());
    update();
}

void FrameWindow::paintEvent(QPaintEvent* event) {
    QMainWindow::paintEvent(event);
    if (!waiting_.empty()) {
        QTimer::singleShot(0, this, [this, paths = std::exchange(waiting_, {})] {
            for (const std::string& path : paths) {
                openFile(path);
            }
        });
    }
}

// The program that the files come from waits until this returns.
void FrameWindow::dropEvent(QDropEvent* event) {
    event->acceptProposedAction();
    std::vector<std::string> paths;
    for (const QUrl& url : event->mimeData()->urls()) {
        if (url.isLocalFile()) {
            paths.push_back(url.toLocalFile().toStdString());
        }
    }
    openFiles(paths);
}

void FrameWindow::run(shell::Command command) {
    if (logic_ && takesInput_) {
        area_->cancelGesture();
        logic_->run(command);
    }
}

void FrameWindow::placeFrame(int left, int top, int width, int height) {
    build();
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    constexpr int twips = 15;  // of a pixel
    QRect place(left / twips, top / twips, width / twips, height / twips);
    place.setSize(place.size().expandedTo(minimumSizeHint()).boundedTo(screen.size()));
    place.translate(screen.topLeft());
    place.moveRight(std::min(place.right(), screen.right()));
    place.moveBottom(std::min(place.bottom(), screen.bottom()));
    setGeometry(place);
    showMaximized();
}

void FrameWindow::maximizeFrame() {
    if (!isMinimized() && !isMaximized()) {
        constexpr int step = 7;  // 100 twips in whole pixels
        move(pos() + QPoint(step, step));
    }
    showMaximized();
}

void FrameWindow::placePalette(shell::Palette palette) {
    tools_->placePalette(palette);
}

void FrameWindow::enableFrame(bool enabled) {
    if (!centre_ || enabled == takesInput_) {
        return;
    }
    takesInput_ = enabled;
    if (!enabled) {
        focusBefore_ = focusWidget();
    }
    // Not the frame itself: a message box of the step under way is its child and must be answered.
    menuBar()->setEnabled(enabled);
    for (auto* button : statusBar()->findChildren<QToolButton*>()) {
        button->setEnabled(enabled);
    }
    tools_->setEnabled(enabled);
    centralWidget()->setEnabled(enabled);
    docks_->setEnabled(enabled);
    if (enabled && focusBefore_) {
        focusBefore_->setFocus();
    }
}

void FrameWindow::showDock(shell::Dock dock, bool shown) {
    if (dock == shell::Dock::minimap) {
        area_->showMinimaps(shown);
    } else if (docks_) {
        docks_->show(dock, shown);
    }
}

bool FrameWindow::dockShown(shell::Dock dock) const {
    return dock == shell::Dock::minimap ? area_->minimapsShown() : docks_ && docks_->isShown(dock);
}

void FrameWindow::enterDock(shell::Dock dock) {
    if (docks_) {
        docks_->enter(dock);
    }
}

void FrameWindow::problemsChanged() {
    if (docks_) {
        docks_->refreshProblems();
    }
}

void FrameWindow::commandsChanged() {
    if (!logic_ || !centre_) {
        return;
    }
    commands_.refresh(*logic_);
    tools_->refresh();
    sideMenu_->showCurrent(logic_->currentGroup());
    viewCorner_->setVisible(area_->active() != nullptr);
    windowMenu_->menuAction()->setVisible(area_->active() != nullptr);
    centre_->setCurrentIndex(logic_->anyScenario() ? 1 : 0);
    const repository::LoginValues& login = logic_->options().repository.login;
    whoAndWhere_->setText(login.User.empty() ? QString()
                                             : tr("%1 @ %2").arg(text(login.User), text(login.ReposConnString)));
    docks_->refresh();
    showTitle();
}

void FrameWindow::showTitle() {
    const canvas::CanvasForm* form = area_->active();
    const bool onlyRead = logic_ && logic_->options().repository.onlyRead;
    const QString program = onlyRead ? tr("ORVENT II (read-only repository)") : QStringLiteral("ORVENT II");
    setWindowTitle(form ? tr("%1 — %2").arg(text(form->Caption() + form->titleMark()), program) : program);
    area_->refresh();
}

void FrameWindow::closeEvent(QCloseEvent* event) {
    // Refused first: a fault on the way leaves the frame open.
    event->ignore();
    if (takesInput_ && (!logic_ || logic_->unload())) {
        event->accept();
    }
}

void FrameWindow::changeEvent(QEvent* event) {
    if (event->type() == QEvent::WindowStateChange && logic_) {
        logic_->tools().palettes.minimize(isMinimized());
    }
    QMainWindow::changeEvent(event);
}

bool FrameWindow::focusNextPrevChild(bool next) {
    QWidget* from = focusWidget();
    return walkFocus(from ? *from : *this, next);
}

void FrameWindow::leaveProcess() {
    std::fflush(nullptr);
    std::_Exit(EXIT_FAILURE);
}

}  // namespace orvent::qt
