// The example of a whole load: its rows in memory are those of its SQL at a server.

#include <gtest/gtest.h>

#include "engine.h"
#include "exchange/document_reader.h"
#include "exchange/scenario_filler.h"
#include "odbc/sources.h"
#include "platform/text.h"
#include "run/sample_run.h"
#include "sql/design_rows.h"
#include "sql/script.h"
#include "testkit/graph_builder.h"
#include "testkit/temporary_folder.h"

namespace orvent::sql {
namespace {

const std::string kExamples = ORVENT_SOURCE_DIR "/examples/";

struct NoLogin : run::Logins {
    std::optional<run::Login> loginFor(const std::string&) override { return std::nullopt; }
};

class Bookshop : public testkit::GraphTest {
  protected:
    Bookshop() {
        exchange::Document document = exchange::readDocument(platform::readFile(kExamples + "bookshop.orvent"));
        const exchange::TypeIndices types = exchange::indicesIn(catalogue, document);
        exchange::fillForm(form, std::move(document), types);
        sources.sample = odbc::SampleSource{.file = folder.path() / "bookshop.db"};
        odbc::createSample(sources.sample->file, platform::readFile(ORVENT_SOURCE_DIR "/sql/bookshop.sql"));
        database = std::make_unique<odbc::OdbcDatabase>(sources);
    }

    /// The tables that the scenario reads, with the same rows, and the one that it loads.
    void prepare(Engine& engine) {
        const auto shop = database->open(sources.sample->name, "", "");
        for (const canvas::LabelsD& node : form.Labels) {
            const entities::RecordSetProperties* recordSet = node.recordSet();
            if (!recordSet) {
                continue;
            }
            std::string columns, names;
            std::vector<bool> numbers;
            for (const entities::AttributeProperties& column : recordSet->RecordSet_Outputs) {
                const std::string name = engine.dialect().quoted(column.Attribute_Name);
                numbers.push_back(catalogue.dataTypes.name(column.Attribute_Type) == "NUMBER");
                columns += (columns.empty() ? "" : ", ") + name + (numbers.back() ? " NUMERIC(18,4)" : " VARCHAR(200)");
                names += (names.empty() ? "" : ", ") + column.Attribute_Name;
            }
            engine.run("CREATE TABLE " + engine.dialect().quoted(node.Caption()) + " (" + columns + ")");
            if (recordSet->RecordSet_Outputs.peek()->Item(1)->ProvidedFrom.count() > 0) {
                continue;
            }
            const auto rows = shop->prepareAsIs("SELECT " + names + " FROM " + node.Caption());
            for (rows->execute(); rows->fetch();) {
                std::string values;
                for (std::size_t column = 0; column < numbers.size(); ++column) {
                    values += (column == 0 ? "'" : ", '") + rows->text(static_cast<int>(column) + 1) + "'";
                }
                engine.run("INSERT INTO " + engine.dialect().quoted(node.Caption()) + " VALUES (" + values + ")");
            }
        }
    }

    /// What the target should hold, by a query of one's own.
    Rows revenue() {
        const auto shop = database->open(sources.sample->name, "", "");
        const auto rows = shop->prepareAsIs(
            "SELECT CITY, SUBJECT, SUM(QUANTITY * UNIT_PRICE) FROM ORDERS JOIN ORDER_LINES USING (ORDER_ID)"
            " JOIN BOOKS USING (BOOK_ID) JOIN SUBJECTS USING (SUBJECT_ID) JOIN STORES USING (STORE_ID)"
            " WHERE STATUS <> 'R' GROUP BY CITY, SUBJECT");
        Rows result;
        for (rows->execute(); rows->fetch();) {
            result.insert(spelt(false, false, rows->text(1)) + "," + spelt(false, false, rows->text(2)) + "," +
                          spelt(false, true, rows->text(3)));
        }
        return result;
    }

    entities::CatalogueTables catalogue;
    testkit::TemporaryFolder folder;
    odbc::OwnSources sources;
    std::unique_ptr<odbc::OdbcDatabase> database;
    NoLogin logins;
};

TEST_F(Bookshop, HasTheSameRowsInMemoryAndAtServers) {
    odbc::OdbcDataSources list(sources);
    run::SourceConnections connections(*database, list, logins);
    run::SampleRun sample(*database, connections);
    sample.begin(form, catalogue, {});
    while (sample.step()) {
    }
    std::string counts;
    for (const auto& [node, rows] : sample.nodes()) {
        counts += form.Labels.byIndex(node)->Caption() + " " + run::countWords(rows, sample.outcomes(), "->") + "\n";
    }
    EXPECT_EQ(counts,
              "ORDERS 80\nCUSTOMERS 50\nORDER_LINES 120\nBOOKS 60\nSUBJECTS 8\nSTORES 4\nKept 80->60\nKnown 60->60\n"
              "Priced 120->120\nSold 180->100\nClassed 160->100\nNamed 108->100\nLocated 104->100\nTotals 100->10\n"
              "REVENUE 10->10\n");
    for (Engine& engine : engines()) {
        SCOPED_TRACE(engine.dialect().title);
        prepare(engine);
        const DesignRows held(form, engine.dialect());
        const Compiled queries =
            compiled(sample.program(), form, catalogue, engine.dialect(), held, {false, "rows ", {}});
        for (std::size_t at = 0; at < sample.program().predicates.size(); ++at) {
            SCOPED_TRACE(sample.nameOf(at) + ": " + sample.program().predicates[at].name);
            Rows expected;
            const std::vector<Family>& families = queries.tables[at].families;
            for (const run::FieldRow& row : sample.page(at, 10000).rows) {
                std::string line;
                for (std::size_t column = 0; column < row.size(); ++column) {
                    line += (column == 0 ? "" : ",") +
                            spelt(!row[column], families[column] == Family::number, row[column].value_or(""));
                }
                expected.insert(line);
            }
            EXPECT_FALSE(expected.empty());
            EXPECT_EQ(engine.rows(wholeQuery(queries, engine.dialect(), at), families), expected);
        }
        for (const ScriptPart& part : scriptParts(form, catalogue, engine.dialect(), {})) {
            if (!part.statement.empty() && !part.statement.starts_with("SET NAMES")) {  // the driver does that itself
                engine.run(part.statement);
            }
        }
        EXPECT_EQ(engine.rows("SELECT * FROM " + engine.dialect().quoted("REVENUE"),
                              {Family::text, Family::text, Family::number}),
                  revenue());
    }
}

}  // namespace
}  // namespace orvent::sql
