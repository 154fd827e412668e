#include "qt/statements/keyword_colouring.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextEdit>
#include <utility>
#include <vector>

#include "qt/statements/long_line_colours.h"
#include "qt/statements/text_box.h"
#include "qt/theme/model_colour.h"

namespace orvent::qt {

namespace {

constexpr std::pair<Qt::Key, int> kVirtualKeys[] = {
    {Qt::Key_Backspace, 0x08}, {Qt::Key_Return, 0x0D}, {Qt::Key_Enter, 0x0D},
    {Qt::Key_Space, 0x20},     {Qt::Key_Left, 0x25},   {Qt::Key_Up, 0x26},
    {Qt::Key_Right, 0x27},     {Qt::Key_Down, 0x28},   {Qt::Key_Delete, 0x2E},
};

/// The virtual key code of a key, or 0 for those that colour nothing.
int virtualKey(int key) {
    for (const auto& [qtKey, code] : kVirtualKeys) {
        if (qtKey == key) {
            return code;
        }
    }
    return 0;
}

/// A text box during one call of the checker. Positions are those of the box's document.
class BoxText : public statements::ColouredText {
  public:
    /// `joined`: what changes is undone together with the step before it.
    BoxText(QTextEdit& box, LongLineColours& longLines, bool joined)
        : box_(box),
          longLines_(longLines),
          quiet_(box),
          edit_(box.document()),
          caret_(box.textCursor()),
          scroll_(box.verticalScrollBar()) {
        joined ? edit_.joinPreviousEditBlock() : edit_.beginEditBlock();
    }

    ~BoxText() override {
        edit_.endEditBlock();
        // Only now, when the changed letters have been told.
        for (const Painted& part : painted_) {
            longLines_.paint(part.from, part.count, part.format);
        }
        if (lettersChanged_) {
            const int scrolled = scroll_->value();
            QTextCursor caret(box_.document());
            caret.setPosition(anchor_);
            caret.setPosition(position_, QTextCursor::KeepAnchor);
            box_.setTextCursor(caret);
            scroll_->setValue(scrolled);
        }
        longLines_.show();
        // With a selection the box would colour that.
        if (!box_.textCursor().hasSelection()) {
            box_.setCurrentCharFormat(next_);
        }
    }
    BoxText(const BoxText&) = delete;
    BoxText& operator=(const BoxText&) = delete;

    bool lettersChanged() const { return lettersChanged_; }

    std::size_t length() const override { return static_cast<std::size_t>(box_.document()->characterCount() - 1); }

    unsigned char at(std::size_t position) const override {
        const int place = static_cast<int>(position);
        if (!block_.isValid() || !block_.contains(place)) {
            block_ = box_.document()->findBlock(place);
            text_ = block_.text();
        }
        const int inBlock = place - block_.position();
        if (inBlock >= text_.size() || text_[inBlock] == QChar::LineSeparator) {
            return '\n';
        }
        const char16_t letter = text_[inBlock].unicode();
        return static_cast<unsigned char>(letter < 128 ? letter : 128);
    }

    std::size_t caret() const override { return static_cast<std::size_t>(caret_.selectionStart()); }

    void paint(std::size_t from, std::size_t count, std::int32_t colour, bool bold) override {
        const QTextCharFormat wanted = format(colour, bold);
        const bool plain = wanted.propertyCount() == 0;
        const bool inLongLine = longLines_.has(static_cast<int>(from));
        if (plain || inLongLine) {
            painted_.push_back({static_cast<int>(from), static_cast<int>(count), wanted});
        }
        if ((plain || !inLongLine) && !shows(from, count, wanted)) {
            select(from, count);
            edit_.setCharFormat(wanted);
        }
    }

    void setLetters(std::size_t from, const std::string& letters) override {
        select(from, letters.size());
        edit_.insertText(QString::fromLatin1(letters), QTextCharFormat());
        if (block_.isValid() && block_.contains(static_cast<int>(from))) {
            text_.replace(static_cast<int>(from) - block_.position(), static_cast<int>(letters.size()),
                          QString::fromLatin1(letters));
        }
        lettersChanged_ = true;
    }

    void typeIn(std::int32_t colour, bool bold) override { next_ = format(colour, bold); }

