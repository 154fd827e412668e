#include "analysis/text_search.h"

#include <algorithm>

#include "platform/letter_case.h"

namespace orvent::analysis {

namespace {

constexpr std::size_t kLettersANode = 100;  // for the way from one node to the next

std::string_view lettersOf(const NodeTexts& texts, std::size_t place) {
    const std::uint32_t begin = texts.places[place].begin;
    return std::string_view(texts.letters).substr(begin, texts.places[place + 1].begin - begin);
}

std::string_view lettersOf(const NodeTexts& texts, const NodeTexts::Text& text) {
    return std::string_view(texts.letters).substr(text.begin, text.end - text.begin);
}

bool has(std::string_view text, std::string_view word) {
    return text.find(word) != std::string_view::npos;
}

/// The text of that kind of a place, empty when it has none.
std::string_view textOf(const NodeTexts& texts, std::size_t place, TextKind kind) {
    for (std::uint32_t at = texts.places[place].firstText; at < texts.places[place + 1].firstText; ++at) {
        if (texts.texts[at].kind == kind) {
            return lettersOf(texts, texts.texts[at]);
        }
    }
    return {};
}

}  // namespace

TextSearch::TextSearch(TextIndex& index, SearchQuery query, Unfinished unfinished)
    : index_(index), query_(std::move(query)), unfinished_(std::move(unfinished)) {
    for (auto& [node, member] : unfinished_) {
        member = platform::lowerLetters(member);
    }
}

bool TextSearch::isUnfinished(const NodeTexts& texts, std::size_t at) const {
    const Place& place = texts.places[at].place;
    const auto less = [](const auto& row, canvas::NodeNumber node) { return row.first < node; };
    auto row = std::lower_bound(unfinished_.begin(), unfinished_.end(), place.node, less);
    if (place.isNode()) {
        return row != unfinished_.end() && row->first == place.node;
    }
    const std::string_view name = textOf(texts, at, TextKind::name);
    for (; row != unfinished_.end() && row->first == place.node; ++row) {
        if (!row->second.empty() && row->second == name) {
            return true;
        }
    }
    return false;
}

bool TextSearch::passes(const NodeTexts& texts, std::size_t at) const {
    const NodeTexts::At& place = texts.places[at];
    if ((query_.kinds.any() && !query_.kinds.test(static_cast<std::size_t>(place.kind))) ||
        (query_.free && !place.isFree) || (query_.unfinished && !isUnfinished(texts, at))) {
        return false;
    }
    const std::string_view type = query_.types.empty() ? std::string_view() : textOf(texts, at, TextKind::type);
    return query_.types.empty() || std::any_of(query_.types.begin(), query_.types.end(),
                                               [&](const std::string& part) { return has(type, part); });
}

void TextSearch::searchPlace(const NodeTexts& texts, std::size_t at, std::vector<TextHit>& hits) const {
    const NodeTexts::At& place = texts.places[at];
    const std::uint32_t end = texts.places[at + 1].firstText;
    const std::string_view letters = lettersOf(texts, at);
    const std::string* own = nullptr;
    for (const std::string& word : query_.words) {
        if (has(letters, word)) {
            own = own ? own : &word;
        } else if (at == 0 || !has(textOf(texts, 0, TextKind::name), word)) {
            return;
        }
    }
    if ((!own && !query_.words.empty()) || !passes(texts, at)) {
        return;
    }
    if (!own) {
        hits.push_back({place.place, place.firstText < end ? texts.texts[place.firstText].kind : TextKind::name});
        return;
    }
    for (std::uint32_t text = place.firstText; text < end; ++text) {
        if (has(lettersOf(texts, texts.texts[text]), *own)) {
            hits.push_back({place.place, texts.texts[text].kind});
        }
    }
}

void TextSearch::searchNode(const NodeTexts& texts, std::vector<TextHit>& hits) const {
    for (const std::string& word : query_.words) {
        if (!has(texts.letters, word)) {
            return;
        }
    }
    for (std::size_t at = 0; at + 1 < texts.places.size(); ++at) {
        searchPlace(texts, at, hits);
    }
}

bool TextSearch::searchOn(std::size_t letters, std::vector<TextHit>& hits) {
    const canvas::Canvas& canvas = index_.canvas();
    if (query_.isEmpty() || !query_.fault.empty()) {
        next_ = canvas::numberAfter(canvas.LabelsNo);
    }
    for (std::size_t work = 0; work < letters && next_ <= canvas.LabelsNo; next_ = canvas::numberAfter(next_)) {
        work += kLettersANode;
        if (const canvas::LabelsD* node = canvas.Labels.byIndex(next_)) {
            const NodeTexts& texts = index_.of(*node, work);
            work += texts.letters.size();
            const std::size_t before = hits.size();
            searchNode(texts, hits);
            work += kLettersANode * (hits.size() - before);
        }
    }
    return next_ <= canvas.LabelsNo;
}

}  // namespace orvent::analysis
