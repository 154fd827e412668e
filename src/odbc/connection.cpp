#include "odbc/connection.h"

#include <utility>

#include "odbc/dialect_rules.h"
#include "odbc/statement.h"
#include "platform/text.h"

namespace orvent::odbc {

using platform::DatabaseError;

Session::Session(const Environment& environment, const std::string& connectionString, const std::string& user,
                 std::string where)
    : link_(environment, connectionString),
      dialect_(rulesOf(link_.dbmsName()), user),
      givesSingleValues_(link_.givesSingleValues() && dialect_.keepsPlaceInBlock()),
      where_(std::move(where)) {
    if (!dialect_.setUp().empty()) {
        run(dialect_.setUp());
    }
}

Session::~Session() = default;

void Session::run(const std::string& sql) {
    const StatementHandle handle(link_.get());
    std::string text = sql;
    const SQLRETURN outcome =
        SQLExecDirect(handle.get(), reinterpret_cast<SQLCHAR*>(text.data()), static_cast<SQLINTEGER>(text.size()));
    if (!SQL_SUCCEEDED(outcome) && outcome != SQL_NO_DATA) {
        throw errorOf(SQL_HANDLE_STMT, handle.get(), where_);
    }
}

long long Session::number(const SequenceUse& use) {
    Sequence& sequence = sequences_[use.sequence];
    if (use.next) {
        if (!sequence.draw) {
            sequence.draw = std::make_unique<OdbcStatement>(*this, Translation{dialect_.nextNumber(use.sequence)});
        }
        sequence.draw->execute();
        if (!sequence.draw->fetch()) {
            throw DatabaseError("There is no sequence " + use.sequence, "42S02", 0, false);
        }
        sequence.last = sequence.draw->number(1);
        sequence.draw->fetch();  // to the end, which lets go of the table
    } else if (sequence.last == 0) {
        throw DatabaseError("This connection has not drawn a number of " + use.sequence + " yet", "55000", 0, false);
    }
    return sequence.last;
}

std::unique_ptr<platform::Statement> OdbcConnection::prepare(std::string_view sql) {
    if (platform::trimmed(sql).empty()) {
        throw DatabaseError("The statement is empty", "42000", 0, false);
    }
    return std::make_unique<OdbcStatement>(session_, session_.dialect().translate(sql));
}

}  // namespace orvent::odbc
