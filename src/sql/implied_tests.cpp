#include "sql/implied_tests.h"

#include <algorithm>
#include <map>
#include <optional>
#include <string_view>
#include <utility>

#include "platform/text.h"

namespace orvent::sql {

using rules::Atom;
using rules::Literal;
using rules::LiteralKind;
using rules::Rule;
using rules::Term;
using rules::TermKind;

namespace {

bool isEquality(const Literal& literal) {
    return literal.kind == LiteralKind::comparison && literal.op == "=";
}

bool isPlain(const Term& term) {
    return term.kind == TermKind::number || term.kind == TermKind::constant;
}

/// Variables of one rule that are the same value, by one of them each.
class SameValues {
  public:
    explicit SameValues(const Rule& rule) {
        for (const Literal& literal : rule.body) {
            if (isEquality(literal) && literal.values[0].kind == TermKind::variable &&
                literal.values[1].kind == TermKind::variable) {
                other_[root(literal.values[0].text)] = root(literal.values[1].text);
            }
        }
    }

    /// Empty for what is no variable.
    std::string_view of(const Term& term) const {
        return term.kind == TermKind::variable ? root(term.text) : std::string_view();
    }
    bool same(const Term& one, const Term& other) const { return !of(one).empty() && of(one) == of(other); }

    /// The column of the head that has the value of the term.
    std::optional<std::size_t> headColumn(const Rule& rule, const Term& term) const {
        for (std::size_t at = 0; at < rule.head.arguments.size(); ++at) {
            if (same(rule.head.arguments[at], term)) {
                return at;
            }
        }
        return std::nullopt;
    }

  private:
    std::string_view root(std::string_view variable) const {
        auto next = other_.find(variable);
        while (next != other_.end() && next->second != variable) {
            variable = next->second;
            next = other_.find(variable);
        }
        return variable;
    }

