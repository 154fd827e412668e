#include "sql/compiler.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "platform/text.h"
#include "platform/utf8.h"
#include "program/components.h"

namespace orvent::sql {

using program::Predicate;
using program::ProgramRule;
using rules::Literal;
using rules::LiteralKind;

namespace {

constexpr std::size_t kLongestName = 60;  ///< in bytes; every database takes so many

/// Names that differ by more than case, as most databases need them.
class FreeNames {
  public:
    std::string of(const std::string& wanted) {
        std::string head = wanted;
        for (std::size_t end = kLongestName; head.size() > kLongestName; --end) {
            if ((static_cast<unsigned char>(head[end]) & 0xC0U) != 0x80U) {
                head.resize(end);
            }
        }
        std::string name = head;
        for (int number = 2; !taken_.insert(platform::lowerCase(name)).second; ++number) {
            name = head + "_" + std::to_string(number);
        }
        return name;
    }

  private:
    std::unordered_set<std::string> taken_;
};

class Compiler {
  public:
    Compiler(const program::Program& program, const canvas::DrawForm& form, const entities::CatalogueTables& catalogue,
             const Dialect& dialect, const HeldRows& held, const CompileOptions& options)
        : program_(program),
          held_(held),
          options_(options),
          values_(dialect, catalogue, options.functions),
          around_{values_, result_.tables, form, catalogue, options.keepDuplicates} {}

    Compiled compile() {
        nameTables();
        rules_.resize(program_.predicates.size());
        reads_.resize(program_.predicates.size());
        for (const ProgramRule& rule : program_.rules) {
            rules_[head(rule)].push_back(&rule);
            for (const Literal& literal : rule.rule.body) {
                if (literal.kind != LiteralKind::comparison && literal.atom.tag >= 0) {
                    reads_[head(rule)].push_back(literal.atom.tag);
                }
            }
        }
        circle_ = program::componentsOf(reads_);
        size_.resize(reads_.size());
        for (const int component : circle_) {
            ++size_[static_cast<std::size_t>(component)];
        }
        why_.resize(reads_.size());
        const std::vector<std::size_t> order = flow();
        findSummed(order);
        for (const std::size_t predicate : order) {
            addQuery(predicate);
        }
        return std::move(result_);
    }

  private:
    static std::size_t head(const ProgramRule& rule) { return static_cast<std::size_t>(rule.rule.head.tag); }

    void nameTables() {
        FreeNames names;
        for (const Predicate& predicate : program_.predicates) {
            Table table;
            table.name = names.of(options_.prefix + predicate.name);
            FreeNames columns;
            for (const program::Column& column : predicate.columns) {
                table.columns.push_back(columns.of(
                    column.name.empty() ? "column " + std::to_string(table.columns.size() + 1) : column.name));
                table.families.push_back(values_.familyOf(column.type));
            }
            if (table.columns.empty()) {
                table.columns.emplace_back("present");
            }
            result_.tables.push_back(std::move(table));
        }
    }

    /// Each predicate behind those that it reads, and beside them where that can be.
    std::vector<std::size_t> flow() const {
        std::vector<std::size_t> order;
        std::vector<char> met(reads_.size());
        struct Step {
            std::size_t predicate;
            std::size_t next;
        };
        for (std::size_t start = 0; start < reads_.size(); ++start) {
            std::vector<Step> way;
            if (!std::exchange(met[start], char{1})) {
                way.push_back({start, 0});
            }
            while (!way.empty()) {
                const std::vector<int>& reads = reads_[way.back().predicate];
                if (way.back().next == reads.size()) {
                    order.push_back(way.back().predicate);
                    way.pop_back();
                } else if (const auto read = static_cast<std::size_t>(reads[way.back().next++]);
                           !std::exchange(met[read], char{1})) {
                    way.push_back({read, 0});
                }
            }
        }
        return order;
    }

    /// Which predicates an aggregate goes over, at any distance.
    void findSummed(const std::vector<std::size_t>& order) {
        const auto sums = [](const ProgramRule* rule) {
            return std::any_of(rule->rule.head.arguments.begin(), rule->rule.head.arguments.end(),
                               [](const rules::Term& term) { return term.kind == rules::TermKind::aggregate; });
        };
        summed_.resize(reads_.size());
        for (auto at = order.rbegin(); at != order.rend(); ++at) {
            if (summed_[*at] || std::any_of(rules_[*at].begin(), rules_[*at].end(), sums)) {
                for (const int read : reads_[*at]) {
                    summed_[static_cast<std::size_t>(read)] = 1;
                }
            }
        }
    }

    void addQuery(std::size_t at) {
        const Predicate& predicate = program_.predicates[at];
        Query query{at, "", "", reads_[at]};
        if (predicate.isGiven()) {
            query.select = given(at, query);
        } else {
            query.why = obstacle(at);
            query.select = query.why.empty() ? derived(at, query) : "";
        }
        why_[at] = query.why;
        result_.queries.push_back(std::move(query));
    }

