#pragma once

#include <span>
#include <string>
#include <string_view>

namespace orvent::odbc {

/// A view of the Oracle catalogue as a query of ours, and what its rows are ordered by. In the query "$" stands for the
/// login's name in upper case, and "~" for the Oracle name of the type that the column `native` names.
struct CatalogueView {
    std::string_view name;
    std::string_view query;
    std::string_view order;
};

/// The names that the types of the creation script have in a database.
struct TypeNames {
    std::string_view text;  ///< written with its length
    std::string_view longText;
    std::string_view integer;
    std::string_view decimal;  ///< written with precision and scale
    std::string_view real;
    std::string_view date;
};

/// What makes a database's dialect. In the sequence and table patterns "%" stands for the quoted name.
struct DialectRules {
    std::string_view dbmsName;
    char quote;
    std::string_view setUp;
    std::string_view refuseChanges;  ///< makes the session one that only reads

    std::string_view nextValue;  ///< empty: numbers of sequences are parameters that the connection provides
    std::string_view currentValue;
    std::string_view drawNumber;  ///< the statement that draws such a number
    std::string_view prepareSequences;
    std::string_view createSequence;  ///< "@" stands for the first number, "+" for the step
    std::string_view dropSequence;

    std::string_view beforeDrop;
    std::string_view dropTable;
    std::string_view afterDrop;

    std::string_view orderColumn;      ///< tells the order of insertion
    std::string_view orderDefinition;  ///< what a created table must get for it, or empty
    std::string_view tableOptions;
    long keyWidth;     ///< the most characters of a text column in a key; 0 for no limit
    long keyBytes;     ///< and the most bytes of its texts
    bool keepsWidths;  ///< refuses a text that is wider than its column

    bool cancelsByAnother;  ///< a statement is broken into by way of another one: the driver closes what it is given

    bool keepsPlaceInBlock;  ///< the driver goes on behind the block after a single value of it was asked for

    TypeNames types;
    std::span<const CatalogueView> views;
};

/// The expression that "~" stands for.
extern const std::string_view kOracleType;

/// The rules for the database that calls itself so (SQL_DBMS_NAME), or null when its statements pass untouched.
const DialectRules* rulesOf(std::string_view dbmsName);

/// The one spelling of a name. The repository's tables and sequences are spelled as the repository check lists them,
/// all other names in lower case.
std::string canonicalName(std::string_view name);

/// True for a table of the repository.
bool isRepositoryTable(std::string_view canonical);

}  // namespace orvent::odbc
