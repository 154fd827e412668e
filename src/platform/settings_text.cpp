#include "platform/settings_text.h"

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

#include "platform/text.h"
#include "platform/utf8.h"

namespace orvent::platform {

namespace {

constexpr std::string_view kHexDigits = "0123456789ABCDEF";
/// Letters behind a back-slash, and what they stand for.
constexpr std::string_view kEscapes = "abfnrtv\"?'\\";
constexpr std::string_view kEscaped = "\a\b\f\n\r\t\v\"?'\\";
constexpr std::string_view kOwnName = "General";
constexpr std::string_view kNoText[] = {"@Invalid(", "@Variant(", "@DateTime(", "@Rect(", "@Size(", "@Point("};

bool isControl(char c) {
    return static_cast<unsigned char>(c) < 0x20;
}

bool isPlainInName(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '-' ||
           c == '.';
}

std::optional<std::uint32_t> digitOf(char c, std::uint32_t base) {
    const char upper = c >= 'a' && c <= 'f' ? static_cast<char>(c - 'a' + 'A') : c;
    const std::size_t digit = kHexDigits.find(upper);
    return digit < base ? std::optional(static_cast<std::uint32_t>(digit)) : std::nullopt;
}

/// Takes the digits at the start of `text`, at most `most` of them.
std::uint32_t takeNumber(std::string_view& text, std::uint32_t base, std::size_t most) {
    std::uint32_t number = 0;
    for (; most > 0 && !text.empty() && digitOf(text[0], base); --most) {
        number = (number * base + *digitOf(text[0], base)) & 0xFFFFU;
        text.remove_prefix(1);
    }
    return number;
}

/// Text from characters and from the 16-bit units by which codes name them, two for a character beyond U+FFFF.
class UnitText {
  public:
    void add(char byte) {
        end();
        text_ += byte;
    }
    void addUnit(std::uint32_t unit) {
        const bool isSecond = unit >= 0xDC00 && unit < 0xE000;
        if (isSecond && first_ != 0) {
            appendCharacter(text_, 0x10000 + ((std::exchange(first_, 0) - 0xD800) << 10) + (unit - 0xDC00));
            return;
        }
        end();
        if (unit >= 0xD800 && unit < 0xDC00) {
            first_ = unit;
        } else {
            appendCharacter(text_, isSecond ? kReplacement : unit);
        }
    }
    std::string take() {
        end();
        return std::move(text_);
    }
    void dropBlanks(std::size_t least) {
        end();
        while (text_.size() > least && (text_.back() == ' ' || text_.back() == '\t')) {
            text_.pop_back();
        }
    }
    std::size_t size() const { return text_.size(); }

