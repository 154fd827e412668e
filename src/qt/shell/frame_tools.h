#pragma once

#include <QObject>
#include <QToolBar>
#include <array>
#include <vector>

#include "shell/tool_bars.h"

class QMainWindow;

namespace orvent::qt {

class CommandActions;
class PaletteWindow;

/// The tools of one bar as actions of `container`. They show the state of the tool bars and press its buttons.
class ToolActions {
  public:
    ToolActions(shell::ToolBar bar, QWidget& container, const std::function<void(int position)>& press);

    const std::vector<QAction*>& actions() const { return actions_; }
    void refresh(const shell::ToolBars& tools);

  private:
    shell::ToolBar bar_;
    std::vector<QAction*> actions_;
};

/// A tool bar of the frame that can be dragged along its sides and, with a palette, out of it.
class Band : public QToolBar {
    Q_OBJECT

  public:
    Band(const QString& name, const QString& title, QWidget* parent);

  Q_SIGNALS:
    void taken();
    void dropped(QPoint globally);

  protected:
    bool event(QEvent* event) override;

  private:
    bool onHandle(QPoint place) const;
    bool taken_ = false;
};

/// The frame's tool bars `MenuBar`, `ArrowBar`, `NodeBar` and `EdgeBar`, and the palettes `NodeForm` and `EdgeForm`.
class FrameTools : public QObject {
    Q_OBJECT

  public:
    FrameTools(QMainWindow& frame, CommandActions& commands);
    ~FrameTools() override;

    /// The state to show and to change; null before the frame has its logic and after it.
    void attach(shell::ToolBars* tools);
    void refresh();
    void setEnabled(bool enabled);
    void placePalette(shell::Palette palette);

  private:
    Band* addBand(const QString& name, const QString& title);
    void addTools(shell::ToolBar bar, Band& band);
    void makePalette(shell::Palette palette, shell::ToolBar bar, Band& band, const QString& title);
    void bandDropped(shell::Palette palette, QPoint globally);
    void refreshPalette(shell::Palette palette);
    std::function<void(int)> presser(shell::ToolBar bar);

    QMainWindow& frame_;
    shell::ToolBars* tools_ = nullptr;
    std::vector<Band*> bands_;
    std::vector<ToolActions> actions_;
    std::array<Band*, 2> paletteBands_{};
    std::array<PaletteWindow*, 2> palettes_{};
};

}  // namespace orvent::qt
