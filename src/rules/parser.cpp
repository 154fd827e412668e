#include "rules/parser.h"

#include <utility>

#include "platform/letter_case.h"
#include "platform/utf8.h"

namespace orvent::rules {

namespace {

constexpr int kDeepest = 30;      ///< brackets and signs within each other
constexpr int kMostJoined = 200;  ///< values in one sum or product

struct Stop {
    SyntaxFault fault;
};

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool beginsVariable(std::string_view name) {
    const std::string_view first = name.substr(0, platform::firstCharacterLength(name));
    return first == "_" || platform::lowerLetters(first) != first;
}

/// Reads one text from left to right.
class Parser {
  public:
    Parser(std::string_view text, const Words& words) : text_(text), words_(words) {}

    Parsed parse() {
        Parsed result;
        try {
            for (skip(); at_ < text_.size(); skip()) {
                result.rules.push_back(rule());
            }
        } catch (Stop& stop) {
            result.fault = std::move(stop.fault);
        }
        result.ambiguous = std::move(ambiguous_);
        return result;
    }

  private:
    [[noreturn]] void stop(std::string words) { throw Stop{{here(), std::move(words)}}; }
    /// The place of the reading; it only moves on.
    Place here() {
        for (; place_.offset < at_; ++place_.offset) {
            const char c = text_[place_.offset];
            const bool pair = c == '\r' && place_.offset + 1 < text_.size() && text_[place_.offset + 1] == '\n';
            if ((c == '\n' || c == '\r') && !pair) {
                ++place_.line;
                place_.column = 1;
            } else if ((static_cast<unsigned char>(c) & 0xC0U) != 0x80U) {
                ++place_.column;
            }
        }
        return place_;
    }

    char look(std::size_t further = 0) const { return at_ + further < text_.size() ? text_[at_ + further] : '\0'; }
    void skip() {
        while (at_ < text_.size() && (text_[at_] == ' ' || (text_[at_] >= '\t' && text_[at_] <= '\r'))) {
            ++at_;
        }
    }
    bool take(std::string_view sign) {
        skip();
        const bool there = text_.substr(at_, sign.size()) == sign;
        at_ += there ? sign.size() : 0;
        return there;
    }
    void expect(std::string_view sign) {
        if (!take(sign)) {
            stop("\"" + std::string(sign) + "\" is missing here.");
        }
    }
    /// The letters of a name from here on; nothing is taken.
    std::string_view run() const {
        std::size_t end = at_;
        while (end < text_.size() && isNameLetter(text_[end])) {
            ++end;
        }
        return text_.substr(at_, end - at_);
    }
    bool bracketBehind(std::size_t length) const {
        std::size_t at = at_ + length;
        while (at < text_.size() && (text_[at] == ' ' || (text_[at] >= '\t' && text_[at] <= '\r'))) {
            ++at;
        }
        return at < text_.size() && text_[at] == '(';
    }
    /// How many bytes a name in quotes takes here, 0 when there is none or it does not end.
    std::size_t quotedLength(char quote) const {
        if (look() != quote) {
            return 0;
        }
        for (std::size_t at = at_ + 1; at < text_.size(); ++at) {
            if (text_[at] == quote && (at + 1 == text_.size() || text_[at + 1] != quote)) {
                return at + 1 - at_;
            }
            at += text_[at] == quote ? 1 : 0;
        }
        return 0;
    }
    std::string takeQuoted() {
        const char quote = look();
        const std::size_t length = quotedLength(quote);
        if (length == 0) {
            stop("This quote is not closed.");
        }
        std::string result;
        for (std::size_t at = at_ + 1; at + 1 < at_ + length; ++at) {
            result += text_[at];
            at += text_[at] == quote ? 1 : 0;
        }
        if (quote == '`' && result.empty()) {
            stop("A name is empty.");
        }
        at_ += length;
        return result;
    }
    const Word& takeWord(const Words::Found& found) {
        if (found.word->ambiguous) {
            ambiguous_.push_back(
                {here(), "\"" + std::string(text_.substr(at_, found.length)) + "\" is the spelling of two things."});
        }
        at_ += found.length;
        return *found.word;
    }

