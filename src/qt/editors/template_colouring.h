#pragma once

#include <QRegularExpression>
#include <QSyntaxHighlighter>
#include <vector>

class QTextEdit;

namespace orvent::qt {

/// Tells the parts of a template apart by colour: variables, loops and their references, names of inputs and outputs.
/// The text and its undo steps stay.
class TemplateColouring : public QSyntaxHighlighter {
    Q_OBJECT

  public:
    /// Lives as long as the box, which owns it.
    explicit TemplateColouring(QTextEdit& box);

  protected:
    void highlightBlock(const QString& line) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    struct Part {
        QRegularExpression pattern;
        QTextCharFormat format;
    };
    void chooseColours();

    QTextEdit& box_;
    std::vector<Part> parts_;
};

}  // namespace orvent::qt
