#pragma once

#include <QWidget>

#include "canvas/canvas_form.h"

class QLabel;
class QPushButton;

namespace orvent::qt {

/// The line above a canvas: what its window offers, a button that takes it, and one that turns it down.
class OfferBar : public QWidget {
  public:
    OfferBar(canvas::CanvasForm& form, QWidget* parent);

    /// Shows the form's offer as it is now; hidden when there is none.
    void refresh();

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    canvas::CanvasForm& form_;
    QLabel* words_;
    QPushButton* take_;
};

}  // namespace orvent::qt
