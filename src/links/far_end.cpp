#include "links/far_end.h"

#include <array>
#include <type_traits>
#include <utility>

#include "entities/link_types.h"
#include "entities/members.h"

namespace orvent::links {

using namespace entities;

namespace {

/// What a link of a dialog's working copy may reach: `Itself` when the activity feeds itself.
enum class Reach { Nothing, Itself, Dialog, Scenario };

struct FarEndRow {
    Direction direction;
    LinkType type;
    NodeKindCode place;
    bool orRecordSet;  ///< the far node may also be a record set
    bool relative;     ///< the mirror names the near end by its relative key
    Reach inDialog;
};

constexpr auto kProvidedFrom = Direction::ProvidedFrom;
constexpr auto kProviderFor = Direction::ProviderFor;
constexpr auto kRegulatedFrom = Direction::RegulatedFrom;
constexpr auto kRegulatorFor = Direction::RegulatorFor;

constexpr std::array<FarEndRow, 26> kFarEnds = {{
    {kProvidedFrom, LinkRecordSet, KindOutput, true, false, Reach::Nothing},
    {kProvidedFrom, LinkActivity, KindOutput, false, false, Reach::Itself},
    {kProvidedFrom, LinkInput, KindInput, false, true, Reach::Dialog},
    {kProvidedFrom, LinkActivityInput, KindInput, false, true, Reach::Dialog},

    {kProviderFor, LinkRecordSet, KindInput, true, false, Reach::Nothing},
    {kProviderFor, LinkActivity, KindInput, false, false, Reach::Itself},
    {kProviderFor, LinkInput, KindOutput, false, true, Reach::Dialog},
    {kProviderFor, LinkActivityInput, KindOutput, false, true, Reach::Dialog},

    {kRegulatedFrom, LinkRecordSet, KindRecordSetAttribute, true, false, Reach::Nothing},
    {kRegulatedFrom, LinkInput, KindInput, false, true, Reach::Dialog},
    {kRegulatedFrom, LinkActivityInput, KindInput, false, true, Reach::Dialog},
    {kRegulatedFrom, LinkConstant, KindConstant, false, false, Reach::Nothing},
    {kRegulatedFrom, LinkParameterOutput, KindParameter, false, true, Reach::Dialog},
    {kRegulatedFrom, LinkFunctionOutput, KindFunctionOutput, false, true, Reach::Dialog},
    {kRegulatedFrom, LinkRecordSetFunction, KindRecordSetAttribute, true, false, Reach::Scenario},
    {kRegulatedFrom, LinkInputFunction, KindInput, false, false, Reach::Dialog},
    {kRegulatedFrom, LinkConstantFunction, KindConstant, true, false, Reach::Nothing},

    {kRegulatorFor, LinkRecordSet, KindParameter, false, false, Reach::Nothing},
    {kRegulatorFor, LinkInput, KindParameter, false, true, Reach::Dialog},
    {kRegulatorFor, LinkActivityInput, KindParameter, false, true, Reach::Dialog},
    {kRegulatorFor, LinkConstant, KindParameter, false, false, Reach::Nothing},
    {kRegulatorFor, LinkParameterOutput, KindOutput, false, true, Reach::Dialog},
    {kRegulatorFor, LinkFunctionOutput, KindOutput, false, false, Reach::Dialog},
    {kRegulatorFor, LinkRecordSetFunction, KindFunctionInput, false, false, Reach::Nothing},
    {kRegulatorFor, LinkInputFunction, KindFunctionInput, false, true, Reach::Dialog},
    {kRegulatorFor, LinkConstantFunction, KindFunctionInput, false, false, Reach::Nothing},
}};

const FarEndRow* rowOf(Direction direction, LinkType type) {
    for (const FarEndRow& row : kFarEnds) {
        if (row.direction == direction && row.type == type) {
            return &row;
        }
    }
    return nullptr;
}

/// What a link's key calls an attribute or a parameter within its owner.
std::string keyInRecordSet(const std::string& key) {
    return AfterFirstDot(key);
}
std::string keyInActivity(const std::string& key) {
    return AfterSecondDot(key);
}

void setEntity(FarEndView& far, const AttributeProperties* attribute) {
    far.attribute = attribute;
}
void setEntity(FarEndView& far, const ParameterProperties* parameter) {
    far.parameter = parameter;
}

/// One search; it has the arguments at hand for the steps below.
class Search {
  public:
    Search(const canvas::Canvas& form, const NearEnd& near, const LinkData& link, const ActivityProperties* dialog)
        : form_(form), near_(near), link_(link), dialog_(dialog) {}

