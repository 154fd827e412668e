#include "sql/dbt_project.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "entities/key_grammar.h"
#include "platform/text.h"
#include "sql/compiler.h"
#include "sql/dbt_text.h"
#include "sql/design_rows.h"
#include "sql/implied_tests.h"

namespace orvent::sql {

using program::Predicate;
using program::PredicateKind;

namespace {

/// A table of a data source, as a project names it.
struct SourceTable {
    std::string source;
    std::string table;
    auto operator<=>(const SourceTable&) const = default;
};

SourceTable tableBehind(const entities::RecordSetProperties& recordSet) {
    for (const entities::AttributeProperties& column : recordSet.RecordSet_Outputs) {
        if (const std::string key = recordSet.dbKey(column.Key); !key.empty()) {
            return {platform::lowerCase(entities::BeforeFirstDot(key)), entities::BetweenFirstAndLastDot(key)};
        }
    }
    return {"targets", recordSet.RecordSet_Name};
}

/// Tables stand in queries as the places of their predicates until it is known how they are called.
class MarkedRows : public HeldRows {
  public:
    explicit MarkedRows(const DesignRows& rows) : rows_(rows) {}
    Held heldBy(const Predicate& predicate, std::size_t place) const override {
        Held held = rows_.heldBy(predicate, place);
        if (held.why.empty() && !held.from.starts_with('(')) {
            held.from = DbtMark::source(place);
        }
        return held;
    }

  private:
    const DesignRows& rows_;
};

class ProjectWriter {
  public:
    ProjectWriter(const canvas::DrawForm& form, const entities::CatalogueTables& catalogue, const Dialect& dialect,
                  const ScriptOptions& options)
        : form_(form),
          dialect_(dialect),
          options_(options),
          values_(dialect, catalogue, options.functions),
          rows_(form, dialect),
          program_(program::checkedProgram(form, catalogue)),
          compiled_(compiled(program_, form, catalogue, dialect, MarkedRows(rows_),
                             {options.keepDuplicates, "", options.functions})),
          tests_(program_),
          models_(program_.predicates.size()),
          loads_(program_.predicates.size()),
          lasting_(program_.predicates.size()),
          queries_(program_.predicates.size()) {}

    std::vector<ProjectFile> write() {
        nameModels();
        for (const Query& query : compiled_.queries) {
            if (!models_[query.predicate].empty()) {
                files_.push_back({"models/" + models_[query.predicate] + ".sql", modelText(query.predicate)});
                describe(query.predicate);
            }
        }
        for (const std::size_t target : targets_) {
            files_.push_back({"models/loads/" + loads_[target] + ".sql", loadText(target)});
        }
        files_.push_back({"models/schema.yml", "version: 2\nmodels:" + (schema_.empty() ? " []\n" : "\n" + schema_)});
        files_.push_back({"models/sources.yml", sourcesText()});
        for (const ProjectFile& test : dbtTests()) {
            files_.push_back(test);
        }
        files_.push_back({"dbt_project.yml", projectText()});
        return std::move(files_);
    }

  private:
    const Predicate& predicateAt(std::size_t at) const { return program_.predicates[at]; }
    const canvas::LabelsD& nodeOf(std::size_t at) const { return *form_.Labels.byIndex(predicateAt(at).node); }
    std::string quotedTable(std::size_t at) const { return dialect_.quoted(compiled_.tables[at].name); }
    SourceTable sourceAt(std::size_t at) const { return tableBehind(*nodeOf(at).recordSet()); }
    bool readsTable(std::size_t at) const {
        return predicateAt(at).isGiven() && queries_[at]->select.find(DbtMark::source(at)) != std::string::npos;
    }

    void nameModels() {
        DbtNames names;
        std::set<SourceTable> loaded;
        for (const Query& query : compiled_.queries) {
            const std::size_t at = query.predicate;
            queries_[at] = &query;
            const PredicateKind kind = predicateAt(at).kind;
            const bool isModel = kind == PredicateKind::output || kind == PredicateKind::recordSet;
            if (query.select.empty()) {
                missing_ += isModel || predicateAt(at).isGiven()
                                ? "# Not here: " + dbtLine(nodeOf(at).KeyName()) + ", as " + dbtLine(query.why) + ".\n"
                                : "";
            } else if (isModel) {
                models_[at] = names.of(nodeOf(at).KeyName());
            }
            if (kind == PredicateKind::recordSet && !query.select.empty() && !predicateAt(at).columns.empty() &&
                rows_.tableOf(*nodeOf(at).recordSet(), true).why.empty()) {
                targets_.push_back(at);
                loads_[at] = names.of("load_" + models_[at]);
                loaded.insert(sourceAt(at));
            }
        }
        for (const Query& query : compiled_.queries) {
            lasting_[query.predicate] =
                !query.select.empty() && ((readsTable(query.predicate) && loaded.contains(sourceAt(query.predicate))) ||
                                          std::any_of(query.reads.begin(), query.reads.end(), [this](int read) {
                                              return lasting_[static_cast<std::size_t>(read)];
                                          }));
        }
    }

