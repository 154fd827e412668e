#include "program/needs.h"

#include <map>
#include <set>

#include "program/reference.h"
#include "statements/ldl_sources.h"

namespace orvent::program {

using rules::Literal;
using rules::LiteralKind;

namespace {

/// The activity that a statement means by a predicate, or none.
class Meaning {
  public:
    Meaning(const canvas::Canvas& form, const canvas::LabelsD& node)
        : form_(form), sources_(statements::sourceInputsOf(*node.activity())) {}

    canvas::NodeNumber activityIn(int tag) const {
        if (reference::isActivity(tag)) {
            return reference::nodeIn(tag);
        }
        const auto place = static_cast<std::size_t>(tag) - 1;
        if (!reference::isSource(tag) || place >= sources_.size()) {
            return canvas::kNoNode;
        }
        const canvas::LabelsD* feeder = form_.nodeNamed(*sources_[place].name);
        return feeder && feeder->activity() ? feeder->Index() : canvas::kNoNode;
    }

  private:
    const canvas::Canvas& form_;
    std::vector<statements::SourceInputs> sources_;
};

}  // namespace

/// Goes back from the outputs over the helpers, each of them in both ways: with something to be whole on the way, and
/// without.
std::vector<Need> needsOf(const canvas::Canvas& form, const canvas::LabelsD& node, const ActivityProgram& statement) {
    struct Step {
        int predicate;
        bool whole;
        auto operator<=>(const Step&) const = default;
    };
    const Meaning meaning(form, node);
    std::multimap<int, const rules::Rule*> rules;
    for (std::size_t at = 0; at < statement.rules.size(); ++at) {
        if (statement.sound[at]) {
            rules.emplace(statement.rules[at].head.tag, &statement.rules[at]);
        }
    }
    std::map<canvas::NodeNumber, bool> needs;
    std::set<Step> met = {{reference::kOutput, false}};
    std::vector<Step> round(met.begin(), met.end());
    for (std::size_t at = 0; at < round.size(); ++at) {
        const Step step = round[at];
        const auto [begin, end] = rules.equal_range(step.predicate);
        for (auto rule = begin; rule != end; ++rule) {
            for (const Literal& literal : rule->second->body) {
                if (literal.kind == LiteralKind::comparison) {
                    continue;
                }
                const int tag = literal.atom.tag;
                const bool whole = step.whole || breaksCircle(*rule->second, literal);
                if (const canvas::NodeNumber activity = meaning.activityIn(tag); canvas::isGiven(activity)) {
                    needs[activity] |= whole;
                } else if (Step next{tag, whole}; reference::isHelper(tag) && met.insert(next).second) {
                    round.push_back(next);
                }
            }
        }
    }
    std::vector<Need> result;
    for (const auto& [activity, whole] : needs) {
        result.push_back({activity, whole});
    }
    return result;
}

}  // namespace orvent::program
