#include <cstdint>
#include <unordered_map>
#include <vector>

#include "platform/fault.h"
#include "statements/ldl_generator.h"
#include "statements/replace_all.h"

namespace orvent::statements {

using platform::Fault;

namespace {

constexpr std::size_t kNone = std::string_view::npos;

/// Where a text is met that the quick way cannot tell; the pass starts over in the plain way.
struct NotSimple {};

/// The pass as the language tells it: each reference is replaced in the whole text at once.
std::string replacePlainly(const LDLGenerator& generator, std::string text) {
    WorkLimit limit;
    try {
        for (std::size_t at = text.find('@'); at != kNone; at = text.find('@', at)) {
            const LDLGenerator::Replacement found = generator.replacementAt(text, at);
            replaceAll(text, text.substr(at, found.length), found.text, limit);
            at += found.text.size();
        }
    } catch (const Fault&) {
        // The text as it stands is the answer.
    }
    return text;
}

/// The tokens that were replaced so far, in order, for asking which of them was the first to hit a place.
class Tokens {
  public:
    int add(std::string_view token, std::string replacement) {
        const int number = static_cast<int>(entries_.size());
        std::uint32_t node = 0;
        for (const char c : token) {
            nodes_[node].beyond = nodes_[node].beyond < 0 ? number : nodes_[node].beyond;
            const auto [child, fresh] =
                children_.try_emplace(edge(node, c), static_cast<std::uint32_t>(nodes_.size()));
            if (fresh) {
                nodes_.emplace_back();
            }
            node = child->second;
        }
        nodes_[node].ends = nodes_[node].ends < 0 ? number : nodes_[node].ends;
        entries_.push_back({token.size(), std::move(replacement)});
        return number;
    }

    struct Entry {
        std::size_t length;  ///< without the "@"
        std::string replacement;
    };
    const Entry& entry(int number) const { return entries_[static_cast<std::size_t>(number)]; }

    struct Hit {
        int number = -1;     ///< of the first token that hit, -1 for none
        bool open = false;   ///< an earlier one might hit if more text followed
    };
    /// The tokens at the beginning of `body`.
    Hit first(std::string_view body) const {
        Hit hit;
        std::uint32_t node = 0;
        for (std::size_t i = 0;; ++i) {
            const Node& at = nodes_[node];
            if (at.ends >= 0 && (hit.number < 0 || at.ends < hit.number)) {
                hit.number = at.ends;
            }
            if (i == body.size()) {
                hit.open = at.beyond >= 0 && (hit.number < 0 || at.beyond < hit.number);
                return hit;
            }
            const auto child = children_.find(edge(node, body[i]));
            if (child == children_.end()) {
                return hit;
            }
            node = child->second;
        }
    }

  private:
    struct Node {
        int ends = -1;    ///< the first token that ends here
        int beyond = -1;  ///< the first token that goes on
    };
    static std::uint64_t edge(std::uint32_t node, char c) {
        return std::uint64_t{node} << 8 | static_cast<unsigned char>(c);
    }

    std::vector<Entry> entries_;
    std::vector<Node> nodes_{1};
    std::unordered_map<std::uint64_t, std::uint32_t> children_;
};

/// The same pass in time that is linear in the result. The text is walked once; at each "@" the tokens that were
/// replaced before tell what has become of the place by now. That is all there is to tell as long as no replacement
/// brings a new "@" and no two references grow together; otherwise the way ends as `NotSimple`.
class QuickReplacement {
  public:
    QuickReplacement(const LDLGenerator& generator, const std::string& text) : generator_(generator), text_(text) {}

    std::string run() {
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
            return 1 + tokens_.entry(known).length;
        }
        if (stopped_) {
            result_ += '@';
            return 1;
        }
        return resolve(at, next);
    }

    /// The token that has replaced the reference at `at` by now, -1 when it still stands. `next` is the following "@".
    int tokenAt(std::size_t at, std::size_t next, bool lookOn) const {
        const std::string_view text(text_);
        const Tokens::Hit hit = tokens_.first(text.substr(at + 1, next == kNone ? next : next - at - 1));
        // What the next reference has become may have grown into a longer token.
        if (hit.open && next != kNone && (!lookOn || tokenAt(next, text.find('@', next + 1), false) >= 0)) {
            throw NotSimple{};
        }
        return hit.number;
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
        } catch (const Fault&) {
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
    const std::string& text_;
    std::string result_;
    Tokens tokens_;
    bool stopped_ = false;  ///< a fault has ended the pass; what was found before still holds for the rest
};

}  // namespace

std::string LDLGenerator::ReplaceVariables(const std::string& text) const {
    try {
        return QuickReplacement(*this, text).run();
    } catch (const NotSimple&) {
        return replacePlainly(*this, text);
    } catch (const Fault&) {
        return replacePlainly(*this, text);  // which keeps the text as it stands at the fault
    }
}

}  // namespace orvent::statements
