#pragma once

#include <QMenu>
#include <QToolBar>
#include <QWindow>

#include "qt/canvas/canvas_editor.h"
#include "qt/shell/scenario_area.h"
#include "qt/shell/scenario_window.h"
#include "window_program.h"

namespace orvent::qt {

/// The user's hand on the scenario in front: real events of the whole frame, at places of the picture in twips.
class Hand {
  public:
    explicit Hand(WindowProgram& program) : program_(program) {}

    canvas::DrawForm& form() { return *program_.frame.activeScenario(); }
    CanvasEditor& editor() { return program_.frame.area().activeWindow()->editor(); }

    /// Presses the button of a tool with the mouse.
    void tool(const char* bar, const char* key) {
        auto* band = control<QToolBar>(program_.frame, bar);
        QWidget* button = band->widgetForAction(control<QAction>(*band, key));
        QTest::mouseClick(window(), Qt::LeftButton, {}, button->mapTo(&program_.frame, button->rect().center()));
    }

    void moveTo(canvas::Point at) { QTest::mouseMove(window(), pixel(at)); }
    void press(canvas::Point at, Qt::MouseButton button = Qt::LeftButton, Qt::KeyboardModifiers keys = {}) {
        QTest::mousePress(window(), button, keys, pixel(at));
    }
    void release(canvas::Point at, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseRelease(window(), button, {}, pixel(at));
    }
    void click(canvas::Point at, Qt::MouseButton button = Qt::LeftButton, Qt::KeyboardModifiers keys = {}) {
        moveTo(at);
        press(at, button, keys);
        release(at, button);
    }
    void doubleClick(canvas::Point at) { QTest::mouseDClick(window(), Qt::LeftButton, {}, pixel(at)); }
    void drag(canvas::Point from, canvas::Point to) {
        moveTo(from);
        press(from);
        moveTo({(from.x + to.x) / 2, (from.y + to.y) / 2});
        moveTo(to);
        release(to);
    }
    /// Draws an edge: the first move after the release decides where it ends.
    void drawEdge(canvas::Point from, canvas::Point to) {
        drag(from, to);
        moveTo({to.x + 30, to.y});
    }

    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(window(), key, modifiers); }
    void type(const QString& words) {
        for (const QChar letter : words) {
            QTest::keyClick(window(), letter.toLatin1());
        }
    }

    /// Clicks an item of the open context menu, through its submenu if it stands in one.
    void choose(const char* item) {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (!menu) {
            failQt(std::string("no menu for ") + item);
            return;
        }
        auto* action = menu->findChild<QAction*>(QLatin1String(item));
        auto* holder = action ? qobject_cast<QMenu*>(action->parent()) : nullptr;
        if (holder && holder != menu) {
            menu->setActiveAction(holder->menuAction());
            QTest::keyClick(menu, Qt::Key_Right);
        }
        QMenu& with = holder ? *holder : *menu;
        if (action) {
            QTest::mouseClick(&with, Qt::LeftButton, {}, with.actionGeometry(action).center());
        } else {
            failQt(std::string("no item ") + item);
        }
    }

    canvas::LabelsD& node(const std::string& name) { return *form().nodeNamed(name); }
    static canvas::Point middle(const canvas::LabelsD& node) {
        return {node.Left() + node.Width() / 2, node.Top() + node.Height() / 2};
    }
    QPoint pixel(canvas::Point at) {
        return editor().viewport()->mapTo(&program_.frame, editor().transform().toPixels(at).toPoint());
    }

  private:
    QWindow* window() { return program_.frame.windowHandle(); }

    WindowProgram& program_;
};

}  // namespace orvent::qt
