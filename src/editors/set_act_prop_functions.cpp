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
    : ParForm(form), ActiveNode(node), catalogue_(catalogue), messages_(messages), progress_(progress) {}

void SetActProp_Functions::fillLists() {
    const SchemaMarks::Bulk bulk(marks_);
    marks_.clear();
    const auto fill = [&](ActList number, const auto& addRows) {
        forms::List& target = list(number);
        const bool prompts = !filled_ || target.hint();  // the prompt of a list that was emptied does not come back
        target.rebuild([&] {
            target.Clear();
            if (prompts) {
                target.showHint(number == kParameters ? "Drag parameters, functions and constants here"
                                                      : "Drag attributes here");
            }
            addRows(target);
        });
        for (int row = 1; row <= target.Count(); ++row) {
            refreshRow(number, row);
            MarkRowInTree(*target.Item(row), number, true);
        }
        twins_[static_cast<std::size_t>(number)].reset(target);
    };
    const auto attributes = [](const auto& entities, RowKind kind) {
        return [&entities, kind](forms::List& target) {
            for (const AttributeProperties& attribute : entities) {
                target.add(newRow(attribute.Key, attribute.Attribute_Name, attribute.Tag, kind));
            }
        };
    };
    fill(kInputs, attributes(tempProp->Act_Inputs, RowKind::input));
    fill(kOutputs, attributes(tempProp->Act_Outputs, RowKind::output));
    fill(kParameters, [&](forms::List& target) {
        for (const ParameterProperties& parameter : tempProp->Act_Parameters) {
            target.add(newRow(parameter.Key, parameter.Parameter_Name, parameter.Tag, kindOfParameter(parameter)));
        }
        for (const FunctionProperties& function : tempProp->Act_Functions) {
            target.add(newRow(function.Function_Key, function.Function_Name,
                              function.Function_Source == SourceActivityType ? TagTypeFunction : TagFunction,
                              RowKind::function));
        }
    });
    filled_ = true;
}

void SetActProp_Functions::MarkRowInTree(const ListRow& row, ActList number, bool used) {
    const auto show = [&](const std::string& nodeKey) {
        used ? marks_.mark(nodeKey, number, row.Key) : marks_.unmark(nodeKey, number, row.Key);
    };
    if (isFunctionRow(row)) {
        if (tagOf(row) == TagFunction) {
            show("GRAPH." + row.Key);
        }
    } else if (number == kInputs) {
        if (const AttributeProperties* input = tempProp->Act_Inputs->Item(row.Key)) {
            for (const ProviderProperties& link : input->ProvidedFrom) {
                show(treeKey(link.Provider_Type, link.Provider_Key()));
            }
        }
    } else if (number == kOutputs) {
        if (const AttributeProperties* output = tempProp->Act_Outputs->Item(row.Key)) {
            for (const ProviderProperties& link : output->ProviderFor) {
                if (link.Provider_Type == LinkRecordSet) {
                    show(treeKey(link.Provider_Type, link.Provider_Key()));
                }
            }
        }
    } else if (const ParameterProperties* parameter = tempProp->Act_Parameters->Item(row.Key)) {
        for (const RegulatorProperties& link : parameter->RegulatedFrom) {
            if (link.Regulator_type == LinkConstant || link.Regulator_type == LinkRecordSet) {
                show(treeKey(link.Regulator_type, link.Regulator_Key()));
            }
        }
    }
}

void SetActProp_Functions::moveMany(const std::function<void()>& moves) {
    const forms::List::Gathering inputs(AttList[kInputs]), outputs(AttList[kOutputs]), parameters(AttList[kParameters]);
    const forms::Tree::Gathering graph(ActView), database(DBView);
    const SchemaMarks::Bulk bulk(marks_);
    moves();
}

void SetActProp_Functions::refreshRow(ActList number, int row) {
    list(number).alter(row, [&](ListRow& shown) {
        const CatalogueTables& tables = catalogue_.tables;
        if (isFunctionRow(shown)) {
            if (const FunctionProperties* function = tempProp->Act_Functions->Item(shown.Key)) {
                refreshFunctionRow(*function, tempProp->Act_Type, shown, tables);
            }
        } else if (number == kParameters) {
            if (const ParameterProperties* parameter = tempProp->Act_Parameters->Item(shown.Key)) {
                RefreshParameterRow(*parameter, shown, tables);
                setKind(shown, kindOfParameter(*parameter));
            }
        } else {
            const AttributeProperties* attribute =
                number == kInputs ? tempProp->Act_Inputs->Item(shown.Key) : tempProp->Act_Outputs->Item(shown.Key);
            if (attribute) {
                RefreshAttributeRow(*attribute, shown, tables);
            }
        }
    });
}

void SetActProp_Functions::refreshRows() {
    for (const ActList number : kActLists) {
        for (int row = 1; row <= list(number).Count(); ++row) {
            refreshRow(number, row);
        }
    }
}

void SetActProp_Functions::refreshKey(const std::string& key) {
    for (const ActList number : kActLists) {
        if (const int row = list(number).positionOf(key)) {
            refreshRow(number, row);
        }
    }
}

std::vector<std::string> SetActProp_Functions::neighbours(const std::string& key) {
    std::vector<std::string> keys{key};
    const auto collect = [&](const auto& links) {
        for (const auto& link : links) {
            if (link.key().starts_with(".")) {
                keys.push_back(AfterSecondDot(link.key()));
            }
        }
    };
    for (const AttributeProperties* attribute : {tempProp->Act_Inputs->Item(key), tempProp->Act_Outputs->Item(key)}) {
        if (attribute) {
            collect(attribute->ProvidedFrom);
            collect(attribute->ProviderFor);
            collect(attribute->RegulatedFrom);
            collect(attribute->RegulatorFor);
        }
    }
    if (const ParameterProperties* parameter = tempProp->Act_Parameters->Item(key)) {
        collect(parameter->RegulatedFrom);
        collect(parameter->RegulatorFor);
    }
    return keys;
}

