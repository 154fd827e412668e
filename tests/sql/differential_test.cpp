// The same rows, whoever derives them: clingo from the program, and each database from the queries of its dialect.

#include <cstdlib>
#include <map>

#include "engine.h"
#include "odbc/sources.h"
#include "platform/letter_case.h"
#include "platform/text.h"
#include "program/clingo_text.h"
#include "run/sample_run.h"
#include "walk_scenario.h"

namespace orvent::sql {
namespace {

using program::PredicateKind;

const std::vector<program::Column> kNoColumns;

std::string named(const std::string& predicate) {
    return platform::lowerLetters(predicate.substr(0, 1)) + predicate.substr(1);
}

std::string factsFor(const std::string& predicate, const std::vector<FactRow>& rows, const std::vector<bool>& numbers) {
    std::string result;
    for (const FactRow& row : rows) {
        std::string list;
        for (std::size_t column = 0; column < row.size(); ++column) {
            std::string quoted = "\"";
            for (const char c : row[column].text) {
                quoted += (c == '"' || c == '\\' ? "\\" : "") + std::string(1, c);
            }
            list += (column == 0 ? "" : ",") + (row[column].null  ? "null"
                                                : numbers[column] ? row[column].text
                                                                  : quoted + "\"");
        }
        result += named(predicate) + "(" + list + ").\n";
    }
    return result;
}

/// The rows of each predicate among the atoms that clingo has printed, a line each.
std::map<std::string, Rows> rowsIn(const std::string& said) {
    std::map<std::string, Rows> result;
    std::istringstream lines(said);
    for (std::string line; std::getline(lines, line);) {
        const std::size_t open = line.find('(');
        if (open == std::string::npos) {
            continue;
        }
        std::string row, field;
        bool quoted = false, text = false;
        for (std::size_t at = open + 1; at < line.size(); ++at) {
            const char c = line[at];
            if (c == '"') {
                quoted = !quoted;
                text = true;
            } else if (c == '\\' && quoted) {
                field += line[++at];
            } else if ((c == ',' || at + 1 == line.size()) && !quoted) {
                row += (row.empty() ? "" : ",") + spelt(!text && field == "null", !text, field);
                field.clear();
                text = false;
            } else {
                field += c;
            }
        }
        result[line.substr(0, open)].insert(row);
    }
    return result;
}

class Differential : public testkit::CanvasTest {
  protected:
    /// Draws a scenario and compares the rows of all its record sets and outputs.
    void walk(unsigned seed, int activities) {
        canvas::DrawForm form(ports.services());
        WalkScenario scenario(form, catalogue_, messages_, seed);
        scenario.draw(activities);
        const program::Program program = program::checkedProgram(form, catalogue_.tables);
        for (const program::Finding& finding : program.findings) {
            ASSERT_TRUE(!program::wordsOf(finding.kind).stops || finding.kind == program::FindingKind::neverHolds)
                << finding.words;
        }
        std::map<std::size_t, std::vector<FactRow>> facts;
        std::map<std::size_t, std::vector<bool>> numbers;
        std::string given;
        for (std::size_t at = 0; at < program.predicates.size(); ++at) {
            const program::Predicate& predicate = program.predicates[at];
            for (const program::Column& column : predicate.isGiven() ? predicate.columns : kNoColumns) {
                numbers[at].push_back(program::familyOf(catalogue_.tables.dataTypes.name(column.type)) ==
                                      Family::number);
            }
            if (predicate.isGiven()) {
                facts[at] = scenario.facts(numbers[at]);
                given += factsFor(predicate.name, facts[at], numbers[at]);
            }
        }
        std::map<std::string, Rows> expected;
        const bool clingo = !scenario.calls() && !scenario.averages();
        if (clingo) {
            expected = derived(program::clingoText(program, catalogue_.tables) + given);
        }
        for (Engine& engine : engines()) {
            SCOPED_TRACE(engine.dialect().title);
            for (const auto& [place, rows] : facts) {
                engine.fill(place, rows, numbers[place]);
            }
            compare(engine, form, program, expected, clingo || &engine != &engines().front());
            for (const auto& [place, rows] : facts) {
                engine.drop(place);
            }
        }
        sample(form, program, facts, expected);
    }

