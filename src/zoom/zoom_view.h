#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "canvas/draw_form.h"
#include "canvas/fit_to_names.h"
#include "canvas/rename.h"
#include "entities/name_tables.h"
#include "platform/dialogs.h"
#include "zoom/member_order.h"

namespace orvent::zoom {

/// `ZoomPosition` of an activity or a record set in the zoom view, and what it shows there.
enum class ZoomPlace : std::int16_t {
    Providers = 1,  ///< left column: outputs
    Central = 2,    ///< everything
    Consumers = 3,  ///< right column: inputs
};

/// A node of the zoom view and the design node that it was copied from.
struct NewANDoldIndex {
    canvas::NodeNumber NewIndex;
    canvas::NodeNumber OldIndex;
};

/// What makes the columns of the view unreadable.
enum class Disorder {
    none,
    overlap,    ///< boxes of neighbours lie on each other
    wrongSide,  ///< a member stands on the wrong side of what it is joined with
};

/// The check marks of the view menu.
struct ViewMarks {
    bool ViewProviderM = true;
    bool ViewPartOfM = true;
    bool ViewRegulatorM = true;
    bool ViewInstanceOfM = false;
    bool ViewDerivedM = false;
    bool ViewAttributesM = true;
};

/// What helps to read the view. Unlike the filters it is kept from run to run.
struct ZoomSight {
    bool LightPathsM = true;  ///< the path of what is pointed at is lit
    bool LegendM = true;
};

/// What the zoom view needs of the run. All of it outlives the view.
struct ZoomServices {
    canvas::CanvasServices canvas;
    const entities::CatalogueTables& catalogue;
    platform::Progress& progress;
    const canvas::NameMeasure& names;
};

/// The attribute-level view of one activity with its direct neighbours: what stands in it and how far the scenario has
/// it. It works on clones of their entities; nothing reaches the scenario until `ApplyZoomChanges`.
///
/// A design node that is reached twice is shown twice. Only its first copy bears its names, draws edges and is written
/// back.
class ZoomView : public canvas::CanvasForm {
  public:
    /// Largest width and height of the picture, twips.
    static constexpr float kLargestPicture = 32000;

    /// An empty view over a design window, which outlives it.
    ZoomView(const ZoomServices& services, canvas::DrawForm& design);

    /// The design window it was opened from.
    const canvas::DrawForm& ParForm() const { return design_; }
    canvas::DrawForm& ParForm() { return design_; }

    std::vector<NewANDoldIndex> New2OldIndex;
    canvas::NodeNumber CentralActivityNo = canvas::kNoNode;
    std::int32_t ConstantCounter = 0;  ///< for default names
    std::int32_t AttributeCounter = 0;
    std::int32_t FunctionCounter = 0;
    std::int32_t ParameterCounter = 0;
    ViewMarks marks;
    MemberOrder order;        ///< of what was collapsed by hand
    canvas::Renames renames;  ///< since the scenario has all of it
    /// Nodes of functions that wait for their collapsed activity, and the activity's node.
    std::unordered_map<canvas::NodeNumber, canvas::NodeNumber> waiting;

    const entities::CatalogueTables& catalogue() const { return services_.catalogue; }
    platform::Progress& progress() const { return services_.progress; }
    const canvas::NameMeasure& names() const { return services_.names; }

    const canvas::LabelsD* central() const { return Labels.byIndex(CentralActivityNo); }

    /// False for a node whose name another one bears: a second copy, or a sub-node of one. What they show is edited at
    /// the first. No other node is without a name.
    bool bearsName(const canvas::LabelsD& node) const { return NamesColl.Item(node.KeyName()) == node.Index(); }

    /// Runs `step` for each node of the view that was copied from a design node: `step(zoom node, design node)`.
    template <class Step>
    void eachPair(Step step) {
        for (const NewANDoldIndex& pair : New2OldIndex) {
            canvas::LabelsD* shown = Labels.byIndex(pair.NewIndex);
            canvas::LabelsD* design = design_.Labels.byIndex(pair.OldIndex);
            if (shown && design) {
                step(*shown, *design);
            }
        }
    }

    /// Runs it for the first copy of each design node only.
    template <class Step>
    void eachFirstCopy(Step step) {
        eachPair([&](canvas::LabelsD& shown, canvas::LabelsD& design) {
            if (bearsName(shown)) {
                step(shown, design);
            }
        });
    }

    const ZoomSight& sight() const { return sight_; }
    void setSight(const ZoomSight& sight);

    /// What cannot be read since the view was built, nodes were expanded or room was made. Not offered to be mended
    /// once that was turned down.
    Disorder disorder() const { return disorder_; }
    void setDisorder(Disorder disorder);

    bool unapplied() const { return unapplied_; }

    /// Something was edited that the scenario does not have yet.
    void touch();
    /// Whether something was edited since this was asked last.
    bool takeEdits() { return std::exchange(edited_, false); }
    /// The scenario has all of it now, also the rows that were deleted so far.
    void applied();

    /// The rows that were deleted since then are forgotten: the changes are not applied.
    void discard() { DeletedNodes->cutBack(appliedRows_); }
    /// Rows that were deleted so far are no longer taken back by `discard`: a save has dealt with them.
    void keepDeletedRows() { appliedRows_ = DeletedNodes->mark(); }

    // CanvasForm
    bool isZoom() const override { return true; }
    canvas::NodeNumber centralNode() const override { return CentralActivityNo; }
    canvas::DrawForm& scenario() override { return design_; }

  private:
    /// What is renamed in the view itself: its orders and its way back into the scenario follow.
    struct OwnRenames : canvas::CanvasListener {
        explicit OwnRenames(ZoomView& of) : view(of) {}
        void memberRenamed(const canvas::Rename& rename) override;
        ZoomView& view;
    };

    ZoomServices services_;
    canvas::DrawForm& design_;
    OwnRenames ownRenames_{*this};
    canvas::CanvasSubscription own_ = listen(ownRenames_);
    int appliedRows_;  ///< mark in the rows to delete
    bool unapplied_ = false;
    bool edited_ = false;
    Disorder disorder_ = Disorder::none;
    ZoomSight sight_;
};

}  // namespace orvent::zoom