    /// Whether an atom begins here, and not a value.
    bool isAtom() const {
        if (const auto found = words_.nameAt(text_, at_); found && bracketBehind(found->length)) {
            return true;
        }
        if (const std::size_t quoted = quotedLength('`'); quoted > 0) {
            return bracketBehind(quoted);
        }
        const std::string_view name = run();
        return !name.empty() && !isDigit(name[0]) && bracketBehind(name.size()) &&
               !words_.valueAt(text_, at_).has_value();
    }

    Rule rule() {
        Rule result;
        skip();
        if (!isAtom()) {
            stop("A rule begins with a predicate and its arguments in brackets.");
        }
        result.head = atom(true);
        if (take("<-") || take(":-")) {
            do {
                result.body.push_back(literal());
            } while (take(","));
        }
        expect(".");
        return result;
    }

    Atom atom(bool isHead) {
        Atom result;
        result.place = here();
        if (const auto found = words_.nameAt(text_, at_); found && bracketBehind(found->length)) {
            const Word& word = takeWord(*found);
            result.name = word.text;
            result.tag = word.tag;
        } else if (look() == '`') {
            result.name = takeQuoted();
        } else {
            result.name = run();
            at_ += result.name.size();
        }
        expect("(");
        if (!take(")")) {
            do {
                result.arguments.push_back(isHead ? headTerm() : sum(0));
            } while (take(","));
            expect(")");
        }
        return result;
    }

    /// Whether a value begins here that is longer than the name.
    bool goesOn(std::string_view name) const {
        return words_.valueAt(text_, at_).value_or(Words::Found{nullptr, 0}).length > name.size();
    }

    Literal literal() {
        Literal result;
        skip();
        if (const std::string_view name = run(); name == "not" && !bracketBehind(name.size()) && !goesOn(name)) {
            at_ += name.size();
            skip();
            if (!isAtom()) {
                stop("Behind \"not\" stands a predicate and its arguments in brackets.");
            }
            result.kind = LiteralKind::negated;
            result.atom = atom(false);
        } else if (isAtom()) {
            result.atom = atom(false);
        } else {
            result.kind = LiteralKind::comparison;
            result.values.push_back(sum(0));
            result.op = comparator();
            result.values.push_back(sum(0));
        }
        return result;
    }

    std::string comparator() {
        skip();
        if (look() == '`') {
            return takeQuoted();
        }
        const std::size_t begin = at_;
        while (std::string_view("=<>!").find(look()) != std::string_view::npos) {
            ++at_;
        }
        if (at_ > begin) {
            return std::string(text_.substr(begin, at_ - begin));
        }
        if (const auto found = words_.valueAt(text_, at_); found && found->word->kind == WordKind::constant) {
            return takeWord(*found).text;
        }
        const std::string_view name = run();
        if (name.empty() || isDigit(name[0])) {
            stop("An operator is missing here.");
        }
        at_ += name.size();
        return std::string(name);
    }

    /// A value, or an aggregate of one.
    Term headTerm() {
        skip();
        Term result;
        result.kind = TermKind::aggregate;
        result.place = here();
        const std::size_t begin = at_;
        if (const auto found = words_.nameAt(text_, at_); found && look(found->length) == '<') {
            const Word& word = takeWord(*found);
            result.text = word.text;
            result.tag = word.tag;
        } else if (const std::size_t quoted = quotedLength('`'); quoted > 0 && look(quoted) == '<') {
            result.text = takeQuoted();
        } else if (const std::string_view name = run();
                   !name.empty() && !isDigit(name[0]) && look(name.size()) == '<' && !words_.valueAt(text_, at_)) {
            result.text = name;
            at_ += name.size();
        }
        if (at_ == begin) {
            return sum(0);
        }
        expect("<");
        result.parts.push_back(sum(0));
        expect(">");
        return result;
    }

