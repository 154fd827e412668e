#pragma once

#include <QFrame>
#include <functional>
#include <vector>

class QToolButton;

namespace orvent::qt {

class CommandActions;

/// `VerticalMenu`: groups of commands at the left edge of the frame. All of them are shown, and one is the current one.
class SideMenu : public QFrame {
    Q_OBJECT

  public:
    /// `choose` is called with the number of a group whose caption or command is pressed, from 1 on.
    SideMenu(CommandActions& actions, const std::function<void(int)>& choose, QWidget* parent);

    /// A frame around the menu, beside it in its parent: on a low screen the menu is scrolled.
    QWidget* scrolling();

    /// Marks the group of that number.
    void showCurrent(int group);

  protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    std::vector<QToolButton*> captions_;
    int current_ = 0;
};

}  // namespace orvent::qt
