#pragma once

#include <QKeySequence>
#include <QObject>
#include <functional>
#include <string_view>
#include <vector>

#include "shell/commands.h"

class QAction;
class QMenu;
class QMenuBar;
class QToolBar;

namespace orvent::shell {
class MDIForm1;
}

namespace orvent::qt {

QList<QKeySequence> shortcutsOf(std::string_view shortcut);

/// The actions behind the frame's menus, tool bar and vertical menu. Each place has its own action for a command, named
/// as its item; all of them show what the frame's logic tells.
class CommandActions : public QObject {
    Q_OBJECT

  public:
    using Run = std::function<void(shell::Command)>;

    explicit CommandActions(Run run, QObject* parent) : QObject(parent), run_(std::move(run)) {}

    void fill(QMenuBar& bar);
    /// Gives an item of the menu bar a menu that is filled when it opens.
    void addMenu(std::string_view item, std::function<void(QMenu&)> fill);
    void fill(QToolBar& bar);
    QAction* add(const shell::Button& button, QObject* parent);

    /// The action of that item of the menu bar, or nothing.
    QAction* menuAction(std::string_view name) const;

    /// Shows which commands there are now and which of them can be chosen.
    void refresh(const shell::MDIForm1& logic);

  private:
    struct Entry {
        QAction* action;
        shell::Command command;
        canvas::WindowKinds windows;
        bool idle;  ///< a separator or a sub-menu, which runs no command
    };

    QAction* newAction(std::string_view name, std::string_view caption, std::string_view icon, shell::Command command,
                       QObject* parent);

    Run run_;
    std::vector<Entry> entries_;
    std::vector<QMenu*> menus_;
};

}  // namespace orvent::qt
