#pragma once

#include <QImage>
#include <QWidget>

#include "qt/canvas/canvas_view.h"

namespace orvent::qt {

/// The whole picture of a view, small in its corner, with the part that the view shows. A press or a drag brings that
/// place into the view's middle. The picture is painted anew only when the canvas has changed.
class Minimap : public QWidget, public canvas::CanvasListener {
    Q_OBJECT

  public:
    /// A child of the view; both of these outlive it.
    Minimap(CanvasViewWidget& view, const Theme& theme);

    /// How often the picture was painted, and not only shown.
    int paintings() const { return paintings_; }
    /// Where a place of the picture is shown, in pixels of this widget.
    QPointF shownAt(canvas::Point place) const { return transform_.toPixels(place); }

    void nodeChanged(const canvas::LabelsD&) override { forget(); }
    void nodeRemoved(const canvas::LabelsD&) override { forget(); }
    void edgeChanged(const canvas::LinesD&) override { forget(); }
    void edgeRemoved(const canvas::LinesD&) override { forget(); }
    void manyChanged() override { forget(); }
    void pictureChanged() override { forget(); }
    void lightChanged() override { forget(); }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override { event->accept(); }
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void forget();
    void place();
    void paintPicture();
    void goTo(QPointF pixel);

    CanvasViewWidget& view_;
    const Theme& theme_;
    canvas::CanvasSubscription subscription_;
    Transform transform_;  ///< from the canvas to this widget
    QImage picture_;       ///< null: to be painted anew
    int paintings_ = 0;
};

}  // namespace orvent::qt
