#pragma once

#include <QAction>
#include <QMenu>
#include <span>

#include "canvas/menu_item.h"
#include "qt/text.h"

namespace orvent::qt {

/// Fills a menu with items, separators and sub-menus, each named as its item. `make` gives the action of an item that
/// does something; `added` is told of every action, with its item.
template <class Action, class Make, class Added>
void fillMenu(QMenu& menu, std::span<const canvas::MenuItem<Action>> items, const Make& make, const Added& added) {
    for (const canvas::MenuItem<Action>& item : items) {
        QAction* action = nullptr;
        if (item.caption.empty()) {
            action = menu.addSeparator();
        } else if (!item.items.empty()) {
            QMenu* inner = menu.addMenu(text(item.caption));
            inner->setObjectName(text(item.name));
            fillMenu(*inner, item.items, make, added);
            action = inner->menuAction();
        } else {
            action = make(item, menu);
            action->setObjectName(text(item.name));
            menu.addAction(action);
        }
        if (item.isDefault) {
            menu.setDefaultAction(action);
        }
        added(item, *action);
    }
}

/// Shows whether an action can be chosen, and its check mark.
inline void showState(QAction& action, const canvas::ItemState& state) {
    action.setEnabled(state.enabled);
    action.setCheckable(state.checked.has_value());
    action.setChecked(state.checked.value_or(false));
}

}  // namespace orvent::qt
