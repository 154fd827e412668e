#include "repository/missing_types.h"

#include <array>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "entities/members.h"
#include "links/members.h"
#include "repository/type_usage.h"

namespace orvent::repository {

namespace {

using namespace entities;

// How an activity's members are marked that its type brought.

constexpr std::size_t kMostPlaces = 6;  ///< told for one type

/// A name that a type brought, without the activity in front of it.
std::string bareName(const std::string& name, const std::string& activity) {
    return name.starts_with(activity + ".") ? name.substr(activity.size() + 1) : name;
}

/// Adds a line to a type under its name, as a type that is read has it; the second one of a name is left out.
template <class Lines>
void addLine(Lines& lines, const std::string& name, std::int16_t type) {
    if (!lines.Item(name)) {
        lines.Add(name, type, name);
    }
}

/// The types of a scenario that are gone, in the order in which they can be added.
class MissingTypes {
  public:
    MissingTypes(const canvas::DrawForm& form, Catalogue& catalogue) : catalogue_(catalogue) {
        for (const canvas::LabelsD& node : form.Labels) {
            const ActivityProperties* activity = node.activity();
            if (activity && activity->Act_Type != -1) {  // without a type it is not saved
                look(*activity);
            } else if (const RecordSetProperties* recordSet = node.recordSet()) {
                lookAtData(*recordSet, recordSet->RecordSet_Name);
            }
        }
    }

    bool none() const { return places_.empty(); }

    /// What has a type that no name is known of.
    std::string nameless() const {
        std::string words;
        for (const auto& [type, places] : places_) {
            if (nameOf(type).empty()) {
                words += "\n" + joined(places);
            }
        }
        return words;
    }

    std::string words() const {
        constexpr std::array<const char*, 3> kKinds = {"data type ", "function type ", "activity type "};
        std::string words;
        for (const auto& [type, places] : places_) {
            words +=
                "\n" + std::string(kKinds[static_cast<std::size_t>(type.first)]) + nameOf(type) + ": " + joined(places);
        }
        return words;
    }

    void add(StatementCache& repository) {
        for (const auto& [type, places] : places_) {
            if (type.first == TypeKind::data) {
                catalogue_.addDataType(repository, nameOf(type));
            }
        }
        for (FunctionTypeProperties& type : functionTypes_) {
            catalogue_.addFunctionType(repository, type);
        }
        for (ActivityTypeProperties& type : activityTypes_) {
            catalogue_.addActivityType(repository, type);
        }
    }

  private:
    using Type = std::pair<TypeKind, std::int16_t>;
    using Places = std::vector<std::string>;

    const NameTable& table(TypeKind kind) const {
        const CatalogueTables& tables = catalogue_.tables;
        return kind == TypeKind::data       ? tables.dataTypes
               : kind == TypeKind::function ? tables.functionTypes
                                            : tables.activityTypes;
    }
    const std::string& nameOf(const Type& type) const { return table(type.first).name(type.second); }

    static std::string joined(const Places& places) {
        std::string words;
        for (std::size_t at = 0; at < places.size() && at < kMostPlaces; ++at) {
            words += (at == 0 ? "" : ", ") + places[at];
        }
        return places.size() > kMostPlaces ? words + " and " + std::to_string(places.size() - kMostPlaces) + " more"
                                           : words;
    }

    /// True when it is the first one found of a type that is gone.
    bool isNew(TypeKind kind, std::int16_t index, const std::string& place) {
        if (!table(kind).isGone(index)) {
            return false;
        }
        Places& places = places_[{kind, index}];
        places.push_back(place);
        return places.size() == 1;
    }

    template <class Owner>
    void lookAtData(const Owner& owner, const std::string& name) {
        eachList(owner, [&](const auto& list, NodeKindCode) {
            for (const auto& member : list) {
                isNew(TypeKind::data, links::typeOf(member), name + " (" + member.Key + ")");
            }
        });
    }

    void look(const ActivityProperties& activity) {
        lookAtData(activity, activity.Act_Name);
        for (const FunctionProperties& function : activity.Act_Functions) {
            const std::string place = activity.Act_Name + " (" + function.Function_Key + ")";
            lookAtData(function, place);
            if (isNew(TypeKind::function, function.Function_Type, place)) {
                functionTypes_.push_back(typeOf(function));
            }
        }
        if (isNew(TypeKind::activity, activity.Act_Type, activity.Act_Name)) {
            activityTypes_.push_back(typeOf(activity));
        }
    }

    FunctionTypeProperties typeOf(const FunctionProperties& function) const {
        FunctionTypeProperties type;
        type.FunctionType_Name = catalogue_.tables.functionTypes.name(function.Function_Type);
        eachList(function, [&type](const auto& list, NodeKindCode kind) {
            for (const ParameterProperties& parameter : list) {
                kind == KindFunctionInput
                    ? addLine(*type.FunctionType_Inputs, parameter.Parameter_Name, parameter.Parameter_Type)
                    : addLine(*type.FunctionType_Outputs, parameter.Parameter_Name, parameter.Parameter_Type);
            }
        });
        return type;
    }

    ActivityTypeProperties typeOf(const ActivityProperties& activity) const {
        const auto index = static_cast<std::size_t>(activity.Act_Type);
        ActivityTypeProperties type;
        type.ActType_Name = catalogue_.tables.activityTypes.name(activity.Act_Type);
        type.ActType_SQL = catalogue_.tables.activityTypeSql[index];
        type.ActType_LDL = catalogue_.tables.activityTypeLdl[index];
        type.ActType_SchemaNo = activity.Act_SchemaNo;
        for (const AttributeProperties& output : activity.Act_Outputs) {
            if (output.Tag == TagTypeOutput) {
                addLine(*type.ActType_OutPuts, bareName(output.Attribute_Name, activity.Act_Name),
                        output.Attribute_Type);
            }
        }
        for (const ParameterProperties& parameter : activity.Act_Parameters) {
            if (parameter.Tag == TagTypeParameter) {
                addLine(*type.ActType_Parameters, bareName(parameter.Parameter_Name, activity.Act_Name),
                        parameter.Parameter_Type);
            }
        }
        for (const FunctionProperties& function : activity.Act_Functions) {
            if (function.Function_Source == SourceActivityType) {
                addLine(*type.ActType_Functions, bareName(function.Function_Key, activity.Act_Name),
                        function.Function_Type);
            }
        }
        return type;
    }

    Catalogue& catalogue_;
    std::map<Type, Places> places_;
    std::vector<FunctionTypeProperties> functionTypes_;
    std::vector<ActivityTypeProperties> activityTypes_;
};

}  // namespace

bool hasItsTypes(const canvas::DrawForm& form, Services& services, Catalogue& catalogue, StatementCache& repository) {
    MissingTypes missing(form, catalogue);
    if (missing.none()) {
        return true;
    }
    if (const std::string nameless = missing.nameless(); !nameless.empty()) {
        services.messages.tell("These have no type that the repository knows:" + nameless +
                                   "\nPlease choose one for each, and save again. Nothing was saved.",
                               {}, platform::Icon::warning);
        return false;
    }
    const std::string question = "This scenario needs types that the repository has no more:" + missing.words() +
                                 "\nAnother user has deleted them or given them other names.\n\n" +
                                 "OK adds them again, as far as they are known here, and saves. Cancel saves nothing.";
    if (services.messages.show(question, "Types Are Gone", platform::Icon::question, platform::Buttons::okCancel) !=
        platform::Answer::ok) {
        return false;
    }
    missing.add(repository);
    return true;
}

}  // namespace orvent::repository
