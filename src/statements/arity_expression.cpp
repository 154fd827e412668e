#include <algorithm>

#include "platform/fault.h"
#include "platform/text.h"
#include "statements/ldl_generator.h"
#include "statements/ldl_numbers.h"

namespace orvent::statements {

using platform::Fault;
using platform::trimmed;

namespace {

constexpr std::string_view kArityOf = "arityOf";

/// The trimmed text between the first "(" and the first ")".
std::string_view argumentOf(std::string_view term) {
    const std::size_t open = term.find('(');
    const std::size_t close = term.find(')');
    if (open == std::string_view::npos || close == std::string_view::npos || close < open) {
        throw Fault("arityOf has no argument");
    }
    return trimmed(term.substr(open + 1, close - open - 1));
}

/// Without the first character, which may be of several bytes.
std::string_view withoutFirst(std::string_view text) {
    std::size_t at = text.empty() ? 0 : 1;
    while (at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80) {
        ++at;
    }
    return text.substr(at);
}

}  // namespace

std::int16_t readNumber(std::string_view text) {
    const auto number = platform::parseInteger(text);
    if (!number) {
        throw Fault("\"" + std::string(text) + "\" is no number");
    }
    return platform::checkedI16(*number, "The number");
}

std::vector<std::size_t> LDLGenerator::SplitArityExpression(std::string_view expression) {
    std::vector<std::size_t> cuts = {0};
    for (std::size_t at = 0; at < expression.size(); ++at) {
        if (expression[at] == '+' || expression[at] == '-') {
            cuts.push_back(at + 1);
        }
    }
    cuts.push_back(expression.size() + 1);
    return cuts;
}

int LDLGenerator::termValue(std::string_view term) const {
    if (platform::equalIgnoringCase(term.substr(0, kArityOf.size()), kArityOf)) {
        const std::string_view argument = argumentOf(term);
        if (platform::equalIgnoringCase(argument, "a_out")) {
            return outputsView_.Count();
        }
        // A source's number is one digit: with two, the text is taken for the name of a variable.
        if (!argument.empty() && platform::equalIgnoringCase(argument.substr(0, argument.size() - 1), "a_in")) {
            const LDLSource* source = sources_.Source(readNumber(argument.substr(argument.size() - 1)));
            if (!source) {
                throw Fault("There is no source \"" + std::string(argument) + "\"");
            }
            return source->Count();
        }
        const std::string name(trimmed(withoutFirst(argument)));
        const LDLVariable* variable = variables_.Item(name);
        if (!variable || !variable->SubVariables) {
            throw Fault("There is no array variable \"" + name + "\"");
        }
        return variable->SubVariables->Count();
    }
    if (term.starts_with('@')) {
        const std::string name(trimmed(term.substr(1)));
        const LDLVariable* variable = variables_.Item(name);
        if (!variable) {
            throw Fault("There is no variable \"" + name + "\"");
        }
        return readNumber(variable->RegulatorName);
    }
    return readNumber(term);
}

std::int16_t LDLGenerator::EvalArityExpression(std::string_view expression) const {
    std::int16_t result = 0;
    try {
        const std::vector<std::size_t> cuts = SplitArityExpression(expression);
        for (std::size_t i = 0; i + 1 < cuts.size(); ++i) {
            const int term = termValue(trimmed(expression.substr(cuts[i], cuts[i + 1] - cuts[i] - 1)));
            const bool minus = i > 0 && expression[cuts[i] - 1] == '-';
            result = platform::checkedI16(minus ? result - term : result + term, "The bound");
        }
    } catch (const Fault&) {
        // What cannot be read ends the expression; a bound is never refused.
    }
    return result;
}

LoopHeader LDLGenerator::ParseLoopHeader(std::string_view head) const {
    // The first character is the bracket and the last one closes it.
    const auto part = [head](std::size_t from, std::size_t to) { return trimmed(head.substr(from, to - from)); };
    const std::size_t close = head.size() - 1;
    LoopHeader header;
    try {
        const std::size_t less = head.find('<', 1);
        const std::size_t second = less == std::string_view::npos ? less : head.find('<', less + 1);
        const std::size_t equal = head.find('=', 1);
        if (less != std::string_view::npos) {
            header.Operator = "<";
            const bool ranged = second != std::string_view::npos;
            header.LoopVariable = ranged ? part(less + 1, second) : part(1, less);
            header.From =
                ranged ? platform::checkedI16(EvalArityExpression(part(1, less)) + 1, "The bound") : std::int16_t{1};
            header.To =
                platform::checkedI16(EvalArityExpression(part((ranged ? second : less) + 1, close)) - 1, "The bound");
        } else if (equal != std::string_view::npos) {
            header.Operator = "=";
            header.LoopVariable = part(1, equal);
            header.From = header.To = EvalArityExpression(part(equal + 1, close));
        } else {
            header.Operator = "ERROR";
        }
    } catch (const Fault&) {
        header.Operator = "ERROR";
    }
    return header;
}

}  // namespace orvent::statements
