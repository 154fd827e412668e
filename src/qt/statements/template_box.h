#pragma once

#include <QTextEdit>
#include <string>
#include <vector>

#include "statements/ldl_controls.h"

namespace orvent::qt {

/// The text box of a template, in which the places of one variable are marked.
class TemplateBox : public QTextEdit {
    Q_OBJECT

  public:
    explicit TemplateBox(QWidget* parent);

    /// Shows a text and its marks; the first mark comes into view when the marks change. No signals.
    void showTemplate(const std::string& text, const std::vector<statements::LDLMark>& marks);

    /// The text as the user left it, with the line ends of the text that was shown.
    std::string edited() const;

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void mark();

    std::string text_;
    std::vector<statements::LDLMark> marks_;
};

}  // namespace orvent::qt
