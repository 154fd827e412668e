// How the activity dialog gives its copy to the graph, and what its end puts back.

#include "editors/activity_rename.h"
#include "editors/function_nodes.h"
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
    bindFunctions(*former, *record);
    ActiveNode.Properties = record;
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

/// The nodes of functions that the activity uses show those of its new record; those that it gave up are free again. A
/// function of that key which another activity has is none of them.
void SetActProp::bindFunctions(const ActivityProperties& former, ActivityProperties& now) {
    const auto isOurs = [this](const canvas::LabelsD& node) {
        return ownerOfFunction(ParForm, node) == &ActiveNode ||
               node.entity<FunctionProperties>()->ParentKeyName() == keptCaption_;
    };
    std::vector<canvas::LabelsD*> gone;
    for (const FunctionProperties& function : former.Act_Functions) {
        canvas::LabelsD* node = functionNode(ParForm, function.Function_Key);
        if (node && !now.Act_Functions->Item(function.Function_Key) && isOurs(*node)) {
            gone.push_back(node);
        }
    }
    for (canvas::LabelsD* node : gone) {
        freeFunctionNode(ParForm, *node, ActiveNode);
    }
    for (const FunctionProperties& function : now.Act_Functions) {
        canvas::LabelsD* node = functionNode(ParForm, function.Function_Key);
        if (node && function.Function_Source == kSourceOwn && (isOurs(*node) || !ownerOfFunction(ParForm, *node))) {
            bindFunctionNode(ParForm, *node, ActiveNode, now.Act_Functions->share(function.Function_Key));
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
