#pragma once

#include <QFrame>

namespace orvent::qt {

class CommandActions;

/// `VerticalMenu`: groups of commands at the left edge of the frame.
class SideMenu : public QFrame {
    Q_OBJECT

  public:
    SideMenu(CommandActions& actions, QWidget* parent);

  protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace orvent::qt
