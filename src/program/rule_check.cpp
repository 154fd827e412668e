#include "program/rule_check.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/text.h"
#include "program/reference.h"
#include "rules/printer.h"

namespace orvent::program {

using rules::Literal;
using rules::LiteralKind;
using rules::Place;
using rules::Term;
using rules::TermKind;

namespace {

constexpr std::array<std::string_view, 5> kAggregates = {"sum", "count", "avg", "min", "max"};

/// A function that every source has under some name, and how many values it takes.
struct CommonFunction {
    std::string_view name;
    CallKind kind;
    std::size_t least, most;
};
constexpr CommonFunction kCommonFunctions[] = {
    {"isnull", CallKind::test, 1, 1},        {"isnotnull", CallKind::test, 1, 1}, {"abs", CallKind::value, 1, 1},
    {"add", CallKind::value, 2, 2},          {"ceiling", CallKind::value, 1, 1},  {"concat", CallKind::value, 2, 2},
    {"date_to_text", CallKind::value, 2, 2}, {"divide", CallKind::value, 2, 2},   {"floor", CallKind::value, 1, 1},
    {"length", CallKind::value, 1, 1},       {"lower", CallKind::value, 1, 1},    {"multiply", CallKind::value, 2, 2},
    {"nvl", CallKind::value, 2, 2},          {"replace", CallKind::value, 3, 3},  {"round", CallKind::value, 1, 2},
    {"substring", CallKind::value, 3, 3},    {"subtract", CallKind::value, 2, 2}, {"to_date", CallKind::value, 2, 2},
    {"to_number", CallKind::value, 1, 1},    {"trim", CallKind::value, 1, 1},     {"upper", CallKind::value, 1, 1},
};

const CommonFunction* commonFunction(std::string_view name) {
    const std::string plain = platform::lowerCase(name);
    const auto found = std::find_if(std::begin(kCommonFunctions), std::end(kCommonFunctions),
                                    [&](const CommonFunction& row) { return row.name == plain; });
    return found == std::end(kCommonFunctions) ? nullptr : found;
}

bool isPlain(const Term& term) {
    return term.kind == TermKind::number || term.kind == TermKind::constant;
}

/// How two plain values compare: below, at or above 0; nothing when that depends on the data.
std::optional<int> compare(const Term& a, const Term& b, Family family) {
    const auto x = platform::parseNumber(a.text);
    const auto y = platform::parseNumber(b.text);
    if (family == Family::number || (family == Family::unknown && x && y)) {
        return x && y ? std::optional(*x < *y ? -1 : *x > *y ? 1 : 0) : std::nullopt;
    }
    if (family == Family::date) {
        const std::string one = timestampIn(a.text), other = timestampIn(b.text);
        return one.empty() || other.empty() ? std::nullopt : std::optional(one.compare(other));
    }
    return a.text.compare(b.text);
}

bool fulfils(const std::string& op, int order) {
    return op == "="    ? order == 0
           : op == "<"  ? order < 0
           : op == ">"  ? order > 0
           : op == "<=" ? order <= 0
           : op == ">=" ? order >= 0
                        : order != 0;
}

}  // namespace

CallKind callKind(std::string_view function) {
    const CommonFunction* common = commonFunction(function);
    return common ? common->kind : CallKind::value;
}

bool isCommonFunction(std::string_view function) {
    return commonFunction(function) != nullptr;
}

std::string whyNotCalled(std::string_view function, std::size_t arguments) {
    const CommonFunction* common = commonFunction(function);
    const std::size_t result = common && common->kind == CallKind::value ? 1 : 0;
    if (!common || (arguments >= common->least + result && arguments <= common->most + result)) {
        return {};
    }
    return "takes " + std::to_string(common->least) +
           (common->most > common->least ? " or " + std::to_string(common->most) : "") +
           (common->most > 1 ? " values" : " value") + (result > 0 ? " and gives one" : "") + ", and here it has " +
           std::to_string(arguments) + " in all";
}

bool isAggregate(std::string_view function) {
    return std::find(kAggregates.begin(), kAggregates.end(), platform::lowerCase(function)) != kAggregates.end();
}

/// The conditions on the values of one class.
struct RuleCheck::Limits {
    struct Condition {
        std::string op;
        const Term* value;
    };
    std::vector<Condition> conditions;
};

RuleCheck::RuleCheck(rules::Rule& rule, const Spellings& spellings, const Types& types, RuleScene& scene)
    : rule_(rule), spellings_(spellings), types_(types), scene_(scene) {
    for (const Term& term : rule.head.arguments) {
        number(term);
    }
    for (const Literal& literal : rule.body) {
        for (const auto* terms : {&literal.atom.arguments, &literal.values}) {
            for (const Term& term : *terms) {
                number(term);
            }
        }
    }
    const std::size_t slots = spellings.values().size() + others_.size();
    for (std::size_t slot = 0; slot < slots; ++slot) {
        parents_.push_back(static_cast<int>(slot));
    }
    for (const Literal& literal : rule.body) {
        if (literal.kind == LiteralKind::comparison && literal.op == "=") {
            const int one = slotOf(literal.values[0]);
            const int other = slotOf(literal.values[1]);
            if (one >= 0 && other >= 0) {
                join(one, other);
            }
        }
    }
    typesOf_.assign(slots, -1);
    bound_.assign(slots, 0);
}

void RuleCheck::number(const Term& term) {
    if (term.kind == TermKind::variable && term.tag < 0) {
        others_.try_emplace(term.text, static_cast<int>(spellings_.values().size() + others_.size()));
    }
    for (const Term& part : term.parts) {
        number(part);
    }
}

int RuleCheck::slotOf(const Term& term) const {
    if (term.kind != TermKind::variable) {
        return -1;
    }
    return term.tag >= 0 ? term.tag : others_.at(term.text);
}

int RuleCheck::root(int slot) const {
    while (parents_[static_cast<std::size_t>(slot)] != slot) {
        slot = parents_[static_cast<std::size_t>(slot)];
    }
    return slot;
}

void RuleCheck::join(int one, int other) {
    parents_[static_cast<std::size_t>(root(one))] = root(other);
}

int RuleCheck::classOf(const Term& term) const {
    const int slot = slotOf(term);
    return slot < 0 ? -1 : root(slot);
}

std::int16_t RuleCheck::typeOf(const Term& term) const {
    const int own = classOf(term);
    if (own >= 0) {
        return typesOf_[static_cast<std::size_t>(own)];
    }
    return term.kind == TermKind::constant && term.tag >= 0 ? static_cast<std::int16_t>(term.tag) : std::int16_t{-1};
}

void RuleCheck::run() {
    settleTypes();
    bind();
    checkBound();
    checkHolds();
    checkConstants();
}

void RuleCheck::learnType(const Term& term, std::int16_t type) {
    if (const int own = classOf(term); own >= 0 && type >= 0) {
        std::int16_t& known = typesOf_[static_cast<std::size_t>(own)];
        known = known < 0 ? type : known;
    }
}

void RuleCheck::settleTypes() {
    for (const Literal& literal : rule_.body) {
        if (literal.kind == LiteralKind::atom && literal.atom.tag != reference::kFunction) {
            for (std::size_t at = 0; at < literal.atom.arguments.size(); ++at) {
                learnType(literal.atom.arguments[at], scene_.columnType(literal.atom.tag, at));
            }
        } else {
            for (const auto* terms : {&literal.atom.arguments, &literal.values}) {
                for (const Term& term : *terms) {
                    if (term.kind == TermKind::variable && term.tag >= 0) {
                        learnType(term, spellings_.values()[static_cast<std::size_t>(term.tag)].type);
                    }
                }
            }
        }
    }
}

bool RuleCheck::isBound(const Term& term) const {
    const int own = classOf(term);
    return (own < 0 || bound_[static_cast<std::size_t>(own)]) && term.kind != TermKind::anonymous &&
           std::all_of(term.parts.begin(), term.parts.end(), [this](const Term& part) { return isBound(part); });
}

/// True when the literal gives a variable its value by now.
bool RuleCheck::bindBy(const Literal& literal) {
    const auto give = [this](const Term& term) {
        const int own = classOf(term);
        return own >= 0 && !std::exchange(bound_[static_cast<std::size_t>(own)], char{1});
    };
    if (literal.kind == LiteralKind::comparison) {
        const Term& left = literal.values[0];
        const Term& right = literal.values[1];
        return literal.op == "=" && ((isBound(right) && give(left)) || (isBound(left) && give(right)));
    }
    const std::vector<Term>& arguments = literal.atom.arguments;
    if (literal.atom.tag == reference::kFunction) {
        return !arguments.empty() && callKind(literal.atom.name) == CallKind::value &&
               std::all_of(arguments.begin(), arguments.end() - 1,
                           [this](const Term& term) { return isBound(term); }) &&
               give(arguments.back());
    }
    bool given = false;
    for (const Term& term : arguments) {
        given = give(term) || given;
    }
    return given;
}

void RuleCheck::bind() {
    std::vector<const Literal*> waiting;
    for (const Literal& literal : rule_.body) {
        if (literal.kind == LiteralKind::atom && literal.atom.tag != reference::kFunction) {
            bindBy(literal);
        } else if (literal.kind != LiteralKind::negated) {
            waiting.push_back(&literal);
        }
    }
    for (bool again = true; again;) {
        again = false;
        for (const Literal* literal : waiting) {
            again = bindBy(*literal) || again;
        }
    }
}

void RuleCheck::requireBound(const Term& term, const char* where) {
    for (const Term& part : term.parts) {
        requireBound(part, where);
    }
    if (term.kind == TermKind::anonymous) {
        scene_.tell(FindingKind::unbound, term.place, std::string("\"_\" has no value ") + where + ".");
        return;
    }
    const int own = classOf(term);
    if (own >= 0 && !bound_[static_cast<std::size_t>(own)] &&
        std::find(told_.begin(), told_.end(), own) == told_.end()) {
        told_.push_back(own);
        scene_.tell(FindingKind::unbound, term.place, "Nothing gives " + term.text + " its value " + where + ".");
    }
}

void RuleCheck::checkBound() {
    for (const Term& term : rule_.head.arguments) {
        requireBound(term, "in the head of a rule");
    }
    for (const Literal& literal : rule_.body) {
        const std::vector<Term>& arguments = literal.atom.arguments;
        if (literal.kind == LiteralKind::comparison) {
            for (const Term& value : literal.values) {
                requireBound(value, "in a comparison");
            }
        } else if (literal.atom.tag == reference::kFunction) {
            for (const Term& term : arguments) {
                const bool value = literal.kind == LiteralKind::atom && &term == &arguments.back() &&
                                   callKind(literal.atom.name) == CallKind::value;
                if (!value || term.kind != TermKind::anonymous) {
                    requireBound(term, "in a call");
                }
            }
        } else {
            for (const Term& term : arguments) {
                if (literal.kind == LiteralKind::negated && term.kind != TermKind::anonymous) {
                    requireBound(term, "behind \"not\"");
                } else if (term.kind == TermKind::arithmetic) {
                    requireBound(term, "in an expression");
                }
            }
        }
    }
}

/// Gives a constant the type of what it stands beside, or its own.
void RuleCheck::checkConstant(Term& term, std::int16_t type) {
    for (Term& part : term.parts) {
        checkConstant(part, -1);
    }
    if (term.kind != TermKind::constant) {
        return;
    }
    const Family family = types_.family(type);
    if (family == Family::number && !platform::parseNumber(term.text)) {
        scene_.tell(FindingKind::constantType, term.place,
                    "The constant \"" + term.text + "\" is compared with a number.");
    } else if (family == Family::date && timestampIn(term.text).empty()) {
        scene_.tell(FindingKind::constantType, term.place,
                    "The constant \"" + term.text + "\" is compared with a date, and is none such as 2024-02-29.");
    }
    const std::int16_t own = term.tag >= 0 ? spellings_.values()[static_cast<std::size_t>(term.tag)].type : type;
    term.tag = type >= 0 ? type : own;
}

void RuleCheck::checkConstants() {
    for (std::size_t at = 0; at < rule_.head.arguments.size(); ++at) {
        checkConstant(rule_.head.arguments[at],
                      rule_.head.tag == reference::kOutput ? scene_.columnType(rule_.head.tag, at) : std::int16_t{-1});
    }
    for (Literal& literal : rule_.body) {
        if (literal.kind == LiteralKind::comparison) {
            for (const std::size_t side : {std::size_t{0}, std::size_t{1}}) {
                const Term& other = literal.values[1 - side];
                checkConstant(literal.values[side], classOf(other) >= 0 ? typeOf(other) : std::int16_t{-1});
            }
        }
        for (std::size_t at = 0; at < literal.atom.arguments.size(); ++at) {
            checkConstant(literal.atom.arguments[at], literal.atom.tag == reference::kFunction
                                                          ? std::int16_t{-1}
                                                          : scene_.columnType(literal.atom.tag, at));
        }
    }
}

/// Whether the comparison may hold together with those before it.
bool RuleCheck::holds(const Literal& literal, std::unordered_map<int, Limits>& limits) const {
    const bool turn = isPlain(literal.values[0]);
    const Term& left = literal.values[turn ? 1 : 0];
    const Term& right = literal.values[turn ? 0 : 1];
    const std::string op = turn ? rules::turned(literal.op) : literal.op;
    if (!isPlain(right)) {
        return true;
    }
    if (isPlain(left)) {
        const auto order = compare(left, right, Family::unknown);
        return !order || fulfils(op, *order);
    }
    const int own = classOf(left);
    if (own < 0) {
        return true;
    }
    const Family family = types_.family(typesOf_[static_cast<std::size_t>(own)]);
    std::vector<Limits::Condition>& conditions = limits[own].conditions;
    for (const Limits::Condition& before : conditions) {
        const auto order = compare(right, *before.value, family);  // of the new limit to that one
        if (!order) {
            continue;
        }
        const bool newOpen = op == "<" || op == ">";
        const bool oldOpen = before.op == "<" || before.op == ">";
        const auto low = [](const std::string& sign) { return sign[0] == '>' || sign == "="; };
        const auto high = [](const std::string& sign) { return (sign[0] == '<' && sign != "<>") || sign == "="; };
        const bool crossed = (low(op) && high(before.op) && (*order > 0 || (*order == 0 && (newOpen || oldOpen)))) ||
                             (high(op) && low(before.op) && (*order < 0 || (*order == 0 && (newOpen || oldOpen))));
        const bool other = *order == 0 && ((op == "=" && (before.op == "!=" || before.op == "<>")) ||
                                           (before.op == "=" && (op == "!=" || op == "<>")));
        if (crossed || other) {
            return false;
        }
    }
    conditions.push_back({op, &right});
    return true;
}

void RuleCheck::checkHolds() {
    std::unordered_map<int, Limits> limits;
    for (const Literal& literal : rule_.body) {
        if (literal.kind != LiteralKind::comparison) {
            continue;
        }
        if (!rules::isOperator(literal.op)) {
            scene_.tell(FindingKind::unknownOperator, literal.place(), "\"" + literal.op + "\" is no operator.");
        } else if (!holds(literal, limits)) {
            scene_.tell(FindingKind::neverHolds, literal.place(),
                        "The rule can never hold, because of " + rules::print(literal) + ".");
        }
    }
}

}  // namespace orvent::program
