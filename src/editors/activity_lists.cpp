#include "editors/activity_lists.h"

#include <utility>

#include "editors/list_rows.h"
#include "entities/key_grammar.h"
#include "links/rename_activity.h"

namespace orvent::editors {

using namespace entities;
using forms::ListRow;

namespace {

RowKind kindOfParameter(const ParameterProperties& parameter) {
    return parameter.Tag == TagConstant ? RowKind::constant : RowKind::parameter;
}

}  // namespace

void ActivityLists::addRows(ActList number) {
    if (const auto* attributes = members<AttributeProperties>(number)) {
        for (const AttributeProperties& attribute : *attributes) {
            list(number).add(newRow(attribute.Key, attribute.Attribute_Name, attribute.Tag,
                                    number == kInputs ? RowKind::input : RowKind::output));
        }
        return;
    }
    for (const ParameterProperties& parameter : *members<ParameterProperties>(number)) {
        list(number).add(newRow(parameter.Key, parameter.Parameter_Name, parameter.Tag, kindOfParameter(parameter)));
    }
    for (const FunctionProperties& function : activity_->Act_Functions) {
        list(number).add(newRow(function.Function_Key, function.Function_Name,
                                function.Function_Source == SourceActivityType ? TagTypeFunction : TagFunction,
                                RowKind::function));
    }
}

void ActivityLists::fill() {
    const SchemaMarks::Bulk bulk(marks_);
    marks_.clear();
    for (const ActList number : kActLists) {
        forms::List& target = list(number);
        const bool prompts = !filled_ || target.hint();  // the prompt of a list that was emptied does not come back
        target.rebuild([&] {
            target.Clear();
            if (prompts) {
                target.showHint(number == kParameters ? "Drag parameters, functions and constants here"
                                                      : "Drag attributes here");
            }
            addRows(number);
        });
        for (int row = 1; row <= target.Count(); ++row) {
            refresh(number, row);
            MarkRowInTree(*target.Item(row), number, true);
        }
        twins(number).reset(target);
    }
    filled_ = true;
}

void ActivityLists::MarkRowInTree(const ListRow& row, ActList number, bool used) {
    const auto show = [&](const std::string& nodeKey) {
        used ? marks_.mark(nodeKey, number, row.Key) : marks_.unmark(nodeKey, number, row.Key);
    };
    if (isFunctionRow(row)) {
        if (tagOf(row) == TagFunction) {
            show("GRAPH." + row.Key);
        }
    } else if (const auto* attribute = member<AttributeProperties>(number, row.Key)) {
        for (const ProviderProperties& link : number == kInputs ? attribute->ProvidedFrom : attribute->ProviderFor) {
            if (number == kInputs || link.Provider_Type == LinkRecordSet) {
                show(treeKey(link.Provider_Type, link.Provider_Key()));
            }
        }
    } else if (const auto* parameter = member<ParameterProperties>(number, row.Key)) {
        for (const RegulatorProperties& link : parameter->RegulatedFrom) {
            if (link.Regulator_type == LinkConstant || link.Regulator_type == LinkRecordSet) {
                show(treeKey(link.Regulator_type, link.Regulator_Key()));
            }
        }
    }
}

void ActivityLists::unmark(ActList number, const std::string& key) {
    if (const ListRow* row = list(number).Item(key)) {
        MarkRowInTree(*row, number, false);
    }
}

void ActivityLists::add(ActList number, ListRow row, int position) {
    const std::string key = row.Key, text = row.Text;
    list(number).add(std::move(row), position);
    twins(number).came(list(number), key, text);
}

void ActivityLists::remove(ActList number, const std::string& key) {
    if (const int row = list(number).positionOf(key)) {
        const std::string text = list(number).Item(row)->Text;
        list(number).remove(row);
        twins(number).went(list(number), key, text);
    }
}

void ActivityLists::setText(ActList number, int row, const std::string& text) {
    const std::string key = list(number).Item(row)->Key;
    twins(number).went(list(number), key, list(number).Item(row)->Text);
    list(number).setText(row, text);
    twins(number).came(list(number), key, text);
}

void ActivityLists::refresh(ActList number, int row) {
    list(number).alter(row, [&](ListRow& shown) {
        if (isFunctionRow(shown)) {
            if (const FunctionProperties* function = activity_->Act_Functions->Item(shown.Key)) {
                refreshFunctionRow(*function, activity_->Act_Type, shown, tables_);
            }
        } else if (const auto* parameter = member<ParameterProperties>(number, shown.Key)) {
            RefreshParameterRow(*parameter, shown, tables_);
            setKind(shown, kindOfParameter(*parameter));
        } else if (const auto* attribute = member<AttributeProperties>(number, shown.Key)) {
            RefreshAttributeRow(*attribute, shown, tables_);
        }
    });
}

void ActivityLists::refresh() {
    for (const ActList number : kActLists) {
        for (int row = 1; row <= list(number).Count(); ++row) {
            refresh(number, row);
        }
    }
}

void ActivityLists::refresh(const std::string& key) {
    for (const ActList number : kActLists) {
        if (const int row = list(number).positionOf(key)) {
            refresh(number, row);
        }
    }
}

std::vector<std::string> ActivityLists::neighbours(const std::string& key) const {
    std::vector<std::string> keys{key};
    const auto collect = [&](const auto& links) {
        for (const auto& link : links) {
            if (link.key().starts_with(".")) {
                keys.push_back(AfterSecondDot(link.key()));
            }
        }
    };
    for (const ActList number : kActLists) {
        if (const auto* attribute = member<AttributeProperties>(number, key)) {
            collect(attribute->ProvidedFrom);
            collect(attribute->ProviderFor);
            collect(attribute->RegulatedFrom);
            collect(attribute->RegulatorFor);
        } else if (const auto* parameter = member<ParameterProperties>(number, key)) {
            collect(parameter->RegulatedFrom);
            collect(parameter->RegulatorFor);
        }
    }
    return keys;
}

void ActivityLists::renameOwner(const std::string& formerName, const std::string& newName) {
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
    links::renameActivity(*activity_, formerName, newName);
    eachBrought([&](ActList number, int row, const std::string& key) {
        list(number).alter(row, [&](ListRow& shown) {
            shown.Key = key;
            shown.Text = links::withNewHead(shown.Text, formerName, newName);
        });
    });
    for (const auto& [number, row] : brought) {
        MarkRowInTree(*list(number).Item(row), number, true);
    }
    refresh();
    for (const ActList number : kActLists) {
        twins(number).reset(list(number));
    }
}

}  // namespace orvent::editors
