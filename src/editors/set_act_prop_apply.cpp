// How the activity dialog gives its copy to the graph, and what its end puts back.

#include "editors/activity_rename.h"
#include "editors/set_act_prop.h"
#include "forms/name_check.h"
#include "zoom/synchronize_functions.h"
#include "zoom/unsynchronize_functions.h"

namespace orvent::editors {

using namespace entities;
using platform::Icon;

namespace {

/// A refused name is not told while this lives.
class QuietNames {
  public:
    explicit QuietNames(canvas::Canvas& canvas) : canvas_(canvas) { canvas_.quietNames = true; }
    ~QuietNames() { canvas_.quietNames = false; }
    QuietNames(const QuietNames&) = delete;
    QuietNames& operator=(const QuietNames&) = delete;

  private:
    canvas::Canvas& canvas_;
};

bool joins(const canvas::LinesD& edge, std::int32_t one, std::int32_t other) {
    return (edge.FromLabel() == one && edge.ToLabel() == other) || (edge.FromLabel() == other && edge.ToLabel() == one);
}

void removeEdges(canvas::Canvas& form, const canvas::LabelsD& one, const canvas::LabelsD& other) {
    std::vector<std::int32_t> ties;
    for (const canvas::LineNumbers* lines : {&one.StartingLines(), &one.EndingLines()}) {
        for (const std::int32_t line : *lines) {
            const canvas::LinesD* edge = form.Lines.byIndex(line);
            if (edge && joins(*edge, one.Index(), other.Index())) {
                ties.push_back(line);
            }
        }
    }
    for (const std::int32_t line : ties) {
        form.Lines.RemoveFull(line);
    }
}

/// The node of the canvas that shows a function of that key.
canvas::LabelsD* functionNode(canvas::Canvas& form, const FunctionProperties& function) {
    canvas::LabelsD* node = form.nodeNamed(function.Function_Key);
    return node && node->entity<FunctionProperties>() ? node : nullptr;
}

}  // namespace

bool SetActProp::apply() {
    txtName_Leave();
    if (forms::hasFault(txtName, forms::NameFault::empty)) {
        tell("PLEASE GIVE THE ACTIVITY's NAME", Icon::warning);
        return false;
    }
    if (!showsType()) {
        tell("PLEASE SELECT AN ACTIVITY TYPE", Icon::warning);
        return false;
    }
    return ApplyActivity();
}

bool SetActProp::ApplyActivity() {
    const auto former = std::get<std::shared_ptr<ActivityProperties>>(ActiveNode.Properties);
    zoom::UnSynchronizeActivity(ParForm, *former, false, nullptr);
    {
        const QuietNames quiet(ParForm);
        ActiveNode.setCaption(txtName);
        if (ActiveNode.KeyName() == canvas::kErrorName) {
            ActiveNode.setCaption(keptCaption_);
            txtName.clear();
            changed();
            return false;
        }
    }
    if (tempProp->NodeID == 0) {
        tempProp->NodeID = former->NodeID;
    }
    const std::shared_ptr<ActivityProperties> record = tempProp->Clone();
    ActiveNode.Properties = record;
    bindFunctions(*former, *record);
    zoom::SynchronizeActivity(ParForm, *record, nullptr);
    carryBroughtKeys(*record, keptCaption_);
    mirrorOrder_->restore(ParForm, *record, nullptr);
    keptCaption_ = txtName;
    deletedMark_ = ParForm.DeletedNodes->mark();
    ParForm.tellChanged(ActiveNode);
    Saved = true;
    if (onApplied) {
        onApplied();
    }
    tell("Properties Saved", Icon::information);
    return true;
}

/// Outputs that the type brought bear the activity's name in their keys, and so do the members downstream that they
/// feed: these follow a new name.
void SetActProp::carryBroughtKeys(ActivityProperties& record, const std::string& formerName) {
    if (record.Act_Name == formerName) {
        return;
    }
    for (AttributeProperties& output : record.Act_Outputs) {
        const std::string formerKey = withNewHead(output.Key, record.Act_Name, formerName);
        if (formerKey != output.Key) {
            zoom::PropagateRename(ParForm, output, formerKey);
        }
    }
}

/// The nodes of functions that the activity uses show the very objects of its collection; those that it gave up are
/// free again.
void SetActProp::bindFunctions(const ActivityProperties& former, ActivityProperties& now) {
    for (const FunctionProperties& function : former.Act_Functions) {
        canvas::LabelsD* node = functionNode(ParForm, function);
        if (node && !now.Act_Functions->Item(function.Function_Key)) {
            removeEdges(ParForm, *node, ActiveNode);
            FunctionProperties& freed = *node->entity<FunctionProperties>();
            freed.setParentKeyName({});
            freed.Function_Source = 0;
        }
    }
    for (const FunctionProperties& function : now.Act_Functions) {
        if (function.Function_Source != kSourceOwn) {
            continue;
        }
        if (canvas::LabelsD* node = functionNode(ParForm, function)) {
            node->Properties = now.Act_Functions->share(function.Function_Key);
        }
    }
}

bool SetActProp::isComplete() const {
    return !forms::hasFault(txtName, forms::NameFault::empty) && showsType();
}

std::optional<forms::ClosingQuestion> SetActProp::closingQuestion() const {
    return forms::ClosingQuestion{"THE ACTIVITY'S PROPERTIES HAVE NOT BEEN SAVED.\nDO YOU WANT TO SAVE BEFORE EXIT?"};
}

void SetActProp::closing() {
    ParForm.DeletedNodes->cutBack(deletedMark_);
    if (ActiveNode.Caption() != keptCaption_) {
        const QuietNames quiet(ParForm);
        ActiveNode.setCaption(keptCaption_);
    }
    zoom::SynchronizeActivity(ParForm, *ActiveNode.activity(), nullptr);
    mirrorOrder_->restore(ParForm, *ActiveNode.activity(), nullptr);
    ActiveNode.setReady(true);
    services_.nodes.refresh(ParForm, ActiveNode);
    ParForm.setEnabled(true);
    if (onEnd) {
        onEnd();
    }
}

}  // namespace orvent::editors
