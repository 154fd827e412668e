#include "odbc/session.h"

#include <utility>

#include "odbc/dialect_rules.h"
#include "platform/text.h"

namespace orvent::odbc {

Session::Session(const Environment& environment, const std::string& connectionString, const std::string& user,
                 std::string where)
    : link_(environment, connectionString),
      dialect_(rulesOf(link_.dbmsName()), user),
      givesSingleValues_(link_.givesSingleValues() && dialect_.keepsPlaceInBlock()),
      where_(std::move(where)) {
    if (!dialect_.setUp().empty()) {
        run(dialect_.setUp());
    }
    if (dialect_.cancelsByAnother()) {
        breaker_ = std::make_unique<StatementHandle>(link_.get());
    }
}

Session::~Session() = default;

std::string Session::databaseName() const {
    const std::string name = link_.dbmsName();
    const DialectRules* rules = rulesOf(name);
    return platform::lowerCase(rules ? rules->dbmsName : std::string_view(name));
}

void Session::refuseChanges() {
    // A driver that cannot refuses the attribute, which does no harm.
    SQLSetConnectAttr(link_.get(), SQL_ATTR_ACCESS_MODE, reinterpret_cast<SQLPOINTER>(SQL_MODE_READ_ONLY), 0);
    if (!dialect_.refuseChanges().empty()) {
        run(dialect_.refuseChanges());
    }
}

void Session::cancel() {
    const std::lock_guard lock(mutex_);
    if (working_ != SQL_NULL_HANDLE) {
        SQLCancel(breaker_ ? breaker_->get() : working_);
    }
}

Session::Working::Working(Session& session, SQLHANDLE statement) : session_(session) {
    const std::lock_guard lock(session_.mutex_);
    before_ = std::exchange(session_.working_, statement);
}

Session::Working::~Working() {
    const std::lock_guard lock(session_.mutex_);
    session_.working_ = before_;
}

void Session::run(const std::string& sql) {
    const StatementHandle handle(link_.get());
    std::string text = sql;
    const Working working(*this, handle.get());
    const SQLRETURN outcome =
        SQLExecDirect(handle.get(), reinterpret_cast<SQLCHAR*>(text.data()), static_cast<SQLINTEGER>(text.size()));
    if (!SQL_SUCCEEDED(outcome) && outcome != SQL_NO_DATA) {
        throw errorOf(SQL_HANDLE_STMT, handle.get(), where_);
    }
}

}  // namespace orvent::odbc