  private:
    void end() {
        if (std::exchange(first_, 0) != 0) {
            appendCharacter(text_, kReplacement);
        }
    }
    std::string text_;
    std::uint32_t first_ = 0;  ///< the first unit of two
};

std::string nameFrom(std::string_view raw) {
    UnitText name;
    while (!raw.empty()) {
        const char c = raw[0];
        raw.remove_prefix(1);
        const bool isLong = c == '%' && (raw.starts_with('U') || raw.starts_with('u'));
        const std::size_t digits = isLong ? 4 : 2;
        std::string_view code = raw.substr(isLong ? 1 : 0);
        const bool isCode =
            c == '%' && code.size() >= digits &&
            std::all_of(code.begin(), code.begin() + digits, [](char d) { return digitOf(d, 16).has_value(); });
        if (isCode) {
            name.addUnit(takeNumber(code, 16, digits));
            raw = code;
        } else {
            name.add(c == '\\' ? '/' : c);
        }
    }
    return name.take();
}

std::string rawName(std::string_view name) {
    std::string raw;
    const auto code = [&raw](std::uint32_t unit, int digits) {
        while (--digits >= 0) {
            raw += kHexDigits[unit >> (4 * digits) & 0xFU];
        }
    };
    while (!name.empty()) {
        const std::uint32_t letter = takeCharacter(name);
        if (letter < 0x80 && isPlainInName(static_cast<char>(letter))) {
            raw += static_cast<char>(letter);
        } else if (letter == '/') {
            raw += '\\';
        } else if (letter < 0x100) {
            raw += '%';
            code(letter, 2);
        } else if (letter < 0x10000) {
            raw += "%U";
            code(letter, 4);
        } else {
            raw += "%U";
            code(0xD800 + ((letter - 0x10000) >> 10), 4);
            raw += "%U";
            code(0xDC00 + ((letter - 0x10000) & 0x3FF), 4);
        }
    }
    return raw;
}

/// Takes what stands behind a back-slash.
void takeEscaped(std::string_view& raw, UnitText& text) {
    if (raw.empty()) {
        return;
    }
    const char c = raw[0];
    if (digitOf(c, 8)) {
        text.addUnit(takeNumber(raw, 8, raw.size()));
        return;
    }
    raw.remove_prefix(1);
    if (const std::size_t at = kEscapes.find(c); at != std::string_view::npos) {
        text.add(kEscaped[at]);
    } else if (c == 'x' && !raw.empty() && digitOf(raw[0], 16)) {
        text.addUnit(takeNumber(raw, 16, raw.size()));
    }
}

/// The text behind a value's quotes and back-slashes; nothing when it is a list.
std::optional<std::string> unquoted(std::string_view raw) {
    raw = trimmed(raw);
    UnitText text;
    bool inQuotes = false;
    std::size_t quoted = 0;  // what stood in quotes keeps its blanks
    while (!raw.empty()) {
        const char c = raw[0];
        raw.remove_prefix(1);
        if (c == '\\') {
            takeEscaped(raw, text);
            quoted = text.size();
        } else if (c == '"') {
            inQuotes = !inQuotes;
            quoted = text.size();
            while (!inQuotes && (raw.starts_with(' ') || raw.starts_with('\t'))) {
                raw.remove_prefix(1);
            }
        } else if (!inQuotes && c == ',') {
            return std::nullopt;
        } else if (!inQuotes && c == ';') {
            break;
        } else {
            text.add(c);
        }
    }
    text.dropBlanks(quoted);
    return text.take();
}

std::string rawValue(std::string_view value) {
    std::string text;
    while (!value.empty()) {
        appendCharacter(text, takeCharacter(value));
    }
    if (text.find('\0') != std::string::npos) {
        text = "@String(" + text + ")";
    } else if (text.starts_with('@')) {
        text.insert(0, 1, '@');
    }
    std::string raw;
    bool afterCode = false;  // a digit would be read as one of the code
    for (const char c : text) {
        const std::size_t at = kEscaped.find(c);
        const bool isCode =
            (afterCode && digitOf(c, 16)) || (isControl(c) && at == std::string_view::npos && c != '\0');
        afterCode = (isControl(c) && at == std::string_view::npos) || (afterCode && isCode);
        if (isCode) {
            raw += "\\x";
            const std::string code = {kHexDigits[static_cast<unsigned char>(c) >> 4U], kHexDigits[c & 0xF]};
            raw += lowerCase(code[0] == '0' ? code.substr(1) : code);
        } else if (c == '\0') {
            raw += "\\0";
        } else if (at != std::string_view::npos && c != '?' && c != '\'') {
            raw += {'\\', kEscapes[at]};
        } else {
            raw += c;
        }
    }
    const bool needsQuotes =
        raw.find_first_of(";,=") != std::string::npos || raw.starts_with(' ') || raw.ends_with(' ');
    return needsQuotes ? '"' + raw + '"' : raw;
}

bool isNameOfKey(std::string_view raw) {
    return !raw.empty() && std::all_of(raw.begin(), raw.end(), [](char c) {
        return isPlainInName(c) || c == '%' || c == '\\' || c == ' ' || static_cast<unsigned char>(c) >= 0x80;
    });
}

bool isSection(std::string_view line) {
    return line.size() > 2 && line.front() == '[' && line.find_first_of("[]", 1) == line.size() - 1 &&
           line.back() == ']';
}

}  // namespace

SettingsText::SettingsText(std::string_view file) : sound_(isUtf8(file)) {
    if (file.starts_with("\xEF\xBB\xBF")) {  // some editors put one in front of a text
        file.remove_prefix(3);
    }
    std::map<std::string, std::string>* section = nullptr;
    while (!file.empty()) {
        const std::size_t end = std::min(file.find('\n'), file.size());
        const std::string_view line = trimmed(file.substr(0, end));
        file.remove_prefix(std::min(end + 1, file.size()));
        const std::size_t equals = line.find('=');
        const std::string_view key = trimmed(line.substr(0, equals));
        if (line.empty() || line[0] == ';' || line[0] == '#') {
            continue;
        }
        if (isSection(line)) {
            const std::string_view name = trimmed(line.substr(1, line.size() - 2));
            section = &sections_[equalIgnoringCase(name, kOwnName)                      ? std::string()
                                 : equalIgnoringCase(name, "%" + std::string(kOwnName)) ? std::string(name.substr(1))
                                                                                        : nameFrom(name)];
        } else if (section && equals != std::string_view::npos && isNameOfKey(key) &&
                   std::none_of(line.begin(), line.end(), [](char c) { return isControl(c) && c != '\t'; })) {
            (*section)[nameFrom(key)] = trimmed(line.substr(equals + 1));
        } else {
            sound_ = false;
        }
    }
}

std::optional<std::string> SettingsText::value(const std::string& section, const std::string& key) const {
    const auto keys = sections_.find(section);
    const auto raw =
        keys == sections_.end() ? std::map<std::string, std::string>::const_iterator() : keys->second.find(key);
    if (keys == sections_.end() || raw == keys->second.end()) {
        return std::nullopt;
    }
    std::optional<std::string> text = unquoted(raw->second);
    if (!text || !text->starts_with('@')) {
        return text;
    }
    if (text->starts_with("@@")) {
        return text->substr(1);
    }
    if (!text->ends_with(')')) {
        return text;
    }
    for (const std::string_view head : {"@String(", "@ByteArray("}) {
        if (text->starts_with(head)) {
            return text->substr(head.size(), text->size() - head.size() - 1);
        }
    }
    const bool isNoText = std::any_of(std::begin(kNoText), std::end(kNoText),
                                      [&](std::string_view head) { return text->starts_with(head); });
    return isNoText ? std::nullopt : text;
}

void SettingsText::setValue(const std::string& section, const std::string& key, std::string_view value) {
    sections_[section][key] = rawValue(value);
}

std::string SettingsText::text() const {
    std::string text;
    for (const auto& [section, keys] : sections_) {
        if (keys.empty()) {
            continue;
        }
        const std::string name = section.empty()                        ? std::string(kOwnName)
                                 : equalIgnoringCase(section, kOwnName) ? "%" + std::string(kOwnName)
                                                                        : rawName(section);
        text += std::string(text.empty() ? "" : "\n") + "[" + name + "]\n";
        for (const auto& [key, raw] : keys) {
            text += rawName(key) + "=" + raw + "\n";
        }
    }
    return text;
}

}  // namespace orvent::platform
