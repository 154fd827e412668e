#include "analysis/text_search.h"

#include <algorithm>
#include <cstring>

#include "platform/letter_case.h"

namespace orvent::analysis {

namespace {

constexpr std::string_view kOften = "zqjxwvkyfhgb(.)9876543p,_m21d0luscnr iotae";  // from rare to frequent
constexpr std::size_t kLettersANode = 100;  // for the way from one node to the next

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

/// Where the letter of a word stands that names and statements have least often.
std::size_t rarestLetter(std::string_view word) {
    const auto isRarer = [](char left, char right) { return kOften.find(left) + 1 < kOften.find(right) + 1; };
    return static_cast<std::size_t>(std::min_element(word.begin(), word.end(), isRarer) - word.begin());
}

}  // namespace

TextSearch::TextSearch(TextIndex& index, SearchQuery query, Unfinished unfinished)
    : index_(index), query_(std::move(query)), unfinished_(std::move(unfinished)) {
    for (const std::string& word : query_.words) {
        found_.push_back({&word, rarestLetter(word)});
    }
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

/// Notes the texts that have each of the words, by one look at the letters. False when a word is in none.
bool TextSearch::findWords(const NodeTexts& texts) {
    for (std::size_t word = 0; word < query_.words.size(); ++word) {
        Found& found = found_[word];
        found.texts.clear();
        found.next = 0;
        const char* const begin = texts.letters.data();
        const char* const end = begin + texts.letters.size();
        std::uint32_t text = 0;
        for (const char* at = found.nextIn(begin, end); at != end;
             at = found.nextIn(begin + texts.texts[text].end, end)) {
            while (texts.texts[text].end <= at - begin) {
                ++text;
            }
            found.texts.push_back(text);
        }
        if (found.texts.empty()) {
            return false;
        }
    }
    return true;
}

/// Where the word stands next, or the end: where its rarest letter is, the rest is compared.
const char* TextSearch::Found::nextIn(const char* begin, const char* end) const {
    for (begin += rarest; begin < end; ++begin) {
        begin = static_cast<const char*>(std::memchr(begin, (*word)[rarest], static_cast<std::size_t>(end - begin)));
        if (!begin || static_cast<std::size_t>(end - begin) < word->size() - rarest) {
            return end;
        }
        const char* const from = begin - rarest;
        if (*from == word->front() && (word->size() == 1 || std::memcmp(from, word->data(), word->size()) == 0)) {
            return from;
        }
    }
    return end;
}

/// Whether a text of the place has the word; places are asked after in their order.
bool TextSearch::Found::isIn(const NodeTexts& of, std::size_t place) {
    while (next < texts.size() && texts[next] < of.places[place].firstText) {
        ++next;
    }
    return next < texts.size() && texts[next] < of.places[place + 1].firstText;
}

void TextSearch::searchPlace(const NodeTexts& texts, std::size_t at, std::vector<TextHit>& hits) {
    const NodeTexts::At& place = texts.places[at];
    const std::uint32_t end = texts.places[at + 1].firstText;
    const Found* own = nullptr;
    for (std::size_t word = 0; word < query_.words.size(); ++word) {
        if (found_[word].isIn(texts, at)) {
            own = own ? own : &found_[word];
        } else if (query_.words.size() == 1 || at == 0 || !has(textOf(texts, 0, TextKind::name), query_.words[word])) {
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
    for (std::size_t next = own->next; next < own->texts.size() && own->texts[next] < end; ++next) {
        hits.push_back({place.place, texts.texts[own->texts[next]].kind});
    }
}

void TextSearch::searchNode(const NodeTexts& texts, std::vector<TextHit>& hits) {
    if (!findWords(texts)) {
        return;
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
