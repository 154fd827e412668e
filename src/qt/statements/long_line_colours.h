#pragma once

#include <QSyntaxHighlighter>
#include <QTextCharFormat>
#include <vector>

class QTextEdit;

namespace orvent::qt {

/// The colours of very long lines. Each coloured stretch is set as a run of its own, and a line is set anew at every
/// keystroke: with thousands of them that takes longer than all the rest. So they are kept beside the document, and a
/// line is given those that are in sight. They are no part of the undo steps.
class LongLineColours : public QSyntaxHighlighter {
    Q_OBJECT

  public:
    /// Lives as long as the box, which owns it.
    explicit LongLineColours(QTextEdit& box);

    /// Whether the line at a position is one of those that are coloured here.
    bool has(int position) const;

    /// Takes the place of what a stretch of one line had; an empty format leaves it plain.
    void paint(int from, int count, const QTextCharFormat& format);

    /// Brings what is in sight by now up to date.
    void show();

  protected:
    void highlightBlock(const QString& line) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    struct Stretch {
        int from, end;
        QTextCharFormat format;
    };

    void contentsChanged(int at, int removed, int added);
    bool eraseTouched(int from, int end);
    std::vector<Stretch>::iterator firstBehind(int place);

    QTextEdit& box_;
    std::vector<Stretch> stretches_;  ///< in order
    int seenFrom_ = 0;                ///< what was in sight, with room around
    int seenEnd_ = 0;
    bool stale_ = false;  ///< something in sight was painted since
};

}  // namespace orvent::qt
