#include "run/source_run.h"

#include <utility>

#include "run/record_source.h"
#include "run/source_query.h"
#include "sql/design_rows.h"
#include "sql/values.h"

namespace orvent::run {

using program::Family;
using State = Outcome::State;

namespace {

/// The one data source of all record sets that a program is given.
std::string commonAlias(const program::Program& program, const canvas::DrawForm& form) {
    std::string alias;
    for (const program::Predicate& predicate : program.predicates) {
        if (!predicate.isGiven()) {
            continue;
        }
        const entities::RecordSetProperties& recordSet = *form.Labels.byIndex(predicate.node)->recordSet();
        const RecordSource source = recordSource(recordSet);
        if (!source.why.empty()) {
            throw platform::Fault(recordSet.RecordSet_Name + " is in no data source: " + source.why + ".");
        }
        if (!alias.empty() && source.alias != alias) {
            throw platform::Fault(recordSet.RecordSet_Name + " is in " + source.alias + ", and others are in " + alias +
                                  "; a sample can be taken of both.");
        }
        alias = source.alias;
    }
    if (alias.empty()) {
        throw platform::Fault("There is no record set that rows could come from.");
    }
    return alias;
}

}  // namespace

void SourceRun::askFor(const std::string& alias) {
    sources_.ask(alias);
    sources_.closeAll();
    asked_ = alias;
    open_ = false;
}

std::string SourceRun::ask(const canvas::DrawForm& form, const entities::CatalogueTables& catalogue) {
    askFor(commonAlias(program::checkedProgram(form, catalogue, &statements_), form));
    return asked_;
}

void SourceRun::open() {
    sources_.open(asked_);
    open_ = true;
}

void SourceRun::begin(const canvas::DrawForm& form, const entities::CatalogueTables& catalogue,
                      const RunOptions& options) {
    program::Program program = program::checkedProgram(form, catalogue, &statements_);
    const std::string alias = commonAlias(program, form);
    if (!std::exchange(open_, false)) {
        askFor(alias);
    } else if (alias != asked_) {
        throw platform::Fault("The record sets are in " + alias + " now. Refresh opens it.");
    }
    resume();
    alias_ = alias;
    const sql::Dialect& dialect = *sources_.open(alias_).dialect;
    const sql::DesignRows held(form, dialect);
    sql::Compiled compiled =
        sql::compiled(program, form, catalogue, dialect, held, {options.keepDuplicates, "rows ", options.functions});
    plan(std::move(program), std::move(compiled), dialect, form);
}

bool SourceRun::step() {
    while (done_ < total() && !isCancelled()) {
        const sql::Query& next = query(done_++);
        Outcome& its = outcome(next.predicate);
        if (its.state != State::waiting) {
            continue;
        }
        try {
            its = {State::there, count(next.predicate, {}), {}, {}};
        } catch (const platform::Fault& fault) {
            its = {State::failed, 0, fault.description(), rowsOf(next.predicate, "COUNT(*)", {})};
        }
        if (isCancelled()) {
            its = {};
            --done_;
        }
        return done_ < total();
    }
    return done_ < total();
}

std::string SourceRun::rowsOf(std::size_t predicate, const std::string& columns, const std::string& condition) const {
    return "SELECT " + columns + " FROM (" + sql::wholeQuery(compiled_, *dialect_, predicate) + ") q" +
           (condition.empty() ? "" : " WHERE " + condition);
}

long long SourceRun::count(std::size_t predicate, const std::string& condition) {
    const OpenSource source = sources_.open(alias_);
    const Interruption::Working working(interruption_, *source.connection);
    const auto counted = source.connection->prepareAsIs(rowsOf(predicate, "COUNT(*)", condition));
    counted->execute();
    return counted->fetch() ? counted->number(1) : 0;
}

Page SourceRun::page(std::size_t predicate, std::size_t most) {
    return select(predicate, {}, most).first;
}

Run::Selected SourceRun::select(std::size_t predicate, const std::string& condition, std::size_t most) {
    const entities::CatalogueTables none;
    const sql::OwnFunctions nothing;
    const sql::Values values(*dialect_, none, nothing);
    const sql::Table& its = table(predicate);
    Selected selected;
    Page& page = selected.first;
    std::string list;
    for (std::size_t column = 0; column < its.families.size(); ++column) {
        page.columns.push_back(its.columns[column]);
        page.numbers.push_back(its.families[column] == Family::number);
        list += (column == 0 ? "" : ", ") +
                values.as({dialect_->quoted(its.columns[column]), its.families[column]}, Family::text).sql;
    }
    const OpenSource source = sources_.open(alias_);
    const Interruption::Working working(interruption_, *source.connection);
    const auto rows = source.connection->prepareAsIs(
        firstRows(*dialect_, rowsOf(predicate, list.empty() ? "1" : list, condition), most));
    for (rows->execute(); page.rows.size() < most && rows->fetch();) {
        FieldRow& row = page.rows.emplace_back();
        for (int column = 1; column <= static_cast<int>(page.columns.size()); ++column) {
            row.push_back(rows->isNull(column) ? Field() : Field(rows->text(column)));
        }
    }
    if (isCancelled()) {
        throw platform::Fault("Cancelled.");
    }
    selected.count = static_cast<long long>(page.rows.size());
    if (!condition.empty() && page.rows.size() == most) {
        selected.count = count(predicate, condition);
    }
    return selected;
}

}  // namespace orvent::run
