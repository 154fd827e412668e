#pragma once

#include "exchange/json_text.h"
#include "exchange/type_definitions.h"

namespace orvent::exchange {

/// Writes the block of definitions of types.
void writeTypes(JsonText& out, const TypeDefinitions& types);

}  // namespace orvent::exchange
