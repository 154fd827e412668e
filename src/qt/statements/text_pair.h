#pragma once

#include <QResizeEvent>
#include <QSplitter>

namespace orvent::qt {

/// Two texts side by side while there is room for their lines, and else one above the other.
class TextPair : public QSplitter {
  public:
    using QSplitter::QSplitter;

  protected:
    void resizeEvent(QResizeEvent* event) override {
        setOrientation(event->size().width() >= kRoomForTwo ? Qt::Horizontal : Qt::Vertical);
        QSplitter::resizeEvent(event);
    }

  private:
    static constexpr int kRoomForTwo = 600;
};

}  // namespace orvent::qt
