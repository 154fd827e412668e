#include "qt/statements/long_line_colours.h"

#include <QScrollBar>
#include <QTextBlock>
#include <QTextEdit>
#include <algorithm>

namespace orvent::qt {

namespace {

constexpr int kLong = 10'000;  // characters
constexpr int kColoursAround = 1'000;

}  // namespace

LongLineColours::LongLineColours(QTextEdit& box) : QSyntaxHighlighter(&box), box_(box) {
    // Before the document tells the highlighter, which then finds the stretches at their new places.
    connect(box.document(), &QTextDocument::contentsChange, this, &LongLineColours::contentsChanged);
    setDocument(box.document());
    // Later, for the bar may move while lines are being set.
    connect(box.verticalScrollBar(), &QScrollBar::valueChanged, this, &LongLineColours::show, Qt::QueuedConnection);
    box.viewport()->installEventFilter(this);
}

bool LongLineColours::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize) {
        QMetaObject::invokeMethod(this, &LongLineColours::show, Qt::QueuedConnection);
    }
    return QSyntaxHighlighter::eventFilter(watched, event);
}

bool LongLineColours::has(int position) const {
    return document()->findBlock(position).length() > kLong;
}

void LongLineColours::paint(int from, int count, const QTextCharFormat& format) {
    bool changed = eraseTouched(from, from + count);
    if (format.propertyCount() > 0) {
        stretches_.insert(firstBehind(from), {from, from + count, format});
        changed = true;
    }
    stale_ = stale_ || (changed && from < seenEnd_ && from + count > seenFrom_);
}

std::vector<LongLineColours::Stretch>::iterator LongLineColours::firstBehind(int place) {
    return std::partition_point(stretches_.begin(), stretches_.end(),
                                [place](const Stretch& stretch) { return stretch.end <= place; });
}

bool LongLineColours::eraseTouched(int from, int end) {
    const auto first = firstBehind(from);
    const auto last =
        std::find_if(first, stretches_.end(), [end](const Stretch& stretch) { return stretch.from >= end; });
    const bool any = first != last;
    stretches_.erase(first, last);
    return any;
}

void LongLineColours::contentsChanged(int at, int removed, int added) {
    eraseTouched(at, at + removed);
    const auto moved = [=](int place) { return place > at ? std::max(at, place - removed) + added : place; };
    for (Stretch& stretch : stretches_) {
        stretch.end = moved(stretch.end);
        stretch.from = stretch.from >= at + removed ? stretch.from + added - removed : stretch.from;
    }
    seenFrom_ = moved(seenFrom_);
    seenEnd_ = moved(seenEnd_);
}

void LongLineColours::show() {
    if (stretches_.empty()) {
        return;
    }
    const int first = box_.cursorForPosition(QPoint(0, 0)).position();
    const int last = box_.cursorForPosition(box_.viewport()->rect().bottomRight()).position();
    if (!stale_ && first >= seenFrom_ && last <= seenEnd_) {
        return;
    }
    stale_ = false;
    seenFrom_ = std::max(0, first - kColoursAround);
    seenEnd_ = last + kColoursAround;
    for (QTextBlock line = document()->findBlock(first); line.isValid() && line.position() <= last;
         line = line.next()) {
        rehighlightBlock(line);
    }
}

void LongLineColours::highlightBlock(const QString& line) {
    const int start = currentBlock().position();
    const int end = std::min(start + static_cast<int>(line.size()), seenEnd_);
    auto next = firstBehind(std::max(start, seenFrom_));
    for (; next != stretches_.end() && next->from < end; ++next) {
        setFormat(std::max(0, next->from - start), next->end - std::max(start, next->from), next->format);
    }
}

}  // namespace orvent::qt
