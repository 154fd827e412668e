#include "editors/selection_prop.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "canvas/node_moves.h"
#include "editors/item_prop.h"
#include "editors/place_node.h"
#include "platform/name_list.h"

namespace orvent::editors {

using namespace entities;
using canvas::LabelsD;
using platform::Icon;

namespace {

constexpr int kMostTwips = 32000;

/// The size that all nodes have alike in one direction, in words; nothing when they differ.
template <class Size>
std::string commonSize(const std::vector<const LabelsD*>& nodes, Size size) {
    const auto whole = [&](const LabelsD* node) { return std::lround(size(*node)); };
    const bool alike = std::all_of(nodes.begin(), nodes.end(),
                                   [&](const LabelsD* node) { return whole(node) == whole(nodes.front()); });
    return alike && !nodes.empty() ? std::to_string(whole(nodes.front())) : std::string();
}

/// The twips that a text tells, nothing for none. False when it is no such number.
bool readTwips(const std::string& text, std::optional<float>& twips) {
    if (text.empty()) {
        return true;
    }
    int number = 0;
    const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (fault != std::errc() || end != text.data() + text.size() || number <= 0 || number > kMostTwips) {
        return false;
    }
    twips = static_cast<float>(number);
    return true;
}

}  // namespace

SelectionProp::SelectionProp(const EditorServices& services, canvas::CanvasForm& form)
    : Editor(services.repository.messages), services_(services), form_(form), nodes_(form.SelectedLabels.members()) {
    Saved = false;
    Caption = std::to_string(nodes_.size()) + (nodes_.size() == 1 ? " node" : " nodes");
    const CatalogueTables& tables = services_.catalogue.tables;
    const NameTable& types = form_.isZoom() ? tables.dataTypes : tables.activityTypes;
    Types.emplace_back("As they are");
    indices_ = types.listed();
    for (const std::int16_t index : indices_) {
        Types.push_back(types.name(index));
    }
    std::vector<const LabelsD*> nodes;
    for (const canvas::NodeNumber number : nodes_) {
        nodes.push_back(form_.Labels.byIndex(number));
    }
    txtWidth = commonSize(nodes, [](const LabelsD& node) { return node.Width(); });
    txtHeight = commonSize(nodes, [](const LabelsD& node) { return node.Height(); });
}

bool SelectionProp::takeSizes(std::optional<float>& width, std::optional<float>& height) const {
    if (readTwips(txtWidth, width) && readTwips(txtHeight, height)) {
        return true;
    }
    messages().tell("A width and a height are whole numbers of twips, up to " + std::to_string(kMostTwips) + ".", {},
                    Icon::warning);
    return false;
}

/// As its dialog does it; what that would refuse is not tried.
bool SelectionProp::giveDataType(LabelsD& node, std::int16_t type) {
    auto* view = dynamic_cast<zoom::ZoomView*>(&form_);
    const NameTable& types = services_.catalogue.tables.dataTypes;
    if (!view || !ItemProp::edits(*view, node)) {
        return false;
    }
    repository::WholeFunctionTypes functionTypes(services_.catalogue);
    ItemProp dialog(*view, node, functionTypes);
    const auto place = std::find(dialog.Types.begin(), dialog.Types.end(), types.name(type));
    const bool suits = dialog.TypesInUse && dialog.words.types == &CatalogueTables::dataTypes &&
                       place != dialog.Types.end() && !dialog.txtName.empty() && dialog.txtName != types.name(type);
    if (suits) {
        dialog.selectType(static_cast<int>(place - dialog.Types.begin()));
        dialog.OK_Click();
        dialog.end();
    }
    return suits;
}

/// False when the type cannot be read, which was told; then no node has it.
bool SelectionProp::giveTypes(std::int16_t type, std::vector<std::string>& refused) {
    for (const canvas::NodeNumber number : nodes_) {
        LabelsD& node = *form_.Labels.byIndex(number);
        if (form_.isZoom() ? !giveDataType(node, type) : !node.activity()) {
            refused.push_back(node.Caption());
        } else if (!form_.isZoom() && !giveType(services_, form_, node, type)) {
            return false;
        }
        if (form_.touched) {
            form_.touched->node(number);
        }
    }
    return true;
}

bool SelectionProp::apply() {
    std::optional<float> width, height;
    std::vector<std::string> refused;
    if (!takeSizes(width, height) || (Type > 0 && !giveTypes(indices_[static_cast<std::size_t>(Type) - 1], refused))) {
        return false;
    }
    if (width || height) {
        const canvas::ManyChanges many(form_);
        for (const canvas::NodeNumber number : nodes_) {
            LabelsD& node = *form_.Labels.byIndex(number);
            const canvas::Box box{node.Left(), node.Top(), width.value_or(node.Width()),
                                  height.value_or(node.Height())};
            if (box != node.box()) {
                canvas::reshape(form_, node, box);
            }
        }
        form_.growPicture();
    }
    if (!refused.empty()) {
        messages().tell("They keep their type: " + platform::nameList(refused) + ".", {}, Icon::information);
    }
    return true;
}

}  // namespace orvent::editors
