#pragma once

#include <chrono>
#include <memory>
#include <set>
#include <string>
#include <thread>

#include "odbc/database.h"
#include "odbc/sources.h"
#include "run/sample_run.h"
#include "run/source_run.h"
#include "testkit/graph_builder.h"
#include "testkit/temporary_folder.h"

namespace orvent::run {

/// Login at every source with one name, which is counted.
struct OneLogin : Logins {
    std::optional<Login> loginFor(const std::string& source) override {
        asked += source + " ";
        return login;
    }
    std::optional<Login> login;
    std::string asked;
};

/// Scenarios over a source in a SQLite file, "SHOP", and others that a test adds.
class RunTest : public testkit::GraphTest {
  protected:
    RunTest() {
        for (const char* type : {"VARCHAR2", "NUMBER", "DATE", "BLOB"}) {
            catalogue.dataTypes.add(type);
        }
        sources.named = {{"shop", "DRIVER={SQLite3};Database=" + (folder.path() / "shop.db").string()}};
        connect();
    }

    void connect() {
        sample.reset();
        connections.reset();
        database = std::make_unique<odbc::OdbcDatabase>(sources);
        list = std::make_unique<odbc::OdbcDataSources>(sources);
        connections = std::make_unique<SourceConnections>(*database, *list, logins);
        sample = std::make_unique<SampleRun>(*database, *connections);
    }

    void send(const std::string& source, std::initializer_list<const char*> statements, const Login& login = {}) const {
        const auto connection = database->open(source, login.user, login.password);
        for (const char* statement : statements) {
            connection->prepareAsIs(statement)->execute();
        }
    }

    /// The record set's columns come from the table of the same names.
    void fromTable(const std::string& recordSet, const std::string& table, const std::string& alias = "SHOP") {
        entities::RecordSetProperties& its = *form.nodeNamed(recordSet)->recordSet();
        for (const entities::AttributeProperties& column : its.RecordSet_Outputs) {
            its.addDbKey(column.Key, alias + "." + table + "." + column.Attribute_Name);
        }
    }
    void type(const std::string& attribute, std::int16_t type) { graph.attribute(attribute).Attribute_Type = type; }

    /// Gives a record set rows; "" is NULL, and "''" the empty text.
    void give(const std::string& recordSet, std::initializer_list<std::initializer_list<std::string>> rows) {
        canvas::LabelsD& node = *form.nodeNamed(recordSet);
        entities::Facts& facts = form.facts[node.Index()].facts.emplace();
        for (const entities::AttributeProperties& column : node.recordSet()->RecordSet_Outputs) {
            facts.columns.push_back(column.Attribute_Name);
        }
        for (const auto& row : rows) {
            entities::FieldRow& added = facts.rows.emplace_back();
            for (const std::string& field : row) {
                added.push_back(field.empty() ? Field() : Field(field == "''" ? "" : field));
            }
        }
    }

    /// An activity that lets through what its statement says of the columns of a record set or an activity.
    entities::ActivityProperties& step(const std::string& name, const std::string& from,
                                       testkit::GraphBuilder::Names columns, const std::string& statement) {
        entities::ActivityProperties& activity = graph.activity(name, columns, columns);
        for (const std::string column : columns) {
            graph.feed(from + column, name + ".IN." + column);
            graph.attribute(name + ".IN." + column).Attribute_Type = graph.attribute(from + column).Attribute_Type;
            graph.attribute(name + ".OUT." + column).Attribute_Type = graph.attribute(from + column).Attribute_Type;
        }
        activity.Act_LDL = statement;
        return activity;
    }

    void go(run::Run& run, const RunOptions& options = {}) {
        run.begin(form, catalogue, options);
        while (run.step()) {
        }
    }

    /// The same, and another thread breaks in until that has ended. The time it took, in seconds.
    double goAndBreakOff(run::Run& run) {
        run.begin(form, catalogue, {});
        while (run.done() == 0 && run.step()) {
        }
        const auto from = std::chrono::steady_clock::now();
        std::jthread other([&run](const std::stop_token& ended) {
            while (!ended.stop_requested()) {
                std::this_thread::sleep_for(std::chrono::milliseconds(100));
                run.cancel();
            }
        });
        while (!run.isCancelled() && run.step()) {
        }
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - from).count();
    }

    /// The rows of a node in an order of their own, or why there are none.
    std::string rowsOf(run::Run& run, const std::string& node) {
        const NodeRows& rows = run.nodes().at(form.nodeNamed(node)->Index());
        const Outcome& its = run.outcomes()[*rows.out];
        if (its.state != Outcome::State::there) {
            return "none: " + its.words;
        }
        std::multiset<std::string> lines;
        for (const FieldRow& row : run.page(*rows.out, kShownRows).rows) {
            std::string line;
            for (const Field& field : row) {
                line += (line.empty() ? "" : ",") + (field ? "'" + *field + "'" : std::string("NULL"));
            }
            lines.insert("(" + line + ")");
        }
        std::string all;
        for (const std::string& line : lines) {
            all += line;
        }
        return all;
    }
    std::string counts(const run::Run& run, const std::string& node) {
        return countWords(run.nodes().at(form.nodeNamed(node)->Index()), run.outcomes(), "->");
    }

    testkit::TemporaryFolder folder;
    odbc::OwnSources sources;
    OneLogin logins;
    entities::CatalogueTables catalogue;
    std::unique_ptr<odbc::OdbcDatabase> database;
    std::unique_ptr<odbc::OdbcDataSources> list;
    std::unique_ptr<SourceConnections> connections;
    std::unique_ptr<SampleRun> sample;
};

}  // namespace orvent::run
