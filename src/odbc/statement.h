#pragma once

#include <deque>
#include <string>
#include <string_view>

#include "odbc/handles.h"
#include "odbc/rows.h"
#include "odbc/session.h"
#include "platform/database.h"

namespace orvent::odbc {

/// A statement that is translated and prepared once.
class OdbcStatement : public platform::Statement {
  public:
    OdbcStatement(Session& session, Translation translation, Rows::Values values = Rows::Values::asDescribed);

    void bind(int parameter, std::string_view text) override;
    void bind(int parameter, long long number) override;
    void bind(int parameter, float number) override;
    void bindAsIs(int parameter, const std::string* text) override;

    void execute() override;
    bool fetch() override;
    long long changedRows() override;

    bool isNull(int column) override { return rows_.isNull(column); }
    std::string text(int column) override { return rows_.text(column); }
    long long number(int column) override { return rows_.number(column); }
    float realNumber(int column) override { return rows_.realNumber(column); }

  private:
    /// A parameter's value, which the driver reads at every execution, and what was last told the driver about it.
    struct Parameter {
        std::string text{};
        SQLINTEGER number = 0;
        double real = 0;
        SQLLEN length = 0;
        SQLSMALLINT toldType = 0;
        const void* toldPlace = nullptr;
        SQLULEN toldSize = 0;
    };

    long long numberFor(const SequenceUse& use);
    Parameter& parameter(int number);
    void tellText(int number, Parameter& value);
    void bindNumber(int number, long long value);
    void tell(int number, Parameter& value, SQLSMALLINT driverType, SQLSMALLINT type, SQLULEN size, void* place);
    void executeDefinition();
    void check(SQLRETURN outcome) const;

    Session& session_;
    Translation translation_;
    StatementHandle handle_;
    std::deque<Parameter> parameters_;  // a deque, since the driver holds the places of the values
    Rows rows_;
};

}  // namespace orvent::odbc