void SetActProp_Functions::RenameInList(int row, ActList listNumber) {
    renameMember(row, listNumber);
}

void SetActProp_Functions::setRowText(int row, ActList listNumber, const std::string& text) {
    TwinNames& twins = twins_[static_cast<std::size_t>(listNumber)];
    const std::string key = list(listNumber).Item(row)->Key;
    twins.went(list(listNumber), key, list(listNumber).Item(row)->Text);
    list(listNumber).setText(row, text);
    twins.came(list(listNumber), key, text);
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
    if (listNumber == kInputs) {
        rename(tempProp->Act_Inputs->Item(shown.Key), &AttributeProperties::Attribute_Name);
        tempProp->Act_Inputs->Changed = true;
    } else if (listNumber == kOutputs) {
        rename(tempProp->Act_Outputs->Item(shown.Key), &AttributeProperties::Attribute_Name);
    } else if (isFunctionRow(shown)) {
        rename(tempProp->Act_Functions->Item(shown.Key), &FunctionProperties::Function_Name);
    } else {
        rename(tempProp->Act_Parameters->Item(shown.Key), &ParameterProperties::Parameter_Name);
    }
}

void SetActProp_Functions::renameOwner(const std::string& formerName, const std::string& newName) {
    const SchemaMarks::Bulk bulk(marks_);
    const auto eachBrought = [&](const auto& act) {
        for (const ActList number : kActLists) {
            for (int row = 1; row <= list(number).Count(); ++row) {
                const std::string key = links::withNewHead(list(number).Item(row)->Key, formerName, newName);
                if (key != list(number).Item(row)->Key) {
                    act(number, row, key);
                }
            }
        }
    };
    // Marks are withdrawn under the keys by which they were made.
    std::vector<std::pair<ActList, int>> brought;
    eachBrought([&](ActList number, int row, const std::string&) {
        MarkRowInTree(*list(number).Item(row), number, false);
        brought.emplace_back(number, row);
    });
    links::renameActivity(*tempProp, formerName, newName);
    eachBrought([&](ActList number, int row, const std::string& key) {
        list(number).alter(row, [&](ListRow& shown) {
            shown.Key = key;
            shown.Text = links::withNewHead(shown.Text, formerName, newName);
        });
    });
    for (const auto& [number, row] : brought) {
        MarkRowInTree(*list(number).Item(row), number, true);
    }
    refreshRows();
    for (const ActList number : kActLists) {
        twins_[static_cast<std::size_t>(number)].reset(list(number));
    }
}

void SetActProp_Functions::followRenames(const canvas::Renames& renames) {
    links::followRenames(*tempProp, renames);
    for (const canvas::Rename& rename : renames) {
        const canvas::LabelsD* node = rename.kind == KindOutput ? ParForm.nodeNamed(rename.owner) : nullptr;
        if (node && node->activity()) {
            const std::string parent = "GRAPH." + rename.owner + ".";
            marks_.rename(parent + rename.former, parent + rename.now,
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
    const auto move = [&](auto& entities, int place) { entities.move(entities.positionOf(key), place); };
    if (SelectedList == kInputs) {
        move(*tempProp->Act_Inputs, to);
        tempProp->Act_Inputs->Changed = true;
    } else if (SelectedList == kOutputs) {
        move(*tempProp->Act_Outputs, to);
    } else if (!function) {
        // The place counts the parameter itself while it stands above.
        const int place = parameterPlace(to);
        move(*tempProp->Act_Parameters, tempProp->Act_Parameters->positionOf(key) < place ? place - 1 : place);
    }
    edited();
}

/// Where a parameter stands in its collection whose row stands at `position`: functions share the list.
int SetActProp_Functions::parameterPlace(int position) const {
    for (int row = std::min(position - 1, AttList[kParameters].Count()); row >= 1; --row) {
        const ListRow& above = *AttList[kParameters].Item(row);
        if (!isFunctionRow(above)) {
            return tempProp->Act_Parameters->positionOf(above.Key) + 1;
        }
    }
    return 1;
}

/// Links an input on to the member of its name, unless that has another source.
template <class Member>
void SetActProp_Functions::sendInput(int row, Member* member, const char* taken) {
    const ListRow* shown = list(kInputs).Item(row);
    const AttributeProperties* input = shown ? tempProp->Act_Inputs->Item(shown->Key) : nullptr;
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
    refreshKey(input->Key);
    edited();
}

void SetActProp_Functions::SendOutput(int row) {
    const ListRow* shown = list(kInputs).Item(row);
    sendInput(row, shown ? tempProp->Act_Outputs->Item(shown->Key) : nullptr,
              "\nAn Attribute With The Same Name Allready Exists And Is Provided By An Other Source.");
}

void SetActProp_Functions::SendParameter(int row) {
    const ListRow* shown = list(kInputs).Item(row);
    sendInput(row, shown ? tempProp->Act_Parameters->Item(shown->Key) : nullptr,
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
        return tempProp->Act_Outputs->Item(shown->Key) ? "" : "The activity has no output " + shown->Key;
    }
    return tempProp->Act_Parameters->Item(shown->Key) ? "" : "The activity has no parameter " + shown->Key;
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
