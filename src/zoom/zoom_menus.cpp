// The context menus of the zoom window. Activities and record sets belong to the design window and have no "Delete".

#include <array>

#include "zoom/zoom_rules.h"

namespace orvent::zoom {

namespace {

using canvas::ContextItem;
using canvas::ContextMenu;
using enum canvas::MenuAction;

constexpr const char* kExpanded = "Expanded";
constexpr const char* kNotReady = "Mark As Not Ready";
constexpr const char* kDelete = "Delete";
constexpr const char* kProperties = "Properties";

// Behind those of its own in the menu of every node.
constexpr ContextItem kConnectByName{"NodesConnectByNameM", "Connect By Name...", edit,
                                     canvas::EditAction::connectByName};
constexpr ContextItem kTypeAndSize{"NodesTypeAndSizeM", "Type And Size...", edit, canvas::EditAction::typeAndSize};
constexpr ContextItem kFitToNames{"NodesFitToNamesM", "Fit To Names", edit, canvas::EditAction::fitToNames};

constexpr std::array kRecordSetMenu = {
    ContextItem{"RecordSetExpandedM", kExpanded, expanded},
    ContextItem{"RecordSetNotReadyM", kNotReady, notReady},
    ContextItem{"RecordSetPropertiesM", kProperties, properties, {}, true, {}},
    ContextItem{},
    kConnectByName,
    kTypeAndSize,
    kFitToNames,
};

constexpr std::array kActivityMenu = {
    ContextItem{"ActivityExpandedM", kExpanded, expanded},
    ContextItem{"ActivityNotReadyM", kNotReady, notReady},
    ContextItem{"ActivityPropertiesM", kProperties, properties, {}, true, {}},
    ContextItem{},
    kConnectByName,
    kTypeAndSize,
    kFitToNames,
};

constexpr std::array kFunctionMenu = {
    ContextItem{"FunctionExpandedM", kExpanded, expanded},
    ContextItem{"FunctionNotReadyM", kNotReady, notReady},
    ContextItem{"FunctionDeleteM", kDelete, deleteNodes, canvas::NodeTypeFunction},
    ContextItem{"FunctionPropertiesM", kProperties, properties, {}, true, {}},
    ContextItem{},
    kTypeAndSize,
    kFitToNames,
};

constexpr std::array kConstantMenu = {
    ContextItem{"ConstantNotReadyM", kNotReady, notReady},
    ContextItem{"ConstantDeleteM", kDelete, deleteNodes, canvas::NodeTypeConstant},
    ContextItem{"ConstantPropertiesM", kProperties, properties, {}, true, {}},
    ContextItem{},
    kTypeAndSize,
    kFitToNames,
};

constexpr std::array kAttributeMenu = {
    ContextItem{"AttributeNotReadyM", kNotReady, notReady},
    ContextItem{"AttributeDeleteM", kDelete, deleteNodes, canvas::NodeTypeAttribute},
    ContextItem{"AttributePropertiesM", kProperties, properties, {}, true, {}},
    ContextItem{},
    kConnectByName,
    kTypeAndSize,
    kFitToNames,
};

constexpr std::array kParameterMenu = {
    ContextItem{"ParameterNotReadyM", kNotReady, notReady},
    ContextItem{"ParameterDeleteM", kDelete, deleteNodes, canvas::NodeTypeParameter},
    ContextItem{"ParameterPropertiesM", kProperties, properties, {}, true, {}},
    ContextItem{},
    kTypeAndSize,
    kFitToNames,
};

}  // namespace

std::span<const ContextMenu> ZoomRules::menus() const {
    static const std::array kMenus = {
        ContextMenu{"RecordSetM", kRecordSetMenu},
        ContextMenu{"ActivityM", kActivityMenu},
        ContextMenu{"FunctionM", kFunctionMenu},
        ContextMenu{"ConstantM", kConstantMenu},
        ContextMenu{"AttributeM", kAttributeMenu},
        ContextMenu{"ParameterM", kParameterMenu},
        canvas::edgesMenu(),
    };
    return kMenus;
}

}  // namespace orvent::zoom
