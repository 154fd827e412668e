#include "sql/rule_query.h"

#include <algorithm>
#include <optional>
#include <unordered_map>
#include <utility>

#include "platform/text.h"
#include "program/rule_check.h"

namespace orvent::sql {

using rules::Atom;
using rules::Literal;
using rules::LiteralKind;
using rules::Term;
using rules::TermKind;

namespace {

std::string listed(const std::vector<std::string>& parts, const char* between) {
    std::string result;
    for (const std::string& part : parts) {
        result.append(&part == &parts.front() ? "" : between).append(part);
    }
    return result;
}

/// What the variables of a rule are, in the order in which they got their values. The rule outlives it.
class BoundValues {
  public:
    /// The place of its value in `all`, or nothing.
    std::optional<std::size_t> placeOf(const Term& variable) const {
        if (variable.tag >= 0) {
            const auto tag = static_cast<std::size_t>(variable.tag);
            return tag < tagged_.size() ? tagged_[tag] : std::nullopt;
        }
        const auto place = named_.find(variable.text);
        return place == named_.end() ? std::nullopt : std::optional(place->second);
    }
    const Value* find(const Term& variable) const {
        const auto place = placeOf(variable);
        return place ? &values_[*place] : nullptr;
    }
    /// Only of a variable that has no value yet.
    void add(const Term& variable, Value value) {
        addSame(variable, values_.size());
        values_.push_back(std::move(value));
    }
    /// The variable is the same as one that has a value.
    void addSame(const Term& variable, std::size_t place) {
        if (variable.tag < 0) {
            named_.emplace(variable.text, place);
            return;
        }
        const auto tag = static_cast<std::size_t>(variable.tag);
        tagged_.resize(std::max(tagged_.size(), tag + 1));
        tagged_[tag] = place;
    }
    const std::vector<Value>& all() const { return values_; }

  private:
    // Most variables are known by their tags, whose names need not be looked at.
    std::vector<std::optional<std::size_t>> tagged_;
    std::unordered_map<std::string_view, std::size_t> named_;
    std::vector<Value> values_;
};

bool isSum(const Term& term) {
    return term.kind == TermKind::aggregate;
}

/// Writes one rule: first what the atoms give, then what follows from equalities and calls, and what is left are
/// conditions.
class QueryWriter {
  public:
    QueryWriter(const RuleSurroundings& around, const program::ProgramRule& rule)
        : around_(around), values_(around.values), dialect_(values_.dialect()), rule_(rule) {}

    RuleQuery write(bool alone) {
        for (const Literal& literal : rule_.rule.body) {
            if (literal.kind == LiteralKind::atom && literal.atom.tag >= 0) {
                addAtom(literal.atom);
            } else if (literal.kind != LiteralKind::negated) {
                waiting_.push_back(&literal);
            }
        }
        bindAll();
        for (const Literal* literal : waiting_) {
            addCondition(*literal);
        }
        for (const Literal& literal : rule_.rule.body) {
            if (literal.kind == LiteralKind::negated) {
                conditions_.push_back(negated(literal.atom));
            }
        }
        const std::vector<Term>& head = rule_.rule.head.arguments;
        return std::any_of(head.begin(), head.end(), isSum) ? summed() : plain(alone);
    }

  private:
    const Table& target() const { return around_.tables[static_cast<std::size_t>(rule_.rule.head.tag)]; }

    bool isBound(const Term& term) const {
        return (term.kind != TermKind::variable || bound_.find(term)) &&
               std::all_of(term.parts.begin(), term.parts.end(), [this](const Term& part) { return isBound(part); });
    }

    std::optional<std::size_t> placeOf(const Term& term) const {
        return term.kind == TermKind::variable ? bound_.placeOf(term) : std::nullopt;
    }

