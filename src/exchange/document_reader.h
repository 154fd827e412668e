#pragma once

#include <string_view>

#include "exchange/bad_document.h"
#include "exchange/document.h"
#include "exchange/json_tree.h"

namespace orvent::exchange {

/// Reads a document, any bytes. Throws a `BadDocument` with line and column of what is no JSON, and with the path of
/// what is no scenario. Far ends of links are not looked for here.
Document readDocument(std::string_view text);

/// The same of a text that was taken apart before.
Document readDocument(const JsonTree& tree);

}  // namespace orvent::exchange
