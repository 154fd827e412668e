#include <algorithm>
#include <deque>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "platform/fault.h"
#include "platform/text.h"
#include "statements/ldl_generator.h"
#include "statements/loop_spans.h"
#include "statements/no_place.h"
#include "statements/replace_all.h"

namespace orvent::statements {

using platform::Fault;

namespace {

/// A fault with the position at which it came, in characters from 1.
struct FaultAt {
    std::size_t position;
    std::string words;
};

bool isLoopHead(std::string_view head) {
    return head.find_first_of("<=") != kNone;
}

std::size_t positionOf(std::string_view text, std::size_t at) {
    std::size_t characters = 1;
    for (const char c : text.substr(0, at)) {
        characters += (static_cast<unsigned char>(c) & 0xC0) != 0x80;
    }
    return characters;
}

/// The pass as the language tells it: each loop is replaced in the whole text at once.
class PlainExpansion {
  public:
    PlainExpansion(const LDLGenerator& generator, std::string text)
        : generator_(generator), text_(std::move(text)), spans_(text_) {}

    std::string run() {
        try {
            for (at_ = text_.find('['); at_ != kNone; at_ = text_.find('[', at_)) {
                step();
            }
        } catch (const Fault& fault) {
            throw FaultAt{positionOf(text_, at_), fault.description()};
        }
        return std::move(text_);
    }

  private:
    void step() {
        const std::ptrdiff_t length = spans_.span(at_);
        if (length <= 0) {
            at_ = text_.find(']', at_);
            if (at_ == kNone) {
                throw FaultAt{0, "A bracket is not closed."};
            }
            return;
        }
        const std::string_view seen = std::string_view(text_).substr(at_, static_cast<std::size_t>(length));
        const std::size_t close = seen.find(']');
        if (close == kNone) {
            ++at_;
            return;
        }
        if (!isLoopHead(seen.substr(0, close + 1))) {
            at_ += close + 1;
            return;
        }
        const std::string span(seen);
        // The place stays, so that what came out is looked at again.
        const std::string expansion = generator_.ExpandLoop(span);
        limit_.spend(expansion.size() + span.size());
        replaceAll(text_, span, expansion, limit_);
        limit_.spend(4 * text_.size());  // its braces are looked for anew
        spans_ = SpanFinder(text_);
    }

    const LDLGenerator& generator_;
    std::string text_;
    SpanFinder spans_;
    WorkLimit limit_;
    std::size_t at_ = 0;
};

/// The same pass in time that is linear in the result. A loop is expanded when it is met, and it is remembered at which
/// step; what stood in the text at that step has then been replaced, too, by the meaning of the language, and it is
/// made up for when it is met in turn. Where replacing earlier would have changed what is met now - a known loop
/// inside another one, braces that do not match - the way ends as `NotSimple`.
class QuickExpansion {
  public:
    QuickExpansion(const LDLGenerator& generator, const std::string& text) : generator_(generator) {
        pieces_.emplace_back(text, 0);
    }

    std::string run() {
        while (!pieces_.empty()) {
            Piece& piece = pieces_.back();
            const std::size_t bracket = piece.text.find('[', piece.at);
            result_.append(piece.text, piece.at, bracket == kNone ? kNone : bracket - piece.at);
            if (bracket == kNone) {
                pieces_.pop_back();
            } else {
                piece.at = bracket;
                step(piece);
            }
        }
        checkSize(result_.size());
        return std::move(result_);
    }

  private:
    struct Piece {
        Piece(std::string t, std::size_t b) : text(std::move(t)), spans(text), born(b) {}
        Piece(const Piece&) = delete;

        const std::string text;
        SpanFinder spans;
        std::size_t at = 0;
        std::size_t born;  ///< the step at which it came into the text
    };

    void step(Piece& piece) {
        const std::size_t close = piece.text.find(']', piece.at);
        const std::string_view head = std::string_view(piece.text).substr(piece.at, close + 1 - piece.at);
        if (close == kNone || head.find('{') != kNone) {
            throw NotSimple{};
        }
        const std::ptrdiff_t length = isLoopHead(head) ? piece.spans.span(piece.at) : 0;
        if (length > 0) {
            expand(piece, static_cast<std::size_t>(length));
            return;
        }
        // A loop that has no braces in sight: with none in the whole text it is plain text.
        if (isLoopHead(head) && (piece.spans.braceFollows(piece.at) || pieces_.size() > 1)) {
            throw NotSimple{};
        }
        result_ += head;
        piece.at = close + 1;
    }

