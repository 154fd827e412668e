#include "rules/words.h"

#include <algorithm>

#include "platform/text.h"

namespace orvent::rules {

const Word* Words::add(std::string_view spelling, Word word) {
    if (spelling.empty()) {
        return nullptr;
    }
    Table& table = tables_[word.kind == WordKind::name ? 0 : 1];
    const auto [entry, isNew] = table.words.try_emplace(std::string(spelling), std::move(word));
    if (!isNew) {
        Word& known = entry->second;
        known.ambiguous |= known.kind != word.kind || known.text != word.text || known.tag != word.tag;
        return &known;
    }
    if (!std::all_of(spelling.begin(), spelling.end(), isNameLetter)) {
        const auto place =
            std::lower_bound(table.oddLengths.begin(), table.oddLengths.end(), spelling.size(), std::greater());
        if (place == table.oddLengths.end() || *place != spelling.size()) {
            table.oddLengths.insert(place, spelling.size());
        }
    }
    return &entry->second;
}

const Word* Words::Table::find(std::string_view spelling) const {
    const auto found = words.find(spelling);
    return found == words.end() ? nullptr : &found->second;
}

std::optional<Words::Found> Words::nameAt(std::string_view text, std::size_t offset) const {
    std::optional<Found> found = at(0, text, offset);
    if (!found && ask_) {
        const std::size_t end = text.find_first_of("(),=<>!'\"`\r\n", offset);
        if (end != std::string_view::npos && text[end] == '(') {
            const std::string_view name = platform::trimmed(text.substr(offset, end - offset));
            if (const Word* word = ask_(name)) {
                found = Found{word, name.size()};
            }
        }
    }
    return found;
}

std::optional<Words::Found> Words::at(std::size_t which, std::string_view text, std::size_t offset) const {
    const Table& table = tables_[which];
    std::size_t end = offset;
    while (end < text.size() && isNameLetter(text[end])) {
        ++end;
    }
    const std::size_t plain = end - offset;
    std::optional<Found> best;
    for (const std::size_t length : table.oddLengths) {
        if (length <= plain || length > text.size() - offset) {
            continue;  // a word with an odd letter goes beyond the plain ones
        }
        const bool ends = offset + length == text.size() || !isNameLetter(text[offset + length]) ||
                          !isNameLetter(text[offset + length - 1]);
        if (const Word* word = ends ? table.find(text.substr(offset, length)) : nullptr) {
            best = Found{word, length};
            break;
        }
    }
    if (!best && plain > 0) {
        if (const Word* word = table.find(text.substr(offset, plain))) {
            best = Found{word, plain};
        }
    }
    if (beyond_) {
        const std::optional<Found> other = beyond_->at(which, text, offset);
        if (other && (!best || other->length > best->length)) {
            return other;
        }
    }
    return best;
}

}  // namespace orvent::rules
