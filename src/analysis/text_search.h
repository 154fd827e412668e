#pragma once

#include <string>
#include <utility>
#include <vector>

#include "analysis/search_query.h"
#include "analysis/text_index.h"

namespace orvent::analysis {

/// A text that was found.
struct TextHit {
    Place place;
    TextKind text = TextKind::name;

    bool operator==(const TextHit&) const = default;
};

/// What is unfinished: node and member, the name of the latter empty for the node itself; ascending by node.
using Unfinished = std::vector<std::pair<canvas::NodeNumber, std::string>>;

/// Searches a canvas piece by piece, by the numbers of its nodes. All words must stand in the texts of one place, where
/// a member has its node's name, too; the hits of a place are its texts with the first of the words that it has itself.
/// Without words each place that the filters let through is one hit.
class TextSearch {
  public:
    /// The index outlives the search.
    TextSearch(TextIndex& index, SearchQuery query, Unfinished unfinished = {});
    TextSearch(const TextSearch&) = delete;  // it holds places in its own words
    TextSearch& operator=(const TextSearch&) = delete;

    /// Goes on for about so many letters, and adds what it finds. False when all has been searched.
    bool searchOn(std::size_t letters, std::vector<TextHit>& hits);

    const SearchQuery& query() const { return query_; }

  private:
    /// The texts of a node that have a word, ascending.
    struct Found {
        const std::string* word;
        std::size_t rarest;
        std::vector<std::uint32_t> texts = {};
        std::size_t next = 0;

        const char* nextIn(const char* begin, const char* end) const;
        bool isIn(const NodeTexts& of, std::size_t place);
    };

    void searchNode(const NodeTexts& texts, std::vector<TextHit>& hits);
    bool findWords(const NodeTexts& texts);
    void searchPlace(const NodeTexts& texts, std::size_t at, std::vector<TextHit>& hits);
    bool passes(const NodeTexts& texts, std::size_t at) const;
    bool isUnfinished(const NodeTexts& texts, std::size_t at) const;

    TextIndex& index_;
    SearchQuery query_;
    Unfinished unfinished_;
    std::vector<Found> found_;  ///< by the words, of the node at hand
    canvas::NodeNumber next_{1};
};

}  // namespace orvent::analysis
