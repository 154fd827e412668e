#pragma once

#include <cstdint>
#include <string>

#include "canvas/canvas.h"
#include "entities/nodes.h"
#include "links/far_end.h"

namespace orvent::links {

// To synchronise an entity is to write, for each link that it holds, the mirror link at the far end, and to draw the
// edge where both ends have a node of their own. It is idempotent and touches only the immediate far ends; a far end
// that does not exist is skipped. No `Changed` is set.
//
// `InDialog` is the working activity of the open activity dialog when the entity belongs to it, null otherwise.

void SynchronizeAttribute(canvas::Canvas& Form, entities::AttributeProperties& attribute,
                          entities::ActivityProperties* InDialog);
void SynchronizeParameter(canvas::Canvas& Form, entities::ParameterProperties& parameter,
                          entities::ActivityProperties* InDialog);
void SynchronizeFunction(canvas::Canvas& Form, entities::FunctionProperties& function,
                         entities::ActivityProperties* InDialog);
void SynchronizeActivity(canvas::Canvas& Form, entities::ActivityProperties& activity,
                         entities::ActivityProperties* InDialog);
void SynchronizeRecordSet(canvas::Canvas& Form, entities::RecordSetProperties& recordSet);

// One link of the entity `E` at a time.

void SynchronizeProvidedFrom(canvas::Canvas& Form, const NearEnd& E, entities::ProviderProperties& Link,
                             entities::ActivityProperties* InDialog);
void SynchronizeProviderFor(canvas::Canvas& Form, const NearEnd& E, entities::ProviderProperties& Link,
                            entities::ActivityProperties* InDialog);
void SynchronizeRegulatedFrom(canvas::Canvas& Form, const NearEnd& E, entities::RegulatorProperties& Link,
                              entities::ActivityProperties* InDialog);
void SynchronizeRegulatorFor(canvas::Canvas& Form, const NearEnd& E, entities::RegulatorProperties& Link,
                             entities::ActivityProperties* InDialog);

}  // namespace orvent::links
