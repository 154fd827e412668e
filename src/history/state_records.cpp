#include "history/state_records.h"

#include <algorithm>
#include <cstring>

namespace orvent::history {

namespace {

constexpr std::size_t kLarge = 4096;  // bytes of a record

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

std::optional<RecordReader::Found> RecordReader::next() {
    const std::string_view whole = bytes_;
    std::string_view rest = bytes_.substr(std::min<std::size_t>(bytes_.size(), 1));
    const auto size = takeNumber(rest);
    if (!size || *size > rest.size() || rest.size() - *size < kSumBytes) {
        return std::nullopt;
    }
    const std::string_view body = rest.substr(0, static_cast<std::size_t>(*size));
    rest.remove_prefix(body.size());
    const std::string_view summed = whole.substr(0, whole.size() - rest.size());
    std::uint32_t sum = 0;
    for (unsigned at = 0; at < kSumBytes; ++at) {
        sum |= static_cast<std::uint32_t>(static_cast<unsigned char>(rest[at])) << (8 * at);
    }
    const bool trusted = inHaste_ && body.size() > kLarge;
    if (!trusted && sum != sumOf(summed)) {
        return std::nullopt;
    }
    bytes_ = rest.substr(kSumBytes);
    return Found{static_cast<Record>(whole.front()), body};
}

}  // namespace orvent::history