    void expand(Piece& piece, std::size_t length) {
        const std::string_view span = std::string_view(piece.text).substr(piece.at, length);
        std::vector<std::size_t>& steps = known_[std::string(span)];
        std::size_t step = clock_ + 1;
        for (const std::size_t earlier : steps) {
            if (earlier > piece.born) {
                step = earlier;
                break;
            }
        }
        refuseKnownInside(piece, length, step);
        if (step > clock_) {
            clock_ = step;
            steps.push_back(step);
            lengths_.insert(length);
        }
        std::string expansion = generator_.ExpandLoop(span);
        limit_.spend(expansion.size() + length + 200);
        checkSize(result_.size() + expansion.size());
        piece.at += length;
        if (expansion.find('[') != kNone) {
            pieces_.emplace_back(std::move(expansion), step);
        } else if (result_.empty()) {
            result_ = std::move(expansion);
        } else {
            result_ += expansion;
        }
    }

    /// A loop inside this one that was replaced before this one's turn came.
    void refuseKnownInside(Piece& piece, std::size_t length, std::size_t step) const {
        const std::size_t end = piece.at + length;
        for (std::size_t at = piece.text.find('[', piece.at + 1); at < end; at = piece.text.find('[', at + 1)) {
            const std::size_t close = piece.text.find(']', at);
            if (close == kNone || !isLoopHead(std::string_view(piece.text).substr(at, close - at))) {
                continue;
            }
            const std::ptrdiff_t inner = piece.spans.span(at);
            if (inner <= 0 || !lengths_.contains(static_cast<std::size_t>(inner))) {
                continue;
            }
            const auto found = known_.find(piece.text.substr(at, static_cast<std::size_t>(inner)));
            if (found == known_.end()) {
                continue;
            }
            for (const std::size_t earlier : found->second) {
                if (earlier > piece.born && earlier < step) {
                    throw NotSimple{};
                }
            }
        }
    }

    const LDLGenerator& generator_;
    std::string result_;
    std::deque<Piece> pieces_;
    std::unordered_map<std::string, std::vector<std::size_t>> known_;  ///< loops and the steps of their replacement
    std::unordered_set<std::size_t> lengths_;                          ///< of the known loops
    std::size_t clock_ = 0;
    WorkLimit limit_;
};

/// The body in pieces between the references "$v$" in any case.
std::vector<std::string_view> splitBody(std::string_view body, const std::string& variable) {
    const std::string lowered = platform::lowerCase(body);
    const std::string reference = '$' + platform::lowerCase(variable) + '$';
    std::vector<std::string_view> parts;
    std::size_t done = 0;
    for (std::size_t hit = lowered.find(reference); hit != kNone; hit = lowered.find(reference, done)) {
        parts.push_back(body.substr(done, hit - done));
        done = hit + reference.size();
    }
    parts.push_back(body.substr(done));
    return parts;
}

}  // namespace

std::string LDLGenerator::ExpandLoop(std::string_view span) const {
    const LoopHeader header = ParseLoopHeader(span.substr(0, span.find(']') + 1));
    if (header.Operator == "ERROR") {
        return {};
    }
    const std::size_t open = span.find('{') + 1;
    const std::vector<std::string_view> parts =
        splitBody(span.substr(open, span.size() - 1 - open), header.LoopVariable);
    const auto times = static_cast<std::size_t>(std::max(0, header.To - header.From + 1));
    constexpr std::size_t kDigits = 5;
    std::size_t round = (parts.size() - 1) * kDigits;
    for (const std::string_view part : parts) {
        round += part.size();
    }
    std::string result;
    result.reserve(std::min(kMostCharacters, times * round));
    for (int i = header.From; i <= header.To; ++i) {
        const std::string value = std::to_string(i);
        result += parts.front();
        for (std::size_t part = 1; part < parts.size(); ++part) {
            result.append(value).append(parts[part]);
        }
        checkSize(result.size());
    }
    return result;
}

std::string LDLGenerator::expandLoops(const std::string& text, std::string& fault) const {
    try {
        try {
            return QuickExpansion(*this, text).run();
        } catch (const NotSimple&) {
            return PlainExpansion(*this, text).run();
        } catch (const Fault&) {
            return PlainExpansion(*this, text).run();  // which tells the position
        }
    } catch (const FaultAt& found) {
        fault = found.words;
        return "CRITICAL ERROR AT POSITION: " + std::to_string(found.position) + found.words;
    }
}

}  // namespace orvent::statements
