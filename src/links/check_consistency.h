#pragma once

#include <optional>
#include <string>
#include <vector>

#include "canvas/draw_form.h"
#include "platform/dialogs.h"

namespace orvent::links {

/// An edge by the names that its nodes show.
struct EdgeNames {
    std::string from, to;

    bool operator==(const EdgeNames&) const = default;
};

/// What a check has changed: edges that no link stands behind are deleted, those that the links lacked are drawn. One
/// that was there and is drawn anew is neither.
struct EdgeChanges {
    std::vector<EdgeNames> drawn, deleted;
};

/// Makes the provider edges of a design window agree with the links of its entities, after a question: all that are
/// there go, and for each pair of nodes joined by links one is drawn. Nothing when the user cancelled, and nothing has
/// changed then. A link to a node that is gone is skipped.
std::optional<EdgeChanges> CheckConsistency(canvas::Canvas& form, platform::Progress& progress);

/// The nodes from which a check draws an edge to a node; one that provides and regulates stands there twice.
std::vector<const canvas::LabelsD*> edgeStarts(const canvas::Canvas& form, const canvas::LabelsD& node);

/// The edges that the links of a node's members ask for, to it and from it.
std::vector<canvas::WantedEdge> wantedEdges(const canvas::Canvas& form, const canvas::LabelsD& node);

/// "A → B"
std::string edgeWords(const EdgeNames& edge);
/// The changes in one line, with the first few names of each kind.
std::string changeWords(const EdgeChanges& changes);

}  // namespace orvent::links
