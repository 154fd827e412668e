#include "exchange/statement_names.h"

#include <algorithm>
#include <functional>

#include "entities/members.h"
#include "links/members.h"
#include "platform/letter_case.h"
#include "platform/utf8.h"

namespace orvent::exchange {

namespace {

bool isNameLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

std::string_view wordAtHead(std::string_view text) {
    return text.substr(0, static_cast<std::size_t>(std::ranges::find_if_not(text, isNameLetter) - text.begin()));
}

/// The text begins with the name, and the name ends there.
bool hasAtHead(std::string_view text, std::string_view name) {
    return !name.empty() && text.starts_with(name) && (text.size() == name.size() || !isNameLetter(text[name.size()]));
}

/// The whole word, and what stands in front of each "_" in it: whether one of them is meant.
template <class Means>
bool anyHead(const std::string& word, Means means) {
    for (std::size_t end = word.size(); end != std::string::npos; end = end == 0 ? end - 1 : word.rfind('_', end - 1)) {
        if (means(word.substr(0, end))) {
            return true;
        }
    }
    return false;
}

std::string smallFirst(const std::string& name) {
    const std::size_t first = platform::firstCharacterLength(name);
    return platform::lowerLetters(name.substr(0, first)) + name.substr(first);
}

/// Both names of pairs whose second halves are known by now.
void setNow(std::vector<NamePair>& pairs, const std::vector<std::string>& now) {
    for (std::size_t at = 0; at < std::min(pairs.size(), now.size()); ++at) {
        pairs[at].now = now[at];
    }
}

std::vector<NamePair> pairsOf(const std::vector<std::string>& names) {
    std::vector<NamePair> pairs;
    for (const std::string& name : names) {
        pairs.push_back({name, name});
    }
    return pairs;
}

std::vector<std::string> functionKeys(const entities::ActivityProperties& activity) {
    std::vector<std::string> keys;
    for (const entities::FunctionProperties& function : activity.Act_Functions) {
        keys.push_back(function.Function_Key);
    }
    return keys;
}

std::vector<std::string> memberNames(const entities::ActivityProperties& activity, entities::NodeKindCode kind) {
    std::vector<std::string> names;
    entities::withList(activity, kind, [&names](const auto& list, entities::NodeKindCode) {
        for (const auto& member : list) {
            names.push_back(links::nameOf(member));
        }
    });
    return names;
}

}  // namespace

void NameIndex::addWord(const std::string& former, const std::string& now) {
    if (!former.empty()) {
        words_[std::string(wordAtHead(former))].push_back({former, now});
    }
}

void NameIndex::addRenamed(const std::string& former, const std::string& now) {
    if (!former.empty() && former != now) {
        const std::string small = platform::lowerLetters(former);
        renamed_[std::string(wordAtHead(small))].push_back({small, now});
    }
}

void NameIndex::addRecordSet(const NamePair& name, const entities::RecordSetProperties& recordSet) {
    addRenamed(name.former, name.now);
    addWord(smallFirst(name.former), smallFirst(name.now));
    const std::string large = platform::upperLetters(name.former);
    owners_[std::string(wordAtHead(large))].push_back(
        {{large + "_", platform::upperLetters(name.now) + "_"}, &recordSet});
}

void NameIndex::attributesAt(std::string_view text, const Owner& owner, std::vector<NamePair>& found) const {
    if (!text.starts_with(owner.name.former)) {
        return;
    }
    const std::string_view rest = text.substr(owner.name.former.size());
    for (const entities::AttributeProperties& attribute : owner.recordSet->RecordSet_Outputs) {
        const std::string name = platform::upperLetters(attribute.Attribute_Name);
        if (name.empty() ? wordAtHead(rest).empty() : hasAtHead(rest, name)) {
            found.push_back({owner.name.former + name, owner.name.now + name});
        }
    }
}

void NameIndex::wordsAt(std::string_view text, std::vector<NamePair>& found) const {
    const std::string word(wordAtHead(text));
    if (const auto words = words_.find(word); words != words_.end()) {
        std::ranges::copy_if(words->second, std::back_inserter(found),
                             [text](const NamePair& pair) { return hasAtHead(text, pair.former); });
    }
    anyHead(word, [&](const std::string& head) {
        if (const auto owners = owners_.find(head); owners != owners_.end()) {
            for (const Owner& owner : owners->second) {
                attributesAt(text, owner, found);
            }
        }
        return false;
    });
}

bool NameIndex::names(std::string_view text) const {
    return anyHead(platform::lowerLetters(wordAtHead(text)), [&](const std::string& head) {
        const auto heads = renamed_.find(head);
        return heads != renamed_.end() && std::ranges::any_of(heads->second, [text](const NamePair& pair) {
                   const std::string small = platform::lowerLetters(text.substr(0, pair.former.size() + 1));
                   const char behind = small.size() > pair.former.size() ? small[pair.former.size()] : ' ';
                   return small.starts_with(pair.former) && (!isNameLetter(behind) || behind == '_');
               });
    });
}

StatementNames::StatementNames(const entities::ActivityProperties& activity)
    : name_{activity.Act_Name, activity.Act_Name},
      inputs_(pairsOf(memberNames(activity, entities::KindInput))),
      outputs_(pairsOf(memberNames(activity, entities::KindOutput))),
      functions_(pairsOf(functionKeys(activity))) {}

void StatementNames::follow(const entities::ActivityProperties& activity) {
    name_.now = activity.Act_Name;
    setNow(inputs_, memberNames(activity, entities::KindInput));
    setNow(outputs_, memberNames(activity, entities::KindOutput));
    setNow(functions_, functionKeys(activity));
    for (const NamePair& function : functions_) {
        own_.addWord(smallFirst(function.former), smallFirst(function.now));
    }
    for (const auto* pairs : {&inputs_, &outputs_, &functions_}) {
        for (const NamePair& pair : *pairs) {
            own_.addRenamed(pair.former, pair.now);
        }
    }
}

/// "Load_IN1_ID" or "Load_OUT_ID". What follows may be a variable of the template instead of a member; then it stays.
StatementNames::Match StatementNames::memberAt(std::string_view text, std::string_view infix,
                                               const std::vector<NamePair>& members) const {
    const std::string head = name_.former + std::string(infix);
    if (!text.starts_with(head)) {
        return {};
    }
    std::size_t length = head.size();
    while (infix == "_IN" && length < text.size() && isDigit(text[length])) {
        ++length;
    }
    if (length == text.size() || text[length] != '_' || (infix == "_IN" && length == head.size())) {
        return {};
    }
    ++length;
    Match match{length, name_.now + std::string(text.substr(name_.former.size(), length - name_.former.size()))};
    const std::string_view rest = text.substr(length);
    const NamePair* longest = nullptr;
    for (const NamePair& member : members) {
        if (hasAtHead(rest, member.former) && (!longest || member.former.size() > longest->former.size())) {
            longest = &member;
        }
    }
    const std::string_view tail = wordAtHead(rest);
    match.length += longest ? longest->former.size() : tail.size();
    match.text += longest ? longest->now : tail;
    return match;
}

/// "load_in1" or "load_out".
StatementNames::Match StatementNames::predicateAt(std::string_view text) const {
    const std::string former = smallFirst(name_.former);
    for (const std::string infix : {"_in", "_out"}) {
        if (!text.starts_with(former + infix)) {
            continue;
        }
        std::size_t length = former.size() + infix.size();
        const std::size_t digits = length;
        while (infix == "_in" && length < text.size() && isDigit(text[length])) {
            ++length;
        }
        const bool ends = length == text.size() || !isNameLetter(text[length]);
        if (ends && (infix == "_out" || length > digits)) {
            return {length, smallFirst(name_.now) + std::string(text.substr(former.size(), length - former.size()))};
        }
    }
    return {};
}

std::vector<StatementNames::Match> StatementNames::matchesAt(std::string_view text, const NameIndex& copied) const {
    std::vector<Match> matches{memberAt(text, "_IN", inputs_), memberAt(text, "_OUT", outputs_), predicateAt(text)};
    std::vector<NamePair> words;
    own_.wordsAt(text, words);
    copied.wordsAt(text, words);
    for (const NamePair& word : words) {
        matches.push_back({word.former.size(), word.now});
    }
    std::erase_if(matches, [](const Match& match) { return match.length == 0; });
    return matches;
}

std::optional<std::string> StatementNames::rewritten(const std::string& text, const NameIndex& copied,
                                                     std::string& why) const {
    std::string result;
    for (std::size_t at = 0; at < text.size();) {
        if (at > 0 && isNameLetter(text[at - 1])) {
            result += text[at++];
            continue;
        }
        const std::string_view rest = std::string_view(text).substr(at);
        const std::vector<Match> matches = matchesAt(rest, copied);
        const bool oneMeaning = std::ranges::adjacent_find(matches, std::ranges::not_equal_to()) == matches.end();
        if (!oneMeaning || (matches.empty() && (own_.names(rest) || copied.names(rest)))) {
            why = "It is not certain what \"" + std::string(wordAtHead(rest)) + "\" means in the copy.";
            return std::nullopt;
        }
        result += matches.empty() ? std::string(rest.substr(0, 1)) : matches.front().text;
        at += matches.empty() ? 1 : matches.front().length;
    }
    return result;
}

}  // namespace orvent::exchange
