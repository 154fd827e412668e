#include "run/rows.h"

#include <algorithm>

namespace orvent::run {

using program::Predicate;
using program::PredicateKind;

std::map<canvas::NodeNumber, NodeRows> nodeRows(const program::Program& program) {
    std::map<canvas::NodeNumber, NodeRows> nodes;
    for (std::size_t at = 0; at < program.predicates.size(); ++at) {
        const Predicate& predicate = program.predicates[at];
        NodeRows& node = nodes[predicate.node];
        switch (predicate.kind) {
            case PredicateKind::given:
            case PredicateKind::recordSet:
            case PredicateKind::output:
                node.out = at;
                break;
            case PredicateKind::input:
                node.in.push_back(at);
                break;
            case PredicateKind::before:
            case PredicateKind::helper:
                break;
        }
    }
    // What comes into a record set are the rows of those that feed it.
    for (const program::ProgramRule& rule : program.rules) {
        const auto head = static_cast<std::size_t>(rule.rule.head.tag);
        if (program.predicates[head].kind != PredicateKind::recordSet) {
            continue;
        }
        std::vector<std::size_t>& in = nodes[program.predicates[head].node].in;
        for (const rules::Literal& literal : rule.rule.body) {
            const bool read = literal.kind != rules::LiteralKind::comparison && literal.atom.tag >= 0;
            const auto feeder = static_cast<std::size_t>(literal.atom.tag);
            if (read && std::find(in.begin(), in.end(), feeder) == in.end()) {
                in.push_back(feeder);
            }
        }
    }
    return nodes;
}

std::size_t sourceOf(const program::Program& program, std::size_t predicate) {
    if (program.predicates[predicate].kind != PredicateKind::input) {
        return predicate;
    }
    for (const program::ProgramRule& rule : program.rules) {
        const bool its = static_cast<std::size_t>(rule.rule.head.tag) == predicate && !rule.rule.body.empty();
        if (its && rule.rule.body.front().atom.tag >= 0) {
            return static_cast<std::size_t>(rule.rule.body.front().atom.tag);
        }
    }
    return predicate;
}

std::string hindrance(const program::Program& program, canvas::NodeNumber node) {
    for (const program::Finding& finding : program.findings) {
        if (finding.node == node && program::wordsOf(finding.kind).stops) {
            return finding.words;
        }
    }
    return {};
}

std::string countWords(const NodeRows& rows, const std::vector<Outcome>& outcomes, const std::string& arrow) {
    const auto isThere = [&](std::size_t at) { return outcomes[at].state == Outcome::State::there; };
    std::string words;
    if (!rows.in.empty() && std::all_of(rows.in.begin(), rows.in.end(), isThere)) {
        long long count = 0;
        for (const std::size_t at : rows.in) {
            count += outcomes[at].count;
        }
        words = std::to_string(count) + arrow;
    }
    return rows.out && isThere(*rows.out) ? words + std::to_string(outcomes[*rows.out].count)
           : words.empty()                ? words
                                          : words + "?";
}

}  // namespace orvent::run
