#include "tour_hand.h"

#include <QAction>
#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QToolButton>
#include <stdexcept>

#include "qt/shell/desk_area.h"
#include "qt/shell/desk_window.h"

namespace orvent::tour {

qt::CanvasEditor& Hand::editor() {
    return frame_.area().activeWindow()->editor();
}

void Hand::tool(const char* key) {
    for (QToolButton* button : frame_.findChildren<QToolButton*>()) {
        const QAction* action = button->defaultAction();
        if (action && action->objectName() == QLatin1String(key) && button->isVisible()) {
            button->click();
            return;
        }
    }
    throw std::runtime_error(std::string("the tour finds no tool ") + key);
}

void Hand::choose(const char* item) {
    for (const QMenu* menu : frame_.menuBar()->findChildren<QMenu*>()) {
        for (QAction* action : menu->actions()) {
            if (action->objectName() == QLatin1String(item)) {
                action->trigger();
                return;
            }
        }
    }
    throw std::runtime_error(std::string("the tour finds no menu item ") + item);
}

void Hand::show(canvas::Point farthest) {
    const auto isSeen = [&] {
        return editor().viewport()->rect().contains(editor().transform().toPixels(farthest).toPoint());
    };
    for (int steps = 0; steps < 5 && !isSeen(); ++steps) {
        choose("ViewSmallerM");
    }
}

void Hand::send(QEvent::Type type, canvas::Point at, Qt::MouseButton button, Qt::MouseButtons held) {
    QWidget* viewport = editor().viewport();
    const QPointF place = editor().transform().toPixels(at);
    QMouseEvent event(type, place, viewport->mapToGlobal(place), button, held, Qt::NoModifier);
    QApplication::sendEvent(viewport, &event);
    QApplication::processEvents();
}

void Hand::move(canvas::Point at, Qt::MouseButtons held) {
    send(QEvent::MouseMove, at, Qt::NoButton, held);
}

void Hand::press(canvas::Point at, Qt::MouseButton button) {
    send(QEvent::MouseButtonPress, at, button, button);
}

void Hand::release(canvas::Point at, Qt::MouseButton button) {
    send(QEvent::MouseButtonRelease, at, button, Qt::NoButton);
}

void Hand::click(canvas::Point at) {
    move(at);
    press(at);
    release(at);
}

void Hand::put(const char* tool, canvas::Point at) {
    this->tool(tool);
    press(at);
    release(at);
}

void Hand::doubleClick(canvas::Point at) {
    send(QEvent::MouseButtonDblClick, at, Qt::LeftButton, Qt::LeftButton);
    release(at);
}

void Hand::rest(canvas::Point at) {
    const QPoint place = editor().transform().toPixels(at).toPoint();
    QHelpEvent event(QEvent::ToolTip, place, editor().viewport()->mapToGlobal(place));
    QApplication::sendEvent(editor().viewport(), &event);
    QApplication::processEvents();
}

void Hand::pull(canvas::Point from, canvas::Point to) {
    move(from);
    press(from);
    move({(from.x + to.x) / 2, (from.y + to.y) / 2}, Qt::LeftButton);
    move(to, Qt::LeftButton);
}

void Hand::edge(canvas::Point from, canvas::Point to) {
    pull(from, to);
    release(to);
}

QObject* Hand::focused() {
    // A platform without a display gives no window the focus that a closed one had; the frame still knows its own.
    for (QWidget* widget : {QApplication::focusWidget(), frame_.focusWidget()}) {
        if (widget) {
            return widget;
        }
    }
    return &editor();
}

void Hand::type(const QString& words) {
    for (const QChar letter : words) {
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, Qt::Key_unknown, Qt::NoModifier, QString(letter));
            QApplication::sendEvent(focused(), &event);
        }
    }
}

void Hand::key(Qt::Key key) {
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier);
        QApplication::sendEvent(focused(), &event);
    }
    QApplication::processEvents();
}

}  // namespace orvent::tour
