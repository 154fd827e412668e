#include "qt/editors/template_colouring.h"

#include <QEvent>
#include <QTextEdit>

#include "qt/statements/text_box.h"
#include "qt/theme/model_colour.h"

namespace orvent::qt {

namespace {

struct Row {
    const char* pattern;
    std::int32_t colour;  ///< blue in the high byte
    bool bold;
};

// A later row wins where two match.
constexpr Row kRows[] = {
    {"\\b[Aa]_(?:[Ii][Nn]\\d+|[Oo][Uu][Tt])(?:_\\w*)?", 0x006000, false},  // A_IN1_2, a_out
    {"\\[[^\\]]+?[<=][^\\]]*\\]|[{}]", 0xA00000, true},                    // [i<3], the braces of a body
    {"\\$\\w+\\$", 0xA00000, false},                                       // $i$
    {"@[A-Za-z0-9_]*", 0x0000C0, true},                                    // @NAME
};

}  // namespace

TemplateColouring::TemplateColouring(QTextEdit& box) : QSyntaxHighlighter(box.document()), box_(box) {
    for (const Row& row : kRows) {
        parts_.push_back({QRegularExpression(QLatin1String(row.pattern)), {}});
    }
    chooseColours();
    box.installEventFilter(this);
}

void TemplateColouring::chooseColours() {
    for (std::size_t at = 0; at < parts_.size(); ++at) {
        parts_[at].format.setForeground(letterColour(kRows[at].colour, box_.palette()));
        parts_[at].format.setFontWeight(kRows[at].bold ? QFont::DemiBold : QFont::Normal);
    }
}

bool TemplateColouring::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::PaletteChange) {
        chooseColours();
        rehighlight();
    }
    return QSyntaxHighlighter::eventFilter(watched, event);
}

void TemplateColouring::highlightBlock(const QString& line) {
    for (const Part& part : parts_) {
        for (auto found = part.pattern.globalMatch(line); found.hasNext();) {
            const QRegularExpressionMatch match = found.next();
            setFormat(static_cast<int>(match.capturedStart()), static_cast<int>(match.capturedLength()), part.format);
        }
    }
}

}  // namespace orvent::qt