    std::map<std::string_view, std::string_view> other_;
};

/// The atoms of a body that rows match.
std::vector<const Atom*> rowAtoms(const Rule& rule) {
    std::vector<const Atom*> result;
    for (const Literal& literal : rule.body) {
        if (literal.kind == LiteralKind::atom && literal.atom.tag >= 0) {
            result.push_back(&literal.atom);
        }
    }
    return result;
}

/// The variable that may not be NULL by a test, or nothing.
const Term* tested(const Literal& literal) {
    const bool isTest =
        literal.kind != LiteralKind::comparison && literal.atom.tag < 0 && literal.atom.arguments.size() == 1 &&
        platform::equalIgnoringCase(literal.atom.name, literal.kind == LiteralKind::atom ? "isNotNull" : "isNull");
    return isTest ? &literal.atom.arguments[0] : nullptr;
}

/// The columns of two rows that a rule says to differ, or to be in order.
std::set<std::size_t> unlike(const Rule& rule, const Atom& one, const Atom& other) {
    std::set<std::size_t> result;
    const SameValues values(rule);
    for (const Literal& literal : rule.body) {
        for (std::size_t at = 0; at < one.arguments.size(); ++at) {
            if (literal.kind == LiteralKind::comparison && literal.op != "=" &&
                ((values.same(literal.values[0], one.arguments[at]) &&
                  values.same(literal.values[1], other.arguments[at])) ||
                 (values.same(literal.values[1], one.arguments[at]) &&
                  values.same(literal.values[0], other.arguments[at])))) {
                result.insert(at);
            }
        }
    }
    return result;
}

}  // namespace

ImpliedTests::ImpliedTests(const program::Program& program) : program_(program), rules_(program.predicates.size()) {
    for (const program::ProgramRule& rule : program.rules) {
        rules_[static_cast<std::size_t>(rule.rule.head.tag)].push_back(&rule.rule);
    }
}

const Rule* ImpliedTests::onlyRule(std::size_t predicate) const {
    return rules_[predicate].size() == 1 && !program_.predicates[predicate].broken ? rules_[predicate][0] : nullptr;
}

/// The columns of `rows` by which the helper, which a rule excludes, finds several rows of one key: what is left is
/// unique there. Each rule of the helper looks at two rows that have a key in common and differ elsewhere; they do so
/// in all other columns, or in one that stands in the helper, too, and orders the rows of a key.
std::vector<std::size_t> ImpliedTests::repeatedKeys(const Atom& helper, const Atom& rows) const {
    std::optional<std::set<std::size_t>> keys;
    std::set<std::size_t> differ;
    bool ordered = false;
    for (const Rule* rule : rules_[static_cast<std::size_t>(helper.tag)]) {
        const std::vector<const Atom*> pair = rowAtoms(*rule);
        if (pair.size() != 2 || pair[0]->tag != rows.tag || pair[1]->tag != rows.tag ||
            pair[0]->arguments.size() != pair[1]->arguments.size()) {
            return {};
        }
        const SameValues values(*rule);
        std::set<std::size_t> own;
        for (std::size_t at = 0; at < pair[0]->arguments.size(); ++at) {
            if (values.same(pair[0]->arguments[at], pair[1]->arguments[at])) {
                own.insert(at);
            }
        }
        for (const std::size_t at : unlike(*rule, *pair[0], *pair[1])) {
            differ.insert(at);
            ordered = ordered || values.headColumn(*rule, pair[0]->arguments[at]).has_value();
        }
        if (own.empty() || (keys && *keys != own)) {
            return {};
        }
        keys = own;
    }
    const bool whole = keys && (ordered || keys->size() + differ.size() == rows.arguments.size());
    return whole ? std::vector<std::size_t>(keys->begin(), keys->end()) : std::vector<std::size_t>();
}

/// Columns that no two rows have in common; empty where none are known.
std::vector<std::size_t> ImpliedTests::uniqueIn(std::size_t predicate, std::set<std::size_t> met) const {
    const Rule* const rule = onlyRule(predicate);
    if (!rule || !met.insert(predicate).second) {
        return {};
    }
    std::vector<std::size_t> groups;
    for (std::size_t at = 0; at < rule->head.arguments.size(); ++at) {
        if (rule->head.arguments[at].kind != TermKind::aggregate) {
            groups.push_back(at);
        }
    }
    if (groups.size() < rule->head.arguments.size()) {
        return groups;
    }
    const std::vector<const Atom*> atoms = rowAtoms(*rule);
    const auto kind = program_.predicates[predicate].kind;
    if (atoms.size() != 1 || kind == program::PredicateKind::input || kind == program::PredicateKind::recordSet) {
        return {};
    }
    std::vector<std::size_t> keys = uniqueIn(static_cast<std::size_t>(atoms[0]->tag), std::move(met));
    for (const Literal& literal : rule->body) {
        if (keys.empty() && literal.kind == LiteralKind::negated && literal.atom.tag >= 0) {
            keys = repeatedKeys(literal.atom, *atoms[0]);
        }
    }
    const SameValues values(*rule);
    std::vector<std::size_t> result;
    for (const std::size_t key : keys) {
        const auto column = values.headColumn(*rule, atoms[0]->arguments[key]);
        if (!column) {
            return {};
        }
        result.push_back(*column);
    }
    return result;
}

std::vector<ImpliedTest> ImpliedTests::of(std::size_t predicate) const {
    std::vector<ImpliedTest> result;
    const Rule* const rule = onlyRule(predicate);
    if (!rule) {
        return result;
    }
    const SameValues values(*rule);
    for (const Literal& literal : rule->body) {
        if (const Term* const term = tested(literal)) {
            if (const auto column = values.headColumn(*rule, *term)) {
                result.push_back({ImpliedKind::notNull, {*column}});
            }
        } else if (literal.kind == LiteralKind::comparison) {
            for (const std::size_t side : {std::size_t{0}, std::size_t{1}}) {
                const auto column = values.headColumn(*rule, literal.values[side]);
                if (column && isPlain(literal.values[1 - side])) {
                    const std::string op = side == 0 ? literal.op : rules::turned(literal.op);
                    result.push_back({ImpliedKind::compares, {*column}, -1, 0, op, literal.values[1 - side]});
                }
            }
        } else if (literal.kind == LiteralKind::atom && literal.atom.tag >= 0) {
            const auto kind = program_.predicates[static_cast<std::size_t>(literal.atom.tag)].kind;
            const bool recordSet = kind == program::PredicateKind::given || kind == program::PredicateKind::recordSet ||
                                   kind == program::PredicateKind::before;
            for (std::size_t at = 0; recordSet && at < literal.atom.arguments.size(); ++at) {
                if (const auto column = values.headColumn(*rule, literal.atom.arguments[at])) {
                    result.push_back({ImpliedKind::references, {*column}, literal.atom.tag, at});
                }
            }
        }
    }
    if (const std::vector<std::size_t> keys = uniqueIn(predicate, {}); !keys.empty()) {
        result.push_back({ImpliedKind::unique, keys});
    }
    return result;
}

}  // namespace orvent::sql
