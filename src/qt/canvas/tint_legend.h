#pragma once

#include <QWidget>
#include <cstdint>

#include "canvas/tints.h"
#include "qt/theme/theme.h"

class QComboBox;
class QLabel;

namespace orvent::qt {

/// The shade of that share, as a colour of the model: white is the palest.
std::int32_t tintOf(double share);

/// All shades from the palest to the fullest, side by side.
void paintTintScale(QPainter& painter, const QRectF& room, const CanvasColours& colours);

/// The strip below a canvas that tells what its tints stand for, and lets another be chosen.
class TintLegend : public QWidget {
    Q_OBJECT

  public:
    TintLegend(canvas::Tints& tints, const Theme& theme, QWidget* parent);

    /// Shows the state of the tints again.
    void refresh();

  Q_SIGNALS:
    void chosen();  ///< the tints stand for something else now

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    canvas::Tints& tints_;
    const Theme& theme_;
    QComboBox* choice_;
    QWidget* scale_;
    QLabel* range_;
};

}  // namespace orvent::qt
