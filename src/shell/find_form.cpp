#include "shell/find_form.h"

#include <algorithm>
#include <utility>

#include "platform/utf8.h"

namespace orvent::shell {

namespace {

constexpr std::size_t kPiece = 4'000'000;  // letters, some milliseconds
constexpr std::size_t kBefore = 30;        // bytes of a text that are shown before what was found in it
constexpr std::size_t kBehind = 120;

bool continues(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80;
}

/// A line of a text around what was found, which moves with it.
std::string lineAround(const std::string& text, platform::TextRange& found) {
    std::size_t begin = found.begin > kBefore + kBefore / 2 ? found.begin - kBefore : 0;
    std::size_t end = std::min(text.size(), found.begin + found.length + kBehind);
    while (begin > 0 && continues(text[begin])) {
        --begin;
    }
    while (end < text.size() && continues(text[end])) {
        ++end;
    }
    const std::string lead = begin > 0 ? "…" : "";
    std::string line = lead + text.substr(begin, end - begin) + (end < text.size() ? "…" : "");
    std::replace_if(
        line.begin(), line.end(), [](char c) { return c == '\n' || c == '\r' || c == '\t'; }, ' ');
    found.begin = found.begin - begin + lead.size();
    return line;
}

/// "record-set" as it begins a line.
std::string asTitle(std::string_view word) {
    std::string title(word);
    std::replace(title.begin(), title.end(), '-', ' ');
    title.replace(0, 1, platform::upperLetters(title.substr(0, 1)));
    return title;
}

}  // namespace

void FindForm::txtFind_Change(const std::string& text) {
    if (text == text_) {
        return;
    }
    const analysis::SearchQuery former = analysis::parseQuery(std::exchange(text_, text));
    if (analysis::parseQuery(text_) != former) {
        begin();
    }
}

std::unique_ptr<analysis::TextSearch> FindForm::newSearch() const {
    analysis::SearchQuery query = analysis::parseQuery(text_);
    if (!index_ || query.isEmpty() || !query.fault.empty()) {
        return nullptr;
    }
    analysis::Unfinished unfinished = query.unfinished ? ports_.unfinishedOf(*form_) : analysis::Unfinished();
    return std::make_unique<analysis::TextSearch>(*index_, std::move(query), std::move(unfinished));
}

void FindForm::begin() {
    hits_.clear();
    current_ = 0;
    renews_ = false;
    search_ = newSearch();
    if (search_ && !search_->searchOn(kPiece, hits_)) {
        search_.reset();
    }
    take(true);
}

/// The present rows are shown until the search has ended.
void FindForm::searchAnew() {
    search_ = newSearch();
    renews_ = search_ != nullptr;
    renewed_.clear();
}

bool FindForm::idle() {
    if (!search_) {
        return index_ && index_->gatherOn(kPiece);
    }
    const std::size_t before = hits_.size();
    if (!search_->searchOn(kPiece, renews_ ? renewed_ : hits_)) {
        search_.reset();
        if (std::exchange(renews_, false) && renewed_ != hits_) {
            const analysis::TextHit* now = hitAt(current_);
            const auto place = now ? std::find(renewed_.begin(), renewed_.end(), *now) : renewed_.end();
            current_ = place == renewed_.end() ? 0 : static_cast<int>(place - renewed_.begin()) + 1;
            hits_ = std::move(renewed_);
            take(true);
            return true;
        }
        mark();
    }
    if (!renews_ && (!search_ || hits_.size() != before)) {
        take(false);
    }
    return true;
}

void FindForm::take(bool others) {
    if (others) {
        mark();
    }
    if (onRows) {
        onRows(others);
    }
}

void FindForm::mark() {
    if (!form_) {
        return;
    }
    std::vector<canvas::NodeNumber> nodes;
    for (const analysis::TextHit& hit : hits_) {
        if (nodes.empty() || nodes.back() != hit.place.node) {
            nodes.push_back(hit.place.node);
        }
    }
    form_->setFound(std::move(nodes));
}

const analysis::TextHit* FindForm::hitAt(int position) const {
    return position >= 1 && position <= Count() ? &hits_[static_cast<std::size_t>(position - 1)] : nullptr;
}

FindRow FindForm::row(int position) const {
    const analysis::TextHit* hit = hitAt(position);
    if (!hit || !form_) {
        return {};
    }
    const analysis::PlaceWords words = analysis::wordsOf(*form_, hit->place, hit->text, tables_);
    const std::string_view title = analysis::titleOf(hit->text);
    const std::string_view kind = analysis::wordOf(words.kind);
    const bool namesOwner = words.member.starts_with(words.owner + ".");
    FindRow row{words.member.empty() ? words.owner
                : namesOwner         ? words.member
                                     : words.owner + "." + words.member,
                asTitle(kind) + (title == kind ? "" : ", " + std::string(title)),
                {},
                {}};
    for (const std::string& word : analysis::parseQuery(text_).words) {
        if (row.found.length == 0) {
            row.found = platform::findLetters(words.text, word);
        }
    }
    row.text = lineAround(words.text, row.found);
    return row;
}

std::string FindForm::status() const {
    const analysis::SearchQuery query = analysis::parseQuery(text_);
    if (!form_) {
        return "No scenario is in front.";
    }
    if (query.isEmpty() && query.fault.empty()) {
        return {};
    }
    if (!query.fault.empty()) {
        return query.fault;
    }
    if (hits_.empty()) {
        return search_ && !renews_ ? "Searching…" : "Nothing was found.";
    }
    const std::string all = std::to_string(Count()) + (Count() == 1 ? " hit" : " hits");
    return (current_ > 0 ? std::to_string(current_) + " of " : "") + all + (search_ && !renews_ ? " so far" : "");
}

void FindForm::choose(int position) {
    if (const analysis::TextHit* hit = hitAt(position)) {
        current_ = position;
        take(false);
        if (const canvas::LabelsD* node = form_->Labels.byIndex(hit->place.node)) {
            ports_.goTo(*form_, *node);
        }
    }
}

void FindForm::next(bool back) {
    if (Count() > 0) {
        const int last = Count();
        choose(back ? (current_ <= 1 ? last : current_ - 1) : (current_ == last ? 1 : current_ + 1));
    }
}

void FindForm::open(int position) {
    choose(position);
    const analysis::TextHit* hit = hitAt(position);
    canvas::LabelsD* node = hit ? form_->Labels.byIndex(hit->place.node) : nullptr;
    if (node && !hit->place.isNode() && form_->Enabled()) {
        ports_.openMember(*form_, *node, analysis::Place(hit->place));
    }
}

void FindForm::show(bool shown) {
    if (shown != shown_) {
        canvas::CanvasForm* form = form_;
        watch(nullptr);
        shown_ = shown;
        watch(form);
    }
}

void FindForm::watch(canvas::CanvasForm* form) {
    if (form == form_) {
        return;
    }
    hits_.clear();
    mark();
    search_.reset();
    index_.reset();
    form_ = form;
    if (form_ && shown_) {
        index_ = std::make_unique<analysis::TextIndex>(*form_, tables_);
    }
    begin();
}

void FindForm::touch(const canvas::Touched& touched) {
    if (index_ && !touched.empty()) {
        index_->touch(touched);
        searchAnew();
    }
}

void FindForm::touchAll() {
    if (index_) {
        index_->touchAll();
        searchAnew();
    }
}

void FindForm::followUnfinished() {
    if (analysis::parseQuery(text_).unfinished) {
        searchAnew();
    }
}

}  // namespace orvent::shell
