#include "zoom/zoom_form.h"

#include <array>

#include "zoom/apply_zoom_changes.h"
#include "zoom/beyond_view.h"
#include "zoom/make_room.h"

namespace orvent::zoom {

using namespace platform;

namespace {

/// Takes over what a save did, also when it breaks off: the identifiers that it gave, and that one which writes
/// everything anew has forgotten the rows to delete.
struct SaveFollows {
    ZoomView& view;
    ~SaveFollows() {
        RefreshZoomIdentities(view);
        view.keepDeletedRows();
    }
};

}  // namespace

ZoomForm::ZoomForm(const ZoomServices& services, canvas::DrawForm& design)
    : ZoomView(services, design), design_(design.listen(*this)) {
    design.setEnabled(false);
    ZoomForm::formChanged();
}

ZoomForm::~ZoomForm() {
    design_.end();
    ParForm().setEnabled(true);
}

// The scenario's name may change while it is stored.
void ZoomForm::formChanged() {
    if (const std::string caption = ParForm().Caption() + " - Expand"; caption != Caption()) {
        setCaption(caption);
    }
}

std::string ZoomForm::titleMark() const {
    return unapplied() ? " (not applied yet)" : "";
}

std::string ZoomForm::beyondOf(const canvas::LabelsD& node) const {
    return wordsOfBeyond(*this, node);
}

std::optional<canvas::Offer> ZoomForm::offer() const {
    if (!offersRoom()) {
        return CanvasForm::offer();
    }
    return canvas::Offer{disorder() == Disorder::overlap
                             ? "Some boxes lie on each other."
                             : "Some boxes stand on the wrong side of what they are joined with.",
                         "Make Room"};
}

void ZoomForm::answerOffer(bool taken) {
    if (!offersRoom()) {
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
    return sight().LegendM ? std::span<const canvas::LegendEntry>(kFigures) : std::span<const canvas::LegendEntry>();
}

void ZoomForm::Save() {
    ApplyZoomChanges(*this, true);
    const SaveFollows follow{*this};
    ParForm().Save();
}

bool ZoomForm::QueryUnload() {
    switch (messages().showWith(wordsOfLost(*this),
                                "DO YOU WANT TO APPLY THE CHANGES TO SCENARIO " + ParForm().Caption() + " ?",
                                "Closing Scenario", Icon::question, Buttons::yesNoCancel)) {
        case Answer::yes:
            ApplyZoomChanges(*this, false);
            break;
        case Answer::no:
            discard();
            break;
        default:
            return false;
    }
    // Before this window goes, so that the keyboard finds the design window awake.
    ParForm().setEnabled(true);
    return true;
}

}  // namespace orvent::zoom
