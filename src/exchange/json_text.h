#pragma once

#include <charconv>
#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>

namespace orvent::exchange {

/// Writes JSON in the layout of a document: two blanks a level, and what belongs on one line on one line. What is
/// written is never looked at again, so a text of any length costs what its letters cost.
class JsonText {
  public:
    /// Opens a list or an object on a line of its own level; `close` ends it on another one.
    void open(char bracket);
    void close(char bracket);

    /// Begins an item or a member on a new line, behind a comma where it is not the first.
    void nextLine();
    /// The same behind a comma on this line.
    void next();
    /// A member's name, and what stands in front of its value.
    void key(std::string_view name);

    void text(std::string_view value);
    /// A text, or the list of its lines where it has several.
    void lines(std::string_view value);
    void number(std::integral auto value) {
        char digits[24];
        out_.append(digits, std::to_chars(digits, digits + sizeof digits, value).ptr);
    }
    void number(float value);
    void boolean(bool value) { raw(value ? "true" : "false"); }
    void raw(std::string_view text) { out_ += text; }

    /// Ends on the same line what was opened with lines of its own.
    void closeHere(char bracket);

    /// An opened bracket within a line, and the end of it.
    void openInline(char bracket);
    void closeInline(char bracket);

    /// The text will be so many times as long as it is now; it then need not move while it grows.
    void expect(std::size_t times) { out_.reserve(out_.size() * times + out_.size() / 4 * times); }

    std::string take();

  private:
    void newLine();

    std::string out_;
    std::size_t depth_ = 0;
    bool first_ = true;  ///< nothing stands behind the last bracket yet
};

/// Appends a text as JSON has it, between quotation marks. A byte that is no UTF-8 becomes U+FFFD.
void appendQuoted(std::string& out, std::string_view text);

}  // namespace orvent::exchange
