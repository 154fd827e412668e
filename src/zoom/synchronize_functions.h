#pragma once

#include <cstdint>
#include <string>

#include "canvas/canvas.h"
#include "entities/nodes.h"
#include "zoom/far_end.h"
#include "zoom/member_rename.h"

namespace orvent::zoom {

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

/// Carries the new `Key` of an attribute down the data flow: to the inputs that read it, from an input to the outputs
/// and parameters of its activity, from an output to the inputs downstream, as far as they bear `OldKey`. The
/// attribute is either out of the links under its old key, and is synchronised afterwards, or in them under its new
/// one. An owner that has an entity of the new key already ends the chain. A key that a type brought,
/// `<activity>.<name>`, is followed like any other. Every renamed entity keeps its place, and so do the links on both
/// sides of it; `Changed` is set. Gives what was renamed.
Renames PropagateRename(canvas::Canvas& Form, entities::AttributeProperties& A, const std::string& OldKey);

}  // namespace orvent::zoom
