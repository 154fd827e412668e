#pragma once

#include <functional>
#include <optional>
#include <string>
#include <unordered_set>

#include "canvas/canvas.h"
#include "statements/template_advice.h"

namespace orvent::statements {

// What does not fit between an activity and its sources. The activity may stand beside the canvas, as the copy of a
// dialog does, whose links have no other end there.

/// That its data runs in a circle of activities. A record set in between keeps the data, so it ends the way.
std::optional<Advice> circleThrough(const canvas::Canvas& form, const entities::ActivityProperties& activity);

/// That the template, which is asked for only then, has no room for one of several sources. Once there is a statement,
/// whether that fits is told of it.
std::optional<Advice> sourceLeftOut(const entities::ActivityProperties& activity,
                                    const std::function<std::string()>& templateText);

/// The names of all activities of the canvas that may be part of a circle; of an ordinary scenario none.
std::unordered_set<std::string> activitiesInCircles(const canvas::Canvas& form);

}  // namespace orvent::statements
