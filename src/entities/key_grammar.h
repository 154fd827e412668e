#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace orvent::entities {

/// `NodeKind` of an attribute-level entity, stored as `SubNode_Kind`; the last four stand for whole nodes that were
/// deleted.
enum class NodeKindCode : std::int16_t {
    KindFree = 0,
    KindInput = 1,
    KindOutput = 2,
    KindParameter = 3,
    KindRecordSetAttribute = 4,
    KindFunctionOutput = 5,
    KindFunctionInput = 6,
    KindFunction = 7,
    KindConstant = 8,
    DeletedActivity = 9,
    DeletedRecordSet = 10,
    DeletedComment = 11,
    DeletedLog = 12,
};
using enum NodeKindCode;

/// What stands between owner and name in a whole key: ".IN.", ".OUT.", ".PARAM.", "." - or nothing for kinds that have
/// no owner in their key.
std::string_view infix(NodeKindCode nodeKind);

/// `<owner>` + infix + `<key>`, such as "Activity2.IN.AU_ID". The owner is an entity's `ParentKeyName`.
std::string wholeKey(std::string_view owner, NodeKindCode nodeKind, std::string_view key);

/// The infix and the key, such as ".IN.AU_ID": how a link inside one activity names its far end.
std::string relativeKey(NodeKindCode nodeKind, std::string_view key);

// Text routines on keys. A dot that is missing counts as position 0.

bool HasDot(std::string_view s);
std::string AfterLastDot(std::string_view s);            ///< the whole text when there is no dot
std::string BetweenFirstAndLastDot(std::string_view s);  ///< empty with fewer than two dots
std::string BeforeFirstDot(std::string_view s);          ///< empty when there is no dot
std::string SecondSegment(std::string_view s);           ///< between the first and the second dot, or the rest
std::string AfterFirstDot(std::string_view s);           ///< the whole text when there is no dot
std::string AfterSecondDot(std::string_view s);          ///< the whole text with fewer than two dots
std::string BeforeParenthesis(std::string_view s);       ///< a data type's name without its size
std::string BeforeDash(std::string_view s);              ///< empty when no "-" stands after the first character

}  // namespace orvent::entities
