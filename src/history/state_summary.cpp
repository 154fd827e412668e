#include <algorithm>
#include <tuple>
#include <utility>

#include "history/kept_state.h"
#include "history/state_records.h"

namespace orvent::history {

namespace {

/// Whether a record is one of those that say of the whole what it is.
bool tells(Record kind) {
    return kind == Record::begin || kind == Record::scenario || kind == Record::about || kind == Record::step;
}

/// The records of a file that tell of the whole. Of the others nothing but their size is looked at.
class TellingRecords {
  public:
    TellingRecords(const platform::ReadAt& read, std::uint64_t size) : read_(read), size_(size) {}

    /// The next one. Its body is here until the next is asked for.
    std::optional<RecordReader::Found> next() {
        while (const auto head = recordHead(shown(RecordHead::kMost))) {
            if (head->size > size_ - at_) {
                break;
            }
            const auto found = tells(head->kind) ? RecordReader(shown(head->size)).next() : std::nullopt;
            if (tells(head->kind) && !found) {
                break;
            }
            at_ += head->size;
            if (found) {
                return found;
            }
        }
        return std::nullopt;
    }

  private:
    static constexpr std::uint64_t kWindow = 8192;

    /// So many bytes from the place on, as far as there are.
    std::string_view shown(std::uint64_t bytes) {
        const std::uint64_t end = std::min(size_, at_ + bytes);
        if (at_ < from_ || end > from_ + window_.size()) {
            from_ = at_;
            window_ = read_(from_, static_cast<std::size_t>(std::min(size_ - at_, std::max(bytes, kWindow))));
        }
        return std::string_view(window_).substr(static_cast<std::size_t>(at_ - from_));
    }

    const platform::ReadAt& read_;
    std::uint64_t size_, at_ = 0, from_ = 0;
    std::string window_;
};

}  // namespace

StateSummary readSummary(const platform::ReadAt& read, std::uint64_t size) {
    TellingRecords records(read, size);
    StateSummary summary;
    std::pair<std::string, std::string> sourceAndName;
    bool begun = false, whole = false;
    while (const auto found = records.next()) {
        RecordBody body(found->body);
        if (found->kind == Record::begin) {
            needFormat(body);
        } else if (!begun) {
            break;
        } else if (found->kind == Record::scenario) {
            sourceAndName.first = body.text();
            sourceAndName.second = body.text();
        } else {
            std::tie(summary.source, summary.name) = sourceAndName;
            whole = true;
            Told told;
            body.code(told.time);
            told.words = body.text();
            if (!told.words.empty()) {
                summary.told.push_back(std::move(told));
            }
            if (found->kind == Record::about) {
                break;
            }
        }
        begun = true;
    }
    return whole ? summary : throw BadBytes();
}

}  // namespace orvent::history
