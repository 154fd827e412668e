#include "odbc/connection.h"

#include "odbc/statement.h"
#include "platform/text.h"

namespace orvent::odbc {

using platform::DatabaseError;

std::unique_ptr<platform::Statement> OdbcConnection::prepare(std::string_view sql) {
    if (platform::trimmed(sql).empty()) {
        throw DatabaseError("The statement is empty", "42000", 0, false);
    }
    return std::make_unique<OdbcStatement>(session_, session_.dialect().translate(sql));
}

std::unique_ptr<platform::Statement> OdbcConnection::prepareAsIs(std::string_view sql) {
    return std::make_unique<OdbcStatement>(session_, Translation{std::string(sql)}, Rows::Values::asTexts);
}

}  // namespace orvent::odbc
