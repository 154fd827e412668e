#pragma once

#include <cstdint>

#include "entities/link_types.h"

namespace orvent::entities {

/// `Tag` codes: how a member came to its list. They are stored as `SubNode_Tag`, and a repository may hold others.
enum class TagCode : std::int16_t {
    TagNone = 0,
    TagRecordSet = 1,
    TagActivity = 2,
    TagRecordSetMirror = 3,  ///< an output beside the input that a record set provides
    TagActivityMirror = 4,   ///< likewise for an activity
    TagFunction = 5,
    TagConstant = 6,
    TagTypeOutput = 7,
    TagTypeParameter = 8,
    TagTypeFunction = 9,
    TagWizard = 15,  ///< an output that the wizard made
};
using enum TagCode;

/// The `Tag` of a member that came by a link of that type.
constexpr TagCode tagOf(LinkType type) {
    return static_cast<TagCode>(type);
}

/// The code of a link from an input to another member of its own activity, by the input's `Tag`: 4 for a new input.
constexpr LinkType innerLink(TagCode tag) {
    return tag == TagNone ? LinkActivityInput : static_cast<LinkType>(static_cast<int>(tag) + 2);
}

/// The `Tag` of the output that passes an input on, by the input's.
constexpr TagCode passedOn(TagCode input) {
    return static_cast<TagCode>(static_cast<int>(input) + 2);
}

/// `Function_Source` codes: how a function came to its activity. A repository may hold others.
enum class FunctionSourceCode : std::int16_t {
    SourceNone = 0,
    SourceOwn = 5,           ///< it was drawn by itself
    SourceActivityType = 9,  ///< the activity's type brought it
};
using enum FunctionSourceCode;

}  // namespace orvent::entities
