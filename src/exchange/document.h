#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "canvas/deleted_nodes.h"
#include "canvas/labels.h"
#include "canvas/lines.h"
#include "entities/node_facts.h"
#include "exchange/type_definitions.h"

namespace orvent::exchange {

/// The number of the format that this program writes, and the highest that it reads.
inline constexpr int kVersion = 1;
/// What stands under "format".
inline constexpr const char* kFormat = "orvent scenario";

/// Which rows of the repository a scenario stands for. A document has it only where it serves one user's own windows.
struct StoredState {
    /// The identifiers of a node and of its members: inputs, outputs, parameters and functions, each function in front
    /// of its inputs and outputs; or a record set's attributes. What has `Changed` set is named by its place in `ids`.
    struct Rows {
        std::vector<std::int16_t> ids;
        std::vector<std::int16_t> changed;
        bool inputsChanged = false;
    };

    std::int16_t scenario = 0;
    bool changed = false;
    std::uint64_t mark = 0;
    std::vector<Rows> nodes;  ///< one for each node, in order
    std::vector<canvas::DeletedNode> deleted;
    std::vector<std::pair<long long, std::uint64_t>> marks;  ///< of each stored node, by identifier
};

/// A scenario that belongs to no canvas. Entities name their types by the tables here, whatever the catalogue's order.
struct Document {
    struct Node {
        std::string caption;
        canvas::NodeTypeCode kind{};
        canvas::Box box;
        canvas::NodeProperties entity;  ///< a number where the kind has no entity that is stored
        entities::NodeFacts facts;
    };
    /// An edge between two nodes by their places in `nodes`.
    struct Edge {
        std::size_t from = 0, to = 0;
        std::int16_t fromPoint = 0, toPoint = 0;
        canvas::EdgeTypeCode kind{};
        canvas::AngleCode angle{};
    };

    std::string name;
    std::string program;          ///< the version of the program that wrote it
    bool keepDuplicates = false;  ///< rows of its program are bags
    std::vector<Node> nodes;
    std::vector<Edge> edges;
    std::vector<std::string> dataTypes, functionTypes, activityTypes;  ///< the names behind the indices of entities
    TypeDefinitions types;
    std::optional<StoredState> stored;
};

}  // namespace orvent::exchange
