#include "analysis/text_export.h"

#include <cstddef>
#include <initializer_list>
#include <string_view>

#include "analysis/flow_order.h"
#include "links/far_end.h"
#include "platform/fault.h"
#include "platform/steps.h"

namespace orvent::analysis {

namespace {

using entities::ActivityProperties;
using entities::AttributeCollection;
using entities::AttributeProperties;
using entities::ProviderProperties;
using entities::RecordSetProperties;

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::int16_t kNoType = -1;

void append(std::string& text, std::initializer_list<std::string_view> parts) {
    for (const std::string_view part : parts) {
        text += part;
    }
}

/// The name of an attribute, empty when there is none.
std::string_view nameOf(const AttributeProperties* attribute) {
    return attribute ? std::string_view(attribute->Attribute_Name) : std::string_view();
}

/// Gathers the lines of the nodes, and the counts for the first line.
class Lines {
  public:
    Lines(const canvas::DrawForm& form, const entities::CatalogueTables& catalogue)
        : form_(form), catalogue_(catalogue) {
        // Room for ordinary nodes, so that the texts seldom move while they grow.
        const auto nodes = static_cast<std::size_t>(form.Labels.Count());
        nodeTexts_.reserve(128 * nodes);
        flowTexts_.reserve(512 * nodes);
    }

    void addActivity(const ActivityProperties& activity, std::int32_t flowId);
    void addRecordSet(const RecordSetProperties& recordSet, std::int32_t flowId);

    std::string text() const {
        const std::string counts = std::to_string(nodes_) + ";" + std::to_string(linksAndAttributes_);
        std::string result;
        result.reserve(counts.size() + kLineEnd.size() + nodeTexts_.size() + flowTexts_.size());
        append(result, {counts, kLineEnd, nodeTexts_, flowTexts_});
        return result;
    }

  private:
    /// "name,name};{" of a list; the place of the last comma, or of a "{" when there is no name, goes to the bracket.
    void addNames(const AttributeCollection* attributes, std::string_view bracket);
    void addOuterFlows(const std::string& owner, const AttributeProperties& attribute);
    void addFlow(const std::string& owner, const AttributeProperties& attribute, const std::string& farOwner,
                 std::string_view farName);
    std::string_view farName(const std::string& key) const;
    std::string_view typeName(const ActivityProperties& activity) const;
    void endNode(std::int32_t flowId, std::string_view typeName);

    const canvas::DrawForm& form_;
    const entities::CatalogueTables& catalogue_;
    std::size_t nodes_ = 0;
    std::size_t linksAndAttributes_ = 0;
    std::string nodeTexts_;
    std::string flowTexts_;
};

void Lines::addNames(const AttributeCollection* attributes, std::string_view bracket) {
    if (attributes) {
        for (const AttributeProperties& attribute : *attributes) {
            append(nodeTexts_, {attribute.Attribute_Name, ","});
            ++linksAndAttributes_;
        }
    }
    nodeTexts_.pop_back();
    nodeTexts_ += bracket;
}

void Lines::addFlow(const std::string& owner, const AttributeProperties& attribute, const std::string& farOwner,
                    std::string_view farName) {
    ++linksAndAttributes_;
    append(flowTexts_, {owner, ".", attribute.Attribute_Name, ":", farOwner, ".", farName, kLineEnd});
}

std::string_view Lines::farName(const std::string& key) const {
    const std::string owner = entities::BeforeFirstDot(key);
    const canvas::LabelsD* node = form_.nodeNamed(owner);
    if (!node) {
        return {};
    }
    if (const ActivityProperties* activity = node->activity()) {
        return nameOf(links::attributeUnder(*activity, entities::KindInput, key));
    }
    if (const RecordSetProperties* recordSet = node->recordSet()) {
        return nameOf(links::attributeUnder(*recordSet, key));
    }
    throw platform::Fault("A link leads to \"" + owner + "\", which is no activity and no record set.");
}

void Lines::addOuterFlows(const std::string& owner, const AttributeProperties& attribute) {
    for (const ProviderProperties& link : attribute.ProviderFor) {
        addFlow(owner, attribute, link.Provider_Name, farName(link.Provider_Key()));
    }
}

void Lines::endNode(std::int32_t flowId, std::string_view typeName) {
    append(nodeTexts_, {std::to_string(flowId), ";", typeName, kLineEnd, kLineEnd});
    flowTexts_ += kLineEnd;
    ++nodes_;
}

std::string_view Lines::typeName(const ActivityProperties& activity) const {
    if (activity.Act_Type == kNoType) {
        return {};
    }
    const entities::NameTable& types = catalogue_.activityTypes;
    if (activity.Act_Type < 0 || static_cast<std::size_t>(activity.Act_Type) >= types.size()) {
        throw platform::Fault("The type of \"" + activity.Act_Name + "\" is not in the catalogue.");
    }
    return types.name(activity.Act_Type);
}

void Lines::addActivity(const ActivityProperties& activity, std::int32_t flowId) {
    const std::string& name = activity.Act_Name;
    append(nodeTexts_, {"A;", name, ";{"});
    addNames(activity.Act_Inputs.peek(), "};{");
    addNames(activity.Act_Outputs.peek(), "};");
    for (const AttributeProperties& input : activity.Act_Inputs) {
        for (const ProviderProperties& link : input.ProviderFor) {
            addFlow(name, input, name,
                    nameOf(links::attributeUnder(activity, entities::KindOutput, link.Provider_Key())));
        }
    }
    for (const AttributeProperties& output : activity.Act_Outputs) {
        addOuterFlows(name, output);
    }
    endNode(flowId, typeName(activity));
}

void Lines::addRecordSet(const RecordSetProperties& recordSet, std::int32_t flowId) {
    const std::string& name = recordSet.RecordSet_Name;
    append(nodeTexts_, {"RS;", name, ";{};{"});
    addNames(recordSet.RecordSet_Outputs.peek(), "};");
    for (const AttributeProperties& attribute : recordSet.RecordSet_Outputs) {
        addOuterFlows(name, attribute);
    }
    endNode(flowId, "db_table");
}

}  // namespace

std::string TextExport::ExportText(const canvas::DrawForm& Window) {
    const NodesColl flow = FlowOrder(progress_).ComputeFlowIDs(Window);
    Lines lines(Window, catalogue_);
    platform::Steps steps(progress_, static_cast<std::size_t>(flow.Count()));
    for (const NodesData& entry : flow) {
        steps.next();
        const canvas::LabelsD* node = Window.Labels.byIndex(entry.Index);
        if (const ActivityProperties* activity = node->activity()) {
            lines.addActivity(*activity, entry.FlowID);
        } else if (const RecordSetProperties* recordSet = node->recordSet()) {
            lines.addRecordSet(*recordSet, entry.FlowID);
        }
    }
    return lines.text();
}

}  // namespace orvent::analysis
