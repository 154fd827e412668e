#pragma once

#include "canvas/canvas.h"
#include "entities/nodes.h"
#include "links/far_end.h"

namespace orvent::links {

// The exact inverse of synchronising: for each link of an entity the mirror at the far end goes, and the edge that
// drew the two. Mirrors at entities that are not in the view stay. Twice does no more than once.
//
// With `ClearLinks` the entity's own links go, too, as deleting needs it; without, it can be changed and synchronised
// in again. `InDialog` as in synchronize_functions.h.

void UnSynchronizeAttribute(canvas::Canvas& Form, entities::AttributeProperties& attribute, bool ClearLinks,
                            entities::ActivityProperties* InDialog);
void UnSynchronizeParameter(canvas::Canvas& Form, entities::ParameterProperties& parameter, bool ClearLinks,
                            entities::ActivityProperties* InDialog);
void UnSynchronizeFunction(canvas::Canvas& Form, entities::FunctionProperties& function, bool ClearLinks,
                           entities::ActivityProperties* InDialog);
void UnSynchronizeActivity(canvas::Canvas& Form, entities::ActivityProperties& activity, bool ClearLinks,
                           entities::ActivityProperties* InDialog);
void UnSynchronizeRecordSet(canvas::Canvas& Form, entities::RecordSetProperties& recordSet, bool ClearLinks,
                            entities::ActivityProperties* InDialog);

// One link of the entity `E` at a time.

void UnSynchronizeProvidedFrom(canvas::Canvas& Form, const NearEnd& E, entities::ProviderProperties& Link,
                               entities::ActivityProperties* InDialog);
void UnSynchronizeProviderFor(canvas::Canvas& Form, const NearEnd& E, entities::ProviderProperties& Link,
                              entities::ActivityProperties* InDialog);
void UnSynchronizeRegulatedFrom(canvas::Canvas& Form, const NearEnd& E, entities::RegulatorProperties& Link,
                                entities::ActivityProperties* InDialog);
void UnSynchronizeRegulatorFor(canvas::Canvas& Form, const NearEnd& E, entities::RegulatorProperties& Link,
                               entities::ActivityProperties* InDialog);

}  // namespace orvent::links
