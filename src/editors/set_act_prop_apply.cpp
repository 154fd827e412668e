// How the activity dialog gives its copy to the graph, and what its end puts back.

#include "canvas/node_moves.h"
#include "editors/function_nodes.h"
#include "editors/rename_in_place.h"
#include "editors/set_act_prop.h"
#include "forms/name_check.h"
#include "links/mirror_exchange.h"
#include "links/synchronize_functions.h"

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
    if (!takeOver()) {
        return false;
    }
    services_.repository.progress.status("Properties Saved");
    tell("Properties Saved", Icon::information);
    services_.repository.progress.status("Ready");
    return true;
}

bool SetActProp::takeOver() {
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

/// The activity is in the links again, as the dialog found it.
void SetActProp::putBack() {
    if (mirrorOrder_) {
        ActivityProperties& record = *ActiveNode.activity();
        links::SynchronizeActivity(ParForm, record, nullptr);
        mirrorOrder_->restore(ParForm, record, nullptr);
        mirrorOrder_.reset();
    }
}

bool SetActProp::ApplyActivity() {
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
    const auto former = std::get<platform::Shared<ActivityProperties>>(ActiveNode.Properties).share();
    putBack();
    followRenames(renameInGraph(*former));
    if (tempProp->NodeID == 0) {
        tempProp->NodeID = former->NodeID;
    }
    links::MirrorExchange exchange(ParForm);
    exchange.leave(*former);
    const std::shared_ptr<ActivityProperties> record = tempProp->Clone();
    bindFunctions(*former, *record);
    ActiveNode.Properties = record;
    if (record->Act_SchemaNo != former->Act_SchemaNo) {
        canvas::followGrabPoints(ParForm, ActiveNode);
    }
    exchange.come(*record);
    exchange.finish();
    keptCaption_ = txtName;
    deletedMark_ = ParForm.DeletedNodes->mark();
    ParForm.tellChanged(ActiveNode);
    Saved = true;
    if (onApplied) {
        onApplied();
    }
    return true;
}

/// The activity's record takes its new name before the copy replaces it, so that the far ends keep what they know of
/// it in its place. Outputs that the type brought bear the name in their keys, and so do the members downstream that
/// they feed: these follow. Gives what was renamed downstream.
canvas::Renames SetActProp::renameInGraph(ActivityProperties& record) {
    return txtName == keptCaption_ ? canvas::Renames()
                                   : renameActivityIn(ParForm, record, keptCaption_, txtName, [&](const auto& key) {
                                         return tempProp->Act_Outputs->Item(key) != nullptr;
                                     });
}

/// The nodes of functions that the activity uses show those of its new record; those that it gave up are free again. A
/// function of that key which another activity has is none of them.
void SetActProp::bindFunctions(const ActivityProperties& former, ActivityProperties& now) {
    const auto isOurs = [this, &former](const canvas::LabelsD& node) {
        return ownerOfFunction(ParForm, node) == &ActiveNode ||
               node.entity<FunctionProperties>()->ParentKeyName() == former.Act_Name;
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
        if (node && function.Function_Source == SourceOwn && (isOurs(*node) || !ownerOfFunction(ParForm, *node))) {
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
    putBack();
    ActiveNode.setReady(true);
    services_.nodes.refresh(ParForm, ActiveNode);
    ParForm.setEnabled(true);
    if (onEnd) {
        onEnd();
    }
}

void SetActProp::showRow(entities::NodeKindCode kind, const std::string& key) {
    TabStrip1_Click(tabOf(kind == entities::KindInput    ? kInputs
                          : kind == entities::KindOutput ? kOutputs
                                                         : kParameters));
    frontList().select(frontList().positionOf(key));
}

}  // namespace orvent::editors
