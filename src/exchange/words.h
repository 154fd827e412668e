#pragma once

#include <optional>
#include <string_view>

#include "canvas/lines.h"
#include "canvas/node_kinds.h"
#include "entities/key_grammar.h"
#include "entities/link_types.h"

namespace orvent::exchange {

// The words by which a document calls the codes. A code that no word stands for is written as its number.

/// The word, empty for a code that has none.
std::string_view wordOf(canvas::NodeTypeCode code);
std::string_view wordOf(canvas::EdgeTypeCode code);
std::string_view wordOf(canvas::AngleCode code);
std::string_view wordOf(entities::NodeKindCode code);
std::string_view wordOf(entities::LinkType code);

/// The code that a word stands for, or nothing.
template <class Code>
std::optional<Code> codeOf(std::string_view word);

}  // namespace orvent::exchange
