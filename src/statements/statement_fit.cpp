#include "statements/statement_fit.h"

#include <algorithm>
#include <optional>
#include <unordered_set>

#include "platform/text.h"
#include "statements/ldl_generator.h"
#include "statements/ldl_sources.h"
#include "statements/ldl_variables.h"

namespace orvent::statements {

namespace {

constexpr int kCutFrom = 10;  // from so many on a token may have been read as a shorter one and further digits

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Names in their order, found again at the head of a text.
class Names {
  public:
    void add(const std::string& name) {
        order_.push_back(name);
        known_.insert(name);
        longest_ = std::max(longest_, name.size());
    }
    /// Another spelling of the name that was added last.
    void alsoAs(const std::string& name) {
        known_.insert(name);
        longest_ = std::max(longest_, name.size());
    }

    int count() const { return static_cast<int>(order_.size()); }
    const std::vector<std::string>& order() const { return order_; }

    /// The longest name that the text begins with and that ends there, or nothing.
    std::optional<std::string> atHead(std::string_view text) const {
        for (std::size_t length = std::min(longest_, text.size()); length > 0; --length) {
            const bool ends = length == text.size() || !isNameCharacter(text[length]) ||
                              (count() >= kCutFrom && isDigit(text[length]));
            if (ends && known_.contains(std::string(text.substr(0, length)))) {
                return std::string(text.substr(0, length));
            }
        }
        return std::nullopt;
    }

