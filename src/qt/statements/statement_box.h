#pragma once

#include <QWidget>
#include <functional>
#include <string>

#include "statements/sql_keyword_checker.h"

class QCheckBox;
class QHBoxLayout;
class QTextEdit;

namespace orvent::qt {

class KeywordColouring;

/// A statement that is edited, coloured, in letters of one width. Long lines are wrapped and blanks are marked as the
/// switches above it say.
class StatementBox : public QWidget {
    Q_OBJECT

  public:
    /// `name` is that of the text box.
    StatementBox(const QString& name, const QString& what, QWidget* parent);

    /// Set by the window: the user has changed the text.
    std::function<void(const std::string& text)> edited;

    /// Shows a text that was not typed here, with nothing to undo. A text that is shown already is left alone.
    void showText(const std::string& text);
    void setLetters(statements::Letters letters);
    QTextEdit& box() { return *box_; }
    /// The row of switches above the box.
    QHBoxLayout& tools() { return *tools_; }

  private:
    QCheckBox* addSwitch(const char* name, const QString& caption, const QString& tip);

    QHBoxLayout* tools_;
    QTextEdit* box_;
    std::string given_, asColoured_;  ///< the text that was shown last, and what colouring has made of it
    KeywordColouring* colouring_;
};

}  // namespace orvent::qt
