// The rows at the nodes in figures: reading a sample against a bare loop of copying, a chain of activities against the
// same statements sent bare, and what a change at its end costs.

#include <sql.h>
#include <sqlext.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "odbc/database.h"
#include "odbc/sources.h"
#include "run/sample_run.h"

namespace orvent::bench {
namespace {

constexpr int kColumns = 20;
constexpr int kRounds = 9;
constexpr int kChain = 300;

class Silence : public platform::MessageBox {
  public:
    platform::Answer show(const std::string&, const std::string&, platform::Icon, platform::Buttons) override {
        return platform::Answer::ok;
    }
};

struct Nobody : run::Logins {
    std::optional<run::Login> loginFor(const std::string&) override { return std::nullopt; }
};

/// A run whose statements can be looked at.
struct OpenRun : run::SampleRun {
    using SampleRun::SampleRun;
    const sql::Compiled& compiled() const { return compiled_; }
};

std::string columnName(int at) {
    return "C" + std::to_string(at);
}

/// Every other column holds numbers.
std::string valueOf(int row, int column) {
    return column % 2 == 0 ? std::to_string(row * column) : "value " + std::to_string(row) + " of a column";
}

double milliseconds(const std::function<void()>& what) {
    const auto from = std::chrono::steady_clock::now();
    what();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - from).count();
}

double middle(std::vector<double> times) {
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

/// A connection without any layer of the program.
class Bare {
  public:
    explicit Bare(std::string connectionString) {
        SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment_);
        SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
        SQLAllocHandle(SQL_HANDLE_DBC, environment_, &link_);
        const SQLRETURN outcome = SQLDriverConnect(link_, nullptr, reinterpret_cast<SQLCHAR*>(connectionString.data()),
                                                   SQL_NTS, nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
        if (!SQL_SUCCEEDED(outcome)) {
            throw std::runtime_error("no connection: " + connectionString);
        }
    }
    ~Bare() {
        SQLDisconnect(link_);
        SQLFreeHandle(SQL_HANDLE_DBC, link_);
        SQLFreeHandle(SQL_HANDLE_ENV, environment_);
    }
    Bare(const Bare&) = delete;
    Bare& operator=(const Bare&) = delete;

    SQLHSTMT prepare(std::string sql) const {
        SQLHSTMT statement = SQL_NULL_HSTMT;
        SQLAllocHandle(SQL_HANDLE_STMT, link_, &statement);
        check(SQLPrepare(statement, reinterpret_cast<SQLCHAR*>(sql.data()), SQL_NTS), sql);
        return statement;
    }
    void send(const std::string& sql) const {
        SQLHSTMT statement = prepare(sql);
        check(SQLExecute(statement), sql);
        SQLFreeHandle(SQL_HANDLE_STMT, statement);
    }
    static void check(SQLRETURN outcome, const std::string& sql) {
        if (!SQL_SUCCEEDED(outcome) && outcome != SQL_NO_DATA) {
            throw std::runtime_error("refused: " + sql);
        }
    }

  private:
    SQLHENV environment_ = SQL_NULL_HENV;
    SQLHDBC link_ = SQL_NULL_HDBC;
};

constexpr const char* kMemory = "DRIVER={SQLite3};Database=:memory:;JournalMode=MEMORY";

std::string inCommas(const std::function<std::string(int)>& each) {
    std::string all;
    for (int at = 1; at <= kColumns; ++at) {
        all += (at == 1 ? "" : ", ") + each(at);
    }
    return all;
}

/// The table that samples are read from.
void makeSource(const std::string& connectionString, int rows) {
    const Bare source(connectionString);
    source.send("CREATE TABLE T (" +
                inCommas([](int at) { return columnName(at) + (at % 2 == 0 ? " NUMERIC" : " VARCHAR(60)"); }) + ")");
    source.send("BEGIN");
    for (int row = 1; row <= rows; ++row) {
        source.send("INSERT INTO T VALUES (" + inCommas([row](int at) { return "'" + valueOf(row, at) + "'"; }) + ")");
    }
    source.send("COMMIT");
}

/// Reads the rows of one connection and puts them into a table of another one, by the same buffers.
void copyBare(const std::string& connectionString, int rows) {
    const Bare source(connectionString), target(kMemory);
    target.send("CREATE TABLE T (" +
                inCommas([](int at) { return "c" + std::to_string(at) + (at % 2 == 0 ? " NUMERIC" : " TEXT"); }) + ")");
    target.send("BEGIN");
    SQLHSTMT read = source.prepare("SELECT " + inCommas(columnName) + " FROM T LIMIT " + std::to_string(rows));
    SQLHSTMT write = target.prepare("INSERT INTO T VALUES (" + inCommas([](int) { return "?"; }) + ")");
    constexpr SQLLEN kCell = 256;
    std::vector<std::vector<char>> cells(kColumns, std::vector<char>(kCell));
    std::vector<SQLLEN> lengths(kColumns);
    Bare::check(SQLExecute(read), "SELECT");
    for (std::size_t at = 0; at < cells.size(); ++at) {
        const auto number = static_cast<SQLUSMALLINT>(at + 1);
        SQLBindCol(read, number, SQL_C_CHAR, cells[at].data(), kCell, &lengths[at]);
        SQLBindParameter(write, number, SQL_PARAM_INPUT, SQL_C_CHAR, SQL_VARCHAR, kCell, 0, cells[at].data(), 0,
                         &lengths[at]);
    }
    while (SQL_SUCCEEDED(SQLFetch(read))) {
        Bare::check(SQLExecute(write), "INSERT");
    }
    SQLFreeHandle(SQL_HANDLE_STMT, read);
    SQLFreeHandle(SQL_HANDLE_STMT, write);
    target.send("COMMIT");
}

/// A record set and a chain of activities behind it; each lets all rows but a few through.
void buildChain(canvas::DrawForm& form, int activities) {
    using namespace entities;
    RecordSetProperties& start = *form.Labels.Add({0, 0, 1000, 400}, "S", canvas::NodeTypeRecordSet, "S").recordSet();
    for (int at = 1; at <= kColumns; ++at) {
        start.RecordSet_Outputs->Add(columnName(at), static_cast<std::int16_t>(at % 2), columnName(at)).ParentKeyName =
            "S";
        start.addDbKey(columnName(at), "SHOP.T." + columnName(at));
    }
    std::string before = "S";
    for (int number = 1; number <= activities; ++number) {
        const std::string name = "A" + std::to_string(number);
        ActivityProperties& activity =
            *form.Labels.Add({0, 0, 1000, 400}, name, canvas::NodeTypeActivity, name).activity();
        const std::string variables = inCommas([](int at) { return "X" + std::to_string(at); });
        activity.Act_LDL = "a" + std::to_string(number) + "_out(" + variables + ")<-a" + std::to_string(number) +
                           "_in1(" + variables + "),X2>" + std::to_string(number) + ".";
        for (int at = 1; at <= kColumns; ++at) {
            const auto type = static_cast<std::int16_t>(at % 2);
            AttributeProperties& input = activity.Act_Inputs->Add(columnName(at), type, TagNone, columnName(at));
            AttributeProperties& output = activity.Act_Outputs->Add(columnName(at), type, TagNone, columnName(at));
            input.ParentKeyName = output.ParentKeyName = name;
            input.ProvidedFrom->Add(
                before, number == 1 ? LinkRecordSet : LinkActivity,
                wholeKey(before, number == 1 ? KindRecordSetAttribute : KindOutput, columnName(at)));
            output.ProvidedFrom->Add(name, LinkInput, relativeKey(KindInput, columnName(at)));
        }
        before = name;
    }
}

void giveRows(canvas::DrawForm& form, int rows) {
    entities::Facts& facts = form.facts[form.nodeNamed("S")->Index()].facts.emplace();
    for (int at = 1; at <= kColumns; ++at) {
        facts.columns.push_back(columnName(at));
    }
    for (int row = 1; row <= rows; ++row) {
        entities::FieldRow& added = facts.rows.emplace_back();
        for (int at = 1; at <= kColumns; ++at) {
            added.emplace_back(valueOf(row, at));
        }
    }
}

void tell(const char* what, double value, double aim) {
    std::printf("%-62s %8.3f  aim %5.2f  %s\n", what, value, aim, value <= aim ? "met" : "MISSED");
}

class Figures {
  public:
    explicit Figures(const std::string& source) : source_(source) {
        sources_.named = {{"shop", source}};
        tables_.dataTypes.add("NUMBER");
        tables_.dataTypes.add("VARCHAR2");
    }

    void reading() {
        constexpr int kRows = 10000;
        makeSource(source_, kRows);
        canvas::DrawForm form({messages_, settings_});
        buildChain(form, 0);
        std::vector<double> ours, bare;
        for (int round = 0; round < kRounds; ++round) {
            bare.push_back(milliseconds([&] { copyBare(source_, kRows); }));
            ours.push_back(milliseconds([&] {
                run::SampleRun run(database_, connections_);
                run.begin(form, tables_, run::RunOptions{.sampleRows = kRows});
                while (run.made() == 0 && run.step()) {  // the table of the rows, not that of the record set
                }
            }));
        }
        tell("reading 10,000 rows of 20 columns, to a bare loop", middle(ours) / middle(bare), 1.3);
    }

    void chain() {
        canvas::DrawForm form({messages_, settings_});
        buildChain(form, kChain);
        giveRows(form, 1000);
        std::vector<double> whole, bare, refreshed;
        for (int round = 0; round < kRounds; ++round) {
            OpenRun run(database_, connections_);
            whole.push_back(milliseconds([&] { go(run, form); }));
            if (run.outcomes().back().count == 0) {
                std::printf("rows are missing: %s\n", run.outcomes().back().words.c_str());
            }
            bare.push_back(milliseconds([&] { sendBare(run, form); }));
            std::string& statement = form.nodeNamed("A" + std::to_string(kChain))->activity()->Act_LDL;
            statement.insert(statement.size() - 1, "1");  // X2>3001
            refreshed.push_back(milliseconds([&] { go(run, form); }));
            statement.erase(statement.size() - 2, 1);
        }
        std::printf("%-62s %8.1f ms\n", "300 activities over 1,000 rows of 20 columns", middle(whole));
        tell("the same to its statements sent bare", middle(whole) / middle(bare), 1.5);
        tell("refreshed after a change at the last, to the whole", middle(refreshed) / middle(whole), 0.05);
    }

  private:
    void go(run::Run& run, const canvas::DrawForm& form) const {
        run.begin(form, tables_, {});
        while (run.step()) {
        }
    }

    void sendBare(const OpenRun& run, const canvas::DrawForm& form) const {
        const Bare target(kMemory);
        const sql::Dialect& dialect = *sql::dialectNamed("sqlite");
        target.send("BEGIN");
        target.send("CREATE TABLE `held S` (" +
                    inCommas([](int at) { return "c" + std::to_string(at) + (at % 2 == 0 ? " NUMERIC" : " TEXT"); }) +
                    ")");
        SQLHSTMT write = target.prepare("INSERT INTO `held S` VALUES (" + inCommas([](int) { return "?"; }) + ")");
        std::vector<std::string> texts(kColumns, std::string(64, ' '));
        std::vector<SQLLEN> lengths(kColumns);
        for (std::size_t at = 0; at < texts.size(); ++at) {
            SQLBindParameter(write, static_cast<SQLUSMALLINT>(at + 1), SQL_PARAM_INPUT, SQL_C_CHAR, SQL_VARCHAR, 64, 0,
                             texts[at].data(), 0, &lengths[at]);
        }
        for (const entities::FieldRow& row : form.facts.begin()->second.facts->rows) {
            for (std::size_t at = 0; at < texts.size(); ++at) {
                row[at]->copy(texts[at].data(), row[at]->size());
                lengths[at] = static_cast<SQLLEN>(row[at]->size());
            }
            Bare::check(SQLExecute(write), "INSERT");
        }
        SQLFreeHandle(SQL_HANDLE_STMT, write);
        target.send("COMMIT");
        for (const sql::Query& query : run.compiled().queries) {
            target.send("CREATE TABLE " + dialect.quoted(run.table(query.predicate).name) + " AS " + query.select);
        }
    }

    std::string source_;
    odbc::OwnSources sources_;
    odbc::OdbcDatabase database_{(sources_.named = {{"shop", source_}}, sources_)};
    odbc::OdbcDataSources list_{sources_};
    Nobody nobody_;
    run::SourceConnections connections_{database_, list_, nobody_};
    Silence messages_;
    canvas::CanvasSettings settings_;
    entities::CatalogueTables tables_;
};

}  // namespace
}  // namespace orvent::bench

int main() {
    const auto file = std::filesystem::temp_directory_path() / ("orvent_rows_bench_" + std::to_string(::getpid()));
    try {
        orvent::bench::Figures figures("DRIVER={SQLite3};Database=" + file.string());
        figures.reading();
        figures.chain();
    } catch (const std::exception& fault) {
        std::printf("%s\n", fault.what());
    }
    std::filesystem::remove(file);
    return 0;
}
