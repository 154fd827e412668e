#include "qt/shell/frame_tools.h"

#include <QMainWindow>
#include <QMouseEvent>
#include <QStatusBar>
#include <QStyleOptionToolBar>
#include <utility>

#include "qt/shell/command_actions.h"
#include "qt/shell/palette_window.h"
#include "qt/text.h"
#include "qt/theme/icons.h"

namespace orvent::qt {

namespace {

using shell::DockSide;
using shell::Palette;
using shell::ToolBar;

struct SideRow {
    DockSide side;
    Qt::ToolBarArea area;
};

constexpr SideRow kSides[] = {{DockSide::up, Qt::TopToolBarArea},
                              {DockSide::down, Qt::BottomToolBarArea},
                              {DockSide::left, Qt::LeftToolBarArea},
                              {DockSide::right, Qt::RightToolBarArea}};

constexpr int kHintTime = 4000;  // milliseconds

constexpr std::array kPalettes = {Palette::NodeForm, Palette::EdgeForm};

Qt::ToolBarArea areaOf(DockSide side) {
    for (const SideRow& row : kSides) {
        if (row.side == side) {
            return row.area;
        }
    }
    return Qt::TopToolBarArea;
}

}  // namespace

ToolActions::ToolActions(ToolBar bar, QWidget& container, const std::function<void(int)>& press) : bar_(bar) {
    int position = 0;
    for (const shell::ToolButton& button : shell::toolButtons(bar)) {
        ++position;
        auto* action = new QAction(icon(text(button.icon)), text(button.toolTip), &container);
        action->setObjectName(text(button.key));
        action->setCheckable(true);
        if (button.letter != 0) {
            action->setToolTip(QObject::tr("%1 (%2)").arg(text(button.toolTip), QString(QLatin1Char(button.letter))));
        }
        QObject::connect(action, &QAction::triggered, &container, [press, position] { press(position); });
        container.addAction(action);
        actions_.push_back(action);
    }
}

void ToolActions::refresh(const shell::ToolBars& tools) {
    int position = 0;
    for (QAction* action : actions_) {
        ++position;
        action->setEnabled(tools.isEnabled(bar_, position));
        action->setChecked(tools.isPressed(bar_, position));
    }
}

Band::Band(const QString& name, const QString& title, QWidget* parent) : QToolBar(title, parent) {
    setObjectName(name);
    setMovable(false);
    setFloatable(false);
    setContextMenuPolicy(Qt::PreventContextMenu);
}

bool Band::onHandle(QPoint place) const {
    QStyleOptionToolBar option;
    initStyleOption(&option);
    return style()->subElementRect(QStyle::SE_ToolBarHandle, &option, this).contains(place);
}

bool Band::event(QEvent* event) {
    const bool handled = QToolBar::event(event);
    if (event->type() == QEvent::MouseButtonPress) {
        taken_ = isMovable() && onHandle(static_cast<QMouseEvent*>(event)->position().toPoint());
        if (taken_) {
            Q_EMIT taken();
        }
    } else if (event->type() == QEvent::MouseButtonRelease && std::exchange(taken_, false)) {
        Q_EMIT dropped(static_cast<QMouseEvent*>(event)->globalPosition().toPoint());
    }
    return handled;
}

FrameTools::FrameTools(QMainWindow& frame, CommandActions& commands) : frame_(frame) {
    commands.fill(*addBand(QStringLiteral("MenuBar"), tr("General")));
    addTools(ToolBar::ArrowBar, *addBand(QStringLiteral("ArrowBar"), tr("Arrow")));
    Band* nodes = addBand(QStringLiteral("NodeBar"), tr("Nodes"));
    Band* edges = addBand(QStringLiteral("EdgeBar"), tr("Edges"));
    addTools(ToolBar::NodeBar, *nodes);
    addTools(ToolBar::EdgeBar, *edges);
    makePalette(Palette::NodeForm, ToolBar::NodeBar, *nodes, tr("Nodes"));
    makePalette(Palette::EdgeForm, ToolBar::EdgeBar, *edges, tr("Edges"));
}

FrameTools::~FrameTools() = default;

Band* FrameTools::addBand(const QString& name, const QString& title) {
    auto* band = new Band(name, title, &frame_);
    frame_.addToolBar(band);
    bands_.push_back(band);
    return band;
}

std::function<void(int)> FrameTools::presser(ToolBar bar) {
    return [this, bar](int position) {
        if (tools_) {
            tools_->press(bar, position);
        }
    };
}

void FrameTools::addTools(ToolBar bar, Band& band) {
    actions_.emplace_back(bar, band, presser(bar));
}

void FrameTools::makePalette(Palette palette, ToolBar bar, Band& band, const QString& title) {
    auto* window = new PaletteWindow(
        palette == Palette::NodeForm ? QStringLiteral("NodeForm") : QStringLiteral("EdgeForm"), title, &frame_);
    ToolActions tools(bar, *window, presser(bar));
    window->addTools(tools.actions());
    actions_.push_back(std::move(tools));
    connect(window, &PaletteWindow::sideChosen, this, [this, palette](DockSide side) {
        if (tools_) {
            tools_->palettes.dock(palette, side);
        }
    });
    connect(window, &PaletteWindow::closed, this, [this, palette] {
        if (tools_) {
            tools_->palettes.close(palette);
        }
    });
    band.setMovable(true);
    connect(&band, &Band::taken, this, [this, palette] {
        if (tools_) {
            tools_->palettes.startDrag(palette);
        }
    });
    connect(&band, &Band::dropped, this, [this, palette](QPoint globally) { bandDropped(palette, globally); });
    paletteBands_[static_cast<std::size_t>(palette)] = &band;
    palettes_[static_cast<std::size_t>(palette)] = window;
}

void FrameTools::bandDropped(Palette palette, QPoint globally) {
    if (!tools_) {
        return;
    }
    const QWidget& centre = *frame_.centralWidget();
    const bool overCentre = centre.rect().contains(centre.mapFromGlobal(globally));
    if (overCentre || !frame_.rect().contains(frame_.mapFromGlobal(globally))) {
        tools_->palettes.drop();
        tools_->palettes.place();
        return;
    }
    for (const SideRow& row : kSides) {
        if (row.area == frame_.toolBarArea(paletteBands_[static_cast<std::size_t>(palette)])) {
            tools_->palettes.dock(palette, row.side);
        }
    }
}

void FrameTools::attach(shell::ToolBars* tools) {
    if (tools_) {
        tools_->hinted = nullptr;
    }
    tools_ = tools;
    if (tools_) {
        tools_->hinted = [this](std::string_view words) { frame_.statusBar()->showMessage(text(words), kHintTime); };
    }
    refresh();
}

void FrameTools::refresh() {
    if (!tools_) {
        return;
    }
    for (ToolActions& actions : actions_) {
        actions.refresh(*tools_);
    }
    for (const Palette palette : kPalettes) {
        refreshPalette(palette);
    }
}

void FrameTools::refreshPalette(Palette palette) {
    const shell::Palettes& state = tools_->palettes;
    Band* band = paletteBands_[static_cast<std::size_t>(palette)];
    PaletteWindow* window = palettes_[static_cast<std::size_t>(palette)];
    const Qt::ToolBarArea area = areaOf(state.side(palette));
    if (frame_.toolBarArea(band) != area) {
        frame_.addToolBar(area, band);
    }
    band->setVisible(state.isBandShown(palette));
    if (state.isPaletteShown(palette) && !window->isVisible()) {
        window->showNear(frame_);
    }
    window->setVisible(state.isPaletteShown(palette));
}

void FrameTools::setEnabled(bool enabled) {
    for (Band* band : bands_) {
        band->setEnabled(enabled);
    }
    for (PaletteWindow* window : palettes_) {
        window->setEnabled(enabled);
    }
}

void FrameTools::placePalette(Palette palette) {
    palettes_[static_cast<std::size_t>(palette)]->moveTo(QCursor::pos());
}

}  // namespace orvent::qt
