#include "qt/statements/guide.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QTextLayout>

#include "qt/theme/blend.h"
#include "qt/theme/theme.h"

namespace orvent::qt {

namespace {

constexpr int kPicture = 24;
constexpr int kReasonLines = 2;
constexpr double kGround = 0.12;

QLabel* newLine(const QString& name, QWidget* parent) {
    auto* line = new QLabel(parent);
    line->setObjectName(name);
    line->setTextFormat(Qt::PlainText);
    line->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    return line;
}

}  // namespace

GuideStrip::GuideStrip(QWidget* parent, std::function<void(const QString&)> go)
    : QWidget(parent),
      go_(std::move(go)),
      place_(newLine(QStringLiteral("progress"), this)),
      hint_(newLine(QStringLiteral("hint"), this)),
      notes_(new QLabel(this)) {
    QFont bold = place_->font();
    bold.setBold(true);
    place_->setFont(bold);
    notes_->setObjectName(QStringLiteral("notes"));
    notes_->setAccessibleName(tr("What is left to do"));
    notes_->setTextFormat(Qt::RichText);
    notes_->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    notes_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    notes_->setFixedHeight(notes_->fontMetrics().lineSpacing());  // what lies below stays where it is
    connect(notes_, &QLabel::linkActivated, this, [this](const QString& target) { go_(target); });
    auto* lines = new QVBoxLayout(this);
    lines->setContentsMargins(Spacing::margin + kPicture + Spacing::margin, Spacing::gap, Spacing::margin,
                              Spacing::gap);
    lines->setSpacing(2);
    lines->addWidget(place_);
    lines->addWidget(hint_);
    lines->addWidget(notes_);
}

void GuideStrip::show(const QIcon& icon, const QString& place, const GuideLine& hint,
                      const std::vector<GuideLine>& notes) {
    icon_ = icon;
    target_ = hint.target;
    place_->setText(place);
    hint_->setText(hint.words);
    hint_->setToolTip(hint.words);
    setCursor(target_.isEmpty() ? Qt::ArrowCursor : Qt::PointingHandCursor);
    QString first;
    QStringList all;
    for (const GuideLine& note : notes) {
        const QString words = note.words.toHtmlEscaped();
        if (all.isEmpty()) {
            first = note.target.isEmpty() ? words : QStringLiteral("<a href=\"%1\">%2</a>").arg(note.target, words);
        }
        all << words;
    }
    notes_->setText(all.size() > 1 ? tr("%1 (%2 more)").arg(first).arg(all.size() - 1) : first);
    notes_->setToolTip(all.join(QStringLiteral("<br>")));
    update();
}

void GuideStrip::mouseReleaseEvent(QMouseEvent* event) {
    if (!target_.isEmpty() && rect().contains(event->pos())) {
        go_(target_);
    }
}

void GuideStrip::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(blend(palette().color(QPalette::Window), palette().color(QPalette::Highlight), kGround));
    painter.drawRoundedRect(rect(), Spacing::radius, Spacing::radius);
    icon_.paint(&painter, QRect(Spacing::margin, (height() - kPicture) / 2, kPicture, kPicture));
}

GuidedButton::GuidedButton(const QString& name, const QString& caption, QWidget* parent)
    : QWidget(parent), button_(new QPushButton(caption, this)) {
    button_->setObjectName(name);
    button_->setAutoDefault(false);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, fontMetrics().lineSpacing() * kReasonLines + Spacing::gap / 2);
    rows->addWidget(button_);
}

void GuidedButton::show(const QString& reason, const QString& note) {
    line_ = reason.isEmpty() ? note : reason;
    button_->setEnabled(reason.isEmpty());
    button_->setToolTip(reason);
    update();
}

void GuidedButton::paintEvent(QPaintEvent*) {
    const int height = fontMetrics().lineSpacing();
    QRect room(2, button_->geometry().bottom() + Spacing::gap / 2, width() - 4, height);
    QTextLayout lines(line_, font());
    lines.beginLayout();
    QTextLine first = lines.createLine();
    if (first.isValid()) {
        first.setLineWidth(room.width());
    }
    lines.endLayout();
    if (lines.lineCount() == 0) {
        return;
    }
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(room, Qt::AlignLeft | Qt::AlignTop, line_.left(first.textLength()));
    const QString rest = fontMetrics().elidedText(line_.mid(first.textLength()), Qt::ElideRight, room.width());
    painter.drawText(room.translated(0, height), Qt::AlignLeft | Qt::AlignTop, rest);
}

}  // namespace orvent::qt
