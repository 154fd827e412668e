#include "qt/statements/template_box.h"

#include <QEvent>
#include <QFontDatabase>
#include <QSignalBlocker>
#include <QTextCursor>

#include "qt/statements/text_box.h"
#include "qt/theme/blend.h"
#include "qt/theme/model_colour.h"

namespace orvent::qt {

namespace {

constexpr double kMarkGround = 0.14;

/// Turns ascending byte offsets of a text into positions in a text box that shows it.
class Places {
  public:
    explicit Places(const std::string& text) : text_(text) {}

    int at(std::size_t offset) {
        for (; byte_ < offset && byte_ < text_.size(); ++byte_) {
            const auto letter = static_cast<unsigned char>(text_[byte_]);
            const bool halfLineEnd = letter == '\r' && byte_ + 1 < text_.size() && text_[byte_ + 1] == '\n';
            const bool continues = (letter & 0xC0) == 0x80;
            place_ += halfLineEnd || continues ? 0 : letter >= 0xF0 ? 2 : 1;  // two units beyond the basic plane
        }
        return place_;
    }

  private:
    const std::string& text_;
    std::size_t byte_ = 0;
    int place_ = 0;
};

}  // namespace

TemplateBox::TemplateBox(QWidget* parent) : QTextEdit(parent) {
    setAcceptRichText(false);
    setTabChangesFocus(true);
    document()->setDefaultFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    document()->setDocumentMargin(8);
}

void TemplateBox::showTemplate(const std::string& text, const std::vector<statements::LDLMark>& marks) {
    if (text == text_ && marks == marks_) {
        return;
    }
    text_ = text;
    marks_ = marks;
    showPlainText(*this, text);
    mark();
    if (!marks_.empty()) {
        QTextCursor first(document());
        first.setPosition(Places(text_).at(marks_.front().at));
        setTextCursor(first);
        ensureCursorVisible();
    }
}

void TemplateBox::mark() {
    const QSignalBlocker quiet(this);
    QTextCursor cursor(document());
    cursor.beginEditBlock();
    if (isReadOnly()) {
        cursor.select(QTextCursor::Document);
        cursor.setCharFormat({});
    }
    QTextCharFormat look;
    look.setForeground(letterColour(statements::kLDLMarkColour, palette()));
    look.setBackground(blend(palette().color(QPalette::Base), look.foreground().color(), kMarkGround));
    look.setFontWeight(QFont::Bold);
    Places places(text_);
    for (const statements::LDLMark& each : marks_) {
        cursor.setPosition(places.at(each.at));
        cursor.setPosition(places.at(each.at + each.length), QTextCursor::KeepAnchor);
        cursor.setCharFormat(look);
    }
    cursor.endEditBlock();
}

std::string TemplateBox::edited() const {
    QString text = QString::fromStdString(plainText(*this));
    if (text_.find("\r\n") != std::string::npos) {
        text.replace(QLatin1String("\n"), QLatin1String("\r\n"));
    }
    return text.toStdString();
}

void TemplateBox::changeEvent(QEvent* event) {
    QTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && !marks_.empty()) {
        mark();
    }
}

}  // namespace orvent::qt
