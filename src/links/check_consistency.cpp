#include "links/check_consistency.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "entities/nodes.h"

namespace orvent::links {

using namespace entities;
using canvas::LabelsD;
using canvas::LinesD;

namespace {

/// Names in the order in which they came, each once. The names live in the links that were walked.
class Sources {
  public:
    void add(const std::string& name) {
        const auto is = [&](const std::string* known) { return *known == name; };
        if (names_.size() < kWalk ? std::none_of(names_.begin(), names_.end(), is) : addToTable(name)) {
            names_.push_back(&name);
        }
    }
    auto begin() const { return names_.begin(); }
    auto end() const { return names_.end(); }
    void clear() {
        names_.clear();
        table_.clear();
    }

  private:
    static constexpr std::size_t kWalk = 8;  // below this a walk is as quick as a table

    bool addToTable(const std::string& name) {
        if (table_.empty()) {
            for (const std::string* known : names_) {
                table_.insert(*known);
            }
        }
        return table_.insert(name).second;
    }

    std::vector<const std::string*> names_;
    std::unordered_set<std::string_view> table_;
};

struct NodeSources {
    Sources data;
    Sources control;
};

template <class List>
void addProviders(const List& members, Sources& sources) {
    for (const auto& member : members) {
        for (const auto& link : member.ProvidedFrom) {
            sources.add(link.Provider_Name);
        }
    }
}

/// A regulator in the node itself is no edge: it would lead from the node to itself.
template <class List>
void addRegulators(const List& members, const LabelsD& node, Sources& sources) {
    for (const auto& member : members) {
        for (const auto& link : member.RegulatedFrom) {
            if (link.Regulator_name != node.Caption()) {
                sources.add(link.Regulator_name);
            }
        }
    }
}

void findSources(const LabelsD& node, NodeSources& sources) {
    sources.data.clear();
    sources.control.clear();
    if (const ActivityProperties* activity = node.activity()) {
        addProviders(activity->Act_Inputs, sources.data);
        addRegulators(activity->Act_Parameters, node, sources.control);
        for (const FunctionProperties& function : activity->Act_Functions) {
            addRegulators(function.Function_Inputs, node, sources.control);
            addRegulators(function.Function_Outputs, node, sources.control);
        }
    } else if (const RecordSetProperties* recordSet = node.recordSet()) {
        addProviders(recordSet->RecordSet_Outputs, sources.data);
    }
}

void drawFrom(canvas::Canvas& form, const std::string& name, const LabelsD& node, bool control) {
    const LabelsD* source = form.nodeNamed(name);
    if (!source || !(source->activity() || source->recordSet())) {
        return;
    }
    const std::int16_t fromGrab = !control && source->activity() ? 4 : 3;
    const std::int16_t toGrab = control ? 5 : 1;
    form.Lines.addFullLine(source->Index(), fromGrab, node.Index(), toGrab, canvas::EdgeTypeProvider,
                           canvas::AngleStraight, 0);
}

}  // namespace

bool CheckConsistency(canvas::Canvas& form, platform::Progress& progress) {
    if (form.messages().show("This Action Will Delete All Non Consistent Provider Relationships!\n"
                             "Are you Sure You Want to Continue?",
                             "Checking Consistency", platform::Icon::none,
                             platform::Buttons::okCancel) != platform::Answer::ok) {
        return false;
    }
    const platform::Busy busy(progress);
    std::vector<std::int32_t> former;
    for (const LinesD& edge : form.Lines) {
        if (edge.EdgeType() == canvas::EdgeTypeProvider) {
            former.push_back(edge.Index());
        }
    }
    // The last one first, since that is where the nodes' lists end.
    for (auto edge = former.rbegin(); edge != former.rend(); ++edge) {
        form.Lines.RemoveFull(*edge);
    }
    NodeSources sources;
    for (const LabelsD& node : form.Labels) {
        findSources(node, sources);
        for (const std::string* name : sources.data) {
            drawFrom(form, *name, node, false);
        }
        for (const std::string* name : sources.control) {
            drawFrom(form, *name, node, true);
        }
    }
    return true;
}

}  // namespace orvent::links
