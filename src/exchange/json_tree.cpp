#include "exchange/json_tree.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>
#include <utility>

namespace orvent::exchange {

namespace {

constexpr std::size_t kDeepest = 32;       ///< a document of ours has nine levels
constexpr std::size_t kLargest = 1 << 30;  ///< bytes; places and texts are counted with 32 bits

constexpr std::string_view kMark8 = "\xEF\xBB\xBF";

/// "Line 3, column 7" of a byte. Columns are bytes, 1-based.
std::string lineAndColumn(std::string_view text, std::size_t byte) {
    const std::string_view before = text.substr(0, std::min(byte, text.size()));
    const auto line = std::ranges::count(before, '\n') + 1;
    const std::size_t lineStart = before.rfind('\n') + 1;  // 0 where there is none
    return "Line " + std::to_string(line) + ", column " + std::to_string(before.size() - lineStart + 1);
}

/// What the parser has to say, without its own name and place.
std::string plainWords(const std::string& words) {
    std::string_view plain = words;
    plain.remove_prefix(plain.find("] ") + 2);
    if (plain.starts_with("parse error at ")) {
        plain.remove_prefix(plain.find(": ") + 2);
    }
    constexpr std::string_view kSyntax = "syntax error ";
    return std::string(plain.starts_with(kSyntax) ? plain.substr(kSyntax.size()) : plain);
}

void refuseOtherTexts(std::string_view text) {
    if (text.size() > kLargest) {
        throw BadDocument("The text is too long for a scenario.");
    }
    for (const std::string_view mark : {std::string_view("\xFF\xFE"), std::string_view("\xFE\xFF")}) {
        if (text.starts_with(mark)) {
            throw BadDocument("Line 1, column 1: the text begins with the mark of UTF-16; a scenario is UTF-8.");
        }
    }
    if (text.starts_with(kMark8.substr(0, 1)) && !text.starts_with(kMark8)) {
        throw BadDocument("Line 1, column 1: the text begins with a broken byte order mark.");
    }
}

/// The nearest float of a number's text, infinite when it is none.
float realOf(double value, const std::string& text) {
    float real = 0;
    const auto [_, error] = std::from_chars(text.data(), text.data() + text.size(), real);
    if (error == std::errc::result_out_of_range) {
        return std::abs(value) < 1 ? 0 : std::numeric_limits<float>::infinity();
    }
    return real;
}

}  // namespace

/// Takes the parser's events.
class TreeBuilder {
  public:
    TreeBuilder(JsonTree& tree, std::string_view text) : tree_(tree), text_(text) {}

    bool null() { return add(JsonKind::null); }
    bool boolean(bool value) { return addInteger(JsonKind::boolean, value ? 1 : 0); }
    bool number_integer(std::int64_t value) { return addInteger(JsonKind::integer, value); }
    bool number_unsigned(std::uint64_t value) {
        constexpr auto most = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
        return addInteger(value > most ? JsonKind::unsignedInteger : JsonKind::integer,
                          std::bit_cast<std::int64_t>(value));
    }
    bool number_float(double value, const std::string& text) {
        add(JsonKind::real);
        tree_.values_.back().real = realOf(value, text);
        return true;
    }
    bool string(std::string& value) {
        add(JsonKind::text);
        tree_.values_.back().span = {static_cast<std::uint32_t>(tree_.texts_.size()),
                                     static_cast<std::uint32_t>(value.size())};
        tree_.texts_ += value;
        return true;
    }
    bool binary(nlohmann::json::binary_t&) { return false; }
    bool start_object(std::size_t) { return open(JsonKind::object); }
    bool end_object() { return close(); }
    bool start_array(std::size_t) { return open(JsonKind::array); }
    bool end_array() { return close(); }
    bool key(std::string& name) {
        key_ = keyNamed(name);
        if (key_ == Key::unknown && tree_.unknown_ == JsonTree::kNowhere) {
            tree_.unknown_ = static_cast<std::uint32_t>(tree_.values_.size());
            tree_.unknownKey_ = name;
        }
        return true;
    }
    bool parse_error(std::size_t position, const std::string&, const nlohmann::json::exception& error) {
        throw BadDocument(lineAndColumn(text_, position == 0 ? 0 : position - 1) + ": " + plainWords(error.what()) +
                          ".");
    }

  private:
    bool add(JsonKind kind) {
        const auto end = static_cast<std::uint32_t>(tree_.values_.size() + 1);
        tree_.values_.push_back({kind, std::exchange(key_, Key::unknown), end, {}});
        return true;
    }
    bool addInteger(JsonKind kind, std::int64_t value) {
        add(kind);
        tree_.values_.back().integer = value;
        return true;
    }
    bool open(JsonKind kind) {
        add(kind);
        tree_.values_.back().end = JsonTree::kNowhere;
        open_.push_back(tree_.values_.size() - 1);
        if (open_.size() > kDeepest) {
            tree_.refuse(static_cast<std::uint32_t>(open_.back()),
                         "values are nested deeper than " + std::to_string(kDeepest) + " levels");
        }
        return true;
    }
    bool close() {
        tree_.values_[open_.back()].end = static_cast<std::uint32_t>(tree_.values_.size());
        open_.pop_back();
        return true;
    }

    JsonTree& tree_;
    std::string_view text_;
    Key key_ = Key::unknown;
    std::vector<std::size_t> open_;
};

JsonTree::JsonTree(std::string_view text) {
    refuseOtherTexts(text);
    values_.reserve(text.size() / 24);
    texts_.reserve(text.size() / 2);
    TreeBuilder builder(*this, text);
    nlohmann::json::sax_parse(text, &builder);
}

JsonTree::Place JsonTree::member(Place object, Key key) const {
    for (Place item = object + 1; item < values_[object].end; item = values_[item].end) {
        if (values_[item].key == key) {
            return item;
        }
    }
    return kNowhere;
}

std::string JsonTree::path(Place at) const {
    std::string words;
    for (Place outer = 0; outer < at;) {
        Place item = outer + 1;
        std::size_t number = 0;
        while (values_[item].end <= at) {
            item = values_[item].end;
            ++number;
        }
        if (values_[outer].kind == JsonKind::array) {
            words += "[" + std::to_string(number) + "]";
        } else {
            words +=
                (words.empty() ? "" : ".") + (item == unknown_ ? unknownKey_ : std::string(nameOf(values_[item].key)));
        }
        outer = item;
    }
    return words;
}

void JsonTree::refuseUnknown() const {
    if (unknown_ != kNowhere) {
        refuse(unknown_, "no such member is known");
    }
}

void JsonTree::allowOnly(Place object, std::uint64_t keys) const {
    std::uint64_t seen = 0;
    each(object, [&](Place item) {
        const std::uint64_t bit = keyBit(values_[item].key);
        if ((keys & bit) == 0) {
            refuse(item, "no such member is known here");
        }
        if ((seen & bit) != 0) {
            refuse(item, "this member is there twice");
        }
        seen |= bit;
    });
}

void JsonTree::refuse(Place at, const std::string& words) const {
    const std::string where = path(at);
    throw BadDocument((where.empty() ? "" : where + ": ") + words + ".");
}

}  // namespace orvent::exchange
