#include <algorithm>
#include <cctype>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/fault.h"
#include "platform/text.h"
#include "statements/ldl_generator.h"
#include "statements/no_place.h"
#include "statements/replace_all.h"

namespace orvent::statements {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

std::string_view digitsAt(std::string_view text, std::size_t at) {
    std::size_t end = std::min(at, text.size());
    const std::size_t begin = end;
    while (end < text.size() && isDigit(text[end])) {
        ++end;
    }
    return text.substr(begin, end - begin);
}

bool startsIgnoringCase(std::string_view text, std::string_view head) {
    return platform::equalIgnoringCase(text.substr(0, head.size()), head);
}

/// What the tokens of one activity stand for.
struct Names {
    Names(const entities::ActivityProperties& activity, const LDLsourceColl& sources,
          const entities::Act_OutputsCollection& outputs)
        : N(activity.Act_Name), n(FirstCapitalReplacer(N)), Sources(sources), Outputs(outputs) {}

    std::string input(int k, const entities::AttributeProperties& attribute) const {
        return N + "_IN" + std::to_string(k) + "_" + attribute.Attribute_Name;
    }
    std::string source(int k) const { return n + "_in" + std::to_string(k); }
    std::string output(const entities::AttributeProperties& attribute) const {
        return N + "_OUT_" + attribute.Attribute_Name;
    }
    std::string outputs() const { return n + "_out"; }

    const std::string& N;
    const std::string n;
    const LDLsourceColl& Sources;
    const entities::Act_OutputsCollection& Outputs;
};

/// Replaces one token without regard to case. It looks for the "_", which is rarer than the letter before it.
void replaceToken(std::string& text, const std::string& token, const std::string& to, bool whole, WorkLimit& limit) {
    limit.spendSearch(text.size());
    const std::string_view all(text);
    std::string result;
    std::size_t done = 0;
    for (std::size_t line = text.find('_', 1); line != std::string::npos; line = text.find('_', line + 1)) {
        const std::size_t hit = line - 1;
        const std::size_t end = hit + token.size();
        if (hit >= done && platform::equalIgnoringCase(all.substr(hit, token.size()), token) &&
            !(whole && end < text.size() && isDigit(text[end]))) {
            if (result.empty()) {
                result.reserve(text.size());
            }
            result.append(text, done, hit - done).append(to);
            done = end;
            checkSize(result.size());
        }
    }
    if (done == 0) {
        return;
    }
    result.append(text, done);
    checkSize(result.size());
    limit.spend(result.size());
    text = std::move(result);
}

/// The pass as the language tells it: one token after the other, each in the whole text.
void replacePlainly(std::string& text, const Names& names, bool whole) {
    WorkLimit limit;
    for (int k = 1; k <= names.Sources.Count(); ++k) {
        const std::string token = "A_IN" + std::to_string(k);
        int j = 0;
        for (const entities::AttributeProperties& input : *names.Sources.Source(k)) {
            replaceToken(text, token + "_" + std::to_string(++j), names.input(k, input), whole, limit);
        }
        replaceToken(text, token, names.source(k), whole, limit);
    }
    int i = 0;
    for (const entities::AttributeProperties& output : names.Outputs) {
        replaceToken(text, "A_OUT_" + std::to_string(++i), names.output(output), whole, limit);
    }
    replaceToken(text, "A_OUT", names.outputs(), whole, limit);
}

/// The same pass in one walk through the text. At each place the token is told that comes first in the order of the
/// language. That is all there is to tell as long as no replacement makes a token, by itself or with what stands
/// beside it.
class QuickNames {
  public:
    QuickNames(const Names& names, std::string_view text, bool whole) : names_(names), text_(text), whole_(whole) {}

