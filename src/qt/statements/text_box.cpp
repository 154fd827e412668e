#include "qt/statements/text_box.h"

#include <QSignalBlocker>
#include <QTextDocument>
#include <QTextEdit>

namespace orvent::qt {

std::string plainText(const QTextEdit& box) {
    // Not toPlainText, which turns no-break spaces into spaces.
    QString text = box.document()->toRawText();
    text.replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
    text.replace(QChar::LineSeparator, QLatin1Char('\n'));
    return text.toStdString();
}

bool showPlainText(QTextEdit& box, const std::string& text) {
    QString lines = QString::fromStdString(text);
    lines.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    lines.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    if (plainText(box) == lines.toStdString()) {
        return false;
    }
    const QSignalBlocker quiet(box);
    box.setPlainText(lines);
    return true;
}

void showEditable(QTextEdit& box, bool editable) {
    box.setReadOnly(!editable);
    box.viewport()->setBackgroundRole(editable ? QPalette::Base : QPalette::Window);
}

}  // namespace orvent::qt
