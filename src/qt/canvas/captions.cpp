#include "qt/canvas/captions.h"

#include <QFontMetricsF>
#include <QTextLayout>
#include <functional>
#include <utility>

namespace orvent::qt {

namespace {

constexpr double kLinePixels = 11;
constexpr std::size_t kMostCaptions = 4096;
constexpr qsizetype kMostLetters = 20000;  // more nobody reads in a box

QString flattened(std::string_view text) {
    const auto end = std::min(text.size(), static_cast<std::size_t>(4 * kMostLetters));
    QString words = QString::fromUtf8(text.data(), static_cast<qsizetype>(end)).left(kMostLetters);
    words.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    words.replace(QLatin1Char('\t'), QLatin1Char(' '));
    return words;
}

/// The text in lines of that width.
QStringList wrapped(const QString& words, const QFont& font, double width) {
    QStringList lines;
    for (const QString& paragraph : words.split(QLatin1Char('\n'))) {
        QTextLayout layout(paragraph, font);
        QTextOption option;
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        layout.setTextOption(option);
        layout.beginLayout();
        for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
            line.setLineWidth(width);
            lines << paragraph.mid(line.textStart(), line.textLength()).trimmed();
        }
        layout.endLayout();
    }
    return lines;
}

/// The text in one line if it fits, else in two, broken behind a mark between its words if there is one.
QStringList inTwo(const QString& line, const QFontMetricsF& metrics, double width) {
    if (metrics.horizontalAdvance(line) <= width) {
        return {line};
    }
    qsizetype fitting = 1;
    while (fitting < line.size() && metrics.horizontalAdvance(line.left(fitting + 1)) <= width) {
        ++fitting;
    }
    qsizetype cut = fitting;
    for (qsizetype at = fitting; at > fitting / 3; --at) {
        if (QStringLiteral(" _-.").contains(line.at(at - 1))) {
            cut = at;
            break;
        }
    }
    return {line.left(cut).trimmed(), line.mid(cut).trimmed()};
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

const CaptionCache::Caption& CaptionCache::caption(canvas::NodeNumber index, std::string_view text, CaptionForm form,
                                                   QSizeF room, double scale) {
    Entry& entry = entries_[index];
    const std::size_t hash = std::hash<std::string_view>{}(text);
    if (entry.scale == scale && entry.textHash == hash && entry.room == room) {
        return entry.caption;
    }
    const int first = entry.textHash == hash ? entry.caption.first : 0;
    entry = Entry{{}, hash, room, scale, {}};
    Caption& caption = entry.caption;
    caption.first = first;
    const double pixels = form == CaptionForm::paragraph ? kParagraphPixels : kLinePixels;
    caption.font = fontFor(form, std::max(1, static_cast<int>(std::lround(pixels * scale))));
    const QString words = flattened(text);
    if (form == CaptionForm::paragraph) {
        entry.lines = wrapped(words, caption.font, room.width());
        // The breaks are settled; the room is given only so that they are kept.
        QTextOption option;
        option.setWrapMode(QTextOption::ManualWrap);
        caption.text.setTextOption(option);
        caption.text.setTextWidth(room.width());
    } else {
        QString line = words;
        line.replace(QLatin1Char('\n'), QLatin1Char(' '));
        const QFontMetricsF metrics(caption.font);
        entry.lines =
            room.height() + 1 >= 2 * metrics.lineSpacing() ? inTwo(line, metrics, room.width()) : QStringList(line);
        for (QString& shown : entry.lines) {
            // Names of one family differ at their ends.
            const QString whole = std::exchange(shown, metrics.elidedText(shown, Qt::ElideMiddle, room.width()));
            caption.elided = caption.elided || shown != whole;
        }
        QTextOption option(Qt::AlignHCenter);
        option.setWrapMode(QTextOption::ManualWrap);
        caption.text.setTextOption(option);
    }
    caption.text.setTextFormat(Qt::PlainText);
    caption.text.setPerformanceHint(QStaticText::AggressiveCaching);
    showLines(entry);
    return caption;
}

/// The lines that fit into the room; more to follow is told by an ellipsis.
void CaptionCache::showLines(Entry& entry) {
    Caption& caption = entry.caption;
    const QFontMetricsF metrics(caption.font);
    caption.lines = static_cast<int>(entry.lines.size());
    caption.shown =
        caption.lines == 1 ? 1 : std::max(1, static_cast<int>((entry.room.height() + 1) / metrics.lineSpacing()));
    caption.first = std::clamp(caption.first, 0, std::max(0, caption.lines - caption.shown));
    QStringList shown = entry.lines.mid(caption.first, caption.shown);
    if (caption.first + caption.shown < caption.lines) {
        caption.elided = true;
        shown.back() = metrics.elidedText(shown.back() + QChar(0x2026), Qt::ElideRight, entry.room.width());
    }
    caption.text.setText(shown.join(QChar::LineSeparator));
    caption.text.prepare(QTransform(), caption.font);
}

const CaptionCache::Caption* CaptionCache::laidOut(canvas::NodeNumber index) const {
    const auto found = entries_.find(index);
    return found == entries_.end() ? nullptr : &found->second.caption;
}

bool CaptionCache::scrollTo(canvas::NodeNumber index, int first) {
    const auto found = entries_.find(index);
    if (found == entries_.end()) {
        return false;
    }
    const int former = std::exchange(found->second.caption.first, first);
    showLines(found->second);
    return found->second.caption.first != former;
}

}  // namespace orvent::qt
