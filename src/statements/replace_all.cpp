#include "statements/replace_all.h"

#include "platform/fault.h"

namespace orvent::statements {

void WorkLimit::spend(std::size_t bytes) {
    if (bytes > left_) {
        throw platform::Fault("The text does not come to an end.");
    }
    left_ -= bytes;
}

void checkSize(std::size_t bytes) {
    if (bytes > kMostCharacters) {
        throw platform::Fault("The text grows beyond 16 million characters.");
    }
}

void replaceAll(std::string& text, std::string_view from, std::string_view to, WorkLimit& limit) {
    limit.spendSearch(text.size());
    std::size_t hit = text.find(from);
    if (hit == std::string::npos || from == to) {
        return;
    }
    if (text.find(from, hit + from.size()) == std::string::npos) {
        checkSize(text.size() - from.size() + to.size());
        limit.spend(text.size() + to.size());
        text.replace(hit, from.size(), to);
        return;
    }
    constexpr std::size_t kHit = 48;  // the work of one, in bytes
    std::string result;
    std::size_t done = 0;
    std::size_t hits = 0;
    for (; hit != std::string::npos; hit = text.find(from, done)) {
        result.append(text, done, hit - done).append(to);
        done = hit + from.size();
        ++hits;
        checkSize(result.size());
    }
    result.append(text, done);
    checkSize(result.size());
    limit.spend(result.size() + hits * kHit);
    text = std::move(result);
}

}  // namespace orvent::statements
