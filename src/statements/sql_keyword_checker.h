#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_set>

namespace orvent::statements {

/// A text box that can colour stretches of its text. Positions are 0-based, in the box's own units. The box keeps its
/// caret and its selection through all of this, and puts all that one call of the checker does into one undo step.
class ColouredText {
  public:
    virtual ~ColouredText() = default;
    virtual std::size_t length() const = 0;
    /// The character at a position; beyond ASCII any value from 128 to 255 will do.
    virtual unsigned char at(std::size_t position) const = 0;
    /// Where the caret stands, or where the selection starts.
    virtual std::size_t caret() const = 0;

    /// Colours with blue in the high byte.
    virtual void paint(std::size_t from, std::size_t count, std::int32_t colour, bool bold) = 0;
    /// Puts other letters in the place of as many.
    virtual void setLetters(std::size_t from, const std::string& letters) = 0;
    /// How the text looks that is typed next.
    virtual void typeIn(std::int32_t colour, bool bold) = 0;
};

/// Whether a word that is found takes its upper case form. LDL tells names apart by their case, so there it is only
/// coloured.
enum class Letters { upper, kept };

/// Colours the keywords and placeholders of an SQL text while it is typed. Words are delimited by white space alone.
class SQL_KeywordChecker {
  public:
    static constexpr std::int32_t kKeywordColour = 0xFF0000;
    static constexpr std::int32_t kPlaceholderColour = 0xFF;
    static constexpr std::int32_t kPlainColour = 0;

    SQL_KeywordChecker() { InitKeywords(); }

    void InitKeywords();
    bool IsKeyword(std::string_view word) const;
    bool IsPlaceholder(std::string_view word) const;

    /// Looks at the word at the caret; to be called at key down, and once more at key up for delete and backspace.
    /// `key` is a virtual key code. With `shift`, and for keys that neither end a word nor leave it, nothing happens.
    void txtSQL_KeyDown(int key, bool shift, ColouredText& box, Letters letters = Letters::upper) const;

    /// Colours a whole text, on loading.
    void ColourText(ColouredText& box, Letters letters = Letters::upper) const;

  private:
    bool colourWord(ColouredText& box, std::size_t from, std::size_t end, Letters letters) const;

    std::unordered_set<std::string> keywords_;
    std::unordered_set<std::string> placeholders_;
};

}  // namespace orvent::statements
