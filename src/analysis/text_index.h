#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "analysis/node_texts.h"

namespace orvent::analysis {

/// The texts of a node in lower case, so that a search needs to look at them only once.
struct NodeTexts {
    struct Text {
        std::uint32_t begin, end;  ///< in `letters`
        TextKind kind;
    };
    struct At {
        Place place;
        std::uint32_t begin;      ///< in `letters`, up to that of the next one
        std::uint32_t firstText;  ///< in `texts`, likewise
        PlaceKind kind;
        bool isFree;
    };

    std::string letters;  ///< all texts, each behind a line end
    std::vector<Text> texts;
    std::vector<At> places;       ///< the node's own comes first, an end behind the last
    std::uint32_t catalogue = 0;  ///< as the names of types were
    bool fresh = false;
};

/// The texts of the nodes of a canvas, gathered when they are first asked for.
class TextIndex {
  public:
    /// Both outlive the index.
    TextIndex(const canvas::Canvas& canvas, const entities::CatalogueTables& tables)
        : canvas_(canvas), tables_(tables) {}

    /// These have changed, came or went.
    void touch(const canvas::Touched& touched);
    void touchAll() {
        nodes_.clear();
        next_ = canvas::NodeNumber{1};
    }

    const canvas::Canvas& canvas() const { return canvas_; }
    const entities::CatalogueTables& tables() const { return tables_; }

    /// Of a node that is there. They live until the next call. `work` grows by what it costs, in letters that a search
    /// could have looked at meanwhile.
    const NodeTexts& of(const canvas::LabelsD& node, std::size_t& work);
    /// Gathers ahead for about so much work. False when there is no more.
    bool gatherOn(std::size_t letters);

  private:
    void touch(canvas::NodeNumber node);

    const canvas::Canvas& canvas_;
    const entities::CatalogueTables& tables_;
    std::vector<NodeTexts> nodes_;  ///< by `Index`
    canvas::NodeNumber next_{1};    ///< to be gathered ahead
};

}  // namespace orvent::analysis