    /// The queries of the model that are no models of their own, and what it reads of others.
    std::string modelText(std::size_t model) {
        std::vector<char> needed(models_.size());
        needed[model] = 1;
        std::string parts;
        for (auto query = compiled_.queries.rbegin(); query != compiled_.queries.rend(); ++query) {
            const std::size_t at = query->predicate;
            if (!needed[at] || at == model) {
                for (const int read : needed[at] ? query->reads : std::vector<int>()) {
                    needed[static_cast<std::size_t>(read)] = 1;
                }
                continue;
            }
            std::string part = dbtEscaped(quotedTable(at)) + " AS (";
            if (!models_[at].empty()) {
                part += "SELECT * FROM " + ref(at);
            } else {
                part += resolved(query->select, model);
                for (const int read : query->reads) {
                    needed[static_cast<std::size_t>(read)] = 1;
                }
            }
            parts.insert(0, part + ")" + (parts.empty() ? "\n" : ",\n"));
        }
        const std::string config = lasting_[model] ? "{{ config(materialized='table') }}\n" : "";
        return config + (parts.empty() ? "" : "WITH " + parts) + resolved(queries_[model]->select, model) + "\n";
    }

    std::string ref(std::size_t at) const { return "{{ ref('" + models_[at] + "') }}"; }

    /// A query with the names of its sources, which are remembered.
    std::string resolved(const std::string& select, std::size_t model) {
        return DbtMark::resolved(select, [&](std::size_t at) {
            const SourceTable source = sourceAt(at);
            readers_[source].push_back(model);
            return "{{ " + sourceWords(source) + " }}";
        });
    }

    static std::string sourceWords(const SourceTable& source) {
        return "source(" + dbtText(source.source) + ", " + dbtText(source.table) + ")";
    }

    std::string loadText(std::size_t target) {
        const entities::RecordSetProperties& recordSet = *nodeOf(target).recordSet();
        const Held table = rows_.tableOf(recordSet, true);
        const SourceTable place = sourceAt(target);
        const bool whole = isOverwritten(form_, recordSet, options_);
        std::string text = "{{ config(materialized='" + std::string(whole ? "table" : "incremental") +
                           "', alias=" + dbtText(place.table) + ") }}\n";
        for (const std::size_t reader : readers_[place]) {
            text += reader == target ? "" : "-- depends_on: " + ref(reader) + "\n";
        }
        std::string columns, held, equal;
        for (std::size_t at = 0; at < table.columns.size(); ++at) {
            const std::string comma = at == 0 ? "" : ", ";
            const std::string own = "s." + dialect_.quoted(compiled_.tables[target].columns[at]);
            const std::string there = values_.held("h." + table.columns[at], compiled_.tables[target].families[at]).sql;
            columns += comma + own + " AS " + table.columns[at];
            equal += (at == 0 ? "(" : " AND (") + there + " = " + own + " OR (" + there + " IS NULL AND " + own +
                     " IS NULL))";
        }
        text += "SELECT " + dbtEscaped(columns) + " FROM " + ref(target) + " s\n";
        if (!whole) {
            text += "{% if is_incremental() %}\nWHERE NOT EXISTS (SELECT 1 FROM {{ this }} h WHERE " +
                    dbtEscaped(equal) + ")\n{% endif %}\n";
        }
        return text;
    }

    /// A test as a list entry of YAML, for a column or for the model.
    std::string testText(std::size_t model, const ImpliedTest& test) const {
        const Table& table = compiled_.tables[model];
        const auto column = [&](std::size_t at) { return dialect_.quoted(table.columns[at]); };
        switch (test.kind) {
            case ImpliedKind::notNull:
                return "not_null";
            case ImpliedKind::unique: {
                std::string columns;
                for (const std::size_t at : test.columns) {
                    columns += (columns.empty() ? "" : ", ") + yamlText(column(at));
                }
                return test.columns.size() == 1 ? "unique" : "unique_together: {columns: [" + columns + "]}";
            }
            case ImpliedKind::references: {
                const auto at = static_cast<std::size_t>(test.predicate);
                const bool isModel = !models_[at].empty();
                if (!isModel && !readsTable(at)) {
                    return "";
                }
                const std::string field = isModel ? dialect_.quoted(compiled_.tables[at].columns[test.column])
                                                  : rows_.heldBy(predicateAt(at), at).columns[test.column];
                return "relationships: {to: " +
                       yamlText(isModel ? "ref('" + models_[at] + "')" : sourceWords(sourceAt(at))) +
                       ", field: " + yamlText(field) + "}";
            }
            case ImpliedKind::compares: {
                const Family family = table.families[test.columns[0]];
                const std::string condition =
                    values_.compared({column(test.columns[0]), family}, test.op, values_.plain(test.value, family));
                return "holds: {condition: " + yamlText(dbtEscaped(condition)) + "}";
            }
        }
        return "";
    }