  private:
    QTextCharFormat format(std::int32_t colour, bool bold) const {
        QTextCharFormat result;
        if (colour != statements::SQL_KeywordChecker::kPlainColour) {
            result.setForeground(letterColour(colour, box_.palette()));
        }
        if (bold) {
            result.setFontWeight(QFont::Bold);
        }
        return result;
    }

    // Setting a format that is there already would still cost an undo step.
    bool shows(std::size_t from, std::size_t count, const QTextCharFormat& wanted) const {
        QTextCursor reader(box_.document());
        for (std::size_t at = from; at < from + count; ++at) {
            reader.setPosition(static_cast<int>(at + 1));
            const QTextCharFormat present = reader.charFormat();
            if (present.foreground() != wanted.foreground() || present.fontWeight() != wanted.fontWeight()) {
                return false;
            }
        }
        return true;
    }

    void select(std::size_t from, std::size_t count) {
        edit_.setPosition(static_cast<int>(from));
        edit_.setPosition(static_cast<int>(from + count), QTextCursor::KeepAnchor);
    }

    struct Painted {
        int from, count;
        QTextCharFormat format;
    };

    QTextEdit& box_;
    LongLineColours& longLines_;
    std::vector<Painted> painted_;
    QSignalBlocker quiet_;
    QTextCursor edit_;
    QTextCursor caret_;
    QScrollBar* scroll_;
    int anchor_ = caret_.anchor();
    int position_ = caret_.position();
    QTextCharFormat next_;
    bool lettersChanged_ = false;
    // The line that was read last.
    mutable QTextBlock block_;
    mutable QString text_;
};

}  // namespace

KeywordColouring::KeywordColouring(QTextEdit& box, statements::Letters letters)
    : QObject(&box), box_(box), letters_(letters), longLines_(new LongLineColours(box)) {
    box.installEventFilter(this);
}

int KeywordColouring::undoSteps() const {
    return box_.document()->availableUndoSteps();
}

void KeywordColouring::colourAll() {
    {
        BoxText text(box_, *longLines_, false);
        checker_.ColourText(text, letters_);
    }
    box_.document()->clearUndoRedoStacks();
}

void KeywordColouring::examine(int key, bool joined) {
    bool lettersChanged = false;
    {
        BoxText text(box_, *longLines_, joined);
        checker_.txtSQL_KeyDown(key, false, text, letters_);
        lettersChanged = text.lettersChanged();
    }
    if (lettersChanged) {
        Q_EMIT box_.textChanged();
    }
}

/// Colours what ends with the key and lets the box take the key.
void KeywordColouring::strike(QKeyEvent& stroke) {
    const int before = undoSteps();
    const int key = virtualKey(stroke.key());
    if (key != 0 && !(stroke.modifiers() & Qt::ShiftModifier)) {
        examine(key, false);
    }
    QTextCursor step(box_.document());
    undoSteps() > before ? step.joinPreviousEditBlock() : step.beginEditBlock();
    const int coloured = undoSteps();
    static_cast<QObject&>(box_).event(&stroke);
    {
        const bool changed = undoSteps() != coloured;
        const QSignalBlocker quiet(changed ? nullptr : &box_);  // the end of a step always tells of a change
        step.endEditBlock();
    }
    box_.ensureCursorVisible();  // lines are laid out only when the step has ended
    stepped_ = undoSteps() > before;
}

/// The inks fit the new paper; that is no step of its own.
void KeywordColouring::followPalette() {
    if (undoSteps() == 0) {
        colourAll();
        return;
    }
    BoxText text(box_, *longLines_, true);
    checker_.ColourText(text, letters_);
}

bool KeywordColouring::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::PaletteChange) {
        followPalette();
    }
    if ((event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease) || box_.isReadOnly()) {
        return QObject::eventFilter(watched, event);
    }
    auto& stroke = static_cast<QKeyEvent&>(*event);
    const int key = virtualKey(stroke.key());
    if (event->type() == QEvent::KeyPress) {
        const bool types = !stroke.text().isEmpty() && stroke.text().front().isPrint();
        if ((types || key != 0) && !stroke.matches(QKeySequence::Undo) && !stroke.matches(QKeySequence::Redo)) {
            strike(stroke);
            return true;
        }
    } else if ((stroke.key() == Qt::Key_Delete || stroke.key() == Qt::Key_Backspace) &&
               !(stroke.modifiers() & Qt::ShiftModifier)) {
        // What they leave behind is known when they are up again.
        examine(key, stepped_);
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace orvent::qt
