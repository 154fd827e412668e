#include "analysis/search_query.h"

#include <algorithm>
#include <utility>

#include "platform/letter_case.h"

namespace orvent::analysis {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";

/// Takes the next part off: up to a blank, where one in quotation marks is none.
std::string takePart(std::string_view& text) {
    std::string part;
    bool quoted = false;
    while (!text.empty() && (quoted || kBlanks.find(text.front()) == std::string_view::npos)) {
        if (text.front() == '"') {
            quoted = !quoted;
        } else {
            part += kBlanks.find(text.front()) == std::string_view::npos ? text.front() : ' ';
        }
        text.remove_prefix(1);
    }
    return part;
}

bool begins(std::string_view whole, std::string_view part) {
    return !part.empty() && whole.substr(0, part.size()) == part;
}

void addKinds(SearchQuery& query, const std::string& word) {
    std::bitset<kPlaceKinds> exact, begun;
    std::string known;
    for (std::size_t kind = 0; kind < kPlaceKinds; ++kind) {
        const std::string_view its = wordOf(static_cast<PlaceKind>(kind));
        exact.set(kind, !its.empty() && its == word);
        begun.set(kind, begins(its, word));
        known += its.empty() ? "" : (known.empty() ? "" : ", ") + std::string(its);
    }
    query.kinds |= exact.any() ? exact : begun;
    if (begun.none()) {
        query.fault = "kind: takes " + known + ".";
    }
}

void addState(SearchQuery& query, const std::string& word) {
    const bool unfinished = begins("unfinished", word);
    const bool free = begins("free", word);
    query.unfinished = query.unfinished || unfinished;
    query.free = query.free || free;
    if (!unfinished && !free) {
        query.fault = "is: takes unfinished or free.";
    }
}

}  // namespace

SearchQuery parseQuery(std::string_view text) {
    SearchQuery query;
    for (;;) {
        text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
        if (text.empty()) {
            return query;
        }
        const bool quoted = text.front() == '"';
        std::string part = platform::lowerLetters(takePart(text));
        const auto isFilter = [&](std::string_view name) { return !quoted && begins(part, name); };
        if (isFilter("kind:")) {
            addKinds(query, part.substr(5));
        } else if (isFilter("is:")) {
            addState(query, part.substr(3));
        } else if (isFilter("type:")) {
            if (part.size() > 5) {
                query.types.push_back(part.substr(5));
            }
        } else if (!part.empty()) {
            query.words.push_back(std::move(part));
        }
    }
}

}  // namespace orvent::analysis