    Term sum(int depth) {
        return joined('+', '-', [&] { return product(depth); });
    }
    Term product(int depth) {
        return joined('*', '/', [&] { return factor(depth); });
    }

    template <class Part>
    Term joined(char one, char other, Part part) {
        Term left = part();
        int joins = 0;
        for (skip(); look() == one || look() == other; skip()) {
            if (++joins >= kMostJoined) {
                stop("This is too long.");
            }
            Term both;
            both.kind = TermKind::arithmetic;
            both.place = left.place;
            both.text = text_[at_++];
            both.parts.push_back(std::move(left));
            both.parts.push_back(part());
            left = std::move(both);
        }
        return left;
    }

    Term factor(int depth) {
        checkDepth(depth);
        skip();
        Term result;
        result.place = here();
        const auto found = words_.valueAt(text_, at_);
        if (found && !(look(found->length) == '.' && isDigit(look(found->length + 1)))) {
            const Word& word = takeWord(*found);
            result.kind = word.kind == WordKind::constant ? TermKind::constant : TermKind::variable;
            result.text = word.text;
            result.tag = word.tag;
            return result;
        }
        if (take("(")) {
            result = sum(depth + 1);
            expect(")");
            return result;
        }
        if (take("-")) {
            result.kind = TermKind::arithmetic;
            result.text = "-";
            result.parts.push_back(factor(depth + 1));
            return result;
        }
        const char c = look();
        if (c == '\'' || c == '"' || c == '`') {
            result.kind = c == '`' ? TermKind::variable : TermKind::constant;
            result.text = takeQuoted();
            return result;
        }
        if (isDigit(c)) {
            return number(std::move(result));
        }
        return named(std::move(result));
    }

    Term number(Term result) {
        result.kind = TermKind::number;
        std::string_view digits = run();
        if (look(digits.size()) == '.' && isDigit(look(digits.size() + 1))) {
            const std::size_t begin = at_;
            at_ += digits.size() + 1;
            digits = text_.substr(begin, digits.size() + 1 + run().size());
            at_ = begin;
        }
        for (const char letter : digits) {
            if (!isDigit(letter) && letter != '.') {
                stop("\"" + std::string(digits) + "\" is no number.");
            }
        }
        result.text = digits;
        at_ += digits.size();
        return result;
    }

    Term named(Term result) {
        const std::string_view name = run();
        if (name.empty()) {
            stop(at_ < text_.size() ? "A value is missing here." : "The text ends within a rule.");
        }
        if (bracketBehind(name.size())) {
            stop("A call stands by itself, with its value as the last argument.");
        }
        result.kind = name == "_"            ? TermKind::anonymous
                      : beginsVariable(name) ? TermKind::variable
                                             : TermKind::constant;
        result.text = name == "_" ? std::string_view() : name;
        if (!takePrefixed(name, result)) {
            at_ += name.size();
        }
        return result;
    }

    /// A known variable with letters before it that a template has put there, such as "OTHER_".
    bool takePrefixed(std::string_view name, Term& result) {
        if (!words_.hasOddValues()) {
            return false;
        }
        for (std::size_t line = name.find('_'); line != name.npos; line = name.find('_', line + 1)) {
            const auto found = words_.valueAt(text_, at_ + line + 1);
            if (found && found->word->kind == WordKind::variable && line + 1 + found->length > name.size()) {
                result.kind = TermKind::variable;
                result.text = std::string(name.substr(0, line + 1)) + found->word->text;
                at_ += line + 1;
                takeWord(*found);
                return true;
            }
        }
        return false;
    }

    void checkDepth(int depth) {
        if (depth > kDeepest) {
            stop("This is nested too deeply.");
        }
    }

    std::string_view text_;
    const Words& words_;
    std::size_t at_ = 0;
    Place place_;
    std::vector<SyntaxFault> ambiguous_;
};

}  // namespace

Parsed parse(std::string_view text, const Words* words) {
    const Words none;
    return Parser(text, words ? *words : none).parse();
}

}  // namespace orvent::rules