    /// A sample of the same rows derives the same, also where only some of it is derived anew.
    void sample(canvas::DrawForm& form, const program::Program& program,
                const std::map<std::size_t, std::vector<FactRow>>& facts, const std::map<std::string, Rows>& expected) {
        static odbc::OdbcDatabase database{{}};
        static odbc::OdbcDataSources sources{{}};
        struct : run::Logins {
            std::optional<run::Login> loginFor(const std::string&) override { return std::nullopt; }
        } nobody;
        run::SourceConnections connections(database, sources, nobody);
        run::SampleRun twice(database, connections);
        for (const bool half : {true, false}) {
            for (const auto& [place, rows] : facts) {
                entities::Facts& given = form.facts[program.predicates[place].node].facts.emplace();
                for (const program::Column& column : program.predicates[place].columns) {
                    given.columns.push_back(column.name);
                }
                for (const FactRow& row : rows) {
                    entities::FieldRow& added = given.rows.emplace_back();
                    for (const Fact& fact : row) {
                        added.push_back(fact.null ? entities::Field() : entities::Field(fact.text));
                    }
                }
                if (half && place % 2 == 0) {
                    given.rows.resize(given.rows.size() / 2);
                }
            }
            twice.begin(form, catalogue_.tables, {});
            while (twice.step()) {
            }
        }
        for (const auto& [node, rows] : twice.nodes()) {
            const std::size_t place = *rows.out;
            const std::string& name = program.predicates[place].name;
            ASSERT_EQ(twice.whyNone(place), "") << name << "\n" << twice.outcomes()[place].statement;
            if (program.predicates[place].isGiven()) {
                continue;
            }
            Rows found;
            const run::Page page = twice.page(place, 1000000);
            for (const entities::FieldRow& row : page.rows) {
                std::string line;
                for (std::size_t column = 0; column < row.size(); ++column) {
                    line +=
                        (line.empty() ? "" : ",") + spelt(!row[column], page.numbers[column], row[column].value_or(""));
                }
                found.insert(line);
            }
            ASSERT_EQ(found, expected.at(named(name))) << name;
        }
    }

    /// Holds the rows against the expected ones, or keeps them as the expected ones.
    void compare(Engine& engine, const canvas::DrawForm& form, const program::Program& program,
                 std::map<std::string, Rows>& expected, bool known) {
        const FactTables held(engine.dialect());
        const Compiled queries = compiled(program, form, catalogue_.tables, engine.dialect(), held, {});
        for (const Query& query : queries.queries) {
            const program::Predicate& predicate = program.predicates[query.predicate];
            ASSERT_EQ(query.why, "") << predicate.name;
            if (predicate.kind != PredicateKind::recordSet && predicate.kind != PredicateKind::output) {
                continue;
            }
            const std::string sql = wholeQuery(queries, engine.dialect(), query.predicate);
            Rows rows;
            ASSERT_NO_THROW(rows = engine.rows(sql, queries.tables[query.predicate].families)) << sql;
            Rows& before = expected[named(predicate.name)];
            if (known) {
                ASSERT_EQ(rows, before) << predicate.name << "\n"
                                        << form.Labels.byIndex(predicate.node)->KeyName() << "\n"
                                        << sql;
            }
            before = rows;
            derived_ += rows.size();
        }
    }

    std::map<std::string, Rows> derived(const std::string& text) {
        const std::string file = (repository_.folder.path() / "program").string();
        platform::writeFile(file, text);
        std::system(
            ("clingo --warn=none --verbose=0 --out-ifs='\\n' '" + file + "' > '" + file + ".out' 2>&1").c_str());
        const std::string said = testkit::fileText(file + ".out");
        EXPECT_NE(said.find("SATISFIABLE"), std::string::npos) << said << text;
        return rowsIn(said);
    }

    std::size_t derived_ = 0;

  private:
    struct AnyMessage : platform::MessageBox {
        platform::Answer show(const std::string& text, const std::string&, platform::Icon icon,
                              platform::Buttons) override {
            EXPECT_EQ(icon, platform::Icon::information) << text;
            return platform::Answer::ok;
        }
    };
    testkit::TestRepository repository_;
    repository::Services services_ = repository_.services();
    testkit::StoredCatalogue catalogue_{services_};
    AnyMessage messages_;
};

TEST_F(Differential, EveryDatabaseDerivesTheSameRows) {
    const char* wanted = std::getenv("ORVENT_WALKS");
    const char* first = std::getenv("ORVENT_WALK_FROM");
    const unsigned from = first ? static_cast<unsigned>(std::atoi(first)) : 1;
    const unsigned walks = wanted ? static_cast<unsigned>(std::atoi(wanted)) : 30;
    for (unsigned seed = from; seed < from + walks && !HasFailure(); ++seed) {
        SCOPED_TRACE("walk " + std::to_string(seed));
        walk(seed, seed % 10 == 0 ? 30 : 2 + static_cast<int>(seed % 6));
    }
    EXPECT_GT(derived_, 20 * walks);
}

}  // namespace
}  // namespace orvent::sql
