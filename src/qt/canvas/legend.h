#pragma once

#include <QWidget>
#include <memory>
#include <vector>

#include "canvas/canvas_form.h"
#include "qt/theme/theme.h"

namespace orvent::qt {

/// A quiet strip that explains the figures of a canvas: each is painted as the canvas paints it, with its name beside.
/// It takes as many rows as its width asks for.
class Legend : public QWidget {
  public:
    Legend(canvas::CanvasForm& form, const Theme& theme, QWidget* parent);
    ~Legend() override;

    /// Shows the form's figures as they are now; hidden when there are none.
    void refresh();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    struct Entry;

    int entryWidth() const;
    int columns() const;
    void takeRows();
    void paintFigure(QPainter& painter, const Entry& entry, QPointF corner) const;

    canvas::CanvasForm& form_;
    const Theme& theme_;
    std::unique_ptr<canvas::Canvas> figures_;  ///< one node or one edge for each entry
    std::vector<Entry> entries_;
};

}  // namespace orvent::qt