    FarEndView find(const FarEndRow& row) const {
        FarEndView far;
        const canvas::LabelsD* peer = form_.nodeNamed(link_.name);
        const RecordSetProperties* recordSet = row.orRecordSet && peer ? peer->recordSet() : nullptr;
        if (recordSet) {
            inList(far, recordSet->RecordSet_Outputs.peek(), keyInRecordSet(link_.key), peer->Expanded, farKey());
        } else if (row.place == KindConstant) {
            constant(far, peer);
        } else if (row.place == KindFunctionInput || row.place == KindFunctionOutput) {
            functionParameter(far, peer, row.place);
        } else {
            activityMember(far, dialog_ ? dialog_ : peer ? peer->activity() : nullptr, row.place);
        }
        if (!far.attribute && !far.parameter) {
            return {};
        }
        far.mirror = row.relative ? KeyForm::relative : recordSet ? KeyForm::forRecordSet : KeyForm::whole;
        return far;
    }

  private:
    std::string farKey() const { return link_.key.starts_with('.') ? link_.name + link_.key : link_.key; }

    /// The item of a list, or the entity of its node while the list's items have nodes of their own.
    template <class List>
    void inList(FarEndView& far, const List* list, const std::string& key, bool expanded,
                const std::string& nodeKey) const {
        using Entity = std::remove_cvref_t<decltype(*list->Item(key))>;
        if (!expanded) {
            if (const Entity* item = list ? list->Item(key) : nullptr) {
                setEntity(far, item);
                far.node = shownNode(*item);  // it may have been drawn at its owner while the others are collapsed
            }
        } else if (const canvas::LabelsD* node = form_.nodeNamed(nodeKey)) {
            setEntity(far, node->entity<Entity>());
            far.node = node;
        }
    }

    template <class Entity>
    const canvas::LabelsD* shownNode(const Entity& item) const {
        return canvas::isGiven(item.LabelIndex) ? form_.Labels.byIndex(NearEnd(item).labelIn(form_)) : nullptr;
    }

    template <class List>
    void activityList(FarEndView& far, const List* list) const {
        inList(far, list, keyInActivity(link_.key), list && list->Expanded && !dialog_, farKey());
    }

    void activityMember(FarEndView& far, const ActivityProperties* activity, NodeKindCode place) const {
        if (!activity) {
            return;
        }
        withList(*activity, place, [&](const auto& list, NodeKindCode) { activityList(far, list.peek()); });
    }

    void constant(FarEndView& far, const canvas::LabelsD* peer) const {
        const auto* shown = near_.isOfFunction() ? functionAt(form_.nodeNamed(near_.owner())) : nullptr;
        if (shown && activityOf(*shown) != near_.activity()) {
            return;  // a constant's link means the function of that key that is shown
        }
        if (peer && peer->NodeType() == canvas::NodeTypeConstant) {
            far.parameter = peer->entity<ParameterProperties>();
            far.node = peer;
        }
    }

    void functionParameter(FarEndView& far, const canvas::LabelsD* peer, NodeKindCode place) const {
        const FunctionProperties* function = dialog_ ? nullptr : functionAt(peer);
        if (function && !isMeant(*function)) {
            function = nullptr;
        }
        const bool expanded = function && peer->Expanded;
        if (!function) {
            function = functionWithoutNode();
        }
        if (!function) {
            return;
        }
        const std::string key = AfterLastDot(link_.key);
        inList(far, listOf<ParameterProperties>(*function, place), key, expanded,
               wholeKey(function->Function_Key, place, key));
    }

    static const FunctionProperties* functionAt(const canvas::LabelsD* node) {
        return node ? node->entity<FunctionProperties>() : nullptr;
    }

    /// The activity that has a function or for which it waits; empty for a free one.
    static const std::string& activityOf(const FunctionProperties& function) {
        const std::string* activity = &function.ParentKeyName();
        if (activity->empty()) {
            eachList(function, [&](const auto& list, NodeKindCode) {
                if (activity == &function.ParentKeyName() && list.count() > 0) {
                    activity = &list.peek()->Item(1)->ParentFunctionActivity;
                }
            });
        }
        return *activity;
    }

