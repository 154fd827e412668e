#include "qt/shell/command_actions.h"

#include <QAction>
#include <QMenuBar>
#include <QToolBar>
#include <algorithm>

#include "qt/menu_filling.h"
#include "qt/text.h"
#include "qt/theme/icons.h"
#include "shell/mdi_form.h"

namespace orvent::qt {

QList<QKeySequence> shortcutsOf(std::string_view shortcut) {
    return QKeySequence::listFromString(text(shortcut), QKeySequence::PortableText);
}

namespace {

/// The caption with its first letter marked that is the Alt key of no other menu.
QString withFreeKey(QString caption, const std::vector<QMenu*>& others) {
    for (qsizetype at = 0; at < caption.size(); ++at) {
        const QString key = QLatin1Char('&') + caption[at];
        if (std::none_of(others.begin(), others.end(),
                         [&](const QMenu* menu) { return menu->title().contains(key, Qt::CaseInsensitive); })) {
            return caption.insert(at, u'&');
        }
    }
    return caption;
}

}  // namespace

QAction* CommandActions::newAction(std::string_view name, std::string_view caption, std::string_view iconName,
                                   shell::Command command, QObject* parent) {
    auto* action = new QAction(text(caption), parent);
    action->setObjectName(text(name));
    action->setMenuRole(QAction::NoRole);
    if (!iconName.empty()) {
        action->setIcon(icon(text(iconName)));
    }
    connect(action, &QAction::triggered, this, [this, command] { run_(command); });
    return action;
}

void CommandActions::fill(QMenuBar& bar) {
    for (const shell::Menu& menu : shell::menus()) {
        QMenu* shown = bar.addMenu(withFreeKey(text(menu.caption), menus_));
        shown->setObjectName(text(menu.name));
        menus_.push_back(shown);
        fillMenu(
            *shown, menu.items,
            [this](const shell::MenuItem& item, QMenu& holder) {
                QAction* action = newAction(item.name, item.caption, item.icon, item.action, &holder);
                action->setShortcuts(shortcutsOf(item.shortcut));
                if (!item.tip.empty()) {
                    action->setToolTip(text(item.tip));
                    holder.setToolTipsVisible(true);
                }
                return action;
            },
            [this](const shell::MenuItem& item, QAction& action) {
                entries_.push_back({&action, item.action, item.windows, item.caption.empty() || !item.items.empty()});
            });
    }
}

void CommandActions::fill(QToolBar& bar) {
    std::size_t position = 0;
    for (const shell::ToolButton& button : shell::toolButtons(shell::ToolBar::MenuBar)) {
        const shell::Command command = shell::menuBarCommands()[position++];
        QAction* action = newAction(button.key, button.toolTip, button.icon, command, &bar);
        bar.addAction(action);
        entries_.push_back({action, command, canvas::kEveryWindow, false});
    }
}

QAction* CommandActions::add(const shell::Button& button, QObject* parent) {
    QAction* action = newAction(button.key, button.text, button.icon, button.command, parent);
    entries_.push_back({action, button.command, canvas::kEveryWindow, false});
    return action;
}

QAction* CommandActions::menuAction(std::string_view name) const {
    for (const Entry& entry : entries_) {
        if (qobject_cast<QMenu*>(entry.action->parent()) && entry.action->objectName() == text(name)) {
            return entry.action;
        }
    }
    return nullptr;
}

void CommandActions::addMenu(std::string_view item, std::function<void(QMenu&)> fill) {
    if (QAction* action = menuAction(item)) {
        auto* menu = new QMenu(action->text(), qobject_cast<QMenu*>(action->parent()));
        action->setMenu(menu);
        connect(menu, &QMenu::aboutToShow, this, [menu, fill = std::move(fill)] {
            menu->clear();
            fill(*menu);
        });
    }
}

void CommandActions::refresh(const shell::MDIForm1& logic) {
    for (const Entry& entry : entries_) {
        const bool shown = entry.windows.has(logic.front());
        entry.action->setVisible(shown);
        // One that is not shown must not take the keys of one that is.
        canvas::ItemState state = entry.idle ? canvas::ItemState{} : logic.stateOf(entry.command);
        state.enabled = state.enabled && shown;
        showState(*entry.action, state);
    }
    for (QMenu* menu : menus_) {
        const QList<QAction*> items = menu->actions();
        menu->menuAction()->setVisible(
            std::any_of(items.begin(), items.end(), [](const QAction* item) { return item->isVisible(); }));
    }
}

}  // namespace orvent::qt
