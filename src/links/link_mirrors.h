#pragma once

#include "links/mirror_lists.h"

namespace orvent::links {

/// What is done to the mirrors of links at their far ends: synchronising writes them and draws edges, unsynchronising
/// erases both. All else is the same for the two.
enum class Work { Write, Erase };

void mirrorLink(Work work, canvas::Canvas& Form, Direction direction, const NearEnd& near,
                entities::ProviderProperties& link, entities::ActivityProperties* InDialog);
void mirrorLink(Work work, canvas::Canvas& Form, Direction direction, const NearEnd& near,
                entities::RegulatorProperties& link, entities::ActivityProperties* InDialog);

/// All links of an entity in the fixed order: provided from, provider for, regulated from, regulator for.
void mirrorLinks(Work work, canvas::Canvas& Form, entities::AttributeProperties& attribute,
                 entities::ActivityProperties* InDialog);
void mirrorLinks(Work work, canvas::Canvas& Form, entities::ParameterProperties& parameter,
                 entities::ActivityProperties* InDialog);

/// Writes the mirror of a link and draws the edge where both ends have a node. A mirror that is there stays as it is.
entities::ProviderProperties& writeMirror(canvas::Canvas& Form, entities::ProviderProperties& link,
                                          entities::Lazy<entities::ProviderLinks>& mirrors, const MirrorEnds& ends);
entities::RegulatorProperties& writeMirror(canvas::Canvas& Form, entities::RegulatorProperties& link,
                                           entities::Lazy<entities::RegulatorLinks>& mirrors, const MirrorEnds& ends);

/// Draws a link between two nodes of the canvas and stores the edge's `Index` on both ends of the link, `kNoEdge` when
/// one of the nodes does not exist.
void AddProviderEdge(canvas::Canvas& Form, canvas::NodeNumber FromLabel, canvas::NodeNumber ToLabel,
                     entities::ProviderProperties& Link, entities::ProviderProperties& Mirror);
void AddRegulatorEdge(canvas::Canvas& Form, canvas::NodeNumber FromLabel, canvas::NodeNumber ToLabel,
                      entities::RegulatorProperties& Link, entities::RegulatorProperties& Mirror);

}  // namespace orvent::links
