#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace orvent::entities {

/// A value of a row: a text of any kind, or NULL. The empty text is no NULL.
using Field = std::optional<std::string>;
using FieldRow = std::vector<Field>;

/// Rows that a designer has given a record set by hand, to try a scenario on.
struct Facts {
    std::vector<std::string> columns;
    std::vector<FieldRow> rows;  ///< each as long as `columns`

    bool operator==(const Facts&) const = default;
};

/// What a designer expects of the rows of a node.
struct Expectation {
    enum class Kind : std::uint8_t {
        atLeast,
        atMost,
        exactly,
        none,  ///< there is no row in which `column` compares so with `value`
    };
    Kind kind = Kind::atLeast;
    std::int64_t rows = 0;  ///< how many; of `none` it means nothing
    std::string column{};
    std::string op{};  ///< =, !=, <, <=, > or >=
    Field value{};     ///< NULL beside = and != asks for NULL itself

    bool operator==(const Expectation&) const = default;
};

/// What is kept of a node beside the scenario, to try it out.
struct NodeFacts {
    std::optional<Facts> facts{};  ///< of a record set
    std::vector<Expectation> expectations{};

    bool isEmpty() const { return !facts && expectations.empty(); }
    bool operator==(const NodeFacts&) const = default;
};

}  // namespace orvent::entities