    Value valueOf(const Term& term, Family beside = Family::unknown) const {
        switch (term.kind) {
            case TermKind::variable:
                if (const Value* bound = bound_.find(term)) {
                    return *bound;
                }
                return values_.null(beside);
            case TermKind::number:
            case TermKind::constant:
                return values_.plain(term, beside);
            case TermKind::arithmetic: {
                std::vector<Value> parts;
                for (const Term& part : term.parts) {
                    parts.push_back(valueOf(part, Family::number));
                }
                return values_.arithmetic(term.text, parts);
            }
            case TermKind::aggregate:
            case TermKind::anonymous:
                break;
        }
        return values_.null(beside);
    }

    /// The conditions under which a row of the table is the atom; a variable that has no value yet takes its column's.
    std::vector<std::string> matched(const Atom& atom, const std::string& alias, bool binds) {
        const Table& table = around_.tables[static_cast<std::size_t>(atom.tag)];
        std::vector<std::string> result;
        for (std::size_t at = 0; at < atom.arguments.size(); ++at) {
            const Term& term = atom.arguments[at];
            Value column{dialect_.quoted(table.columns[at]), table.families[at]};
            column.sql.insert(0, alias + ".");
            if (binds && term.kind == TermKind::variable && !bound_.find(term)) {
                bound_.add(term, std::move(column));
                continue;
            }
            if (binds && term.kind == TermKind::arithmetic) {
                later_.emplace_back(column, &term);
            } else if (term.kind != TermKind::anonymous) {
                result.push_back(values_.compared(column, "=", valueOf(term, column.family)));
            }
        }
        return result;
    }

    void addAtom(const Atom& atom) {
        const Table& table = around_.tables[static_cast<std::size_t>(atom.tag)];
        const std::string alias = "t" + std::to_string(from_.size() + 1);
        from_.push_back(dialect_.quoted(table.name) + " " + alias);
        for (std::string& condition : matched(atom, alias, true)) {
            conditions_.push_back(std::move(condition));
        }
        whole_ = whole_ && table.distinct &&
                 std::all_of(atom.arguments.begin(), atom.arguments.end(),
                             [](const Term& term) { return term.kind != TermKind::anonymous; });
        atoms_.push_back(&atom);
    }

    static bool isTest(const Atom& atom) { return program::callKind(atom.name) == program::CallKind::test; }

    /// The name by which a call is known: the type of the activity's function of that name, where it has one.
    std::string functionOf(const std::string& name) const {
        const canvas::LabelsD* node = around_.form.Labels.byIndex(rule_.node);
        if (!node || !node->activity() || !node->activity()->Act_Functions.peek()) {
            return name;
        }
        for (const entities::FunctionProperties& function : node->activity()->Act_Functions) {
            const auto type = static_cast<std::size_t>(function.Function_Type);
            if (function.Function_Name == name && type < around_.catalogue.functionTypes.size()) {
                return values_.nameOf(name, around_.catalogue.functionTypes.name(function.Function_Type));
            }
        }
        return name;
    }

    Value called(const Atom& atom) const {
        std::vector<Value> inputs;
        for (std::size_t at = 0; at + 1 < atom.arguments.size(); ++at) {
            inputs.push_back(valueOf(atom.arguments[at]));
        }
        return values_.call(functionOf(atom.name), inputs);
    }

    /// Gives one variable its value by an equality or a call; false when the literal gives none by now.
    bool bindBy(const Literal& literal) {
        const auto isNew = [this](const Term& term) { return term.kind == TermKind::variable && !bound_.find(term); };
        if (literal.kind == LiteralKind::comparison) {
            for (const std::size_t side : {std::size_t{0}, std::size_t{1}}) {
                const Term& own = literal.values[side];
                const Term& other = literal.values[1 - side];
                if (literal.op != "=" || !isNew(own)) {
                    continue;
                }
                const auto same = other.kind == TermKind::variable ? bound_.placeOf(other) : std::nullopt;
                if (same) {
                    bound_.addSame(own, *same);
                    return true;
                }
                if (other.kind != TermKind::variable && isBound(other)) {
                    bound_.add(own, valueOf(other));
                    return true;
                }
            }
            return false;
        }
        const std::vector<Term>& arguments = literal.atom.arguments;
        const bool ready =
            !isTest(literal.atom) && !arguments.empty() && isNew(arguments.back()) &&
            std::all_of(arguments.begin(), arguments.end() - 1, [this](const Term& term) { return isBound(term); });
        if (ready) {
            bound_.add(arguments.back(), called(literal.atom));
        }
        return ready;
    }

