#include "sql/script.h"

#include <algorithm>

#include "sql/compiler.h"
#include "sql/design_rows.h"

namespace orvent::sql {

using program::Predicate;
using program::PredicateKind;

namespace {

std::string ofOneLine(std::string text) {
    std::replace(text.begin(), text.end(), '\n', ' ');
    std::replace(text.begin(), text.end(), '\r', ' ');
    return text;
}

std::string inCommas(const std::vector<std::string>& columns) {
    std::string result;
    for (const std::string& column : columns) {
        result += (result.empty() ? "" : ", ") + column;
    }
    return result;
}

/// A record set that is fed, and the table where its rows go.
struct Target {
    const Table* rows;  ///< what comes in
    Held table;
    std::string name;
    std::string aside;  ///< where what comes in is put aside
    bool overwritten;
    std::vector<std::string> columns;  ///< of what comes in, in quotes
};

class ScriptWriter {
  public:
    ScriptWriter(const canvas::DrawForm& form, const entities::CatalogueTables& catalogue, const Dialect& dialect,
                 const ScriptOptions& options)
        : form_(form),
          dialect_(dialect),
          options_(options),
          values_(dialect, catalogue, options.functions),
          rows_(form, dialect),
          prefix_((form.ScenarioName().empty() ? "design" : form.ScenarioName()) + "_"),
          program_(program::checkedProgram(form, catalogue)),
          compiled_(compiled(program_, form, catalogue, dialect, rows_,
                             {options.keepDuplicates, prefix_, options.functions})) {}

    std::vector<ScriptPart> write() {
        add("The scenario " + form_.ScenarioName() + " for " + std::string(dialect_.title) + ".",
            std::string(dialect_.phrase(Phrase::setUp)));
        writeViews();
        findTargets();
        for (const Target& target : targets_) {
            add("The rows for " + target.name + ".",
                dialect_.say(Phrase::keepRows, {target.aside, "SELECT " + inCommas(target.columns) + " FROM " +
                                                                  dialect_.quoted(target.rows->name)}));
        }
        if (!targets_.empty()) {
            add("", std::string(dialect_.phrase(Phrase::begin)));
            for (const Target& target : targets_) {
                load(target);
            }
            add("", "COMMIT");
        }
        for (const Target& target : targets_) {
            add("", dialect_.say(Phrase::dropRows, {target.aside}));
        }
        return std::move(parts_);
    }

  private:
    void add(const std::string& comment, std::string statement) {
        if (!comment.empty() || !statement.empty()) {
            parts_.push_back({ofOneLine(comment), std::move(statement)});
        }
    }

    const Table& tableOf(const Query& query) const { return compiled_.tables[query.predicate]; }

    void writeViews() {
        for (auto query = compiled_.queries.rbegin(); query != compiled_.queries.rend(); ++query) {
            if (!query->select.empty()) {
                add("", dialect_.say(Phrase::dropView, {dialect_.quoted(tableOf(*query).name)}));
            }
        }
        for (const Query& query : compiled_.queries) {
            const Predicate& predicate = program_.predicates[query.predicate];
            const canvas::LabelsD& node = *form_.Labels.byIndex(predicate.node);
            const std::string what =
                (node.activity() ? "Activity " : "Record set ") + node.KeyName() + ": " + predicate.name;
            add(query.why.empty() ? what + "." : "Not here: " + what + ", as " + query.why + ".",
                query.select.empty()
                    ? ""
                    : dialect_.say(Phrase::makeView, {dialect_.quoted(tableOf(query).name), query.select}));
        }
    }

    void findTargets() {
        for (const Query& query : compiled_.queries) {
            const Predicate& predicate = program_.predicates[query.predicate];
            if (predicate.kind != PredicateKind::recordSet || query.select.empty()) {
                continue;
            }
            const entities::RecordSetProperties& recordSet = *form_.Labels.byIndex(predicate.node)->recordSet();
            Target target{&tableOf(query),
                          rows_.tableOf(recordSet, true),
                          recordSet.RecordSet_Name,
                          "",
                          isOverwritten(form_, recordSet, options_),
                          {}};
            if (!target.table.why.empty() || predicate.columns.empty()) {
                add("Not loaded: " + target.name + ", as " +
                        (predicate.columns.empty() ? "it has no columns" : target.table.why) + ".",
                    "");
                continue;
            }
            target.aside = dialect_.quoted("rows " + std::to_string(targets_.size() + 1) + " of " + prefix_);
            for (const std::string& column : target.rows->columns) {
                target.columns.push_back(dialect_.quoted(column));
            }
            targets_.push_back(std::move(target));
        }
    }

    void load(const Target& target) {
        const std::string insert = "INSERT INTO " + target.table.from + " (" + inCommas(target.table.columns) +
                                   ") SELECT " + inCommas(target.columns) + " FROM " + target.aside;
        if (target.overwritten) {
            add("What " + target.name + " holds is replaced.", "DELETE FROM " + target.table.from);
            add("", insert);
            return;
        }
        std::vector<std::string> held, equal;
        for (std::size_t at = 0; at < target.columns.size(); ++at) {
            held.push_back(values_.held(target.table.columns[at], target.rows->families[at]).sql);
            const std::string there = values_.held("h." + target.table.columns[at], target.rows->families[at]).sql;
            const std::string here = "s." + target.columns[at];
            equal.push_back("(" + there + " = " + here + " OR (" + there + " IS NULL AND " + here + " IS NULL))");
        }
        std::string all;
        for (const std::string& condition : equal) {
            all += (all.empty() ? "" : " AND ") + condition;
        }
        add("What " + target.name + " does not hold is added.",
            options_.keepDuplicates
                ? insert + " s WHERE NOT EXISTS (SELECT 1 FROM " + target.table.from + " h WHERE " + all + ")"
                : insert + " " + std::string(dialect_.phrase(Phrase::except)) + " SELECT " + inCommas(held) + " FROM " +
                      target.table.from);
    }

    const canvas::DrawForm& form_;
    const Dialect& dialect_;
    const ScriptOptions& options_;
    const Values values_;
    const DesignRows rows_;
    const std::string prefix_;
    const program::Program program_;
    const Compiled compiled_;
    std::vector<Target> targets_;
    std::vector<ScriptPart> parts_;
};

}  // namespace

bool isOverwritten(const canvas::Canvas& form, const entities::RecordSetProperties& recordSet,
                   const ScriptOptions& options) {
    for (const entities::AttributeProperties& column : recordSet.RecordSet_Outputs) {
        for (const entities::ProviderProperties& link : column.ProvidedFrom) {
            const canvas::LabelsD* from = form.nodeNamed(link.Provider_Name);
            if (from && from->activity() && options.overwrites && options.overwrites(*from->activity())) {
                return true;
            }
        }
    }
    return false;
}

std::vector<ScriptPart> scriptParts(const canvas::DrawForm& form, const entities::CatalogueTables& catalogue,
                                    const Dialect& dialect, const ScriptOptions& options) {
    return ScriptWriter(form, catalogue, dialect, options).write();
}

std::string scriptText(const std::vector<ScriptPart>& parts) {
    std::string result;
    for (const ScriptPart& part : parts) {
        result += (part.comment.empty() ? "" : "-- " + part.comment + "\n") +
                  (part.statement.empty() ? "" : part.statement + ";\n");
    }
    return result;
}

}  // namespace orvent::sql
