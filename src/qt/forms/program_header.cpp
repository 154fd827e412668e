#include "qt/forms/program_header.h"

#include <QGridLayout>
#include <QLabel>
#include <QPainter>

#include "qt/theme/icons.h"
#include "qt/theme/theme.h"

namespace orvent::qt {

namespace {

constexpr int kHeaderPicture = 56;

/// Draws an icon at its label's own pixel ratio, whatever screen it is moved to.
class HeaderPicture : public QWidget {
  public:
    HeaderPicture(const QIcon& icon, int size, QWidget* parent) : QWidget(parent), icon_(icon) {
        setFixedSize(size, size);
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        icon_.paint(&painter, rect());
    }

  private:
    QIcon icon_;
};

}  // namespace

QWidget* newPicture(const QIcon& icon, int size, QWidget* parent) {
    return new HeaderPicture(icon, size, parent);
}

QLabel* newHint(const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setForegroundRole(QPalette::PlaceholderText);
    label->setWordWrap(true);
    return label;
}

QWidget* newProgramHeader(const QString& line, QWidget* parent) {
    auto* header = new QWidget(parent);
    auto* name = new QLabel(QStringLiteral("ORVENT II"), header);
    QFont large = name->font();
    large.setPointSizeF(large.pointSizeF() * 1.9);
    large.setWeight(QFont::DemiBold);
    name->setFont(large);

    auto* grid = new QGridLayout(header);
    grid->setContentsMargins({});
    grid->setHorizontalSpacing(Spacing::margin);
    grid->setVerticalSpacing(0);
    grid->addWidget(new HeaderPicture(programIcon(), kHeaderPicture, header), 0, 0, 2, 1);
    grid->addWidget(name, 0, 1, Qt::AlignBottom);
    grid->addWidget(newHint(line, header), 1, 1, Qt::AlignTop);
    grid->setColumnStretch(1, 1);
    return header;
}

}  // namespace orvent::qt
