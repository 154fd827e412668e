#pragma once

#include <QString>
#include <functional>
#include <memory>

class QPainter;
class QPrinter;
class QRectF;
class QWidget;

namespace orvent::qt {

/// What is to be painted on a page, whatever the page is.
struct PagePicture {
    QString title;
    bool isWide;  ///< wider than high
    std::function<void(QPainter& painter, const QRectF& page)> paint;
};

/// Prints pictures on one page each, on the printer that was chosen last.
class PicturePrinter {
  public:
    PicturePrinter();
    ~PicturePrinter();

    /// Asks for a printer. With `preview` the page is shown first, and printed from there. Cancel, or a printer that
    /// fails, ends it silently.
    void print(const PagePicture& picture, bool preview, QWidget* parent);

  private:
    std::unique_ptr<QPrinter> printer_;
};

}  // namespace orvent::qt
