#pragma once

#include "exchange/type_definitions.h"
#include "exchange/value_reader.h"

namespace orvent::exchange {

/// Reads a block of definitions of types. Throws a `BadDocument`.
TypeDefinitions readTypes(const ValueReader& in, JsonTree::Place at);

}  // namespace orvent::exchange
