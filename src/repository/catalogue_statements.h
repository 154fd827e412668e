#pragma once

#include <string_view>

/// The statements on the type catalogue, exactly as they are sent.
namespace orvent::repository::sql {

// clang-format off

inline constexpr std::string_view kDataTypes = "SELECT datatype_name FROM datatypes";
inline constexpr std::string_view kFunctionTypes = "SELECT FunctionType_name FROM FunctionTypes";
inline constexpr std::string_view kActivityTypes = "SELECT ActivityType_name,ActivityType_SQL,ActivityType_LDL FROM ActivityTypes";
inline constexpr std::string_view kActivityTypeWords = "SELECT ActivityType_name,ActivityType_descr,ActivityType_SchemaNo FROM ActivityTypes";

inline constexpr std::string_view kActivityType = "SELECT ActivityType_descr,ActivityType_SQL,ActivityType_LDL,ActivityType_SchemaNo,ActivityType_ProviderSem,ActivityType_ConsumerSem FROM ActivityTypes WHERE ActivityType_name=?";
inline constexpr std::string_view kActivityTypeParams = "SELECT Param_name,Param_type FROM ActivityTypesParams WHERE ActivityType_name=? AND param_kind=?";
inline constexpr std::string_view kActivityTypeFunctions = "SELECT Function_name,Function_type FROM ActivityTypesFunctions WHERE ActivityType_name=? ";
inline constexpr std::string_view kFunctionType = "SELECT FunctionType_descr FROM FunctionTypes WHERE FunctionType_name=?";
inline constexpr std::string_view kFunctionTypeParams = "SELECT Param_name,Param_type FROM FunctionTypesParams WHERE FunctionType_name=? AND param_kind=?";

inline constexpr std::string_view kAddFunctionType = "INSERT INTO FUNCTIONTYPES VALUES (?,?)";
inline constexpr std::string_view kAddFunctionTypeParam = "INSERT INTO FUNCTIONTYPESPARAMS VALUES (?,?,?,?)";
inline constexpr std::string_view kAddActivityType = "INSERT INTO ActivityTYPES VALUES (?,?,?,?,?,?,?)";
inline constexpr std::string_view kAddActivityTypeParam = "INSERT INTO ActivityTYPESPARAMS VALUES (?,?,?,?)";
inline constexpr std::string_view kAddActivityTypeFunction = "INSERT INTO ActivityTYPESFUNCTIONS VALUES (?,?,?)";
inline constexpr std::string_view kAddDataType = "INSERT INTO DATATYPES VALUES (?)";

inline constexpr std::string_view kChangeFunctionType = "UPDATE FunctionTypes "
                                                        "SET FunctionType_name=? , FunctionType_descr=? "
                                                        "WHERE FunctionType_name=?";
inline constexpr std::string_view kChangeActivityType = "UPDATE ActivityTypes "
                                                        "SET ActivityType_name=? , ActivityType_descr=?,ActivityType_SQL=?,ActivityType_SchemaNo=?,ActivityType_ProviderSem=?,ActivityType_ConsumerSem=?,ActivityType_LDL=?  "
                                                        "WHERE ActivityType_name=?";
inline constexpr std::string_view kChangeDataType = "UPDATE DataTypes "
                                                    "SET DataType_name=? "
                                                    "WHERE DataType_name=?";

inline constexpr std::string_view kDropFunctionTypeParams = "DELETE FROM FunctionTypesParams WHERE FunctionType_name=?";
inline constexpr std::string_view kDropFunctionType = "DELETE FROM FunctionTypes WHERE FunctionType_name=?";
inline constexpr std::string_view kDropActivityTypeParams = "DELETE FROM ActivityTypesParams WHERE ActivityType_name=?";
inline constexpr std::string_view kDropActivityTypeFunctions = "DELETE FROM ActivityTypesFunctions WHERE ActivityType_name=?";
inline constexpr std::string_view kDropActivityType = "DELETE FROM ActivityTypes WHERE ActivityType_name=?";
inline constexpr std::string_view kDropDataType = "DELETE FROM Datatypes WHERE Datatype_name=?";

// clang-format on

// `param_kind` of a type's parameter row.
inline constexpr std::string_view kKindInput = "INPUT";
inline constexpr std::string_view kKindOutput = "OUTPUT";
inline constexpr std::string_view kKindParam = "PARAM";

}  // namespace orvent::repository::sql