    void bindAll() {
        for (bool again = true; again;) {
            const std::size_t before = waiting_.size();
            std::erase_if(waiting_, [this](const Literal* literal) { return bindBy(*literal); });
            again = waiting_.size() < before;
        }
        for (const auto& [column, term] : later_) {
            conditions_.push_back(values_.compared(column, "=", valueOf(*term, column.family)));
        }
    }

    std::string compared(const Term& left, const std::string& op, const Term& right) const {
        const auto isPlain = [](const Term& term) {
            return term.kind == TermKind::number || term.kind == TermKind::constant;
        };
        const Value first = isPlain(left) ? valueOf(left, valueOf(right).family) : valueOf(left);
        const Value second = valueOf(right, first.family);
        return values_.compared(first, op, second);
    }

    void addCondition(const Literal& literal) {
        if (literal.kind == LiteralKind::comparison) {
            conditions_.push_back(compared(literal.values[0], literal.op, literal.values[1]));
        } else if (isTest(literal.atom)) {
            conditions_.push_back(tested(literal.atom));
        } else if (!literal.atom.arguments.empty() && literal.atom.arguments.back().kind != TermKind::anonymous) {
            const Value value = called(literal.atom);
            conditions_.push_back(values_.compared(value, "=", valueOf(literal.atom.arguments.back(), value.family)));
        }
    }

    std::string tested(const Atom& atom) const {
        const char* const test = platform::equalIgnoringCase(atom.name, "isnull") ? " IS NULL" : " IS NOT NULL";
        std::vector<std::string> parts;
        for (const Term& term : atom.arguments) {
            parts.push_back(valueOf(term).sql + test);
        }
        return parts.empty() ? "1 = 1" : listed(parts, " AND ");
    }

    std::string negated(const Atom& atom) {
        if (atom.tag < 0 && isTest(atom)) {
            return "NOT (" + tested(atom) + ")";
        }
        if (atom.tag < 0) {
            const Value value = called(atom);
            const std::string holds = atom.arguments.empty() || atom.arguments.back().kind == TermKind::anonymous
                                          ? "1 = 1"
                                          : values_.compared(value, "=", valueOf(atom.arguments.back(), value.family));
            return "CASE WHEN " + holds + " THEN 1 ELSE 0 END = 0";
        }
        const std::string alias = "n" + std::to_string(++negated_);
        const std::vector<std::string> conditions = matched(atom, alias, false);
        return "NOT EXISTS (SELECT 1 FROM " + dialect_.quoted(around_.tables[static_cast<std::size_t>(atom.tag)].name) +
               " " + alias + (conditions.empty() ? "" : " WHERE " + listed(conditions, " AND ")) + ")";
    }

    std::string body() const {
        const std::string from =
            from_.empty() ? std::string(dialect_.phrase(Phrase::fromNothing)) : " FROM " + listed(from_, ", ");
        return from + (conditions_.empty() ? "" : " WHERE " + listed(conditions_, " AND "));
    }

    /// Whether two different ways to fulfil the body differ in the values at these places.
    bool tellsWays(const std::vector<char>& told) const {
        return whole_ && std::all_of(atoms_.begin(), atoms_.end(), [&](const Atom* atom) {
                   return std::all_of(atom->arguments.begin(), atom->arguments.end(), [&](const Term& term) {
                       return term.kind != TermKind::variable || told[*bound_.placeOf(term)];
                   });
               });
    }

