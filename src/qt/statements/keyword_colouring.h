#pragma once

#include <QObject>

#include "statements/sql_keyword_checker.h"

class QKeyEvent;
class QTextEdit;

namespace orvent::qt {

class LongLineColours;

/// Colours the keywords of a text box while the user types. A keystroke is one undo step together with what it
/// coloured; caret and selection stay. Colours alone send no signal; changed letters send `textChanged` once.
class KeywordColouring : public QObject {
    Q_OBJECT

  public:
    /// Lives as long as the box, which owns it.
    explicit KeywordColouring(QTextEdit& box, statements::Letters letters = statements::Letters::upper);

    /// Whether keywords take their upper case form from now on.
    void setLetters(statements::Letters letters) { letters_ = letters; }

    /// Colours the whole text after it was loaded, without any signal and with nothing to undo.
    void colourAll();

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void examine(int key, bool joined);
    void strike(QKeyEvent& stroke);
    void followPalette();
    int undoSteps() const;

    QTextEdit& box_;
    statements::Letters letters_;
    statements::SQL_KeywordChecker checker_;
    LongLineColours* longLines_;  ///< the box owns it
    bool stepped_ = false;        ///< the last keystroke can be undone
};

}  // namespace orvent::qt