  private:
    std::vector<std::string> order_;
    std::unordered_set<std::string> known_;
    std::size_t longest_ = 0;
};

/// A predicate's arguments, cut at the commas outside of brackets; nothing when the bracket is not closed.
std::optional<std::vector<std::string_view>> argumentsAt(std::string_view text) {
    std::vector<std::string_view> result;
    int depth = 0;
    std::size_t begin = 1;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char c = text[at];
        depth += c == '(' || c == '[' ? 1 : c == ')' || c == ']' ? -1 : 0;
        if ((c == ',' && depth == 1) || depth == 0) {
            result.push_back(platform::trimmed(text.substr(begin, at - begin)));
            begin = at + 1;
        }
        if (depth == 0) {
            const bool none = result.size() == 1 && result.front().empty();
            return none ? std::vector<std::string_view>() : result;
        }
    }
    return std::nullopt;
}

std::string counted(int count, const char* what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

/// One look through a statement.
class Fit {
  public:
    explicit Fit(const entities::ActivityProperties& activity)
        : text_(activity.Act_LDL), name_(activity.Act_Name), small_(FirstCapitalReplacer(activity.Act_Name)) {
        for (const SourceInputs& source : sourceInputsOf(activity)) {
            sources_.push_back({*source.name, {}});
            for (const int position : source.inputs) {
                sources_.back().inputs.add(activity.Act_Inputs.peek()->Item(position)->Attribute_Name);
            }
        }
        for (const entities::AttributeProperties& output : activity.Act_Outputs) {
            outputs_.add(output.Attribute_Name);
            outputs_.alsoAs(platform::upperCase(output.Attribute_Name));  // so a variable is written
        }
        read_.resize(sources_.size());
    }

    std::vector<std::string> look() {
        for (std::size_t at = 0; at < text_.size(); ++at) {
            if (at == 0 || !isNameCharacter(text_[at - 1])) {
                lookAt(at);
            }
        }
        if (!generated_) {
            return former().empty()
                       ? std::vector<std::string>()
                       : std::vector{"It is written for " + former() + ", and the activity is " + name_ + "."};
        }
        for (std::size_t k = 0; k < sources_.size(); ++k) {
            if (!read_[k] && readsAny_) {
                tell("Source" + sourceWords(k + 1) + " is not read.");
            }
        }
        return std::move(result_);
    }

  private:
    struct Source {
        std::string name;
        Names inputs;
    };

    bool startsAt(std::size_t at, const std::string& head, const char* tail) const {
        return text_.compare(at, head.size(), head) == 0 &&
               text_.compare(at + head.size(), std::string(tail).size(), tail) == 0;
    }

    /// Reads digits from `at` on, which moves behind them; 0 when there are none.
    std::size_t numberAt(std::size_t& at) const {
        const std::size_t begin = at;
        while (at < text_.size() && isDigit(text_[at])) {
            ++at;
        }
        return at == begin || at - begin > 4 ? 0 : std::stoul(text_.substr(begin, at - begin));
    }

    /// A token that the generator leaves as it is, since there is no such source.
    void lookAtLeftToken(std::size_t at) {
        if (platform::equalIgnoringCase(std::string_view(text_).substr(at, 4), "a_in")) {
            std::size_t behind = at + 4;
            if (const std::size_t k = numberAt(behind);
                k > sources_.size() && behind < text_.size() && (text_[behind] == '(' || text_[behind] == '_')) {
                generated_ = true;
                tellMissing(k);
            }
        }
    }

    void lookAt(std::size_t at) {
        lookAtLeftToken(at);
        if (startsAt(at, name_, "_IN")) {
            std::size_t behind = at + name_.size() + 3;
            if (const std::size_t k = numberAt(behind); k > 0 && behind < text_.size() && text_[behind] == '_') {
                lookAtInput(k, behind + 1);
            }
        } else if (startsAt(at, name_, "_OUT_")) {
            generated_ = true;
            const std::size_t behind = at + name_.size() + 5;
            if (!outputs_.atHead(std::string_view(text_).substr(behind))) {
                tell("The activity has no output " + wordAt(behind) + ".");
            }
        }
        if (startsAt(at, small_, "_in")) {
            std::size_t behind = at + small_.size() + 3;
            if (const std::size_t k = numberAt(behind); k > 0 && behind < text_.size() && text_[behind] == '(') {
                lookAtSource(k, behind);
            }
        } else if (startsAt(at, small_, "_out(")) {
            compare(small_ + "_out", name_ + "_OUT_", "output", "the activity has ", outputs_, at + small_.size() + 4);
        }
    }

    void lookAtInput(std::size_t k, std::size_t behind) {
        generated_ = true;
        if (k > sources_.size()) {
            tellMissing(k);
            return;
        }
        read_[k - 1] = true;
        if (!sources_[k - 1].inputs.atHead(std::string_view(text_).substr(behind))) {
            tell("Source" + sourceWords(k) + " gives no input " + wordAt(behind) + ".");
        }
    }

    void lookAtSource(std::size_t k, std::size_t bracket) {
        readsAny_ = true;
        if (k > sources_.size()) {
            tellMissing(k);
            return;
        }
        read_[k - 1] = true;
        const std::string number = std::to_string(k);
        compare(small_ + "_in" + number, name_ + "_IN" + number + "_", "input", "source" + sourceWords(k) + " gives ",
                sources_[k - 1].inputs, bracket);
    }

    /// Arguments go by position.
    void compare(const std::string& predicate, const std::string& head, const char* what, const std::string& has,
                 const Names& names, std::size_t bracket) {
        const auto arguments = argumentsAt(std::string_view(text_).substr(bracket));
        if (!arguments) {
            return;
        }
        const auto count = static_cast<int>(arguments->size());
        if (count != names.count()) {
            tell(predicate + " has " + counted(count, "argument") + ", " + has + counted(names.count(), what) + ".");
            return;
        }
        bool inOrder = true;
        for (std::size_t at = 0; at < arguments->size(); ++at) {
            const std::string_view argument = (*arguments)[at];
            const std::string_view tail = argument.substr(std::min(head.size(), argument.size()));
            if (!argument.starts_with(head) || names.atHead(tail) != std::string(tail)) {
                return;  // a constant or a value that is taken from elsewhere: any order may be meant
            }
            const std::string& expected = names.order()[at];
            inOrder = inOrder && (tail == expected || tail == platform::upperCase(expected));
        }
        if (!inOrder) {
            tell(predicate + " has the " + what + "s in another order than the activity.");
        }
    }

    /// Of whom a generated statement without this activity's name speaks; empty for any other text.
    std::string former() const {
        for (std::size_t at = 0; at < text_.size(); ++at) {
            const std::string_view word = nameAt(text_, at);
            std::size_t token = word.find("_OUT_");
            for (std::size_t in = word.find("_IN"); token == std::string_view::npos && in != std::string_view::npos;
                 in = word.find("_IN", in + 1)) {
                std::size_t behind = at + in + 3;
                token = numberAt(behind) > 0 && text_[behind] == '_' ? in : token;
            }
            if (token != std::string_view::npos && token > 0) {
                const std::string name(word.substr(0, token));
                const std::string small = FirstCapitalReplacer(name);
                if (text_.find(small + "_out(") != std::string::npos ||
                    text_.find(small + "_in") != std::string::npos) {
                    return name;
                }
            }
            at += word.size();
        }
        return {};
    }

    std::string wordAt(std::size_t at) const { return std::string(nameAt(text_, at)); }
    std::string sourceWords(std::size_t k) const { return " " + std::to_string(k) + " (" + sources_[k - 1].name + ")"; }
    void tellMissing(std::size_t k) {
        tell("There is no source " + std::to_string(k) + ": the activity has " +
             counted(static_cast<int>(sources_.size()), "source") + ".");
    }
    void tell(std::string words) {
        if (told_.insert(words).second) {
            result_.push_back(std::move(words));
        }
    }

    const std::string& text_;
    const std::string& name_;
    std::string small_;
    std::vector<Source> sources_;
    Names outputs_;
    std::vector<bool> read_;  ///< the statement speaks of the source of that place
    bool readsAny_ = false;   ///< it reads sources by their predicates
    bool generated_ = false;  ///< it holds names that only the generator makes
    std::unordered_set<std::string> told_;
    std::vector<std::string> result_;
};

}  // namespace

std::vector<std::string> misfitsOf(const entities::ActivityProperties& activity) {
    if (activity.Act_Name.empty() || activity.Act_LDL.empty()) {
        return {};
    }
    return Fit(activity).look();
}

std::string misfitLine(const entities::ActivityProperties& activity) {
    const std::vector<std::string> misfits = misfitsOf(activity);
    if (misfits.empty()) {
        return {};
    }
    const std::string more = misfits.size() == 1 ? "" : " (and " + std::to_string(misfits.size() - 1) + " more)";
    return misfits.front() + more;
}

}  // namespace orvent::statements
