#include "bench/metrics/subjects.h"

#include <algorithm>
#include <random>
#include <string>

#include "bench/graphs.h"
#include "entities/key_grammar.h"
#include "entities/link_types.h"

namespace orvent::bench {

namespace {

constexpr int kNodes = 10'000;
constexpr int kMembers = 500;
constexpr int kFlows = 100;

std::string member(const char* head, int number) {
    return head + std::to_string(number);
}

std::string nodeOf(int flow, int group, const char* name) {
    return "G" + std::to_string(5 * flow + group) + "_" + name;
}

/// Both ends of a link between two attributes.
void link(entities::AttributeProperties& from, const std::string& fromOwner, const std::string& fromKey,
          entities::AttributeProperties& to, const std::string& toOwner, const std::string& toKey,
          entities::LinkType type) {
    from.ProviderFor->Add(toOwner, type, toKey);
    to.ProvidedFrom->Add(fromOwner, type, fromKey);
}

}  // namespace

Edges layered(int nodes, int edges, int layer, unsigned seed) {
    std::mt19937 random(seed);
    Edges result{nodes, {}};
    while (static_cast<int>(result.list.size()) < edges) {
        const int from = static_cast<int>(random() % static_cast<unsigned>(nodes - layer));
        const int to = (from / layer + 1) * layer + static_cast<int>(random() % static_cast<unsigned>(layer));
        result.list.emplace_back(from, to);
    }
    return result;
}

Edges tangled(int nodes, int edges, unsigned seed) {
    std::mt19937 random(seed);
    Edges result{nodes, {}};
    const auto any = [&] { return static_cast<int>(random() % static_cast<unsigned>(nodes)); };
    while (static_cast<int>(result.list.size()) < edges) {
        const int from = any();
        result.list.emplace_back(from, any());
    }
    return result;
}

void buildNodes(canvas::DrawForm& form, const Edges& edges) {
    for (int node = 0; node < edges.nodes; ++node) {
        const std::string name = "RecordSet" + std::to_string(node);
        form.Labels.Add({0, 0, 1050, 450}, name, canvas::NodeTypeRecordSet, name);
    }
    for (const auto& [from, to] : edges.list) {
        form.Lines.addFullLine(canvas::NodeNumber{from + 1}, 3, canvas::NodeNumber{to + 1}, 1, canvas::EdgeTypeProvider,
                               canvas::AngleStraight, 0);
    }
}

std::int64_t visitsOf(const Edges& edges, std::int32_t budget) {
    std::int64_t all = 0;
    for (const bool in : {true, false}) {
        std::vector<std::vector<std::size_t>> targets(static_cast<std::size_t>(edges.nodes));
        for (const auto& [from, to] : edges.list) {
            targets[static_cast<std::size_t>(in ? to : from)].push_back(static_cast<std::size_t>(in ? from : to));
        }
        // From below, until nothing grows any more: then each costs itself and what its targets cost.
        std::vector<std::int64_t> visits(targets.size(), 1);
        for (bool grows = true; grows;) {
            grows = false;
            for (std::size_t node = 0; node < targets.size(); ++node) {
                std::int64_t cost = 1;
                for (const std::size_t target : targets[node]) {
                    cost += visits[target];
                }
                cost = std::min<std::int64_t>(cost, budget);
                grows = grows || cost > visits[node];
                visits[node] = std::max(visits[node], cost);
            }
        }
        for (const std::int64_t cost : visits) {
            all += cost;
        }
    }
    return all;
}

void buildHub(canvas::DrawForm& form) {
    using namespace entities;
    buildScenario(form, kNodes);
    form.Labels.Add({0, 0, 1050, 450}, "Hub", canvas::NodeTypeActivity, "Hub");
    ActivityProperties& hub = *form.nodeNamed("Hub")->activity();
    const auto column = [](int number) { return "COLUMN_" + std::to_string(number % 4 + 1); };
    for (int number = 0; number < kMembers; ++number) {
        const std::string name = member("I", number);
        AttributeProperties& input = hub.Act_Inputs->Add(name, 0, entities::TagNone, name);
        input.ParentKeyName = "Hub";
        const std::string peer = nodeOf(number % kFlows, 4, "UNION");
        link(*form.nodeNamed(peer)->activity()->Act_Outputs->Item(column(number)), peer,
             wholeKey(peer, KindOutput, column(number)), input, "Hub", wholeKey("Hub", KindInput, name), LinkActivity);
    }
    for (int number = 0; number < kMembers; ++number) {
        const std::string name = member("O", number), parameter = member("P", number);
        AttributeProperties& output = hub.Act_Outputs->Add(name, 0, entities::TagNone, name);
        output.ParentKeyName = "Hub";
        for (int step = 0; step < 3; ++step) {
            const std::string from = member("I", (number * 3 + step) % kMembers);
            link(*hub.Act_Inputs->Item(from), "Hub", relativeKey(KindInput, from), output, "Hub",
                 relativeKey(KindOutput, name), LinkActivityInput);
        }
        const std::string governs = member("I", (number * 7) % kMembers);
        hub.Act_Parameters->Add(parameter, 0, entities::TagNone, parameter).ParentKeyName = "Hub";
        ParameterProperties& through = *hub.Act_Parameters->Item(parameter);
        hub.Act_Inputs->Item(governs)->RegulatorFor->Add("Hub", LinkActivityInput,
                                                         relativeKey(KindParameter, parameter));
        through.RegulatedFrom->Add("Hub", LinkActivityInput, relativeKey(KindInput, governs));
        through.RegulatorFor->Add("Hub", LinkParameterOutput, relativeKey(KindOutput, name));
        output.RegulatedFrom->Add("Hub", LinkParameterOutput, relativeKey(KindParameter, parameter));
        const std::string peer = nodeOf(kFlows + number % kFlows, 0, "SOURCE_A");
        link(output, "Hub", wholeKey("Hub", KindOutput, name),
             *form.nodeNamed(peer)->recordSet()->RecordSet_Outputs->Item(column(number)), peer,
             wholeKey(peer, KindRecordSetAttribute, column(number)), LinkRecordSet);
    }
    synchronizeScenario(form);
}

}  // namespace orvent::bench
