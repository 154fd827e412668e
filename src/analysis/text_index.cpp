#include "analysis/text_index.h"

#include <algorithm>

#include "platform/letter_case.h"

namespace orvent::analysis {

namespace {

constexpr std::size_t kLettersAGather = 20;  // so many are searched while one is put in lower case
constexpr std::size_t kLettersAPlace = 400;

class Gatherer : public TextVisitor {
  public:
    explicit Gatherer(NodeTexts& texts) : texts_(texts) {}

    void place(const Place& place, PlaceKind kind, bool isFree) override {
        texts_.places.push_back({place, here(), static_cast<std::uint32_t>(texts_.texts.size()), kind, isFree});
    }
    void text(TextKind kind, std::string_view text) override {
        texts_.letters += '\n';
        const std::uint32_t begin = here();
        texts_.letters += platform::lowerLetters(text);
        texts_.texts.push_back({begin, here(), kind});
    }
    void end() { place({}, PlaceKind::other, false); }

  private:
    std::uint32_t here() const { return static_cast<std::uint32_t>(texts_.letters.size()); }

    NodeTexts& texts_;
};

}  // namespace

void TextIndex::touch(canvas::NodeNumber node) {
    if (canvas::isGiven(node) && static_cast<std::size_t>(node) < nodes_.size()) {
        nodes_[static_cast<std::size_t>(node)] = {};
        next_ = std::min(next_, node);
    }
}

void TextIndex::touch(const canvas::Touched& touched) {
    for (const canvas::NodeNumber node : touched.nodes) {
        touch(node);
    }
    for (const canvas::NodeNumber node : touched.heads) {
        touch(node);
    }
}

const NodeTexts& TextIndex::of(const canvas::LabelsD& node, std::size_t& work) {
    const auto at = static_cast<std::size_t>(node.Index());
    if (at >= nodes_.size()) {
        nodes_.resize(std::max(at, static_cast<std::size_t>(canvas_.LabelsNo)) + 1);
    }
    NodeTexts& texts = nodes_[at];
    const std::uint32_t catalogue =
        tables_.dataTypes.changes() + tables_.functionTypes.changes() + tables_.activityTypes.changes();
    if (!texts.fresh || texts.catalogue != catalogue) {
        texts = {};
        Gatherer gatherer(texts);
        visitTexts(canvas_, node, tables_, gatherer);
        gatherer.end();
        texts.letters.shrink_to_fit();
        texts.fresh = true;
        texts.catalogue = catalogue;
        work += kLettersAGather * texts.letters.size() + kLettersAPlace * texts.places.size();
    }
    return texts;
}

bool TextIndex::gatherOn(std::size_t letters) {
    for (std::size_t work = 0; work < letters && next_ <= canvas_.LabelsNo; next_ = canvas::numberAfter(next_)) {
        if (const canvas::LabelsD* node = canvas_.Labels.byIndex(next_)) {
            of(*node, work);
        }
    }
    return next_ <= canvas_.LabelsNo;
}

}  // namespace orvent::analysis
