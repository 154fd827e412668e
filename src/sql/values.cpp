#include "sql/values.h"

#include <algorithm>
#include <array>
#include <optional>

#include "platform/text.h"
#include "program/rule_check.h"
#include "program/types.h"

namespace orvent::sql {

using rules::Term;
using rules::TermKind;

namespace {

bool allDigits(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

/// The text as a number that every database reads, or nothing.
std::optional<std::string> numberIn(std::string_view text) {
    std::string_view rest = platform::trimmed(text);
    const bool negative = rest.starts_with('-');
    rest.remove_prefix(negative || rest.starts_with('+') ? 1 : 0);
    const std::size_t exponent = std::min(rest.find_first_of("eE"), rest.size());
    std::string_view power = rest.substr(std::min(exponent + 1, rest.size()));
    const std::string_view mantissa = rest.substr(0, exponent);
    const std::size_t dot = std::min(mantissa.find('.'), mantissa.size());
    const std::string_view whole = mantissa.substr(0, dot);
    const std::string_view part = mantissa.substr(std::min(dot + 1, mantissa.size()));
    power.remove_prefix(power.starts_with('-') || power.starts_with('+') ? 1 : 0);
    const bool good = (whole.empty() ? allDigits(part) : allDigits(whole) && (part.empty() || allDigits(part))) &&
                      (exponent == rest.size() || allDigits(power));
    if (!good) {
        return std::nullopt;
    }
    const std::string plain = (whole.empty() ? "0" : std::string(whole)) +
                              (part.empty() ? "" : "." + std::string(part)) + std::string(rest.substr(exponent));
    return negative ? "(-" + plain + ")" : plain;
}

std::string inQuotes(std::string_view text, bool oracle) {
    std::string result = "'";
    for (const char c : text) {
        // A client of that database asks for the value of what stands behind "&".
        result += c == '\'' ? "''" : c == '&' && oracle ? "'||CHR(38)||'" : std::string(1, c);
    }
    result += "'";
    return oracle && text.find('&') != std::string_view::npos ? "(" + result + ")" : result;
}

std::string inHexadecimal(std::string_view text) {
    constexpr const char* kDigits = "0123456789ABCDEF";
    std::string result;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        result += {kDigits[byte >> 4U], kDigits[byte & 15U]};
    }
    return result;
}

Family familyOfLetter(char letter) {
    return letter == 't'   ? Family::text
           : letter == 'n' ? Family::number
           : letter == 'd' ? Family::date
                           : Family::unknown;
}

constexpr std::array<Phrase, 4> kNone = {Phrase::noText, Phrase::noText, Phrase::noNumber, Phrase::noDate};
constexpr std::array<Phrase, 4> kHeld = {Phrase::heldText, Phrase::heldText, Phrase::heldNumber, Phrase::heldDate};
static_assert(static_cast<int>(Family::text) == 1 && static_cast<int>(Family::number) == 2 &&
              static_cast<int>(Family::date) == 3);

bool isKnown(Family family) {
    return family != Family::unknown;
}

}  // namespace

bool isPlainName(std::string_view name) {
    return !name.empty() && std::all_of(name.begin(), name.end(), [](char c) {
        return rules::isNameLetter(c) && static_cast<unsigned char>(c) < 0x80;
    });
}

Family Values::familyOf(std::int16_t type) const {
    const bool known = type >= 0 && static_cast<std::size_t>(type) < catalogue_.dataTypes.size();
    return known ? program::familyOf(catalogue_.dataTypes.name(type)) : Family::unknown;
}

Value Values::text(const std::string& text) const {
    const bool odd = !dialect_.phrase(Phrase::oddText).empty() && text.find('\\') != std::string::npos;
    return {odd ? dialect_.say(Phrase::oddText, {inHexadecimal(text)})
                : dialect_.say(Phrase::text, {inQuotes(text, dialect_.name == "oracle")}),
            Family::text};
}

Value Values::date(const std::string& text) const {
    const std::string plain = program::timestampIn(text);
    const bool asItIs = dialect_.phrase(Phrase::date) == "{1}";
    return plain.empty() || asItIs ? as(this->text(text), Family::date)
                                   : Value{dialect_.say(Phrase::date, {"'" + plain + "'"}), Family::date};
}

Value Values::plain(const Term& term, Family beside) const {
    const Family own = term.kind == TermKind::number ? Family::unknown : familyOf(static_cast<std::int16_t>(term.tag));
    const Family family = isKnown(own) ? own : beside;
    const auto number = numberIn(term.text);
    if (number && (family == Family::number || (term.kind == TermKind::number && !isKnown(family)))) {
        return {*number, Family::number};
    }
    return family == Family::date ? date(term.text) : text(term.text);
}

Value Values::null(Family family) const {
    return {isKnown(family) ? std::string(dialect_.phrase(kNone[static_cast<std::size_t>(family)])) : "NULL", family};
}

Value Values::held(const std::string& column, Family family) const {
    return {isKnown(family) ? dialect_.say(kHeld[static_cast<std::size_t>(family)], {column}) : column, family};
}

Value Values::as(const Value& value, Family family) const {
    if (isAs(value, family)) {
        return value;
    }
    if (!isKnown(value.family)) {
        return held(value.sql, family);
    }
    const auto say = [&](Phrase phrase) { return Value{dialect_.say(phrase, {value.sql}), family}; };
    if (family == Family::text) {
        return say(value.family == Family::number ? Phrase::textOfNumber : Phrase::textOfDate);
    }
    return value.family == Family::text ? say(family == Family::number ? Phrase::numberOfText : Phrase::dateOfText)
                                        : Value{value.sql, family};
}

Value Values::arithmetic(const std::string& op, const std::vector<Value>& parts) const {
    std::vector<std::string> numbers;
    for (const Value& part : parts) {
        numbers.push_back(as(part, Family::number).sql);
    }
    if (numbers.size() == 1) {
        return {"(0 - " + numbers[0] + ")", Family::number};
    }
    return {op == "/" ? dialect_.say(Phrase::quotient, numbers) : "(" + numbers[0] + " " + op + " " + numbers[1] + ")",
            Family::number};
}

/// The name of a function as it stands before its arguments.
std::string Values::called(const std::string& function) const {
    const bool plain = isPlainName(function) && function.find_first_of("0123456789") != 0;
    return plain ? function : dialect_.quoted(function);
}

Value Values::call(const std::string& function, const std::vector<Value>& inputs) const {
    if (const OwnFunction* own = own_.named(function)) {
        std::vector<std::string> parts;
        for (const Value& input : inputs) {
            parts.push_back(input.sql);
        }
        return {"(" + filled(own->expression, parts) + ")", Family::unknown};
    }
    if (inputs.size() == 2 && platform::equalIgnoringCase(function, "divide")) {
        return arithmetic("/", inputs);
    }
    std::vector<std::string> parts;
    if (const Function* known = dialect_.function(function, inputs.size())) {
        Family common = Family::unknown;  // of inputs that may be of any one family
        for (const Value& input : inputs) {
            common = isKnown(common) ? common : input.family;
        }
        for (std::size_t at = 0; at < inputs.size(); ++at) {
            const Family family = familyOfLetter(known->inputs[at]);
            parts.push_back(as(inputs[at], isKnown(family) ? family : common).sql);
        }
        const Family family = familyOfLetter(known->result);
        return {filled(known->pattern, parts), isKnown(family) ? family : common};
    }
    std::string list;
    for (const Value& input : inputs) {
        list += (list.empty() ? "" : ", ") + input.sql;
    }
    return {called(function) + "(" + list + ")", Family::unknown};
}

const std::string& Values::nameOf(const std::string& function, const std::string& type) const {
    const bool byType = own_.named(type) || (program::isCommonFunction(type) && !program::isCommonFunction(function));
    return byType && !own_.named(function) ? type : function;
}

Value Values::aggregate(const std::string& name, const Value& value) const {
    const std::string capitals = platform::upperCase(name);
    if (capitals == "AVG") {
        return {dialect_.say(Phrase::average, {as(value, Family::number).sql}), Family::number};
    }
    const Value over = capitals == "SUM" ? as(value, Family::number) : value;
    return {called(capitals) + "(" + over.sql + ")",
            capitals == "COUNT" || capitals == "SUM" ? Family::number : over.family};
}

std::string Values::compared(const Value& left, const std::string& op, const Value& right) const {
    const std::string sign = op == "!=" ? "<>" : op;
    const auto write = [&](Family family) { return as(left, family).sql + " " + sign + " " + as(right, family).sql; };
    if (isKnown(left.family) != isKnown(right.family)) {  // nobody knows how the other one would be compared
        return write(isKnown(left.family) ? left.family : right.family);
    }
    return isKnown(left.family) && left.family != right.family ? write(Family::text)
                                                               : left.sql + " " + sign + " " + right.sql;
}

}  // namespace orvent::sql
