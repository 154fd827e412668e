#include "odbc/statement.h"

#include <utility>

namespace orvent::odbc {

namespace {

/// The longest text, in bytes, that every database takes as an ordinary one.
constexpr std::size_t kLongestOrdinary = 4000;

constexpr int kAttempts = 20;

/// True when the database gave up the statement, whole, in favour of another session's. In auto-commit it may simply
/// be sent again; MariaDB does this to statements that insert at the same time.
bool lostToAnother(SQLHANDLE statement) {
    return errorOf(SQL_HANDLE_STMT, statement).sqlState() == "40001";
}

}  // namespace

OdbcStatement::OdbcStatement(Session& session, Translation translation, Rows::Values values)
    : session_(session),
      translation_(std::move(translation)),
      handle_(session.link()),
      rows_(handle_.get(), session.givesSingleValues(), session.where(), values) {
    // Braces in a text are no business of the driver's. One that cannot leave them alone refuses, which does no harm.
    SQLSetStmtAttr(handle_.get(), SQL_ATTR_NOSCAN, reinterpret_cast<SQLPOINTER>(SQL_NOSCAN_ON), 0);
    if (!translation_.definition) {
        check(SQLPrepare(handle_.get(), reinterpret_cast<SQLCHAR*>(translation_.sql.data()),
                         static_cast<SQLINTEGER>(translation_.sql.size())));
    }
}

void OdbcStatement::bind(int parameter, std::string_view text) {
    const int number = translation_.parameter(parameter);
    Parameter& value = this->parameter(number);
    value.text.assign(text);
    // The empty text is null in the Oracle dialect, so it is null everywhere.
    value.length = text.empty() ? SQL_NULL_DATA : static_cast<SQLLEN>(text.size());
    tellText(number, value);
}

void OdbcStatement::bindAsIs(int parameter, const std::string* text) {
    const int number = translation_.parameter(parameter);
    Parameter& value = this->parameter(number);
    if (text) {
        value.text.assign(*text);
    }
    value.length = text ? static_cast<SQLLEN>(text->size()) : SQL_NULL_DATA;
    tellText(number, value);
}

void OdbcStatement::tellText(int number, Parameter& value) {
    const std::size_t size = value.text.size();
    const bool isLong = size > kLongestOrdinary;
    tell(number, value, SQL_C_CHAR, isLong ? SQL_LONGVARCHAR : SQL_VARCHAR, isLong ? size : kLongestOrdinary,
         value.text.data());
}

void OdbcStatement::bind(int parameter, long long number) {
    bindNumber(translation_.parameter(parameter), number);
}

void OdbcStatement::bind(int parameter, float number) {
    const int place = translation_.parameter(parameter);
    Parameter& value = this->parameter(place);
    value.real = static_cast<double>(number);
    value.length = 0;
    tell(place, value, SQL_C_DOUBLE, SQL_DOUBLE, 15, &value.real);
}

void OdbcStatement::bindNumber(int number, long long value) {
    Parameter& bound = parameter(number);
    // Oracle's driver takes no C integers of 64 bits. Identifiers fit in 32; what does not goes as its digits.
    if (std::in_range<SQLINTEGER>(value)) {
        bound.number = static_cast<SQLINTEGER>(value);
        bound.length = 0;
        tell(number, bound, SQL_C_SLONG, SQL_INTEGER, 10, &bound.number);
    } else {
        bound.text = std::to_string(value);
        bound.length = static_cast<SQLLEN>(bound.text.size());
        tell(number, bound, SQL_C_CHAR, SQL_NUMERIC, 19, bound.text.data());
    }
}

OdbcStatement::Parameter& OdbcStatement::parameter(int number) {
    if (number < 1) {
        throw platform::DatabaseError("Parameters are numbered from 1", "07009", 0, false);
    }
    while (parameters_.size() < static_cast<std::size_t>(number)) {
        parameters_.emplace_back();
    }
    return parameters_[static_cast<std::size_t>(number) - 1];
}

void OdbcStatement::tell(int number, Parameter& value, SQLSMALLINT driverType, SQLSMALLINT type, SQLULEN size,
                         void* place) {
    if (value.toldType == type && value.toldPlace == place && value.toldSize >= size) {
        return;
    }
    check(SQLBindParameter(handle_.get(), static_cast<SQLUSMALLINT>(number), SQL_PARAM_INPUT, driverType, type, size, 0,
                           place, 0, &value.length));
    value.toldType = type;
    value.toldPlace = place;
    value.toldSize = size;
}

/// The number for a place where the statement uses a sequence.
long long OdbcStatement::numberFor(const SequenceUse& use) {
    Session::Sequence& sequence = session_.sequence(use.sequence);
    if (use.next) {
        if (!sequence.draw) {
            sequence.draw =
                std::make_unique<OdbcStatement>(session_, Translation{session_.dialect().nextNumber(use.sequence)});
        }
        sequence.draw->execute();
        if (!sequence.draw->fetch()) {
            throw platform::DatabaseError("There is no sequence " + use.sequence, "42S02", 0, false);
        }
        sequence.last = sequence.draw->number(1);
        sequence.draw->fetch();  // to the end, which lets go of the table
    } else if (sequence.last == 0) {
        throw platform::DatabaseError("This connection has not drawn a number of " + use.sequence + " yet", "55000", 0,
                                      false);
    }
    return sequence.last;
}

void OdbcStatement::execute() {
    if (translation_.definition) {
        executeDefinition();
        return;
    }
    rows_.close();
    for (const SequenceUse& use : translation_.sequences) {
        bindNumber(use.parameter, numberFor(use));
    }
    const Session::Working working(session_, handle_.get());
    SQLRETURN outcome = SQLExecute(handle_.get());
    for (int attempt = 1; attempt < kAttempts && outcome == SQL_ERROR && lostToAnother(handle_.get()); ++attempt) {
        outcome = SQLExecute(handle_.get());
    }
    if (outcome != SQL_NO_DATA) {  // an UPDATE or DELETE that found no row
        check(outcome);
    }
    rows_.open();
}

void OdbcStatement::executeDefinition() {
    const auto runAll = [this](const std::vector<std::string>& statements) {
        for (const std::string& statement : statements) {
            session_.run(statement);
        }
    };
    runAll(translation_.before);
    try {
        session_.run(translation_.sql);
    } catch (const platform::DatabaseError&) {
        runAll(translation_.after);
        throw;
    }
    runAll(translation_.after);
}

long long OdbcStatement::changedRows() {
    SQLLEN rows = -1;
    check(SQLRowCount(handle_.get(), &rows));
    return rows;
}

bool OdbcStatement::fetch() {
    if (rows_.isNextAtHand()) {
        return rows_.fetch();
    }
    const Session::Working working(session_, handle_.get());
    return rows_.fetch();
}

void OdbcStatement::check(SQLRETURN outcome) const {
    if (!SQL_SUCCEEDED(outcome)) {
        throw errorOf(SQL_HANDLE_STMT, handle_.get(), session_.where());
    }
}

}  // namespace orvent::odbc
