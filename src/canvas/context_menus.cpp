#include "canvas/context_menus.h"

#include <array>

namespace orvent::canvas {

namespace {

using enum MenuAction;

constexpr std::array kRecordSetMenu = {
    ContextItem{"RecordSetPropertiesM", "Properties", properties, {}, true, {}},
    ContextItem{"RecordSetNotReadyM", "Mark As Not Ready", notReady},
    ContextItem{"RecordSetDeleteM", "Delete", deleteNodes, NodeTypeRecordSet},
};

constexpr std::array kActivityMenu = {
    ContextItem{"ActivityPropertiesM", "Properties", properties, {}, true, {}},
    ContextItem{"ActivityZoomM", "Zoom", zoom},
    ContextItem{"ActivityNotReadyM", "Mark As Not Ready", notReady},
    ContextItem{"CreateFromLDLM", "Generate From LDL", templateWizard},
    ContextItem{"ActivityDeleteM", "Delete", deleteNodes, NodeTypeActivity},
};

constexpr std::array kCommentMenu = {
    ContextItem{"CommentDeleteM", "Delete", deleteNodes, NodeTypeComment},
};

constexpr std::array kLogMenu = {
    ContextItem{"LogDeleteM", "Delete", deleteNodes, NodeTypeLog},
};

constexpr std::array kAngles = {
    ContextItem{"EdgeAngleNoneM", "None", setAngle, AngleNone},
    ContextItem{"EdgeAngleStraightM", "Straight", setAngle, AngleStraight},
    ContextItem{"EdgeAngleVerticalDownM", "Vertical Down", setAngle, AngleVerticalDown},
    ContextItem{"EdgeAngleVerticalUpM", "Vertical Up", setAngle, AngleVerticalUp},
};

constexpr std::array kEdges = {
    ContextItem{"EdgeDeleteM", "Delete", deleteEdges},
    ContextItem{"EdgeAngleM", "Angle", submenu, {}, false, kAngles},
    ContextItem{"EdgeStraightenM", "Straighten", MenuAction::straightenEdge},
};

constexpr ContextMenu kEdgesMenu{"EdgesM", kEdges};

constexpr std::array kDesignMenus = {
    ContextMenu{"RecordSetM", kRecordSetMenu},
    ContextMenu{"ActivityM", kActivityMenu},
    ContextMenu{"CommentM", kCommentMenu},
    ContextMenu{"LogM", kLogMenu},
    kEdgesMenu,
};

}  // namespace

const ContextMenu& edgesMenu() {
    return kEdgesMenu;
}

std::span<const ContextMenu> designMenus() {
    return kDesignMenus;
}

}  // namespace orvent::canvas
