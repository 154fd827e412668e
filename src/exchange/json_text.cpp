#include "exchange/json_text.h"

#include <array>
#include <cmath>
#include <utility>

#include "platform/text.h"

namespace orvent::exchange {

namespace {

/// The number of bytes of the UTF-8 letter at the front of a text that is not empty, 0 when there is none.
std::size_t letterLength(std::string_view text) {
    const auto at = [text](std::size_t place) { return static_cast<unsigned char>(text[place]); };
    const unsigned lead = at(0);
    const std::size_t length = lead < 0x80   ? 1
                               : lead < 0xC2 ? 0
                               : lead < 0xE0 ? 2
                               : lead < 0xF0 ? 3
                               : lead < 0xF5 ? 4
                                             : 0;
    if (length > text.size()) {
        return 0;
    }
    for (std::size_t place = 1; place < length; ++place) {
        if ((at(place) & 0xC0U) != 0x80) {
            return 0;
        }
    }
    // Longer than needed, half of a pair, or beyond the last letter.
    const bool wrong = (lead == 0xE0 && at(1) < 0xA0) || (lead == 0xED && at(1) > 0x9F) ||
                       (lead == 0xF0 && at(1) < 0x90) || (lead == 0xF4 && at(1) > 0x8F);
    return wrong ? 0 : length;
}

bool isPlain(char letter) {
    const auto byte = static_cast<unsigned char>(letter);
    return byte >= 0x20 && byte < 0x80 && letter != '"' && letter != '\\';
}

void appendEscaped(std::string& out, char letter) {
    switch (letter) {
        case '"':
        case '\\':
            (out += '\\') += letter;
            return;
        case '\n':
            out += "\\n";
            return;
        case '\r':
            out += "\\r";
            return;
        case '\t':
            out += "\\t";
            return;
        default:
            constexpr std::string_view kDigits = "0123456789abcdef";
            out += "\\u00";
            out += kDigits[static_cast<unsigned char>(letter) >> 4U];
            out += kDigits[static_cast<unsigned char>(letter) & 15U];
    }
}

}  // namespace

void appendQuoted(std::string& out, std::string_view text) {
    out += '"';
    while (!text.empty()) {
        std::size_t run = 0;
        while (run < text.size() && isPlain(text[run])) {
            ++run;
        }
        out.append(text.substr(0, run));
        text.remove_prefix(run);
        if (text.empty()) {
            break;
        }
        const std::size_t length = letterLength(text);
        if (length > 1) {
            out.append(text.substr(0, length));
        } else if (length == 1) {
            appendEscaped(out, text.front());
        } else {
            out += "\xEF\xBF\xBD";
        }
        text.remove_prefix(length == 0 ? 1 : length);
    }
    out += '"';
}

void JsonText::newLine() {
    out_ += '\n';
    out_.append(2 * depth_, ' ');
}

void JsonText::open(char bracket) {
    out_ += bracket;
    ++depth_;
    first_ = true;
}

void JsonText::close(char bracket) {
    --depth_;
    if (!first_) {
        newLine();
    }
    out_ += bracket;
    first_ = false;
}

void JsonText::closeHere(char bracket) {
    --depth_;
    closeInline(bracket);
}

void JsonText::openInline(char bracket) {
    out_ += bracket;
    first_ = true;
}

void JsonText::closeInline(char bracket) {
    out_ += bracket;
    first_ = false;
}

void JsonText::nextLine() {
    if (!std::exchange(first_, false)) {
        out_ += ',';
    }
    newLine();
}

void JsonText::next() {
    if (!std::exchange(first_, false)) {
        out_ += ", ";
    }
}

void JsonText::key(std::string_view name) {
    ((out_ += '"') += name) += "\": ";
}

void JsonText::text(std::string_view value) {
    appendQuoted(out_, value);
}

void JsonText::lines(std::string_view value) {
    if (value.find('\n') == std::string_view::npos) {
        return text(value);
    }
    open('[');
    for (std::size_t end = 0; end != std::string_view::npos;) {
        end = value.find('\n');
        nextLine();
        text(value.substr(0, end));
        value.remove_prefix(end == std::string_view::npos ? value.size() : end + 1);
    }
    close(']');
}

void JsonText::number(float value) {
    out_ += platform::numberText(std::isfinite(value) ? value : 0);  // JSON knows no other
}

std::string JsonText::take() {
    out_ += '\n';
    return std::exchange(out_, {});
}

}  // namespace orvent::exchange
