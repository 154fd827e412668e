#include "qt/canvas/captions.h"

#include <QFontMetricsF>
#include <QTextLayout>
#include <algorithm>
#include <functional>
#include <utility>

namespace orvent::qt {

namespace {

constexpr double kLinePixels = 11;
constexpr double kLeastPixels = 8;  // smaller letters are no help
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

/// Whether a name reads well when it is broken in front of that letter: behind a mark between its words, and where a
/// new word begins within it ("nextOrder", "HTTPServer", "Q4Sales").
bool breaksBefore(const QString& name, qsizetype at) {
    const QChar before = name.at(at - 1), behind = name.at(at);
    return QStringLiteral(" _-.").contains(before) || (behind.isUpper() && !before.isUpper()) ||
           (behind.isUpper() && at + 1 < name.size() && name.at(at + 1).isLower());
}

/// The text in one line if it fits, else in two, broken between its words if there is a place.
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
        if (breaksBefore(line, at)) {
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

const QFont& CaptionCache::fontFor(CaptionForm form, double size) {
    const int pixels = std::max(1, static_cast<int>(std::lround(size)));
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

double CaptionCache::widthOf(std::string_view text, CaptionForm form) {
    return QFontMetricsF(fontFor(form, kLinePixels)).horizontalAdvance(flattened(text));
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
    const QString words = flattened(text);
    if (form == CaptionForm::paragraph) {
        caption.font = fontFor(form, kParagraphPixels * scale);
        entry.lines = wrapped(words, caption.font, room.width());
        // The breaks are settled; the room is given only so that they are kept.
        QTextOption option;
        option.setWrapMode(QTextOption::ManualWrap);
        caption.text.setTextOption(option);
        caption.text.setTextWidth(room.width());
    } else {
        fitName(entry, words, form);
        QTextOption option(Qt::AlignHCenter);
        option.setWrapMode(QTextOption::ManualWrap);
        caption.text.setTextOption(option);
        caption.text.setTextWidth(entry.lines.size() > 1 ? room.width() : -1);
    }
    caption.text.setTextFormat(Qt::PlainText);
    caption.text.setPerformanceHint(QStaticText::AggressiveCaching);
    showLines(entry);
    return caption;
}

/// The larger letters of two sizes at which the name stands whole in its room, in one line or two. When it does so at
/// none, two lines of the smallest are shortened, or one of the largest where there is no room for two.
void CaptionCache::fitName(Entry& entry, QString name, CaptionForm form) {
    name.replace(QLatin1Char('\n'), QLatin1Char(' '));
    Caption& caption = entry.caption;
    const double width = entry.room.width();
    for (const double pixels : {kLinePixels, kLeastPixels}) {
        caption.font = fontFor(form, pixels * entry.scale);
        const QFontMetricsF metrics(caption.font);
        const bool two = entry.room.height() + 1 >= 2 * metrics.lineSpacing();
        entry.lines = two ? inTwo(name, metrics, width) : QStringList(name);
        if (std::ranges::all_of(entry.lines,
                                [&](const QString& line) { return metrics.horizontalAdvance(line) <= width; })) {
            return;
        }
    }
    if (entry.lines.size() == 1) {
        caption.font = fontFor(form, kLinePixels * entry.scale);
    }
    caption.elided = true;
    const QFontMetricsF metrics(caption.font);
    for (QString& line : entry.lines) {
        line = metrics.elidedText(line, Qt::ElideMiddle, width);  // names of one family differ at their ends
    }
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
