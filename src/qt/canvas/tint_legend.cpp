#include "qt/canvas/tint_legend.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <cmath>

#include "qt/text.h"
#include "qt/theme/model_colour.h"
#include "qt/theme/node_colours.h"

namespace orvent::qt {

namespace {

constexpr float kHue = 0.58F;
constexpr float kPalest = 0.97F;  // lightness
constexpr float kFullest = 0.4F;
constexpr int kScaleWidth = 160;
constexpr int kScaleHeight = 12;
constexpr int kSteps = 24;  // more could not be told apart

}  // namespace

std::int32_t tintOf(double share) {
    const auto part = static_cast<float>(std::round(share * kSteps) / kSteps);
    return toModel(QColor::fromHslF(kHue, 1, kPalest + (kFullest - kPalest) * part));
}

void paintTintScale(QPainter& painter, const QRectF& room, const CanvasColours& colours) {
    const double width = room.width() / kSteps;
    for (int step = 0; step < kSteps; ++step) {
        // Each shade goes on to the end, under those that follow: where two only met, paper would show between them.
        painter.fillRect(room.adjusted(step * width, 0, 0, 0),
                         nodeColours(tintOf(step / (kSteps - 1.0)), colours).fill);
    }
    painter.setPen(colours.outline);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(room);
}

TintLegend::TintLegend(canvas::Tints& tints, const Theme& theme, QWidget* parent)
    : QWidget(parent),
      tints_(tints),
      theme_(theme),
      choice_(new QComboBox(this)),
      scale_(new QWidget(this)),
      range_(new QLabel(this)) {
    setObjectName(QStringLiteral("TintLegend"));
    auto* box = new QHBoxLayout(this);
    box->setContentsMargins(Spacing::gap, 3, Spacing::gap, 3);
    box->setSpacing(Spacing::gap);
    auto* title = new QLabel(tr("Colour by"), this);
    title->setBuddy(choice_);
    choice_->setObjectName(QStringLiteral("tint"));
    scale_->setFixedSize(kScaleWidth, kScaleHeight);
    range_->setObjectName(QStringLiteral("tintRange"));
    range_->setTextFormat(Qt::PlainText);
    box->addWidget(title);
    box->addWidget(choice_);
    box->addWidget(scale_);
    box->addWidget(range_, 1);
    connect(choice_, &QComboBox::activated, this, [this](int choice) {
        tints_.choose(static_cast<std::size_t>(choice));
        Q_EMIT chosen();
    });
}

void TintLegend::refresh() {
    if (choice_->count() == 0) {
        for (const std::string& each : tints_.choices()) {
            choice_->addItem(text(each));
        }
    }
    choice_->setCurrentIndex(static_cast<int>(tints_.chosen()));
    range_->setText(text(tints_.range()));
    update();
}

void TintLegend::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().window());
    paintTintScale(painter, QRectF(scale_->geometry()).adjusted(0.5, 0.5, -0.5, -0.5), theme_.canvas());
}

}  // namespace orvent::qt
