#pragma once

#include "canvas/draw_form.h"
#include "exchange/json_text.h"

namespace orvent::exchange {

/// Writes which rows of the repository a window's scenario stands for.
void writeStored(JsonText& out, const canvas::DrawForm& form);

}  // namespace orvent::exchange