    std::string obstacle(std::size_t at) const {
        const Predicate& predicate = program_.predicates[at];
        const std::vector<int>& reads = reads_[at];
        const bool itself = std::find(reads.begin(), reads.end(), static_cast<int>(at)) != reads.end();
        if (itself || size_[static_cast<std::size_t>(circle_[at])] > 1) {
            return "it is needed for itself";
        }
        for (const int read : reads) {
            if (!why_[static_cast<std::size_t>(read)].empty()) {
                return "there is no " + program_.predicates[static_cast<std::size_t>(read)].name;
            }
        }
        return predicate.broken     ? "its statement has a fault, or there is none"
               : rules_[at].empty() ? "nothing derives it"
                                    : "";
    }

    static std::string difference(const std::string& all, const std::string& left) {
        return "SELECT (SELECT COUNT(*) FROM (" + all + ") a) - (SELECT COUNT(*) FROM " + left + " b)";
    }
    std::string rowsLeft(std::size_t at) const { return values_.dialect().quoted(result_.tables[at].name); }

    std::string given(std::size_t at, Query& query) {
        Table& table = result_.tables[at];
        const Held held = held_.heldBy(program_.predicates[at], at);
        query.why = held.why;
        if (!query.why.empty()) {
            return "";
        }
        std::string columns;
        for (std::size_t column = 0; column < table.columns.size(); ++column) {
            const std::string value =
                column < held.columns.size() ? values_.held(held.columns[column], table.families[column]).sql : "1";
            columns += (column == 0 ? "" : ", ") + value + " AS " + values_.dialect().quoted(table.columns[column]);
        }
        table.distinct = !options_.keepDuplicates;
        columns += " FROM " + held.from;
        query.fallen = table.distinct && summed_[at] ? difference("SELECT " + columns, rowsLeft(at)) : "";
        return (table.distinct ? "SELECT DISTINCT " : "SELECT ") + columns;
    }

    std::string derived(std::size_t at, Query& its) {
        Table& table = result_.tables[at];
        learnFamilies(at);
        std::string select, all;
        const bool several = rules_[at].size() > 1;
        for (const ProgramRule* rule : rules_[at]) {
            const RuleQuery query = ruleQuery(around_, *rule, !several);
            select += (select.empty() ? "" : options_.keepDuplicates ? " UNION ALL " : " UNION ") + query.sql;
            all += several && summed_[at] ? (all.empty() ? "" : " UNION ALL ") + query.sql : "";
            table.distinct = query.distinct;
            if (!query.folded.empty()) {
                its.fallen = difference(query.unfolded, "(" + query.folded + ")");
            } else if (!query.unfolded.empty() && summed_[at]) {
                its.fallen = difference(query.unfolded, rowsLeft(at));
            }
        }
        if (!all.empty() && !options_.keepDuplicates) {
            its.fallen = difference(all, rowsLeft(at));
        }
        table.distinct = !options_.keepDuplicates && (rules_[at].size() > 1 || table.distinct);
        return select;
    }

    /// A column whose type nothing tells is what the first rule that knows puts in it.
    void learnFamilies(std::size_t at) {
        std::vector<Family>& families = result_.tables[at].families;
        for (const ProgramRule* rule : rules_[at]) {
            if (std::find(families.begin(), families.end(), Family::unknown) == families.end()) {
                return;
            }
            const std::vector<Family> known = ruleQuery(around_, *rule, true).families;
            for (std::size_t column = 0; column < families.size(); ++column) {
                families[column] = families[column] == Family::unknown ? known[column] : families[column];
            }
        }
    }

    const program::Program& program_;
    const HeldRows& held_;
    const CompileOptions& options_;
    const Values values_;
    Compiled result_;
    const RuleSurroundings around_;
    std::vector<std::vector<const ProgramRule*>> rules_;  ///< by predicate, as are those below
    program::Graph reads_;
    std::vector<char> summed_;
    std::vector<int> circle_;
    std::vector<int> size_;  ///< of the circles
    std::vector<std::string> why_;
};

}  // namespace

Compiled compiled(const program::Program& program, const canvas::DrawForm& form,
                  const entities::CatalogueTables& catalogue, const Dialect& dialect, const HeldRows& held,
                  const CompileOptions& options) {
    return Compiler(program, form, catalogue, dialect, held, options).compile();
}

std::string wholeQuery(const Compiled& compiled, const Dialect& dialect, std::size_t predicate) {
    std::vector<char> needed(compiled.tables.size());
    needed[predicate] = 1;
    std::string parts, select;
    for (auto query = compiled.queries.rbegin(); query != compiled.queries.rend(); ++query) {
        if (!needed[query->predicate]) {
            continue;
        }
        for (const int read : query->reads) {
            needed[static_cast<std::size_t>(read)] = 1;
        }
        if (query->predicate == predicate) {
            select = query->select;
        } else {
            const std::string part =
                dialect.quoted(compiled.tables[query->predicate].name) + " AS (" + query->select + ")";
            parts.insert(0, part + (parts.empty() ? "" : ", "));
        }
    }
    return parts.empty() || select.empty() ? select : "WITH " + parts + " " + select;
}

}  // namespace orvent::sql
