#pragma once

#include <string>

#include "canvas/draw_form.h"

namespace orvent::statements {

/// The rules that tie the activities and record sets of a scenario together, as LDL text with CR LF line ends: one for
/// each input source of each activity, and one for each record set that is fed. A link that leads nowhere is a `Fault`.
std::string ScenarioLinkRules(const canvas::DrawForm& form);

}  // namespace orvent::statements
