#pragma once

#include <string>
#include <vector>

namespace orvent::odbc {

/// A number of a sequence that the connection itself provides as a parameter, for a database that has no sequences.
struct SequenceUse {
    int parameter;  ///< the parameter's number in the translated statement, from 1
    std::string sequence;
    bool next;  ///< the next number, or else the last one that this connection drew
};

/// A statement as it goes to a database.
struct Translation {
    std::string sql;
    std::vector<std::string> before{};  ///< statements to run ahead of it
    std::vector<std::string> after{};   ///< statements to run behind it, also when it failed
    std::vector<SequenceUse> sequences{};
    bool definition = false;  ///< creates or drops something: sent once, never prepared

    /// The number in the translated statement of the sender's parameter.
    int parameter(int sent) const;
};

}  // namespace orvent::odbc
