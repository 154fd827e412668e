#pragma once

#include <string>

#include "app/cli_ports.h"
#include "canvas/draw_form.h"

namespace orvent::app {

/// Gives each record set the rows of the file of that folder with its name. A file that no record set has the name of
/// is told. Throws a `platform::Fault`.
void readFacts(canvas::DrawForm& form, const std::string& folder, AnsweredBox& box);

}  // namespace orvent::app
