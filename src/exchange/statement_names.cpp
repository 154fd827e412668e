#include "exchange/statement_names.h"

#include <algorithm>

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

}  // namespace

std::vector<std::string> StatementNames::namesOf(const entities::ActivityProperties& activity, bool inputs) {
    std::vector<std::string> names;
    const auto add = [&names](const auto& list) {
        for (const entities::AttributeProperties& attribute : list) {
            names.push_back(attribute.Attribute_Name);
        }
    };
    inputs ? add(activity.Act_Inputs) : add(activity.Act_Outputs);
    return names;
}

StatementNames::StatementNames(const entities::ActivityProperties& activity)
    : name_{activity.Act_Name, activity.Act_Name},
      inputs_(pairsOf(namesOf(activity, true))),
      outputs_(pairsOf(namesOf(activity, false))),
      functions_(pairsOf(functionKeys(activity))) {}

void StatementNames::follow(const entities::ActivityProperties& activity) {
    name_.now = activity.Act_Name;
    setNow(inputs_, namesOf(activity, true));
    setNow(outputs_, namesOf(activity, false));
    setNow(functions_, functionKeys(activity));
    for (const NamePair& function : functions_) {
        addWord(smallFirst(function.former), smallFirst(function.now));
    }
    for (const auto* pairs : {&inputs_, &outputs_, &functions_}) {
        std::ranges::copy_if(*pairs, std::back_inserter(renamed_),
                             [](const NamePair& pair) { return pair.former != pair.now; });
    }
    if (name_.former != name_.now) {
        renamed_.push_back(name_);
    }
}

void StatementNames::addRecordSet(const NamePair& name, const entities::RecordSetProperties& recordSet) {
    renamed_.push_back(name);
    addWord(smallFirst(name.former), smallFirst(name.now));
    for (const entities::AttributeProperties& attribute : recordSet.RecordSet_Outputs) {
        addWord(platform::upperLetters(name.former + "_" + attribute.Attribute_Name),
                platform::upperLetters(name.now + "_" + attribute.Attribute_Name));
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

std::vector<StatementNames::Match> StatementNames::matchesAt(std::string_view text) const {
    std::vector<Match> matches{memberAt(text, "_IN", inputs_), memberAt(text, "_OUT", outputs_), predicateAt(text)};
    for (const NamePair& word : words_) {
        if (hasAtHead(text, word.former)) {
            matches.push_back({word.former.size(), word.now});
        }
    }
    std::erase_if(matches, [](const Match& match) { return match.length == 0; });
    return matches;
}

/// What bears another name and is named by a word, alone or as its head, in any spelling.
const NamePair* StatementNames::heldBy(std::string_view word) const {
    const std::string small = platform::lowerLetters(word);
    const auto found = std::ranges::find_if(renamed_, [&small](const NamePair& pair) {
        const std::string former = platform::lowerLetters(pair.former);
        return pair.former != pair.now && small.starts_with(former) &&
               (small.size() == former.size() || !isNameLetter(small[former.size()]) || small[former.size()] == '_');
    });
    return found == renamed_.end() ? nullptr : &*found;
}

std::optional<std::string> StatementNames::rewritten(const std::string& text, std::string& why) const {
    std::string result;
    for (std::size_t at = 0; at < text.size();) {
        const std::string_view rest = std::string_view(text).substr(at);
        const bool begins = at == 0 || !isNameLetter(text[at - 1]);
        std::vector<Match> matches = begins ? matchesAt(rest) : std::vector<Match>();
        const bool oneMeaning = std::ranges::all_of(matches, [&matches](const Match& match) {
            return match.length == matches.front().length && match.text == matches.front().text;
        });
        const NamePair* named = begins && matches.empty() ? heldBy(rest.substr(0, 256)) : nullptr;
        if (!oneMeaning || named) {
            why = "The copy bears other names, and it is not certain what \"" + std::string(wordAtHead(rest)) +
                  "\" means in its statement.";
            return std::nullopt;
        }
        const std::size_t length = matches.empty() ? 1 : matches.front().length;
        result += matches.empty() ? std::string(rest.substr(0, 1)) : matches.front().text;
        at += length;
    }
    return result;
}

}  // namespace orvent::exchange
