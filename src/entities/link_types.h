#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace orvent::entities {

/// The link type codes that `Provider_Type` and `Regulator_type` hold.
enum class LinkType : std::int16_t {
    LinkUnset = 0,
    LinkRecordSet = 1,           ///< an attribute of a record set
    LinkActivity = 2,            ///< an attribute of another activity
    LinkInput = 3,               ///< inside one activity, from an input fed by a record set
    LinkActivityInput = 4,       ///< inside one activity, from an input fed by an activity
    LinkFunction = 5,            ///< a function
    LinkConstant = 6,            ///< a constant to a parameter
    LinkTypeOutput = 7,          ///< an output that the activity's type brought
    LinkTypeParameter = 8,       ///< a parameter that the activity's type brought
    LinkTypeFunction = 9,        ///< a function that the activity's type brought
    LinkParameterOutput = 10,    ///< a parameter to an output
    LinkFunctionOutput = 11,     ///< a function's output to an output
    LinkRecordSetFunction = 12,  ///< a record set attribute to a function's input
    LinkInputFunction = 13,      ///< an input to a function's input
    LinkConstantFunction = 14,   ///< a constant (or record set) to a function's input
};
using enum LinkType;

/// Whether links of that type lead to a member that a scenario holds. A constant is nothing but the links to it, and
/// other types lead to nothing.
constexpr bool leadsToAMember(LinkType type) {
    switch (type) {
        case LinkRecordSet:
        case LinkActivity:
        case LinkInput:
        case LinkActivityInput:
        case LinkParameterOutput:
        case LinkFunctionOutput:
        case LinkRecordSetFunction:
        case LinkInputFunction:
            return true;
        default:
            return false;
    }
}

/// How a list labels where a thing comes from, by link type code.
inline constexpr std::array<std::string_view, 16> kFromLabels = {"Activity Output",
                                                                 "RecordSet",
                                                                 "Activity Output",
                                                                 "Input",
                                                                 "Input",
                                                                 "Function",
                                                                 "Constant",
                                                                 "Activity Type Output",
                                                                 "Activity Type Parameter",
                                                                 "Activity Type Function",
                                                                 "Parameter",
                                                                 "Function Output",
                                                                 "",
                                                                 "",
                                                                 "",
                                                                 ""};

/// How a list labels a regulated target, by link type code.
inline constexpr std::array<std::string_view, 16> kForLabels = {"Activity Input",
                                                                "RecordSet",
                                                                "Activity Input",
                                                                "Parameter",
                                                                "Parameter",
                                                                "Function",
                                                                "Parameter",
                                                                "Activity Type Output",
                                                                "Activity Type Parameter",
                                                                "Activity Type Function",
                                                                "Output",
                                                                "Output",
                                                                "",
                                                                "",
                                                                "",
                                                                ""};

/// Behind the name in a list of `ProviderFor` entries.
inline constexpr std::string_view kProviderForSuffix = " - Output";

}  // namespace orvent::entities
