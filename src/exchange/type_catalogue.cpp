#include "exchange/type_catalogue.h"

#include <algorithm>
#include <set>

#include "entities/members.h"
#include "links/members.h"

namespace orvent::exchange {

using entities::ActivityTypeProperties;
using entities::CatalogueTables;
using entities::FunctionTypeProperties;
using entities::NameTable;

namespace {

auto nameAndType(const entities::InputProperties& line) {
    return std::pair(line.Input_Name, line.Input_Type);
}
auto nameAndType(const entities::OutputProperties& line) {
    return std::pair(line.Output_Name, line.Output_Type);
}
auto nameAndType(const entities::ParamProperties& line) {
    return std::pair(line.Parameter_Name, line.Parameter_Type);
}
auto nameAndType(const entities::UsedFunctionProperties& line) {
    return std::pair(line.Function_Name, line.Function_Type);
}

template <class List>
std::vector<TypeMember> membersOf(const entities::Lazy<List>& lines, const NameTable& table) {
    std::vector<TypeMember> members;
    for (const auto& line : lines) {
        const auto [name, type] = nameAndType(line);
        members.push_back({name, table.name(type)});
    }
    return members;
}

template <class List>
void addLines(entities::Lazy<List>& lines, const std::vector<TypeMember>& members, const NameTable& table) {
    for (const TypeMember& member : members) {
        if (!lines->Item(member.name)) {  // a list that is read has each name once
            lines->Add(member.name, table.indexOf(member.type).value_or(table.first()), member.name);
        }
    }
}

/// Gathers what nodes use, by index; each kind of type brings what it uses of the next.
class UsedTypes {
  public:
    explicit UsedTypes(TypeCatalogue& catalogue) : catalogue_(catalogue) {}

    void look(const canvas::LabelsD& node) {
        if (const auto* activity = node.activity()) {
            if (activity->Act_Type != -1) {
                activities_.insert(activity->Act_Type);
            }
            lookAtData(*activity);
            for (const auto& function : activity->Act_Functions) {
                functions_.insert(function.Function_Type);
            }
        } else if (const auto* recordSet = node.recordSet()) {
            lookAtData(*recordSet);
        }
    }

    TypeDefinitions definitions() {
        TypeDefinitions types;
        const CatalogueTables& tables = catalogue_.tables();
        for (const std::int16_t index : activities_) {
            if (const auto type =
                    isStored(tables.activityTypes, index) ? catalogue_.activityType(index) : std::nullopt) {
                types.activities.push_back(definitionOf(*type, tables));
                need(types.activities.back().outputs, tables.dataTypes, data_);
                need(types.activities.back().parameters, tables.dataTypes, data_);
                need(types.activities.back().functions, tables.functionTypes, functions_);
            }
        }
        for (const std::int16_t index : functions_) {
            if (const auto type =
                    isStored(tables.functionTypes, index) ? catalogue_.functionType(index) : std::nullopt) {
                types.functions.push_back(definitionOf(*type, tables));
                need(types.functions.back().inputs, tables.dataTypes, data_);
                need(types.functions.back().outputs, tables.dataTypes, data_);
            }
        }
        for (const std::int16_t index : data_) {
            const bool within = index >= 0 && static_cast<std::size_t>(index) < tables.dataTypes.size();
            if (within && !tables.dataTypes.name(index).empty()) {
                types.data.push_back(tables.dataTypes.name(index));
            }
        }
        std::ranges::sort(types.data);
        std::ranges::sort(types.functions, {}, &FunctionTypeDefinition::name);
        std::ranges::sort(types.activities, {}, &ActivityTypeDefinition::name);
        return types;
    }

  private:
    static bool isStored(const NameTable& table, std::int16_t index) {
        return index >= 0 && static_cast<std::size_t>(index) < table.size() && !table.isGone(index);
    }
    static void need(const std::vector<TypeMember>& members, const NameTable& table, std::set<std::int16_t>& used) {
        for (const TypeMember& member : members) {
            if (const auto index = table.indexOf(member.type)) {
                used.insert(*index);
            }
        }
    }
    /// Those of all members, also of functions.
    template <class Owner>
    void lookAtData(const Owner& owner) {
        entities::eachMember(owner, [this](const auto& member) { data_.insert(links::typeOf(member)); });
    }

