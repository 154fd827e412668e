#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "canvas/canvas_listener.h"
#include "canvas/canvas_settings.h"
#include "canvas/deleted_nodes.h"
#include "canvas/graph.h"
#include "canvas/labels.h"
#include "canvas/light.h"
#include "canvas/lines.h"
#include "canvas/names2index.h"
#include "canvas/picture_area.h"
#include "canvas/selection.h"
#include "canvas/touched.h"
#include "entities/nodes.h"
#include "platform/dialogs.h"

namespace orvent::canvas {

/// What all canvases of a run share.
struct CanvasServices {
    platform::MessageBox& messages;
    const CanvasSettings& settings;
};

/// A graph on screen: nodes, edges, names, selection and the rows to delete at the next save. Both the design window
/// and the zoom window are canvases.
class Canvas : public entities::NameOwner, public entities::FunctionContainer, private Graph {
  public:
    explicit Canvas(const CanvasServices& services);
    ~Canvas() override;
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    Names2IndexColl NamesColl;
    LabelsCollection Labels;
    LinesCollection Lines;
    SelectedLabelsCollection SelectedLabels;
    SelectedLinesCollection SelectedLines;
    /// One object for a scenario: a view over a part of it holds its design window's.
    platform::Shared<DeletedNodesCollection> DeletedNodes = std::make_shared<DeletedNodesCollection>();

    NodeNumber LabelsNo{};             ///< the last node number given; only grows
    EdgeNumber LinesNo{};              ///< the last edge number given; only grows
    std::int32_t ActivityCounter = 0;  ///< for default names
    std::int32_t RecordSetCounter = 0;
    NodeNumber ActiveLabel = kNoNode;  ///< the node last pressed
    EdgeNumber ActiveEdge = kNoEdge;
    NodeNumber CurrentNode = kNoNode;  ///< the node under the pointer
    EdgeNumber CurrentEdge = kNoEdge;
    float BiggestHeight = 0;  ///< zoom canvas: below all nodes, with room for three more
    PictureArea PicForm;

    // The gesture under way; what is shown of it each view has of its own.
    NodeNumber ConnectFromLabel = kNoNode;  ///< source of the edge being drawn
    bool RubberBand = false;                ///< an edge is being drawn
    int typing = 0;                         ///< how many views are at a text of it that is being typed
    bool ConnectPending = false;            ///< the button was released; the first move decides the target
    bool OverLabel = false;                 ///< the pointer is over a node
    bool OverLine = false;                  ///< the pointer is over a handle of a selected edge
    int GrabbingPoint = 0;
    Point GrabMark;                        ///< place of the grab point under the pointer
    float DragStartX = 0, DragStartY = 0;  ///< pointer inside the node as its move began

    /// What is lit while something else is dimmed; empty as a rule.
    const Light& light() const { return light_; }
    void setLight(Light light);

    /// The nodes that a search has found, ascending; they are marked, and nothing is dimmed.
    const std::vector<NodeNumber>& found() const { return found_; }
    void setFound(std::vector<NodeNumber> nodes);

    virtual bool isZoom() const { return false; }

    /// The node that is painted as the middle of the picture, or none.
    virtual NodeNumber centralNode() const { return kNoNode; }

    /// What a node is joined with that the canvas does not show, in words; empty as a rule.
    virtual std::string beyondOf(const LabelsD&) const { return {}; }

    /// Leads to a node: selects it alone and has it brought into view.
    void leadTo(const LabelsD& node);

    /// Removes all nodes, edges, names and selections, and lets go of the rows to delete.
    void clear();

    /// Makes the picture large enough for the rightmost and the lowest node.
    void growPicture();

    /// Clears the selection of nodes, as what a crop rectangle holds.
    void ClearCrop() { SelectedLabels.Clear(); }

    const CanvasSettings& settings() const override { return services_.settings; }
    platform::MessageBox& messages() override { return services_.messages; }

    /// The node of that name, or nothing.
    const LabelsD* nodeNamed(const std::string& name) const { return Labels.byIndex(NamesColl.Item(name)); }
    LabelsD* nodeNamed(const std::string& name) { return Labels.byIndex(NamesColl.Item(name)); }
    bool isNameTaken(const std::string& name) const override { return NamesColl.Item(name) != kNoNode; }
    const entities::FunctionProperties* functionNamed(const std::string& name) const override;

    /// Tells the listener of changes while its holder keeps the subscription.
    [[nodiscard]] CanvasSubscription listen(CanvasListener& listener) { return listeners_.add(listener); }

    // Changes are told through these.
    void tellChanged(const LabelsD& node) override;
    void tellChanged(const LinesD& edge) override;
    void tellPicture();
    void tellRenamed(const Rename& rename);
    const CanvasListeners& listeners() const { return listeners_; }

    /// Gathers what changes while it is there.
    std::optional<Touched> touched;
    /// Grows with each change of what a scenario keeps.
    std::uint64_t changes() const { return changes_; }

    /// True while a refused duplicate name is not to be told.
    bool quietNames = false;

    /// Forgets a node or an edge that goes, in the selections and in all fields that name it.
    void forgetNode(const LabelsD& node);
    virtual void forgetEdge(const LinesD& edge);

  private:
    friend class ManyChanges;
    friend class LabelsCollection;
    friend class LinesCollection;

    // Graph
    Names2IndexColl& names() override { return NamesColl; }
    LabelsD* nodeAt(NodeNumber index) override { return Labels.byIndex(index); }
    LinesD* edgeAt(EdgeNumber index) override { return Lines.byIndex(index); }
    bool isSelected(const LabelsD& node) const override { return SelectedLabels.Item(node.Index()) != nullptr; }
    void nameRefused() override;
    void nodeMoved(const LabelsD& node) override;
    void detachEnd(EdgeNumber edge, EdgeEnd which) override;
    void grabPointMeant(int grabPoint) override { GrabbingPoint = grabPoint; }
    void touch(const LabelsD& node) override;
    void touch(const LinesD& edge) override;
    void touchBox(const LabelsD& node) override;

    CanvasServices services_;
    Light light_;
    std::vector<NodeNumber> found_;
    CanvasListeners listeners_;
    int manyChanges_ = 0;
    std::uint64_t changes_ = 0;
};

/// While one lives, changes of nodes and edges are not told one by one; its end tells `manyChanged` instead. Nodes and
/// edges that go are told as always.
class ManyChanges {
  public:
    explicit ManyChanges(Canvas& canvas) : canvas_(canvas) { ++canvas_.manyChanges_; }
    ~ManyChanges();
    ManyChanges(const ManyChanges&) = delete;
    ManyChanges& operator=(const ManyChanges&) = delete;

  private:
    Canvas& canvas_;
};

}  // namespace orvent::canvas