    void describe(std::size_t model) {
        const canvas::LabelsD& node = nodeOf(model);
        const std::string words =
            node.activity() && !node.activity()->Act_Description.empty()
                ? node.activity()->Act_Description
                : (node.activity() ? "The outputs of the activity " : "What comes into the record set ") +
                      node.KeyName();
        std::map<std::size_t, std::vector<std::string>> ofColumns;
        std::string ofModel;
        for (const ImpliedTest& test : tests_.of(model)) {
            const std::string text = testText(model, test);
            if (test.columns.size() == 1 && test.kind != ImpliedKind::compares) {
                std::vector<std::string>& known = ofColumns[test.columns[0]];
                if (!text.empty() && std::find(known.begin(), known.end(), text) == known.end()) {
                    known.push_back(text);
                }
            } else if (!text.empty()) {
                ofModel += "      - " + text + "\n";
            }
        }
        schema_ += "  - name: " + models_[model] + "\n    description: " + yamlText(dbtEscaped(words)) + "\n" +
                   (ofModel.empty() ? "" : "    tests:\n" + ofModel) + "    columns:\n";
        const Table& table = compiled_.tables[model];
        for (std::size_t at = 0; at < table.columns.size(); ++at) {
            schema_ += "      - name: " + yamlText(table.columns[at]) + "\n        quote: true\n";
            schema_ += ofColumns.contains(at) ? "        tests:\n" : "";
            for (const std::string& test : ofColumns[at]) {
                schema_ += "          - " + test + "\n";
            }
        }
    }

    std::string sourcesText() const {
        std::map<std::string, std::string> tables;
        for (const auto& [source, readers] : readers_) {
            if (!readers.empty()) {
                tables[source.source] += "      - name: " + yamlText(source.table) + "\n";
            }
        }
        std::string text = tables.empty() ? "version: 2\nsources: []\n" : "version: 2\nsources:\n";
        for (const auto& [source, list] : tables) {
            text += "  - name: " + yamlText(source) +
                    "\n    schema: \"{{ target.schema }}\"\n    quoting: {identifier: true}\n    tables:\n" + list;
        }
        return text;
    }

    std::string projectText() const {
        const std::string name = DbtNames().of(form_.ScenarioName().empty() ? "design" : form_.ScenarioName());
        return "# The scenario " + dbtLine(form_.ScenarioName()) + " for " + std::string(dialect_.title) + ".\n" +
               missing_ + "name: " + name + "\nversion: \"1.0.0\"\nconfig-version: 2\nprofile: " + name +
               "\nmodel-paths: [\"models\"]\ntest-paths: [\"tests\"]\nquoting: {identifier: true}\nmodels:\n  " + name +
               ":\n    +materialized: view\n";
    }

    const canvas::DrawForm& form_;
    const Dialect& dialect_;
    const ScriptOptions& options_;
    const Values values_;
    const DesignRows rows_;
    const program::Program program_;
    const Compiled compiled_;
    const ImpliedTests tests_;
    std::vector<std::string> models_;    ///< names by predicate, empty for what is none
    std::vector<std::string> loads_;     ///< the same of the models that load
    std::vector<char> lasting_;          ///< by predicate: it reads, at any distance, a table that is loaded
    std::vector<const Query*> queries_;  ///< by predicate
    std::vector<std::size_t> targets_;
    std::map<SourceTable, std::vector<std::size_t>> readers_;  ///< models by what they read
    std::string missing_, schema_;
    std::vector<ProjectFile> files_;
};

}  // namespace

std::vector<ProjectFile> dbtProject(const canvas::DrawForm& form, const entities::CatalogueTables& catalogue,
                                    const Dialect& dialect, const ScriptOptions& options) {
    return ProjectWriter(form, catalogue, dialect, options).write();
}

}  // namespace orvent::sql
