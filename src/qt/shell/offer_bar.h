#pragma once

#include <QWidget>
#include <array>

#include "canvas/canvas_form.h"

class QAbstractScrollArea;
class QLabel;
class QPushButton;

namespace orvent::qt {

/// The line above a canvas: what its window offers, a button that takes it, and one that turns it down. The
/// picture stays where it is on the screen when the line comes or goes. The Tab key goes on from the canvas to the
/// buttons; a click on them leaves the keys with the canvas.
class OfferBar : public QWidget {
  public:
    /// `view` shows the form's canvas, and gets the focus when the offer goes.
    OfferBar(canvas::CanvasForm& form, QAbstractScrollArea& view, QWidget* parent);

    /// Shows the form's offer as it is now; hidden when there is none.
    void refresh();

    /// In the order in which the Tab key passes them.
    const std::array<QWidget*, 2>& buttons() const { return buttons_; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void showOrHide(bool shown);

    canvas::CanvasForm& form_;
    QAbstractScrollArea& view_;
    QLabel* words_;
    QPushButton* take_;
    std::array<QWidget*, 2> buttons_;
};

}  // namespace orvent::qt
