#include "canvas/context_menus.h"

#include <array>

namespace orvent::canvas {

namespace {

using enum MenuAction;

constexpr std::array kAlign = {
    ContextItem{"NodesAlignLeftM", "Left", edit, EditAction::alignLeft},
    ContextItem{"NodesAlignCentreM", "Centre", edit, EditAction::alignCentre},
    ContextItem{"NodesAlignRightM", "Right", edit, EditAction::alignRight},
    ContextItem{"NodesAlignTopM", "Top", edit, EditAction::alignTop},
    ContextItem{"NodesAlignMiddleM", "Middle", edit, EditAction::alignMiddle},
    ContextItem{"NodesAlignBottomM", "Bottom", edit, EditAction::alignBottom},
};

constexpr std::array kDistribute = {
    ContextItem{"NodesDistributeAcrossM", "Across", edit, EditAction::distributeAcross},
    ContextItem{"NodesDistributeDownM", "Down", edit, EditAction::distributeDown},
};

constexpr std::array kSelect = {
    ContextItem{"NodesSelectUpstreamM", "Upstream", edit, EditAction::selectUpstream},
    ContextItem{"NodesSelectDownstreamM", "Downstream", edit, EditAction::selectDownstream},
    ContextItem{"NodesSelectConnectedM", "Connected", edit, EditAction::selectConnected},
    ContextItem{"NodesSelectBetweenM", "Between Two", edit, EditAction::selectBetween},
    ContextItem{"NodesSelectSameTypeM", "Same Type", edit, EditAction::selectSameType},
};

// Behind those of its own in the menu of every node.
constexpr ContextItem kTidyUp{"NodesTidyUpM", "Tidy Up", edit, EditAction::tidyUp};
constexpr ContextItem kConnectByName{"NodesConnectByNameM", "Connect By Name...", edit, EditAction::connectByName};
constexpr ContextItem kTypeAndSize{"NodesTypeAndSizeM", "Type And Size...", edit, EditAction::typeAndSize};
constexpr ContextItem kFitToNames{"NodesFitToNamesM", "Fit To Names", edit, EditAction::fitToNames};
constexpr ContextItem kAlignMenu{"NodesAlignM", "Align", submenu, {}, false, kAlign};
constexpr ContextItem kDistributeMenu{"NodesDistributeM", "Distribute", submenu, {}, false, kDistribute};
constexpr ContextItem kSelectMenu{"NodesSelectM", "Select", submenu, {}, false, kSelect};

constexpr std::array kRecordSetMenu = {
    ContextItem{"RecordSetPropertiesM", "Properties", properties, {}, true, {}},
    ContextItem{"RecordSetNotReadyM", "Mark As Not Ready", notReady},
    ContextItem{"RecordSetDeleteM", "Delete", deleteNodes, NodeTypeRecordSet},
    ContextItem{},
    ContextItem{"RecordSetCutM", "Cut", edit, EditAction::cut},
    ContextItem{"RecordSetCopyM", "Copy", edit, EditAction::copy},
    ContextItem{"RecordSetPasteM", "Paste", edit, EditAction::paste},
    ContextItem{"RecordSetDuplicateM", "Duplicate", edit, EditAction::duplicate},
    ContextItem{},
    kConnectByName,
    kTidyUp,
    kTypeAndSize,
    kFitToNames,
    kAlignMenu,
    kDistributeMenu,
    kSelectMenu,
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
    ContextItem{},
    kConnectByName,
    kTidyUp,
    kTypeAndSize,
    kFitToNames,
    kAlignMenu,
    kDistributeMenu,
    kSelectMenu,
};

constexpr std::array kCommentMenu = {
    ContextItem{"CommentDeleteM", "Delete", deleteNodes, NodeTypeComment},
    ContextItem{},
    ContextItem{"CommentCutM", "Cut", edit, EditAction::cut},
    ContextItem{"CommentCopyM", "Copy", edit, EditAction::copy},
    ContextItem{"CommentPasteM", "Paste", edit, EditAction::paste},
    ContextItem{"CommentDuplicateM", "Duplicate", edit, EditAction::duplicate},
    ContextItem{},
    kTidyUp,
    kTypeAndSize,
    kFitToNames,
    kAlignMenu,
    kDistributeMenu,
    kSelectMenu,
};

constexpr std::array kLogMenu = {
    ContextItem{"LogDeleteM", "Delete", deleteNodes, NodeTypeLog},
    ContextItem{},
    ContextItem{"LogCutM", "Cut", edit, EditAction::cut},
    ContextItem{"LogCopyM", "Copy", edit, EditAction::copy},
    ContextItem{"LogPasteM", "Paste", edit, EditAction::paste},
    ContextItem{"LogDuplicateM", "Duplicate", edit, EditAction::duplicate},
    ContextItem{},
    kTidyUp,
    kTypeAndSize,
    kFitToNames,
    kAlignMenu,
    kDistributeMenu,
    kSelectMenu,
};

constexpr std::array kAngles = {
    ContextItem{"EdgeAngleNoneM", "None", setAngle, AngleNone},
    ContextItem{"EdgeAngleStraightM", "Straight", setAngle, AngleStraight},
    ContextItem{"EdgeAngleVerticalDownM", "Vertical Down", setAngle, AngleVerticalDown},
    ContextItem{"EdgeAngleVerticalUpM", "Vertical Up", setAngle, AngleVerticalUp},
};

constexpr ContextItem kDeleteEdge{"EdgeDeleteM", "Delete", deleteEdges};
constexpr ContextItem kEdgeAngle{"EdgeAngleM", "Angle", submenu, {}, false, kAngles};
constexpr ContextItem kStraightenEdge{"EdgeStraightenM", "Straighten", MenuAction::straightenEdge};

constexpr std::array kEdges = {kDeleteEdge, kEdgeAngle, kStraightenEdge};

constexpr std::array kDesignEdges = {
    kDeleteEdge,
    kEdgeAngle,
    kStraightenEdge,
    ContextItem{"EdgeShowLinksM", "Show Links", showLinks},
};

constexpr ContextMenu kEdgesMenu{"EdgesM", kEdges};

constexpr std::array kDesignMenus = {
    ContextMenu{"RecordSetM", kRecordSetMenu}, ContextMenu{"ActivityM", kActivityMenu},
    ContextMenu{"CommentM", kCommentMenu},     ContextMenu{"LogM", kLogMenu},
    ContextMenu{"EdgesM", kDesignEdges},
};

}  // namespace

const ContextMenu& edgesMenu() {
    return kEdgesMenu;
}

std::span<const ContextMenu> designMenus() {
    return kDesignMenus;
}

}  // namespace orvent::canvas
