#pragma once

#include "canvas/numbers.h"

namespace orvent::program {

/// What a predicate's name means within one statement, as the tag of an atom.
namespace reference {

inline constexpr int kFunction = -1;
inline constexpr int kOutput = 0;  ///< of the activity itself
inline constexpr int kHelpers = 1 << 20;
inline constexpr int kRecordSets = 1 << 24;
inline constexpr int kActivities = 1 << 25;

/// Source `k` of the activity itself, from 1; it may be one that it does not have.
constexpr int source(int k) {
    return k;
}
constexpr bool isSource(int tag) {
    return tag > 0 && tag < kHelpers;
}
constexpr bool isHelper(int tag) {
    return tag >= kHelpers && tag < kRecordSets;
}
constexpr bool isRecordSet(int tag) {
    return tag >= kRecordSets && tag < kActivities;
}
/// The outputs of another activity.
constexpr bool isActivity(int tag) {
    return tag >= kActivities;
}
/// The number of the helper.
constexpr int helperIn(int tag) {
    return tag - kHelpers;
}
constexpr int recordSet(canvas::NodeNumber node) {
    return kRecordSets + static_cast<int>(node);
}
constexpr int activity(canvas::NodeNumber node) {
    return kActivities + static_cast<int>(node);
}
/// The record set or the other activity.
constexpr canvas::NodeNumber nodeIn(int tag) {
    return canvas::NodeNumber{tag - (isActivity(tag) ? kActivities : kRecordSets)};
}

}  // namespace reference

}  // namespace orvent::program
