#include "shell/types_form.h"

#include <algorithm>
#include <sstream>

#include "canvas/node_kinds.h"
#include "platform/fault.h"
#include "platform/letter_case.h"

namespace orvent::shell {

namespace {

constexpr std::string_view kOfType = "Activity:";

struct PlainRow {
    canvas::NodeTypeCode kind;
    const char* tip;
};

constexpr PlainRow kPlainRows[] = {
    {canvas::NodeTypeRecordSet, "A table or a file, from which data comes or to which it goes"},
    {canvas::NodeTypeComment, "A note"},
    {canvas::NodeTypeLog, "A file to which an activity writes what it rejects"}};

TypeRow rowOf(const PlainRow& plain) {
    const canvas::NodeKind& kind = canvas::nodeKind(plain.kind);
    return {std::string(kind.tool), std::string(kind.title), {}, plain.tip, plain.kind};
}

TypeRow rowOf(repository::ActivityTypeWords words) {
    return {std::string(kOfType) + words.name, words.name, words.schemata > 0 ? std::to_string(words.schemata) : "",
            std::move(words.description), canvas::NodeTypeActivity};
}

}  // namespace

std::optional<editors::Placement> placementOf(const std::string& key, const entities::NameTable& activityTypes) {
    if (key.starts_with(kOfType)) {
        const auto type = activityTypes.indexOf(key.substr(kOfType.size()));
        return type ? std::optional(editors::Placement{canvas::NodeTypeActivity, *type}) : std::nullopt;
    }
    for (const PlainRow& plain : kPlainRows) {
        if (canvas::nodeKind(plain.kind).tool == key) {
            return editors::Placement{plain.kind};
        }
    }
    return std::nullopt;
}

void TypesForm::txtSearch_Change(const std::string& text) {
    if (text != text_) {
        text_ = text;
        filter();
    }
}

void TypesForm::show(bool shown) {
    shownAtAll_ = shown;
    follow();
}

void TypesForm::follow() {
    if (shownAtAll_ && known_ != types_.changes()) {
        renew();
    }
}

/// Where the repository does not answer, the names are known all the same.
void TypesForm::renew() {
    if (!shownAtAll_) {
        known_.reset();
        return;
    }
    known_ = types_.changes();
    fault_.clear();
    std::vector<repository::ActivityTypeWords> types;
    try {
        types = ports_.activityTypes();
    } catch (const platform::Fault& fault) {
        fault_ = fault.description();
        for (const std::int16_t index : types_.listed()) {
            types.push_back({types_.name(index), {}});
        }
    }
    std::sort(types.begin(), types.end(), [](const auto& a, const auto& b) {
        return platform::lowerLetters(a.name) < platform::lowerLetters(b.name);
    });
    rows_.clear();
    for (const PlainRow& plain : kPlainRows) {
        rows_.push_back(rowOf(plain));
    }
    for (repository::ActivityTypeWords& type : types) {
        rows_.push_back(rowOf(std::move(type)));
    }
    filter();
}

void TypesForm::filter() {
    shown_.clear();
    for (std::size_t at = 0; at < rows_.size(); ++at) {
        std::istringstream words(platform::lowerLetters(text_));
        bool all = true;
        for (std::string word; words >> word;) {
            all = all && (platform::findLetters(rows_[at].name, word).length > 0 ||
                          platform::findLetters(rows_[at].tip, word).length > 0);
        }
        if (all) {
            shown_.push_back(at);
        }
    }
    if (onRows) {
        onRows();
    }
}

std::string TypesForm::status() const {
    return !fault_.empty() ? fault_ : shown_.empty() && !rows_.empty() ? "Nothing has these words." : "";
}

void TypesForm::place(int position) {
    if (position >= 1 && position <= Count()) {
        ports_.placeInFront(std::string(row(position).key));
    }
}

}  // namespace orvent::shell
