#pragma once

#include "exchange/document.h"
#include "exchange/value_reader.h"

namespace orvent::exchange {

/// Reads which rows the nodes of a document stand for. Throws a `BadDocument`, also when these are not as many as the
/// document needs.
StoredState readStored(const ValueReader& in, JsonTree::Place at, const Document& document);

}  // namespace orvent::exchange
