#include "canvas/context_menus.h"

#include <array>

namespace orvent::canvas {

namespace {

using enum MenuAction;

constexpr std::array kRecordSetMenu = {
    ContextItem{"RecordSetPropertiesM", "Properties", properties, {}, true, {}},
    ContextItem{"RecordSetNotReadyM", "Mark As Not Ready", notReady},
    ContextItem{"RecordSetDeleteM", "Delete", deleteNodes, NodeTypeRecordSet},
    ContextItem{},
    ContextItem{"RecordSetCutM", "Cut", edit, EditAction::cut},
    ContextItem{"RecordSetCopyM", "Copy", edit, EditAction::copy},
    ContextItem{"RecordSetPasteM", "Paste", edit, EditAction::paste},
    ContextItem{"RecordSetDuplicateM", "Duplicate", edit, EditAction::duplicate},
};

constexpr std::array kActivityMenu = {
    ContextItem{"ActivityPropertiesM", "Properties", properties, {}, true, {}},
    ContextItem{"ActivityZoomM", "Zoom", zoom},
    ContextItem{"ActivityNotReadyM", "Mark As Not Ready", notReady},
    ContextItem{"CreateFromLDLM", "Generate From LDL", templateWizard},
    ContextItem{"ActivityDeleteM", "Delete", deleteNodes, NodeTypeActivity},
    ContextItem{},
    ContextItem{"ActivityCutM", "Cut", edit, EditAction::cut},
    ContextItem{"ActivityCopyM", "Copy", edit, EditAction::copy},
    ContextItem{"ActivityPasteM", "Paste", edit, EditAction::paste},
    ContextItem{"ActivityDuplicateM", "Duplicate", edit, EditAction::duplicate},
};

constexpr std::array kCommentMenu = {
    ContextItem{"CommentDeleteM", "Delete", deleteNodes, NodeTypeComment},
    ContextItem{},
    ContextItem{"CommentCutM", "Cut", edit, EditAction::cut},
    ContextItem{"CommentCopyM", "Copy", edit, EditAction::copy},
    ContextItem{"CommentPasteM", "Paste", edit, EditAction::paste},
    ContextItem{"CommentDuplicateM", "Duplicate", edit, EditAction::duplicate},
};

constexpr std::array kLogMenu = {
    ContextItem{"LogDeleteM", "Delete", deleteNodes, NodeTypeLog},
    ContextItem{},
    ContextItem{"LogCutM", "Cut", edit, EditAction::cut},
    ContextItem{"LogCopyM", "Copy", edit, EditAction::copy},
    ContextItem{"LogPasteM", "Paste", edit, EditAction::paste},
    ContextItem{"LogDuplicateM", "Duplicate", edit, EditAction::duplicate},
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
