#pragma once

#include <QMouseEvent>

#include "qt/canvas/canvas_editor.h"
#include "qt/shell/frame_window.h"

namespace orvent::tour {

/// The tour's hand: sends the events of mouse and keyboard to the scenario in front. Places are twips of the picture.
class Hand {
  public:
    explicit Hand(qt::FrameWindow& frame) : frame_(frame) {}

    /// Presses the button of a tool, in any bar.
    void tool(const char* key);

    void move(canvas::Point at, Qt::MouseButtons held = Qt::NoButton);
    void press(canvas::Point at, Qt::MouseButton button = Qt::LeftButton);
    void release(canvas::Point at, Qt::MouseButton button = Qt::LeftButton);
    void click(canvas::Point at);
    /// Presses a tool's button and then the canvas.
    void put(const char* tool, canvas::Point at);
    void doubleClick(canvas::Point at);
    /// Rests long enough for a tool tip.
    void rest(canvas::Point at);
    /// Presses at one place and drags to the other; the button stays down.
    void pull(canvas::Point from, canvas::Point to);
    /// Draws an edge; the first move after the release decides its target.
    void edge(canvas::Point from, canvas::Point to);
    /// Letter by letter into what has the focus.
    void type(const QString& words);
    void key(Qt::Key key);

    qt::CanvasEditor& editor();
    /// Chooses an item of the menu bar.
    void choose(const char* item);
    /// Makes the view show the picture as far as that place, when it does not yet.
    void show(canvas::Point farthest);

  private:
    QObject* focused();
    void send(QEvent::Type type, canvas::Point at, Qt::MouseButton button, Qt::MouseButtons held);

    qt::FrameWindow& frame_;
};

}  // namespace orvent::tour
