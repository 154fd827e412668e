#include "run/run.h"

#include "platform/text.h"
#include "run/record_source.h"
#include "run/source_query.h"
#include "sql/values.h"

namespace orvent::run {

using program::Family;

void Run::plan(program::Program program, sql::Compiled compiled, const sql::Dialect& dialect,
               const canvas::DrawForm& form) {
    program_ = std::move(program);
    compiled_ = std::move(compiled);
    dialect_ = &dialect;
    nodes_ = nodeRows(program_);
    names_.clear();
    for (const auto& [node, rows] : nodes_) {
        names_[node] = form.Labels.byIndex(node)->Caption();
    }
    findTargets(form);
    outcomes_.assign(program_.predicates.size(), {});
    done_ = 0;
    for (const sql::Query& each : compiled_.queries) {
        if (each.why.empty()) {
            continue;
        }
        const std::string own = hindrance(program_, program_.predicates[each.predicate].node);
        const std::string read = own.empty() ? missingRead(each) : "";
        outcomes_[each.predicate] = {Outcome::State::none, 0, !own.empty() ? own : read.empty() ? each.why : read, {}};
    }
}

void Run::findTargets(const canvas::DrawForm& form) {
    targets_.clear();
    for (std::size_t at = 0; at < program_.predicates.size(); ++at) {
        const program::Predicate& predicate = program_.predicates[at];
        if (predicate.kind != program::PredicateKind::recordSet) {
            continue;
        }
        const auto given = form.facts.find(predicate.node);
        if (given != form.facts.end() && given->second.facts) {
            targets_[at].count = static_cast<long long>(given->second.facts->rows.size());
            continue;
        }
        const RecordSource source = recordSource(*form.Labels.byIndex(predicate.node)->recordSet());
        program::Predicate before = predicate;
        before.kind = program::PredicateKind::before;
        SourceQueries queries = source.why.empty() ? sourceQueries(form, before, at) : SourceQueries{{}, source.why};
        if (queries.why.empty()) {
            targets_[at] = {{}, source.alias, std::move(queries.byDialect)};
        }
    }
}

std::optional<long long> Run::heldBefore(std::size_t predicate) {
    const auto known = targets_.find(predicate);
    if (known == targets_.end()) {
        return std::nullopt;
    }
    Target& target = known->second;
    if (!target.count && sources_.isKnown(target.alias)) {
        const OpenSource source = sources_.open(target.alias);
        const Interruption::Working working(interruption_, *source.connection);
        const auto counted =
            source.connection->prepareAsIs("SELECT COUNT(*) FROM (" + target.queries.at(source.dialect->name) + ") q");
        counted->execute();
        const bool there = counted->fetch() && !isCancelled();
        target.count = there ? std::optional(counted->number(1)) : std::nullopt;
    }
    return target.count;
}

std::string Run::fallenWords() const {
    std::map<canvas::NodeNumber, long long> byNode;
    for (std::size_t at = 0; at < outcomes_.size(); ++at) {
        if (outcomes_[at].fallen > 0) {
            byNode[program_.predicates[at].node] += outcomes_[at].fallen;
        }
    }
    std::string words;
    for (const auto& [node, fallen] : byNode) {
        words += (words.empty() ? "Equal rows fell together before an aggregate: " : ", ") + std::to_string(fallen) +
                 " in " + names_.at(node);
    }
    return words.empty() ? words : words + ".";
}

std::string Run::whyNone(std::size_t predicate) const {
    const Outcome& its = outcomes_[predicate];
    return its.state == Outcome::State::none || its.state == Outcome::State::failed ? its.words : std::string();
}

std::string Run::missingRead(const sql::Query& query) const {
    constexpr std::string_view kHead = "there are no rows of ";
    for (const int read : query.reads) {
        const auto at = static_cast<std::size_t>(read);
        const Outcome& its = outcomes_[at];
        if (its.state == Outcome::State::none || its.state == Outcome::State::failed) {
            return its.words.starts_with(kHead) ? its.words
                                                : std::string(kHead) + names_.at(program_.predicates[at].node);
        }
    }
    return {};
}

std::string Run::conditionOf(std::size_t predicate, const entities::Expectation& expectation) const {
    const sql::Table& its = compiled_.tables[predicate];
    const auto& columns = program_.predicates[predicate].columns;
    std::size_t at = 0;
    while (at < columns.size() && !platform::equalIgnoringCase(columns[at].name, expectation.column)) {
        ++at;
    }
    if (at == columns.size()) {
        throw platform::Fault("There is no column " + expectation.column + ".");
    }
    const std::string name = dialect_->quoted(its.columns[at]);
    if (!expectation.value) {
        return expectation.op == "=" ? name + " IS NULL" : expectation.op == "!=" ? name + " IS NOT NULL" : "1 = 0";
    }
    const entities::CatalogueTables none;
    const sql::OwnFunctions nothing;
    const sql::Values values(*dialect_, none, nothing);
    rules::Term constant;
    constant.kind = rules::TermKind::constant;
    constant.text = *expectation.value;
    const bool number = its.families[at] == Family::unknown && platform::parseNumber(constant.text);
    constant.kind = number ? rules::TermKind::number : constant.kind;
    return values.compared({name, its.families[at]}, expectation.op, values.plain(constant, its.families[at]));
}

}  // namespace orvent::run