    RuleQuery plain(bool alone) const {
        RuleQuery result;
        std::string columns;
        std::vector<char> untouched(bound_.all().size());  // values that are the same in the head
        for (std::size_t at = 0; at < target().columns.size(); ++at) {
            const bool there = at < rule_.rule.head.arguments.size();
            const Family family = there ? target().families[at] : Family::number;
            const auto place = there ? placeOf(rule_.rule.head.arguments[at]) : std::nullopt;
            Value value = place   ? bound_.all()[*place]
                          : there ? valueOf(rule_.rule.head.arguments[at], family)
                                  : Value{"1", Family::number};
            result.families.push_back(value.family);
            if (place && values_.isAs(value, family)) {
                untouched[*place] = 1;
            } else {
                value = values_.as(value, family);
            }
            columns.append(columns.empty() ? "" : ", ").append(value.sql).append(" AS ");
            columns += dialect_.quoted(target().columns[at]);
        }
        result.distinct = tellsWays(untouched);
        const bool fold = alone && !around_.keepDuplicates && !result.distinct;
        result.distinct = result.distinct || fold;
        columns += body();
        result.sql = (fold ? "SELECT DISTINCT " : "SELECT ") + columns;
        result.unfolded = fold ? "SELECT " + columns : "";
        return result;
    }

    /// An aggregate goes over the different rows of the body, each group by itself; no rows give no group.
    RuleQuery summed() const {
        RuleQuery result;
        std::vector<std::string> inner, group, outer;
        std::vector<char> known(bound_.all().size());
        const auto addInner = [&](const Value& value) {
            inner.push_back(value.sql + " AS " + dialect_.quoted("x" + std::to_string(inner.size() + 1)));
            return Value{"r." + dialect_.quoted("x" + std::to_string(inner.size())), value.family};
        };
        for (std::size_t at = 0; at < rule_.rule.head.arguments.size(); ++at) {
            const Term& term = rule_.rule.head.arguments[at];
            const Family family = target().families[at];
            const bool sums = isSum(term);
            const Term& inside = sums ? term.parts[0] : term;
            const Value given = addInner(sums ? valueOf(inside) : valueOf(inside, family));
            if (const auto place = placeOf(inside)) {
                known[*place] = 1;
            }
            if (!sums) {
                group.push_back(given.sql);
            }
            const Value value = sums ? values_.aggregate(term.text, given) : given;
            result.families.push_back(value.family);
            outer.push_back(values_.as(value, family).sql + " AS " + dialect_.quoted(target().columns[at]));
        }
        for (std::size_t place = 0; place < known.size(); ++place) {
            if (!std::exchange(known[place], char{1})) {
                addInner(bound_.all()[place]);
            }
        }
        if (group.empty()) {
            group.push_back(addInner({"1", Family::number}).sql);
        }
        const bool fold = !around_.keepDuplicates && !tellsWays(known);
        const std::string rows = listed(inner, ", ") + body();
        if (fold) {
            result.unfolded = "SELECT " + rows;
            result.folded = "SELECT DISTINCT " + rows;
        }
        result.sql = "SELECT " + listed(outer, ", ") + " FROM (" + (fold ? result.folded : "SELECT " + rows) +
                     ") r GROUP BY " + listed(group, ", ");
        result.distinct = true;
        return result;
    }

    const RuleSurroundings& around_;
    const Values& values_;
    const Dialect& dialect_;
    const program::ProgramRule& rule_;
    BoundValues bound_;
    std::vector<std::pair<Value, const Term*>> later_;  ///< expressions in atoms, when all of their parts are known
    std::vector<const Literal*> waiting_;
    std::vector<const Atom*> atoms_;
    std::vector<std::string> from_, conditions_;
    bool whole_ = true;  ///< all atoms are of different rows, and no column of one is left out
    int negated_ = 0;
};

}  // namespace

RuleQuery ruleQuery(const RuleSurroundings& around, const program::ProgramRule& rule, bool alone) {
    return QueryWriter(around, rule).write(alone);
}

}  // namespace orvent::sql
