#include <algorithm>
#include <bit>
#include <cstdint>
#include <functional>
#include <set>
#include <utility>
#include <vector>

#include "platform/fault.h"
#include "statements/ldl_generator.h"
#include "statements/no_place.h"
#include "statements/replace_all.h"

namespace orvent::statements {

using platform::Fault;

namespace {

/// The pass as the language tells it: each reference is replaced in the whole text at once.
std::string replacePlainly(const LDLGenerator& generator, std::string text, std::string& fault) {
    WorkLimit limit;
    try {
        for (std::size_t at = text.find('@'); at != kNone; at = text.find('@', at)) {
            const LDLGenerator::Replacement found = generator.replacementAt(text, at);
            replaceAll(text, text.substr(at, found.length), found.text, limit);
            at += found.text.size();
        }
    } catch (const Fault& words) {
        fault = words.description();  // the text as it stands is the answer
    }
    return text;
}

/// The tokens that were replaced so far, in order, for asking which of them was the first to hit a place. They are
/// parts of the text that is walked.
class Tokens {
  public:
    void add(std::string_view token, std::string replacement) {
        if (Slot& slot = slotOf(token); slot.number < 0) {
            slot = {hashOf(token), static_cast<int>(entries_.size())};
            if (2 * ++used_ >= slots_.size()) {
                widen();
            }
        }
        if (std::find(lengths_.begin(), lengths_.end(), token.size()) == lengths_.end()) {
            lengths_.push_back(token.size());
            longest_ = std::max(longest_, token.size());
        }
        entries_.push_back({token, std::move(replacement)});
    }
    /// Room for as many tokens at once; more may come.
    void reserve(std::size_t count) {
        entries_.reserve(count);
        slots_.assign(std::bit_ceil(2 * count + 1), {});
    }

    struct Entry {
        std::string_view token;  ///< without the "@"
        std::string replacement;
    };

    /// The first of the tokens at the beginning of `body`, -1 when there is none.
    int first(std::string_view body) const {
        int result = -1;
        for (const std::size_t length : lengths_) {
            if (length <= body.size()) {
                const int found = slotOf(body.substr(0, length)).number;
                if (found >= 0 && (result < 0 || found < result)) {
                    result = found;
                }
            }
        }
        return result;
    }
    std::size_t longest() const { return longest_; }
    const Entry& entry(int number) const { return entries_[static_cast<std::size_t>(number)]; }

    /// Whether a token is longer than `body` and begins with it.
    bool goesBeyond(std::string_view body) {
        for (; listed_ < entries_.size(); ++listed_) {
            sorted_.insert(entries_[listed_].token);
        }
        const auto next = sorted_.upper_bound(body);
        return next != sorted_.end() && next->starts_with(body);
    }

  private:
    /// The number of a token's first entry; one flat table, so that many tokens cost few cache lines.
    struct Slot {
        std::uint32_t hash = 0;
        std::int32_t number = -1;
    };

    static std::uint32_t hashOf(std::string_view token) {
        return static_cast<std::uint32_t>(std::hash<std::string_view>()(token));
    }
    const Slot& slotOf(std::string_view token) const {
        const std::uint32_t hash = hashOf(token);
        for (std::size_t at = hash;; ++at) {
            const Slot& slot = slots_[at & (slots_.size() - 1)];
            if (slot.number < 0 ||
                (slot.hash == hash && entries_[static_cast<std::size_t>(slot.number)].token == token)) {
                return slot;
            }
        }
    }
    Slot& slotOf(std::string_view token) { return const_cast<Slot&>(std::as_const(*this).slotOf(token)); }
    void widen() {
        std::vector<Slot> wider(4 * slots_.size());
        for (const Slot& slot : slots_) {
            std::size_t at = slot.hash;
            while (slot.number >= 0 && wider[at & (wider.size() - 1)].number >= 0) {
                ++at;
            }
            if (slot.number >= 0) {
                wider[at & (wider.size() - 1)] = slot;
            }
        }
        slots_ = std::move(wider);
    }

