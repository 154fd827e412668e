#include "editors/selection_prop.h"

#include <algorithm>
#include <cmath>

#include "canvas/node_moves.h"
#include "editors/item_prop.h"
#include "editors/place_node.h"
#include "platform/name_list.h"
#include "platform/text.h"

namespace orvent::editors {

using namespace entities;
using canvas::LabelsD;
using platform::Icon;

namespace {

constexpr int kLeastPixels = 15, kMostPixels = 1000;  // as the Options have them of new nodes

/// The size that all nodes have alike in one direction, to hundredths of a pixel; nothing when they differ.
template <class Size>
std::string commonSize(const std::vector<const LabelsD*>& nodes, Size size) {
    const bool alike = std::all_of(nodes.begin(), nodes.end(),
                                   [&](const LabelsD* node) { return size(*node) == size(*nodes.front()); });
    return alike && !nodes.empty()
               ? platform::numberText(std::round(size(*nodes.front()) / canvas::kTwipsPerPixel * 100) / 100)
               : std::string();
}

/// The twips of the pixels that a text tells, nothing for none. False when it is no such number.
bool readPixels(const std::string& text, std::optional<float>& twips) {
    if (text.empty()) {
        return true;
    }
    const auto pixels = platform::parseNumber(text);
    if (!pixels || !(*pixels >= kLeastPixels && *pixels <= kMostPixels)) {
        return false;
    }
    twips = static_cast<float>(*pixels * canvas::kTwipsPerPixel);
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
    openedWidth_ = txtWidth;
    openedHeight_ = txtHeight;
}

bool SelectionProp::takeSizes(std::optional<float>& width, std::optional<float>& height) const {
    if ((txtWidth == openedWidth_ || readPixels(txtWidth, width)) &&
        (txtHeight == openedHeight_ || readPixels(txtHeight, height))) {
        return true;
    }
    messages().tell(
        "A width and a height are " + std::to_string(kLeastPixels) + " to " + std::to_string(kMostPixels) + " pixels.",
        {}, Icon::warning);
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

/// False when the type cannot be read, which was told; the nodes before that one have it.
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
