#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace orvent::exchange {

/// A line of a type: an input, an output, a parameter or a used function, and its type by name.
struct TypeMember {
    std::string name, type;
    bool operator==(const TypeMember&) const = default;
};

struct FunctionTypeDefinition {
    std::string name, description;
    std::vector<TypeMember> inputs, outputs;
    bool operator==(const FunctionTypeDefinition&) const = default;
};

struct ActivityTypeDefinition {
    std::string name, description, sql, ldl;
    std::int16_t schemata = 0;
    std::int16_t provider = 0;  ///< provider semantics
    std::int16_t consumer = 0;  ///< consumer semantics
    std::vector<TypeMember> outputs, parameters, functions;
    bool operator==(const ActivityTypeDefinition&) const = default;
};

/// Types by name, so that they mean the same in every catalogue. Each list is sorted by name.
struct TypeDefinitions {
    std::vector<std::string> data;
    std::vector<FunctionTypeDefinition> functions;
    std::vector<ActivityTypeDefinition> activities;

    bool empty() const { return data.empty() && functions.empty() && activities.empty(); }
};

}  // namespace orvent::exchange
