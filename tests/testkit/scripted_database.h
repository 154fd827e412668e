#pragma once

#include <algorithm>
#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/database.h"
#include "platform/text.h"

namespace orvent::testkit {

using Row = std::vector<std::optional<std::string>>;
using Rows = std::vector<Row>;

/// A database that keeps what was executed, as "text [value,value]", and answers by statement text. Its sequences
/// count. A query without an answer has no rows.
class ScriptedDatabase : public platform::Database {
  public:
    std::vector<std::string> log;
    std::map<std::string, int> prepared;  ///< how often each text was prepared
    std::vector<std::string> opened;      ///< "source/user/password"
    int openNow = 0;
    std::optional<platform::DatabaseError> refuseOpen;
    bool readOnly = false;

    /// The next execution of `sql` has these rows; further answers wait in line and the last one stays.
    void answer(std::string_view sql, Rows rows) { answers_[std::string(sql)].push_back(std::move(rows)); }

    /// The rows of `sql` whenever no other answer waits.
    void standing(std::string_view sql, Rows rows) { standing_[std::string(sql)] = std::move(rows); }

    /// The `nth` execution from now on of a text that begins so fails.
    void fail(std::string_view beginning, const platform::DatabaseError& error, int nth = 1) {
        failures_.push_back({std::string(beginning), nth, error});
    }

    /// An UPDATE that begins so finds no row.
    void missRow(std::string_view beginning) { missing_.emplace_back(beginning); }

    std::vector<std::string> takeLog() { return std::exchange(log, {}); }

    std::unique_ptr<platform::Connection> open(const std::string& source, const std::string& user,
                                               const std::string& password) override {
        if (refuseOpen) {
            throw *refuseOpen;
        }
        opened.push_back(source + "/" + user + "/" + password);
        return std::make_unique<OpenConnection>(*this);
    }

  private:
    struct Failure {
        std::string beginning;
        int nth;
        platform::DatabaseError error;
    };

    struct OpenStatement : platform::Statement {
        OpenStatement(ScriptedDatabase& database, std::string text) : owner(database), sql(std::move(text)) {}

        void bind(int parameter, std::string_view text) override { values[parameter] = text; }
        void bind(int parameter, long long number) override { values[parameter] = std::to_string(number); }
        void bind(int parameter, float number) override { values[parameter] = platform::numberText(number); }
        void execute() override {
            rows = owner.execute(sql, values);
            next = 0;
        }
        bool fetch() override { return next < rows.size() ? ++next, true : false; }
        const std::optional<std::string>& cell(int column) {
            return rows.at(next - 1).at(static_cast<std::size_t>(column - 1));
        }
        bool isNull(int column) override { return !cell(column); }
        std::string text(int column) override { return cell(column).value_or(""); }
        long long number(int column) override { return cell(column) ? std::stoll(*cell(column)) : 0; }
        float realNumber(int column) override { return cell(column) ? std::stof(*cell(column)) : 0; }
        long long changedRows() override {
            return std::ranges::any_of(owner.missing_, [&](const auto& text) { return sql.starts_with(text); }) ? 0 : 1;
        }

        ScriptedDatabase& owner;
        std::string sql;
        std::map<int, std::string> values;
        Rows rows;
        std::size_t next = 0;
    };

    struct OpenConnection : platform::Connection {
        explicit OpenConnection(ScriptedDatabase& database) : owner(database) { ++owner.openNow; }
        ~OpenConnection() override { --owner.openNow; }
        std::unique_ptr<platform::Statement> prepare(std::string_view sql) override {
            ++owner.prepared[std::string(sql)];
            return std::make_unique<OpenStatement>(owner, std::string(sql));
        }
        bool readOnly() const override { return owner.readOnly; }
        ScriptedDatabase& owner;
    };

    Rows execute(const std::string& sql, const std::map<int, std::string>& values) {
        std::string bound;
        for (const auto& [parameter, value] : values) {
            bound += (parameter == 1 ? "" : ",") + value;
        }
        log.push_back(values.empty() ? sql : sql + " [" + bound + "]");
        for (Failure& failure : failures_) {
            if (failure.nth > 0 && sql.starts_with(failure.beginning) && --failure.nth == 0) {
                throw failure.error;
            }
        }
        for (const char* sequence : {"Scenario_ID_seq", "SubNode_ID_seq", "Function_ID_seq", "Node_ID_seq"}) {
            if (sql.find(sequence) != std::string::npos) {
                std::int64_t& counter = sequences_[sequence];
                if (sql.find(".CURRVAL") != std::string::npos) {
                    return {{std::to_string(counter)}};
                }
                ++counter;
                if (sql.starts_with("SELECT")) {
                    return {{std::to_string(counter)}};
                }
                break;
            }
        }
        std::deque<Rows>& waiting = answers_[sql];
        if (waiting.empty()) {
            const auto always = standing_.find(sql);
            return always == standing_.end() ? Rows() : always->second;
        }
        const Rows rows = waiting.front();
        if (waiting.size() > 1) {
            waiting.pop_front();
        }
        return rows;
    }

    std::map<std::string, std::deque<Rows>> answers_;
    std::map<std::string, Rows> standing_;
    std::vector<Failure> failures_;
    std::vector<std::string> missing_;
    // Apart from each other, so that one identifier is not mistaken for another.
    std::map<std::string, std::int64_t> sequences_{
        {"Scenario_ID_seq", 10}, {"Node_ID_seq", 100}, {"SubNode_ID_seq", 1000}, {"Function_ID_seq", 500}};
};

}  // namespace orvent::testkit