    TypeCatalogue& catalogue_;
    std::set<std::int16_t> data_, functions_, activities_;
};

template <class Definition>
const Definition* definitionNamed(const std::vector<Definition>& list, const std::string& name) {
    const auto found = std::ranges::lower_bound(list, name, {}, &Definition::name);
    return found != list.end() && found->name == name ? &*found : nullptr;
}

}  // namespace

FunctionTypeDefinition definitionOf(const FunctionTypeProperties& type, const CatalogueTables& tables) {
    return {type.FunctionType_Name, type.FunctionType_Description,
            membersOf(type.FunctionType_Inputs, tables.dataTypes),
            membersOf(type.FunctionType_Outputs, tables.dataTypes)};
}

ActivityTypeDefinition definitionOf(const ActivityTypeProperties& type, const CatalogueTables& tables) {
    return {type.ActType_Name,
            type.ActType_Description,
            type.ActType_SQL,
            type.ActType_LDL,
            type.ActType_SchemaNo,
            type.ActType_ProviderSemantics,
            type.ActType_ConsumerSemantics,
            membersOf(type.ActType_OutPuts, tables.dataTypes),
            membersOf(type.ActType_Parameters, tables.dataTypes),
            membersOf(type.ActType_Functions, tables.functionTypes)};
}

FunctionTypeProperties propertiesOf(const FunctionTypeDefinition& type, const CatalogueTables& tables) {
    FunctionTypeProperties properties;
    properties.FunctionType_Name = type.name;
    properties.FunctionType_Description = type.description;
    addLines(properties.FunctionType_Inputs, type.inputs, tables.dataTypes);
    addLines(properties.FunctionType_Outputs, type.outputs, tables.dataTypes);
    return properties;
}

ActivityTypeProperties propertiesOf(const ActivityTypeDefinition& type, const CatalogueTables& tables) {
    ActivityTypeProperties properties;
    properties.ActType_Name = type.name;
    properties.ActType_Description = type.description;
    properties.ActType_SQL = type.sql;
    properties.ActType_LDL = type.ldl;
    properties.ActType_SchemaNo = type.schemata;
    properties.ActType_ProviderSemantics = type.provider;
    properties.ActType_ConsumerSemantics = type.consumer;
    addLines(properties.ActType_OutPuts, type.outputs, tables.dataTypes);
    addLines(properties.ActType_Parameters, type.parameters, tables.dataTypes);
    addLines(properties.ActType_Functions, type.functions, tables.functionTypes);
    return properties;
}

TypeDefinitions definitionsFor(const Extract& extract, TypeCatalogue& catalogue) {
    UsedTypes used(catalogue);
    for (const canvas::LabelsD* node : extract.nodes) {
        used.look(*node);
    }
    return used.definitions();
}

TypeComparison compareTypes(const Document& document, TypeCatalogue& catalogue) {
    TypeComparison found;
    const CatalogueTables& tables = catalogue.tables();
    std::set<std::string> names(document.dataTypes.begin(), document.dataTypes.end());
    names.insert(document.types.data.begin(), document.types.data.end());
    std::ranges::copy_if(names, std::back_inserter(found.lacking.data), [&tables](const std::string& name) {
        return !name.empty() && !tables.dataTypes.indexOf(name);
    });
    const auto compare = [&found](const NameTable& table, const std::vector<std::string>& used, const auto& defined,
                                  auto& lacking, const std::string& kind, auto stored) {
        std::set<std::string> all(used.begin(), used.end());
        std::ranges::transform(defined, std::inserter(all, all.end()), [](const auto& type) { return type.name; });
        all.erase(std::string());
        for (const std::string& name : all) {
            const auto* definition = definitionNamed(defined, name);
            if (const auto index = table.indexOf(name)) {
                if (definition && stored(*index) != *definition) {
                    found.differing.push_back(kind + name);
                }
            } else if (definition) {
                lacking.push_back(*definition);
            } else {
                found.undefined.push_back(kind + name);
            }
        }
    };
    compare(tables.functionTypes, document.functionTypes, document.types.functions, found.lacking.functions,
            "function type ", [&](std::int16_t index) {
                const auto type = catalogue.functionType(index);
                return type ? definitionOf(*type, tables) : FunctionTypeDefinition();
            });
    compare(tables.activityTypes, document.activityTypes, document.types.activities, found.lacking.activities,
            "activity type ", [&](std::int16_t index) {
                const auto type = catalogue.activityType(index);
                return type ? definitionOf(*type, tables) : ActivityTypeDefinition();
            });
    return found;
}

}  // namespace orvent::exchange
