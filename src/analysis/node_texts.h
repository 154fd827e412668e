#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "canvas/canvas.h"
#include "entities/name_tables.h"

namespace orvent::analysis {

/// A node of a canvas, or a member of what it stands for. Positions are 1-based.
struct Place {
    canvas::NodeNumber node{};                         ///< `Index`, 0 for no place
    entities::NodeKindCode list = entities::KindFree;  ///< in which the member stands; `KindFree`: the node itself
    std::int32_t function = 0;                         ///< the one that has the member, or that it is
    std::int32_t member = 0;                           ///< 0: the function itself, or the node

    bool isNode() const { return list == entities::KindFree; }
    bool operator==(const Place&) const = default;
};

/// Which text of a place.
enum class TextKind : std::uint8_t { name, caption, key, type, source, constant, sql, ldl, description, log, comment };

/// What people call it: "SQL statement", "name".
std::string_view titleOf(TextKind kind);

/// What a place is, as a search by kind has it.
enum class PlaceKind : std::uint8_t {
    other,
    activity,
    recordSet,
    comment,
    log,
    constant,
    attribute,
    input,
    output,
    parameter,
    function,
    functionInput,
    functionOutput,
};
inline constexpr std::size_t kPlaceKinds = static_cast<std::size_t>(PlaceKind::functionOutput) + 1;

/// As it is written in a search: "record-set".
std::string_view wordOf(PlaceKind kind);

/// Who is told the texts of a node.
class TextVisitor {
  public:
    virtual ~TextVisitor() = default;

    /// The texts of another place begin. It is free when it could be linked, and no link nor edge is there.
    virtual void place(const Place& place, PlaceKind kind, bool isFree) = 0;
    /// A text of that place. None is empty, and what its name says already is not told again.
    virtual void text(TextKind kind, std::string_view text) = 0;
};

/// Tells all texts of a node, its own and then those of its members in the order of the lists. Members that the canvas
/// shows as nodes of their own are told with these.
void visitTexts(const canvas::Canvas& canvas, const canvas::LabelsD& node, const entities::CatalogueTables& tables,
                TextVisitor& visitor);

/// A place in words.
struct PlaceWords {
    PlaceKind kind = PlaceKind::other;
    std::string owner;   ///< the node's caption
    std::string member;  ///< the member's name, with that of its function; empty for a node
    std::string text;    ///< the text asked for; empty when there is none any more
};
PlaceWords wordsOf(const canvas::Canvas& canvas, const Place& place, TextKind text,
                   const entities::CatalogueTables& tables);

}  // namespace orvent::analysis
