#pragma once

#include <cstdint>
#include <string_view>

/// The statements on the scenario tables, in the Oracle dialect, exactly as they are sent. Table and column names are
/// case-insensitive, so their mixed spellings name the same things.
namespace orvent::repository::sql {

// clang-format off

// Reads.
inline constexpr std::string_view kScenariosOfUser = "SELECT Scenario_Name,Scenario_ID From Scenarios WHERE User_Name=?";
inline constexpr std::string_view kScenarioName = "SELECT Scenario_Name FROM Scenarios WHERE Scenario_ID =?";
inline constexpr std::string_view kScenarioByName = "SELECT Scenario_ID FROM Scenarios WHERE Scenario_Name=?";
inline constexpr std::string_view kNodes = "SELECT Node_ID,Node_Name,Node_Type,Left,Top,Width,Height FROM ScenarioNodes WHERE Scenario_ID=?";
inline constexpr std::string_view kNodeTypes = "SELECT Node_ID,Node_Type FROM ScenarioNodes WHERE Scenario_ID=?";
inline constexpr std::string_view kLines = "SELECT From_Label,From_Grab_Point,To_Label,To_Grab_Point,Edge_Type,Angle FROM Lines WHERE Scenario_ID=?";
inline constexpr std::string_view kCommentText = "SELECT Comment_Text FROM Comments WHERE Comment_ID=?";
inline constexpr std::string_view kActivity = "SELECT Activity_Descr,Activity_Type,Activity_Log,Activity_SQL,Activity_LDL,Activity_SchemaNo FROM Activities WHERE Activity_ID=?";
inline constexpr std::string_view kActivitySubNodes = "SELECT SubNode_ID,SubNode_Key,SubNode_Kind,SubNode_Name,SubNode_Type,SubNode_Tag FROM ActivitySubNodes WHERE Activity_ID=?";
inline constexpr std::string_view kActivityFunctions = "SELECT Function_ID,Function_Key,Function_Source,Function_Type FROM ActivityFunctions WHERE Activity_ID=?";
inline constexpr std::string_view kFunctionSubNodes = "SELECT SubNode_ID,SubNode_Key,SubNode_Kind,SubNode_Name,SubNode_Type FROM FunctionSubNodes WHERE Function_ID=?";
inline constexpr std::string_view kLinksByKind = "SELECT Relationship_Kind,From_Key,From_Type,From_Name FROM Relationships WHERE Subnode_ID=?";
inline constexpr std::string_view kLinks = "SELECT From_Key,From_Type,From_Name FROM Relationships WHERE Subnode_ID=?";
inline constexpr std::string_view kRecordSet = "SELECT RecordSet_SQL FROM RecordSets WHERE RecordSet_ID=?";
inline constexpr std::string_view kRecordSetOutputs = "SELECT Output_ID,Output_Key,DB_Key,Output_Type FROM RecordSetOutputs WHERE RecordSet_ID=?";
inline constexpr std::string_view kScenarioOwner = "SELECT User_Name FROM Scenarios WHERE Scenario_Name=?";

// All rows of a scenario at once, each behind its owner.
inline constexpr std::string_view kRecordSetsOf = "SELECT RecordSet_ID,RecordSet_SQL FROM RecordSets WHERE RecordSet_ID IN (SELECT Node_ID FROM ScenarioNodes WHERE Scenario_ID=?)";
inline constexpr std::string_view kRecordSetOutputsOf = "SELECT RecordSet_ID,Output_ID,Output_Key,DB_Key,Output_Type FROM RecordSetOutputs WHERE RecordSet_ID IN (SELECT Node_ID FROM ScenarioNodes WHERE Scenario_ID=?)";
inline constexpr std::string_view kActivitiesOf = "SELECT Activity_ID,Activity_Descr,Activity_Type,Activity_Log,Activity_SQL,Activity_LDL,Activity_SchemaNo FROM Activities WHERE Activity_ID IN (SELECT Node_ID FROM ScenarioNodes WHERE Scenario_ID=?)";
inline constexpr std::string_view kActivitySubNodesOf = "SELECT Activity_ID,SubNode_ID,SubNode_Key,SubNode_Kind,SubNode_Name,SubNode_Type,SubNode_Tag FROM ActivitySubNodes WHERE Activity_ID IN (SELECT Node_ID FROM ScenarioNodes WHERE Scenario_ID=?)";
inline constexpr std::string_view kActivityFunctionsOf = "SELECT Activity_ID,Function_ID,Function_Key,Function_Source,Function_Type FROM ActivityFunctions WHERE Activity_ID IN (SELECT Node_ID FROM ScenarioNodes WHERE Scenario_ID=?)";
inline constexpr std::string_view kFunctionSubNodesOf = "SELECT Function_ID,SubNode_ID,SubNode_Key,SubNode_Kind,SubNode_Name,SubNode_Type FROM FunctionSubNodes WHERE Function_ID IN (SELECT Function_ID FROM ActivityFunctions WHERE Activity_ID IN (SELECT Node_ID FROM ScenarioNodes WHERE Scenario_ID=?))";
inline constexpr std::string_view kLinksOf = "SELECT Node_ID,SubNode_ID,Relationship_Kind,From_Key,From_Name,From_Type FROM RelationShips WHERE Node_ID IN (SELECT Node_ID FROM ScenarioNodes WHERE Scenario_ID=?)";
inline constexpr std::string_view kCommentsOf = "SELECT Comment_ID,Comment_Text FROM Comments WHERE Comment_ID IN (SELECT Node_ID FROM ScenarioNodes WHERE Scenario_ID=?)";

// Whether a row is there, by its identifier.
inline constexpr std::string_view kHasNode = "SELECT Node_ID FROM ScenarioNodes WHERE Node_ID=?";
inline constexpr std::string_view kHasRecordSet = "SELECT RecordSet_ID FROM RecordSets WHERE RecordSet_ID=?";
inline constexpr std::string_view kHasRecordSetOutput = "SELECT Output_ID FROM RecordSetOutputs WHERE Output_ID=?";
inline constexpr std::string_view kHasActivity = "SELECT Activity_ID FROM Activities WHERE Activity_ID=?";
inline constexpr std::string_view kHasActivityFunction = "SELECT Function_ID FROM ActivityFunctions WHERE Function_ID=?";
inline constexpr std::string_view kHasActivitySubNode = "SELECT SubNode_ID FROM ActivitySubNodes WHERE SubNode_ID=?";
inline constexpr std::string_view kHasFunctionSubNode = "SELECT SubNode_ID FROM FunctionSubNodes WHERE SubNode_ID=?";
inline constexpr std::string_view kHasComment = "SELECT Comment_ID FROM Comments WHERE Comment_ID=?";

// The identifier that the INSERT just before has given.
inline constexpr std::string_view kScenarioIdentifier = "SELECT Scenario_ID_seq.CURRVAL FROM dual";
inline constexpr std::string_view kNodeIdentifier = "SELECT Node_ID_seq.CURRVAL FROM dual";
inline constexpr std::string_view kSubNodeIdentifier = "SELECT SubNode_ID_seq.CURRVAL FROM dual";
inline constexpr std::string_view kFunctionIdentifier = "SELECT Function_ID_seq.CURRVAL FROM dual";

// Draws an identifier; that of a row to come is the one behind it.
inline constexpr std::string_view kDrawNode = "SELECT Node_ID_seq.NEXTVAL FROM dual";
inline constexpr std::string_view kDrawSubNode = "SELECT SubNode_ID_seq.NEXTVAL FROM dual";
inline constexpr std::string_view kDrawFunction = "SELECT Function_ID_seq.NEXTVAL FROM dual";

// Inserts, with the values in the order of the table's columns.
inline constexpr std::string_view kAddScenario = "INSERT INTO Scenarios VALUES (?,Scenario_ID_seq.NEXTVAL,?)";
inline constexpr std::string_view kAddNode = "INSERT INTO ScenarioNodes VALUES (?,Node_ID_seq.NEXTVAL,?,?,?,?,?,?)";
inline constexpr std::string_view kAddLine = "INSERT INTO Lines Values(?,?,?,?,?,?,?)";
inline constexpr std::string_view kAddRecordSet = "INSERT INTO RecordSets VALUES (?,?)";
inline constexpr std::string_view kAddRecordSetOutput = "INSERT INTO RecordSetOutputs VALUES(?,SubNode_ID_seq.NEXTVAL,?,?,?) ";
inline constexpr std::string_view kAddActivity = "INSERT INTO Activities VALUES (?,?,?,?,?,?,?)";
inline constexpr std::string_view kAddActivityFunction = "INSERT INTO ActivityFunctions VALUES( ?,Function_ID_seq.NEXTVAL,?,?,?)";
inline constexpr std::string_view kAddActivitySubNode = "INSERT INTO ActivitySubNodes VALUES(?,SubNode_ID_seq.NEXTVAL,?,?,?,?,?) ";
inline constexpr std::string_view kAddFunctionSubNode = "INSERT INTO FunctionSubNodes VALUES(?,SubNode_ID_seq.NEXTVAL,?,?,?,?) ";
inline constexpr std::string_view kAddLink = "INSERT INTO RelationShips VALUES(?,?,?,?,?,?)";
inline constexpr std::string_view kAddComment = "INSERT INTO Comments VALUES (?,?)";

// Updates.
inline constexpr std::string_view kRenameScenario = "UPDATE Scenarios SET Scenario_Name=? WHERE Scenario_ID=?";
inline constexpr std::string_view kChangeNode = "UPDATE ScenarioNodes SET Node_Name=?,Left=?,Top=?,Width=?,Height=? WHERE Node_ID=?";
inline constexpr std::string_view kMoveNode = "UPDATE ScenarioNodes SET Left=?,Top=?,Width=?,Height=? WHERE Node_ID=?";
inline constexpr std::string_view kChangeRecordSet = "UPDATE RecordSets SET RecordSet_SQL=? WHERE RecordSet_ID=?";
inline constexpr std::string_view kChangeRecordSetOutput = "UPDATE RecordSetOutputs SET Output_Key=? WHERE Output_ID=? ";
inline constexpr std::string_view kChangeActivity = "UPDATE Activities SET Activity_Descr=?,Activity_Type=?,Activity_Log=?,Activity_SQL=?,Activity_LDL=?,Activity_SchemaNo=? WHERE Activity_ID=?";
inline constexpr std::string_view kChangeActivityFunction = "UPDATE ActivityFunctions SET Function_Key=?,Function_Type=? WHERE Function_ID=?";
inline constexpr std::string_view kChangeActivitySubNode = "UPDATE ActivitySubNodes SET SubNode_Key=?,SubNode_Name=?,SubNode_Type=? WHERE SubNode_ID=? ";
inline constexpr std::string_view kChangeFunctionSubNode = "UPDATE FunctionSubNodes SET SubNode_Key=?,SubNode_Name=?,SubNode_Type=? WHERE SubNode_ID=? ";
inline constexpr std::string_view kChangeComment = "UPDATE Comments SET Comment_Text=? WHERE Comment_ID=?";

// Deletes.
inline constexpr std::string_view kDropNodeLinks = "DELETE FROM Relationships WHERE Node_ID=?";
inline constexpr std::string_view kDropSubNodeLinks = "DELETE FROM Relationships WHERE SubNode_ID=?";
inline constexpr std::string_view kDropNode = "DELETE FROM ScenarioNodes WHERE Node_ID=?";
inline constexpr std::string_view kDropNodes = "DELETE FROM ScenarioNodes WHERE Scenario_ID=?";
inline constexpr std::string_view kDropLines = "DELETE FROM Lines WHERE Scenario_ID=?";
inline constexpr std::string_view kDropScenario = "DELETE FROM Scenarios WHERE Scenario_ID=?";
inline constexpr std::string_view kDropRecordSet = "DELETE FROM RecordSets WHERE RecordSet_ID=?";
inline constexpr std::string_view kDropRecordSetOutputs = "DELETE FROM RecordSetOutputs WHERE RecordSet_ID=?";
inline constexpr std::string_view kDropRecordSetOutput = "DELETE FROM RecordSetOutputs WHERE Output_ID=?";
inline constexpr std::string_view kDropActivity = "DELETE FROM Activities WHERE Activity_ID=?";
inline constexpr std::string_view kDropActivitySubNodes = "DELETE FROM ActivitySubNodes WHERE Activity_ID=?";
inline constexpr std::string_view kDropActivitySubNode = "DELETE FROM ActivitySubNodes WHERE SubNode_ID=?";
inline constexpr std::string_view kDropActivityFunctions = "DELETE FROM ActivityFunctions WHERE Activity_ID=?";
inline constexpr std::string_view kDropFunction = "DELETE FROM ActivityFunctions WHERE Function_ID=?";
inline constexpr std::string_view kDropActivityFunctionSubNodes = "DELETE FROM FunctionSubNodes WHERE Function_ID IN (SELECT FUNCTION_ID FROM ActivityFunctions WHERE Activity_ID=?)";
inline constexpr std::string_view kDropFunctionSubNodes = "DELETE FROM FunctionSubNodes WHERE Function_ID=?";
inline constexpr std::string_view kDropFunctionSubNode = "DELETE FROM FunctionSubNodes WHERE SubNode_ID=?";
inline constexpr std::string_view kDropComment = "DELETE FROM Comments WHERE Comment_ID=?";
// A whole scenario is removed with this spelling.
inline constexpr std::string_view kDropRelationShips = "DELETE FROM RelationShips WHERE Node_ID=?";

// clang-format on

/// `Relationship_Kind` of a stored link.
enum LinkKind : std::int16_t { kRegulatedFrom = 1, kProvidedFrom = 2, kProviderFor = 3 };

}  // namespace orvent::repository::sql
