#include "history/state_records.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace orvent::history {

namespace {

constexpr const char* kFormatName = "orvent state";
constexpr std::uint64_t kFormat = 2;

/// Eight bytes at a time: a large file is summed in the time of reading it.
std::uint32_t sumOf(std::string_view bytes) {
    std::uint64_t sum = 0x9E3779B97F4A7C15U ^ bytes.size();
    while (!bytes.empty()) {
        std::uint64_t part = 0;
        const std::size_t taken = std::min(bytes.size(), sizeof part);
        std::memcpy(&part, bytes.data(), taken);
        bytes.remove_prefix(taken);
        sum = std::rotl(sum ^ part, 27) * 0xBF58476D1CE4E5B9U;
    }
    return static_cast<std::uint32_t>(sum ^ (sum >> 32));
}

}  // namespace

RecordWriter& RecordWriter::number(std::uint64_t value) {
    appendNumber(body_, value);
    return *this;
}

RecordWriter::~RecordWriter() {
    const std::size_t begin = out_.size();
    out_.push_back(static_cast<char>(kind_));
    appendNumber(out_, body_.size());
    out_ += body_;
    const std::uint32_t sum = sumOf(std::string_view(out_).substr(begin));
    for (unsigned shift = 0; shift < 8 * kSumBytes; shift += 8) {
        out_.push_back(static_cast<char>(sum >> shift));
    }
}

std::uint64_t RecordBody::number() {
    const auto value = takeNumber(bytes_);
    return value ? *value : throw BadBytes();
}

std::string_view RecordBody::text() {
    const std::uint64_t size = number();
    if (size > bytes_.size()) {
        throw BadBytes();
    }
    const std::string_view text = bytes_.substr(0, static_cast<std::size_t>(size));
    bytes_.remove_prefix(text.size());
    return text;
}

void writeFormat(std::string& out) {
    RecordWriter(out, Record::begin).text(kFormatName).number(kFormat);
}

void needFormat(RecordBody& body) {
    if (body.text() != kFormatName || body.number() != kFormat) {
        throw BadBytes();
    }
}

std::optional<RecordHead> recordHead(std::string_view bytes) {
    std::string_view rest = bytes.substr(std::min<std::size_t>(bytes.size(), 1));
    const auto body = takeNumber(rest);
    if (!body || *body > std::numeric_limits<std::uint64_t>::max() / 2) {
        return std::nullopt;
    }
    return RecordHead{static_cast<Record>(bytes.front()), bytes.size() - rest.size() + *body + kSumBytes};
}

std::optional<RecordReader::Found> RecordReader::next() {
    const auto head = recordHead(bytes_);
    if (!head || head->size > bytes_.size()) {
        return std::nullopt;
    }
    const std::string_view summed = bytes_.substr(0, static_cast<std::size_t>(head->size) - kSumBytes);
    std::uint32_t sum = 0;
    for (unsigned at = 0; at < kSumBytes; ++at) {
        sum |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes_[summed.size() + at])) << (8 * at);
    }
    if (sum != sumOf(summed)) {
        return std::nullopt;
    }
    bytes_.remove_prefix(summed.size() + kSumBytes);
    std::string_view body = summed.substr(1);
    takeNumber(body);
    return Found{head->kind, body};
}

}  // namespace orvent::history