    /// Nothing where the quick way cannot tell.
    std::optional<std::string> run() {
        if (isDigit(names_.N[0]) || names_.N[0] == '_') {
            return std::nullopt;
        }
        std::string result;
        result.reserve(text_.size() + text_.size() / 4);
        std::vector<std::pair<std::size_t, std::size_t>> replaced;
        std::size_t done = 0;
        for (std::size_t line = text_.find('_', 1); line != kNone; line = text_.find('_', line + 1)) {
            const std::size_t at = line - 1;
            const std::size_t length = at < done ? 0 : tokenAt(at);
            if (length > 0) {
                result.append(text_, done, at - done);
                replaced.emplace_back(result.size(), result.size() + replacement_.size());
                result += replacement_;
                done = at + length;
                line = done - 1;
                if (result.size() > kMostCharacters) {
                    return std::nullopt;
                }
            }
        }
        result.append(text_, done);
        const bool sound =
            result.size() <= kMostCharacters && std::none_of(replaced.begin(), replaced.end(), [&](const auto& range) {
                return makesToken(result, range.first, range.second);
            });
        return sound ? std::optional(std::move(result)) : std::nullopt;
    }

  private:
    /// How long the token at `at` is, 0 when there is none.
    std::size_t tokenAt(std::size_t at) {
        const std::string_view rest = text_.substr(at);
        if (startsIgnoringCase(rest, "A_IN")) {
            return inputAt(rest);
        }
        return startsIgnoringCase(rest, "A_OUT") ? outputAt(rest) : 0;
    }

    /// How many of the digits are the number, and the number; 0 and 0 for none up to `most`.
    std::pair<std::size_t, int> numberIn(std::string_view digits, int most) const {
        const std::string_view taken = whole_ ? digits : digits.substr(0, 1);
        if (taken.empty() || taken[0] == '0' || taken.size() > 5) {
            return {0, 0};
        }
        const int number = std::stoi(std::string(taken));
        return number <= most ? std::pair{taken.size(), number} : std::pair<std::size_t, int>{0, 0};
    }

    std::size_t inputAt(std::string_view rest) {
        const std::string_view digits = digitsAt(rest, kInput);
        const auto [length, k] = numberIn(digits, names_.Sources.Count());
        if (length == 0) {
            return 0;
        }
        const std::size_t end = kInput + length;
        if (length == digits.size() && end < rest.size() && rest[end] == '_') {
            const LDLSource& source = *names_.Sources.Source(k);
            const auto [more, j] = numberIn(digitsAt(rest, end + 1), source.Count());
            if (more > 0) {
                replacement_ = names_.input(k, *source.Item(j));
                return end + 1 + more;
            }
        }
        replacement_ = names_.source(k);
        return end;
    }

    std::size_t outputAt(std::string_view rest) {
        if (kOutput < rest.size() && rest[kOutput] == '_') {
            const auto [length, i] = numberIn(digitsAt(rest, kOutput + 1), names_.Outputs.Count());
            if (length > 0) {
                replacement_ = names_.output(*names_.Outputs.Item(i));
                return kOutput + 1 + length;
            }
        }
        if (whole_ && kOutput < rest.size() && isDigit(rest[kOutput])) {
            return 0;
        }
        replacement_ = names_.outputs();
        return kOutput;
    }

    static bool makesToken(std::string_view text, std::size_t from, std::size_t to) {
        const std::size_t begin = from < kOutput ? 0 : from - kOutput + 1;
        const std::size_t end = std::min(text.size(), to + kOutput - 1);
        for (std::size_t line = text.find('_', begin + 1); line < end; line = text.find('_', line + 1)) {
            const std::string_view rest = text.substr(line - 1, end - line + 1);
            if (startsIgnoringCase(rest, "A_OUT") ||
                (startsIgnoringCase(rest, "A_IN") && rest.size() > kInput && isDigit(rest[kInput]))) {
                return true;
            }
        }
        return false;
    }

    static constexpr std::size_t kInput = 4;   // "A_IN"
    static constexpr std::size_t kOutput = 5;  // "A_OUT"

    const Names& names_;
    const std::string_view text_;
    const bool whole_;
    std::string replacement_;
};

}  // namespace

std::string LDLGenerator::replaceActivityNames(std::string text, std::string& fault) const {
    try {
        const Names names(activity_, sources_, outputsView_);
        if (std::optional<std::string> quick = QuickNames(names, text, WholeNumbers).run()) {
            return std::move(*quick);
        }
        replacePlainly(text, names, WholeNumbers);
    } catch (const platform::Fault& words) {
        fault = words.description();  // the text as it stands is the answer
    }
    return text;
}

}  // namespace orvent::statements
