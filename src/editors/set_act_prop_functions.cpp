#include "editors/set_act_prop_functions.h"

#include <algorithm>
#include <utility>

#include "editors/list_rows.h"
#include "entities/key_grammar.h"
#include "links/member_links.h"
#include "links/members.h"
#include "links/rename_activity.h"

namespace orvent::editors {

using namespace entities;
using forms::ListRow;
using forms::Tree;

namespace {

constexpr const char* kInvalid = "This Relationship Is Not Valid!";

Lazy<ProviderLinks>& linksInto(AttributeProperties& attribute) {
    return attribute.ProvidedFrom;
}
Lazy<RegulatorLinks>& linksInto(ParameterProperties& parameter) {
    return parameter.RegulatedFrom;
}

}  // namespace

SetActProp_Functions::SetActProp_Functions(canvas::CanvasForm& form, canvas::LabelsD& node,
                                           repository::Catalogue& catalogue, platform::MessageBox& messages,
                                           platform::Progress& progress)
    : ParForm(form),
      ActiveNode(node),
      catalogue_(catalogue),
      messages_(messages),
      progress_(progress),
      lists_(tempProp, AttList, ActView, DBView, catalogue.tables) {}

std::string SetActProp_Functions::newName(const Tree::Node& node, const std::string& key,
                                          std::initializer_list<ActList> among) {
    if (!givesShortNames()) {
        return key;
    }
    const std::string bare = AfterLastDot(node.value().Text);
    for (const ActList number : among) {
        for (const forms::ListRow& row : list(number).rows()) {
            if (row.Text == bare || row.Key == bare) {
                return key;
            }
        }
    }
    return bare;
}

void SetActProp_Functions::moveMany(const std::function<void()>& moves) {
    const forms::List::Gathering inputs(AttList[kInputs]), outputs(AttList[kOutputs]), parameters(AttList[kParameters]);
    const forms::Tree::Gathering graph(ActView), database(DBView);
    const SchemaMarks::Bulk bulk(lists_.marks());
    moves();
}

void SetActProp_Functions::RenameInList(int row, ActList listNumber) {
    renameMember(row, listNumber);
}

void SetActProp_Functions::renameMember(int row, ActList listNumber) {
    const ListRow& shown = *list(listNumber).Item(row);
    const auto rename = [&](auto* entity, auto name) {
        if (entity && entity->*name != shown.Text) {
            entity->*name = shown.Text;
            entity->Changed = true;
            edited();
        }
    };
    if (listNumber != kParameters) {
        rename(lists_.member<AttributeProperties>(listNumber, shown.Key), &AttributeProperties::Attribute_Name);
        if (listNumber == kInputs) {
            tempProp->Act_Inputs->Changed = true;
        }
    } else if (isFunctionRow(shown)) {
        rename(tempProp->Act_Functions->Item(shown.Key), &FunctionProperties::Function_Name);
    } else {
        rename(lists_.member<ParameterProperties>(kParameters, shown.Key), &ParameterProperties::Parameter_Name);
    }
}

void SetActProp_Functions::followRenames(const canvas::Renames& renames) {
    links::followRenames(*tempProp, renames);
    for (const canvas::Rename& rename : renames) {
        const canvas::LabelsD* node = rename.kind == KindOutput ? ParForm.nodeNamed(rename.owner) : nullptr;
        if (node && node->activity()) {
            const std::string parent = "GRAPH." + rename.owner + ".";
            lists_.marks().rename(parent + rename.former, parent + rename.now,
                                  node->activity()->Act_Outputs.peek()->Item(rename.now)->Attribute_Name);
        }
    }
    if (!renames.empty()) {
        refreshRows();
    }
}

void SetActProp_Functions::moveRowTo(int row, int to) {
    const ListRow* moved = frontList().Item(row);
    if (!moved || !frontList().Item(to) || row == to) {
        return;
    }
    const std::string key = moved->Key;
    const bool function = isFunctionRow(*moved);
    frontList().move(row, to);
    frontList().select(to);
    if (SelectedList != kParameters) {
        auto& attributes = *lists_.members<AttributeProperties>(SelectedList);
        attributes.move(attributes.positionOf(key), to);
        if (SelectedList == kInputs) {
            tempProp->Act_Inputs->Changed = true;
        }
    } else if (!function) {
        moveParameter(key, to);
    }
    edited();
}

/// Links an input on to the member of its name, unless that has another source.
template <class Member>
void SetActProp_Functions::sendInput(int row, Member* member, const char* taken) {
    const ListRow* shown = list(kInputs).Item(row);
    const AttributeProperties* input = shown ? lists_.member<AttributeProperties>(kInputs, shown->Key) : nullptr;
    if (!input || !member) {
        return;
    }
    auto& links = linksInto(*member);
    if (links.count() > 0) {
        messages_.tell(std::string(kInvalid) + taken, {}, platform::Icon::warning);
        return;
    }
    if (!takesType(input->Attribute_Type, links::typeOf(*member))) {
        return;
    }
    links::unlinkMember(ParForm, *member, false, self());
    links->Add(tempProp->Act_Name, innerLink(tagOf(*shown)), relativeKey(KindInput, input->Key));
    member->Changed = true;
    links::linkMember(ParForm, *member, self());
    lists_.refresh(input->Key);
    edited();
}

void SetActProp_Functions::SendOutput(int row) {
    const ListRow* shown = list(kInputs).Item(row);
    sendInput(row, shown ? lists_.member<AttributeProperties>(kOutputs, shown->Key) : nullptr,
              "\nAn Attribute With The Same Name Allready Exists And Is Provided By An Other Source.");
}

void SetActProp_Functions::SendParameter(int row) {
    const ListRow* shown = list(kInputs).Item(row);
    sendInput(row, shown ? lists_.member<ParameterProperties>(kParameters, shown->Key) : nullptr,
              "\nA Parameter With The Same Name Allready Exists And Is Regulated By An Other Source.");
}

std::string SetActProp_Functions::whyNotSent(bool toOutput) const {
    const ListRow* shown = AttList[kInputs].Item(AttList[kInputs].selected());
    if (SelectedList != kInputs) {
        return "Only an input is sent";
    }
    if (!shown) {
        return "Choose a row first";
    }
    if (toOutput) {
        return lists_.member<AttributeProperties>(kOutputs, shown->Key) ? ""
                                                                        : "The activity has no output " + shown->Key;
    }
    return lists_.member<ParameterProperties>(kParameters, shown->Key) ? ""
                                                                       : "The activity has no parameter " + shown->Key;
}

/// Whether a value of the source's type may flow into the target; a target that is defined by its source takes it on.
bool SetActProp_Functions::takesType(std::int16_t source, std::int16_t& target) {
    if (source == target) {
        return true;
    }
    const NameTable& types = catalogue_.tables.dataTypes;
    const bool known = target >= 0 && static_cast<std::size_t>(target) < types.size();
    if (known && types.name(target) == kDefinedBySource) {
        target = source;
        return true;
    }
    messages_.tell(std::string(kInvalid) + "\nDifferent Data Types Found.\nSource: " + types.shown(source) +
                       ".\nTarget: " + types.shown(target) + ".",
                   {}, platform::Icon::warning);
    return false;
}

}  // namespace orvent::editors
