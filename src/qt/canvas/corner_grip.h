#pragma once

#include <QMouseEvent>
#include <QPainter>
#include <QWidget>
#include <functional>
#include <optional>

namespace orvent::qt {

/// `lblSroll`, the corner between the scroll bars: dragging it changes the size of the picture.
class CornerGrip : public QWidget {
  public:
    using Drag = std::function<void(QPoint by)>;

    explicit CornerGrip(Drag drag) : drag_(std::move(drag)) {
        setObjectName(QStringLiteral("lblSroll"));
        setCursor(Qt::SizeFDiagCursor);
    }

  protected:
    void mousePressEvent(QMouseEvent* event) override {
        if (event->button() == Qt::LeftButton) {
            from_ = event->globalPosition().toPoint();
        }
    }
    void mouseMoveEvent(QMouseEvent* event) override {
        if (from_) {
            const QPoint now = event->globalPosition().toPoint();
            drag_(now - *from_);
            from_ = now;
        }
    }
    void mouseReleaseEvent(QMouseEvent*) override { from_.reset(); }

    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), palette().color(QPalette::Window));
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.setRenderHint(QPainter::Antialiasing);
        for (const int step : {4, 8}) {
            painter.drawLine(width() - 3, height() - 3 - step, width() - 3 - step, height() - 3);
        }
    }

  private:
    Drag drag_;
    std::optional<QPoint> from_;
};

}  // namespace orvent::qt