    /// Whether the link leads to this very function: several activities may have own ones of the same key.
    bool isMeant(const FunctionProperties& function) const {
        if (HasDot(function.Function_Key)) {
            return true;
        }
        const std::string& activity = activityOf(function);
        if (link_.type == LinkFunctionOutput || link_.type == LinkInputFunction) {
            return activity == near_.owner();
        }
        return !near_.isAttribute() ||
               link_.key.starts_with(function.Function_Key + "." + (activity.empty() ? "IN" : activity) + ".");
    }

    static const FunctionProperties* functionOf(const ActivityProperties* activity, const std::string& key) {
        const Act_FunctionsCollection* functions = activity ? activity->Act_Functions.peek() : nullptr;
        return functions ? functions->Item(key) : nullptr;
    }

    const ActivityProperties* activityNamed(const std::string& name) const {
        const canvas::LabelsD* node = form_.nodeNamed(name);
        return node ? node->activity() : nullptr;
    }

    /// The function in its activity: the near end's own one, or else the one that the link's name or key begins with.
    const FunctionProperties* functionWithoutNode() const {
        if (dialog_) {
            return functionOf(dialog_, link_.name);
        }
        if (link_.type == LinkFunctionOutput || link_.type == LinkInputFunction) {
            return functionOf(activityNamed(near_.owner()), link_.name);
        }
        if (const std::string owner = BeforeFirstDot(link_.name); !owner.empty()) {
            return functionOf(activityNamed(owner), link_.name);
        }
        return near_.isAttribute() ? functionOf(activityNamed(SecondSegment(link_.key)), BeforeFirstDot(link_.key))
                                   : nullptr;
    }

    const canvas::Canvas& form_;
    const NearEnd& near_;
    const LinkData& link_;
    const ActivityProperties* dialog_;
};

}  // namespace

std::string NearEnd::keyAs(KeyForm form) const {
    const bool ownFunction = parameter_ && kind_ == KindFunctionInput && !HasDot(owner_);
    switch (form) {
        case KeyForm::relative:
            return relativeKey(kind_, key_);
        case KeyForm::bare:
            return key_;
        case KeyForm::forRecordSet:
            if (ownFunction && !parameter_->ParentFunctionActivity.empty()) {
                return owner_ + "." + parameter_->ParentFunctionActivity + "." + key_;
            }
            break;
        case KeyForm::whole:
            break;
    }
    return wholeKey(owner_, kind_, key_);
}

canvas::NodeNumber NearEnd::labelIn(const canvas::Canvas& Form) const {
    const canvas::LabelsD* node = Form.Labels.byIndex(label_);
    const bool shown = node && (attribute_ ? node->entity<AttributeProperties>() == attribute_
                                           : node->entity<ParameterProperties>() == parameter_);
    return shown ? label_ : canvas::NodeNumber{};
}

const AttributeProperties* attributeUnder(const RecordSetProperties& recordSet, const std::string& key) {
    const RecordSet_OutputsCollection* list = recordSet.RecordSet_Outputs.peek();
    return list ? list->Item(keyInRecordSet(key)) : nullptr;
}

const AttributeProperties* attributeUnder(const ActivityProperties& activity, NodeKindCode list,
                                          const std::string& key) {
    const auto* attributes = listOf<AttributeProperties>(activity, list == KindInput ? KindInput : KindOutput);
    return attributes ? attributes->Item(keyInActivity(key)) : nullptr;
}

FarEndView findFarEnd(const canvas::Canvas& Form, Direction direction, const NearEnd& near, const LinkData& link,
                      const ActivityProperties* InDialog) {
    const FarEndRow* row = rowOf(direction, link.type);
    const bool beyond =
        row && (row->inDialog == Reach::Nothing || (row->inDialog == Reach::Itself && link.name != near.owner()));
    if (!row || (InDialog && beyond)) {
        return {};
    }
    const ActivityProperties* dialog = row->inDialog == Reach::Scenario ? nullptr : InDialog;
    return Search(Form, near, link, dialog).find(*row);
}

// The canvas and the dialog's activity may be written here, and so may what is found in them.
FarEnd findFarEnd(canvas::Canvas& Form, Direction direction, const NearEnd& near, const LinkData& link,
                  ActivityProperties* InDialog) {
    const FarEndView far = findFarEnd(std::as_const(Form), direction, near, link, InDialog);
    return {const_cast<AttributeProperties*>(far.attribute), const_cast<ParameterProperties*>(far.parameter), far.node,
            far.mirror};
}

}  // namespace orvent::links
