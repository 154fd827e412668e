#include "zoom/zoom_form.h"

#include <array>

#include "zoom/make_room.h"
#include "zoom/rename_node.h"
#include "zoom/zoom_view.h"

namespace orvent::zoom {

using namespace platform;

namespace {

/// Takes over what a save did, also when it breaks off: the identifiers that it gave, and that one which writes
/// everything anew has forgotten the rows to delete.
struct SaveFollows {
    ZoomForm& form;
    int& appliedRows;
    ~SaveFollows() {
        RefreshZoomIdentities(form);
        appliedRows = form.DeletedNodes->mark();
    }
};

}  // namespace

ZoomForm::ZoomForm(const ZoomServices& services, canvas::DrawForm& design)
    : CanvasForm(services.canvas),
      ParForm(design),
      services_(services),
      rules_(*this, services.relationships),
      design_(design.listen(*this)) {
    PicForm.setLargest(kLargestPicture);
    ParForm.setEnabled(false);
    DeletedNodes = ParForm.DeletedNodes;
    appliedRows_ = DeletedNodes->mark();
    ZoomForm::formChanged();
}

ZoomForm::~ZoomForm() {
    design_.end();
    ParForm.setEnabled(true);
}

// The scenario's name may change while it is stored.
void ZoomForm::formChanged() {
    if (const std::string caption = ParForm.Caption() + " - Expand"; caption != Caption()) {
        setCaption(caption);
    }
}

void ZoomForm::OwnRenames::memberRenamed(const canvas::Rename& rename) {
    if (rename.kind != entities::KindFree) {
        form.order.rename(rename.function.empty() ? rename.owner : rename.function, rename.kind, rename.former,
                          rename.now);
    }
    if (rename.kind == entities::KindFree || !rename.owner.empty()) {
        form.renames.push_back(rename);
    }
}

bool ZoomForm::repeats(const canvas::LabelsD& node) const {
    return !bearsName(node);
}

void ZoomForm::touch() {
    edited_ = true;
    if (!unapplied_) {
        unapplied_ = true;
        tellForm();
    }
}

void ZoomForm::applied() {
    appliedRows_ = DeletedNodes->mark();
    renames.clear();
    unapplied_ = false;
    tellForm();
}

void ZoomForm::setSight(const ZoomSight& sight) {
    sight_ = sight;
    tellForm();
}

void ZoomForm::setDisorder(Disorder disorder) {
    if (disorder_ != disorder) {
        disorder_ = disorder;
        tellForm();
    }
}

std::string ZoomForm::titleMark() const {
    return unapplied_ ? " (not applied yet)" : "";
}

std::optional<canvas::Offer> ZoomForm::offer() const {
    if (disorder_ == Disorder::none || roomDeclined_) {
        return CanvasForm::offer();
    }
    return canvas::Offer{disorder_ == Disorder::overlap
                             ? "Some boxes lie on each other."
                             : "Some boxes stand on the wrong side of what they are joined with.",
                         "Make Room"};
}

void ZoomForm::answerOffer(bool taken) {
    if (disorder_ == Disorder::none || roomDeclined_) {
        CanvasForm::answerOffer(taken);
        return;
    }
    roomDeclined_ = !taken;
    setDisorder(Disorder::none);
    if (taken) {
        MakeRoom(*this);
    }
}

std::span<const canvas::LegendEntry> ZoomForm::legend() const {
    static constexpr std::array<canvas::LegendEntry, 13> kFigures = {{
        {canvas::EdgeTypeProvider, "Provider"},
        {canvas::EdgeTypeRegulator, "Regulator"},
        {canvas::EdgeTypePartOf, "Part of"},
        {canvas::EdgeTypeReserved, "Instance of"},
        {canvas::EdgeTypeDerived, "Derived"},
        {canvas::NodeTypeActivity, "Activity"},
        {canvas::NodeTypeRecordSet, "Record set"},
        {canvas::NodeTypeAttribute, "Attribute"},
        {canvas::NodeTypeParameter, "Parameter"},
        {canvas::NodeTypeFunction, "Function"},
        {canvas::NodeTypeConstant, "Constant"},
        {canvas::NodeTypeDataType, "Data type"},
        {canvas::NodeTypeFunctionType, "Function type"},
    }};
    return sight_.LegendM ? std::span<const canvas::LegendEntry>(kFigures) : std::span<const canvas::LegendEntry>();
}

void ZoomForm::Save() {
    ApplyZoomChanges(*this, true);
    const SaveFollows follow{*this, appliedRows_};
    ParForm.Save();
}

bool ZoomForm::QueryUnload() {
    switch (messages().show("DO YOU WANT TO APPLY THE CHANGES TO SCENARIO " + ParForm.Caption() + " ?",
                            "Closing Scenario", Icon::question, Buttons::yesNoCancel)) {
        case Answer::yes:
            ApplyZoomChanges(*this, false);
            break;
        case Answer::no:
            DeletedNodes->cutBack(appliedRows_);
            break;
        default:
            return false;
    }
    // Before this window goes, so that the keyboard finds the design window awake.
    ParForm.setEnabled(true);
    return true;
}

}  // namespace orvent::zoom