    std::vector<Entry> entries_;
    std::vector<Slot> slots_;  ///< a power of two, half of them free
    std::size_t used_ = 0;
    std::vector<std::size_t> lengths_;
    std::size_t longest_ = 0;
    std::set<std::string_view> sorted_;  ///< the first `listed_` of the entries
    std::size_t listed_ = 0;
};

/// The same pass in time that is linear in the result. The text is walked once; at each "@" the tokens that were
/// replaced before tell what has become of the place by now. That is all there is to tell as long as no replacement
/// brings a new "@" and no two references grow together; otherwise the way ends as `NotSimple`.
class QuickReplacement {
  public:
    /// So many variables are `declared`. `fault` tells what ended the pass, if anything does.
    QuickReplacement(const LDLGenerator& generator, int declared, const std::string& text, std::string& fault)
        : generator_(generator), declared_(static_cast<std::size_t>(declared)), text_(text), fault_(fault) {}

    std::string run() {
        result_.reserve(text_.size() + text_.size() / 4);  // replacements are often longer than their tokens
        // A text names as a rule no more than what is declared, however often.
        tokens_.reserve(std::min<std::size_t>(declared_, text_.size() / 2));
        std::size_t done = 0;
        for (std::size_t at = text_.find('@'); at != kNone; at = text_.find('@', done)) {
            result_.append(text_, done, at - done);
            done = at + step(at);
            checkSize(result_.size());
        }
        result_.append(text_, done);
        checkSize(result_.size());
        return std::move(result_);
    }

  private:
    /// Writes what stands for the text at the "@", and gives how many bytes it stands for.
    std::size_t step(std::size_t at) {
        const std::size_t next = text_.find('@', at + 1);
        const int known = tokenAt(at, next, true);
        if (known >= 0) {
            result_ += tokens_.entry(known).replacement;
            return 1 + tokens_.entry(known).token.size();
        }
        if (stopped_) {
            result_ += '@';
            return 1;
        }
        return resolve(at, next);
    }

    /// The token that has replaced the reference at `at` by now, -1 when it still stands. `next` is the following "@".
    int tokenAt(std::size_t at, std::size_t next, bool lookOn) {
        const std::string_view body = std::string_view(text_).substr(at + 1, next == kNone ? next : next - at - 1);
        const int number = tokens_.first(body);
        // What the next reference has become may have grown with this one into a longer token. No token holds a "]" but
        // as its end.
        if (next != kNone && body.size() < tokens_.longest() && body.find(']') == kNone) {
            const bool grows = !lookOn || tokenAt(next, text_.find('@', next + 1), false) >= 0;
            if (grows && tokens_.goesBeyond(body)) {
                throw NotSimple{};
            }
        }
        return number;
    }

    std::size_t resolve(std::size_t at, std::size_t next) {
        const std::size_t nameEnd = at + 1 + nameAt(text_, at + 1).size();
        if (nameEnd == next && tokenAt(next, text_.find('@', next + 1), false) >= 0) {
            throw NotSimple{};
        }
        try {
            const LDLGenerator::Replacement found = generator_.replacementAt(text_, at);
            if (next < at + found.length || found.text.find('@') != std::string::npos) {
                throw NotSimple{};
            }
            tokens_.add(std::string_view(text_).substr(at + 1, found.length - 1), found.text);
            result_ += found.text;
            return found.length;
        } catch (const Fault& words) {
            fault_ = words.description();
            // An index that a further reference is part of is told by the plain way.
            if (next != kNone && next < text_.find(']', at)) {
                throw NotSimple{};
            }
        }
        stopped_ = true;
        result_ += '@';
        return 1;
    }

    const LDLGenerator& generator_;
    std::size_t declared_;
    const std::string& text_;
    std::string& fault_;
    std::string result_;
    Tokens tokens_;
    bool stopped_ = false;  ///< a fault has ended the pass; what was found before still holds for the rest
};

}  // namespace

std::string LDLGenerator::replaceVariables(const std::string& text, std::string& fault) const {
    try {
        return QuickReplacement(*this, variables_.Count(), text, fault).run();
    } catch (const NotSimple&) {
        fault.clear();
        return replacePlainly(*this, text, fault);
    } catch (const Fault&) {
        return replacePlainly(*this, text, fault);  // which keeps the text as it stands at the fault
    }
}

}  // namespace orvent::statements
