#pragma once

#include <string>

class QTextEdit;

namespace orvent::qt {

/// The text of a rich text box as it is: lines end in "\n", and no character is replaced by a similar one.
std::string plainText(const QTextEdit& box);

/// Shows a text, whatever its line ends are. A box that shows it already is left alone, with its caret, and the result
/// is false. No signals.
bool showPlainText(QTextEdit& box, const std::string& text);

/// Lets a text be edited, or only be read on the ground of the window.
void showEditable(QTextEdit& box, bool editable);

}  // namespace orvent::qt
