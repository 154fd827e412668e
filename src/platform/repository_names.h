#pragma once

#include <array>
#include <string_view>

namespace orvent::platform {

/// The tables of a repository, each in its one spelling; whoever compares them does so without regard to case.
inline constexpr std::array<std::string_view, 17> kRepositoryTables = {"Scenarios",
                                                                       "Lines",
                                                                       "RelationShips",
                                                                       "ScenarioNodes",
                                                                       "Comments",
                                                                       "Activities",
                                                                       "ActivityFunctions",
                                                                       "FunctionSubNodes",
                                                                       "ActivitySubNodes",
                                                                       "RecordSets",
                                                                       "RecordSetOutPuts",
                                                                       "ActivityTypes",
                                                                       "ActivityTypesFunctions",
                                                                       "ActivityTypesParams",
                                                                       "FunctionTypes",
                                                                       "FunctionTypesParams",
                                                                       "DataTypes"};

/// Its sequences, one a kind of identifier.
inline constexpr std::array<std::string_view, 4> kRepositorySequences = {"Scenario_ID_seq", "Node_ID_seq",
                                                                         "SubNode_ID_seq", "Function_ID_seq"};

}  // namespace orvent::platform
