#include "qt/canvas/captions.h"

#include <QFontMetricsF>
#include <QTextLayout>
#include <functional>

namespace orvent::qt {

namespace {

constexpr double kLinePixels = 11;
constexpr std::size_t kMostCaptions = 4096;
constexpr qsizetype kMostLetters = 2000;  // more can never be seen in a box

QString flattened(std::string_view text) {
    const auto end = std::min(text.size(), static_cast<std::size_t>(4 * kMostLetters));
    QString words = QString::fromUtf8(text.data(), static_cast<qsizetype>(end)).left(kMostLetters);
    words.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    words.replace(QLatin1Char('\t'), QLatin1Char(' '));
    return words;
}

/// The lines that fit into the room, the last one elided when more would follow.
QString wrapped(const QString& words, const QFont& font, QSizeF room, bool& elided) {
    const QFontMetricsF metrics(font);
    const int most = std::max(1, static_cast<int>((room.height() + 1) / metrics.lineSpacing()));
    QStringList lines;
    for (const QString& paragraph : words.split(QLatin1Char('\n'))) {
        QTextLayout layout(paragraph, font);
        QTextOption option;
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        layout.setTextOption(option);
        layout.beginLayout();
        for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
            line.setLineWidth(room.width());
            if (lines.size() == most) {
                elided = true;
                break;
            }
            const bool last = lines.size() + 1 == most;
            const QString rest = paragraph.mid(line.textStart(), last ? -1 : line.textLength());
            lines << (last ? metrics.elidedText(rest, Qt::ElideRight, room.width()) : rest.trimmed());
            elided = elided || (last && lines.back() != rest);
            if (last) {
                break;
            }
        }
        layout.endLayout();
        if (elided) {
            break;
        }
    }
    return lines.join(QChar::LineSeparator);
}

}  // namespace

void CaptionCache::setFont(const QFont& base) {
    base_ = base;
    fonts_.clear();
    entries_.clear();
}

void CaptionCache::trim() {
    if (entries_.size() > kMostCaptions) {
        entries_.clear();
    }
}

const QFont& CaptionCache::fontFor(CaptionForm form, int pixels) {
    const auto [found, isNew] = fonts_.try_emplace({form, pixels}, base_);
    QFont& font = found->second;
    if (isNew) {
        font.setPixelSize(pixels);
        if (form == CaptionForm::strongLine) {
            font.setBold(true);
            font.setLetterSpacing(QFont::PercentageSpacing, 108);
        }
    }
    return font;
}

const CaptionCache::Caption& CaptionCache::caption(std::int32_t index, std::string_view text, CaptionForm form,
                                                   QSizeF room, double scale) {
    Entry& entry = entries_[index];
    const std::size_t hash = std::hash<std::string_view>{}(text);
    if (entry.scale == scale && entry.textHash == hash && entry.room == room) {
        return entry.caption;
    }
    entry = Entry{{}, hash, room, scale};
    Caption& caption = entry.caption;
    const double pixels = form == CaptionForm::paragraph ? kParagraphPixels : kLinePixels;
    caption.font = fontFor(form, std::max(1, static_cast<int>(std::lround(pixels * scale))));
    const QString words = flattened(text);
    QString shown;
    if (form == CaptionForm::paragraph) {
        shown = wrapped(words, caption.font, room, caption.elided);
        // The breaks are settled; the room is given only so that they are kept.
        QTextOption option;
        option.setWrapMode(QTextOption::ManualWrap);
        caption.text.setTextOption(option);
        caption.text.setTextWidth(room.width());
    } else {
        QString line = words;
        line.replace(QLatin1Char('\n'), QLatin1Char(' '));
        shown = QFontMetricsF(caption.font).elidedText(line, Qt::ElideRight, room.width());
        caption.elided = shown != line;
    }
    caption.text.setTextFormat(Qt::PlainText);
    caption.text.setPerformanceHint(QStaticText::AggressiveCaching);
    caption.text.setText(shown);
    caption.text.prepare(QTransform(), caption.font);
    return caption;
}

}  // namespace orvent::qt
