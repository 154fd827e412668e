#include "shell/sample_scenario.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "entities/members.h"
#include "links/synchronize_functions.h"
#include "shell/sample_data.h"

namespace orvent::shell {

namespace {

using namespace entities;

constexpr const char* kOwnFunction = "MyFun";
constexpr const char* kRichActivity = "Activity2";

void addLink(AttributeProperties& holder, sample::List list, const std::string& name, LinkType type,
             const std::string& key) {
    switch (list) {
        case sample::List::providedFrom:
            holder.ProvidedFrom->Add(name, type, key);
            break;
        case sample::List::providerFor:
            holder.ProviderFor->Add(name, type, key);
            break;
        case sample::List::regulatedFrom:
            holder.RegulatedFrom->Add(name, type, key);
            break;
        case sample::List::regulatorFor:
            holder.RegulatorFor->Add(name, type, key);
            break;
    }
}

void addLink(ParameterProperties& holder, sample::List list, const std::string& name, LinkType type,
             const std::string& key) {
    (list == sample::List::regulatedFrom ? holder.RegulatedFrom : holder.RegulatorFor)->Add(name, type, key);
}

/// Fills the scenario of one design window; its tables stand in sample_data.h.
class SampleBuilder {
  public:
    SampleBuilder(canvas::DrawForm& form, repository::Catalogue& catalogue) : form_(form), catalogue_(catalogue) {}

    void makeNodes() {
        const canvas::CanvasSettings& settings = form_.settings();
        for (const sample::Node& row : sample::kNodes) {
            canvas::LabelsD& node = form_.Labels.Add({row.left, row.top, settings.Width, settings.BigHeight},
                                                     std::string(row.name), row.nodeType);
            if (ActivityProperties* activity = node.activity()) {
                activity->Act_Type = typeAt(row.activityType);
            }
        }
    }

    bool readTypes() {
        if (places_.size() < types_.size()) {
            return false;
        }
        for (std::size_t place = 0; place < types_.size(); ++place) {
            types_[place] = catalogue_.GetActivityType(places_[place]);
        }
        return true;
    }

    void fillRecordSets() {
        for (const sample::RecordSet& row : sample::kRecordSets) {
            RecordSetProperties& recordSet = *node(row.name).recordSet();
            recordSet.RecordSet_SQL = row.sql;
            const std::string key(row.attribute);
            recordSet.RecordSet_Outputs->Add(key, dataType_, key).ParentKeyName = row.name;
            recordSet.addDbKey(key, std::string(row.dbKey));
        }
    }

    void fillActivities() {
        brought_ = firstBroughtOutput();
        for (canvas::LabelsD& each : form_.Labels) {
            if (ActivityProperties* held = each.activity()) {
                held->Act_SchemaNo = typeOf(*held).ActType_SchemaNo;
            }
        }
        for (const sample::Member& row : sample::kMembers) {
            addMember(row);
        }
        for (const char* name : {"Activity1", kRichActivity, "Activity4"}) {
            bringOutput(activity(name));
        }
        for (const char* name : {"Activity1", kRichActivity}) {
            bringParameters(activity(name));
        }
        bringFunctions();
    }

    void addLinks() {
        for (const sample::Link& row : sample::kLinks) {
            const std::optional<std::string> holder = resolved(row.holder);
            const std::optional<std::string> name = resolved(row.name);
            const std::optional<std::string> key = resolved(row.key);
            if (!holder || !name || !key) {
                continue;  // the loaded types bring no such member
            }
            if (AttributeProperties* attribute = attributeAt(*holder)) {
                addLink(*attribute, row.list, *name, row.type, *key);
            } else if (ParameterProperties* parameter = parameterAt(*holder)) {
                addLink(*parameter, row.list, *name, row.type, *key);
            }
        }
        linkFunction(ownFunction());
        linkFunction(typeFunction());
    }

    void drawEdges() {
        for (const sample::Edge& row : sample::kEdges) {
            form_.Lines.addFullLine(form_.NamesColl.Item(std::string(row.from)), 3,
                                    form_.NamesColl.Item(std::string(row.to)), 1, canvas::EdgeTypeProvider,
                                    canvas::AngleStraight, 0);
        }
    }

    void synchronize() {
        for (canvas::LabelsD& each : form_.Labels) {
            if (ActivityProperties* held = each.activity()) {
                links::SynchronizeActivity(form_, *held, nullptr);
            }
        }
        for (canvas::LabelsD& each : form_.Labels) {
            if (RecordSetProperties* held = each.recordSet()) {
                links::SynchronizeRecordSet(form_, *held);
            }
        }
    }

  private:
    /// The index of the catalogue's first, second or third activity type; -1 when it has fewer.
    std::int16_t typeAt(std::int16_t place) const {
        const auto at = static_cast<std::size_t>(place);
        return at < places_.size() ? places_[at] : std::int16_t{-1};
    }

    canvas::LabelsD& node(std::string_view name) { return *form_.nodeNamed(std::string(name)); }
    ActivityProperties& activity(std::string_view name) { return *node(name).activity(); }
    ActivityTypeProperties& typeOf(const ActivityProperties& held) {
        const auto isIt = [&held](const ActivityTypeProperties& type) {
            return type.ActType_NameIndex == held.Act_Type;
        };
        return *std::find_if(types_.begin(), types_.end(), isIt);
    }

    std::string firstBroughtOutput() {
        const OutputProperties* output = types_[0].ActType_OutPuts->Item(1);
        return output ? "Activity1." + output->Output_Name : std::string();
    }

    struct NewMember {
        std::string name, key;
        std::int16_t type;
        TagCode tag;
    };

    static void add(ActivityProperties& owner, NodeKindCode kind, const NewMember& member) {
        withList(owner, kind, [&](auto& list, NodeKindCode) {
            list->Add(member.name, member.type, member.tag, member.key).ParentKeyName = owner.Act_Name;
        });
    }

    void addMember(const sample::Member& row) {
        const std::optional<std::string> name = resolved(row.name);
        if (!name) {
            return;
        }
        ActivityProperties& owner = activity(row.activity);
        add(owner, row.nodeKind, {*name, *name, dataType_, row.tag});
    }

    void bringOutput(ActivityProperties& owner) {
        if (const OutputProperties* output = typeOf(owner).ActType_OutPuts->Item(1)) {
            const std::string key = owner.Act_Name + "." + output->Output_Name;
            add(owner, KindOutput, {key, key, output->Output_Type, TagTypeOutput});
        }
    }

    void bringParameters(ActivityProperties& owner) {
        for (const ParamProperties& parameter : typeOf(owner).ActType_Parameters) {
            const std::string key = owner.Act_Name + "." + parameter.Parameter_Name;
            add(owner, KindParameter, {parameter.Parameter_Name, key, parameter.Parameter_Type, TagTypeParameter});
        }
    }

    /// A function's parameters are named after it, and its own activity stands beside.
    static void ownParameters(FunctionProperties& function) {
        eachMember(function, [&](ParameterProperties& parameter) { parameter.ParentKeyName = function.Function_Key; });
        function.setParentKeyName(std::string(function.ParentKeyName()));
    }

    void bringFunctions() {
        ActivityProperties& first = activity("Activity1");
        for (const UsedFunctionProperties& used : typeOf(first).ActType_Functions) {
            first.Act_Functions->AddActivityTypeFunction(catalogue_, used, first.Act_Name,
                                                         first.Act_Name + "." + used.Function_Name);
        }
        // Of the second type's functions the first one is brought; the last one serves as a function of the designer's
        // own.
        ActivityProperties& rich = activity(kRichActivity);
        ActType_FunctionsCollection& functions = *typeOf(rich).ActType_Functions;
        if (functions.Count() == 0) {
            return;
        }
        FunctionProperties own;
        fillFunctionFromType(own, catalogue_, functions.Item(functions.Count())->Function_Type);
        own.Function_Source = SourceOwn;
        own.setParentKeyName(rich.Act_Name);
        ownParameters(rich.Act_Functions->AddFunctionProps(own, kOwnFunction, 0));
        const UsedFunctionProperties& used = *functions.Item(1);
        typeFunctionKey_ = rich.Act_Name + "." + used.Function_Name;
        rich.Act_Functions->AddActivityTypeFunction(catalogue_, used, rich.Act_Name, typeFunctionKey_);
    }

    FunctionProperties* ownFunction() { return activity(kRichActivity).Act_Functions->Item(kOwnFunction); }
    FunctionProperties* typeFunction() { return activity(kRichActivity).Act_Functions->Item(typeFunctionKey_); }

    static ParameterProperties* parameterOf(FunctionProperties& function, bool output, int position) {
        return listOf<ParameterProperties>(function, output ? KindFunctionOutput : KindFunctionInput)->Item(position);
    }

    void linkFunction(FunctionProperties* function) {
        if (!function) {
            return;
        }
        for (const sample::FunctionLink& row : sample::kFunctionLinks) {
            ParameterProperties* parameter = parameterOf(*function, row.output, row.position);
            const std::optional<std::string> key = resolved(row.key);
            if (parameter && key) {
                addLink(*parameter, row.list, std::string(row.name), row.type, *key);
            }
        }
    }

    /// `text` with its place holders replaced; nothing when the loaded types have no such member.
    std::optional<std::string> resolved(std::string_view text) {
        std::string result;
        for (std::size_t at = 0; at < text.size(); ++at) {
            if (text[at] != '%') {
                result += text[at];
                continue;
            }
            const std::string value = placeHolder(text, ++at);
            if (value.empty()) {
                return std::nullopt;
            }
            result += value;
        }
        return result;
    }

    std::string placeHolder(std::string_view text, std::size_t& at) {
        const char what = text[at];
        if (what == 'O') {
            return brought_;
        }
        if (what == 'F') {
            return typeFunctionKey_;
        }
        FunctionProperties* function = what == '1' ? ownFunction() : typeFunction();
        const bool output = text[at + 1] == 'o';
        const int position = text[at + 2] - '0';
        at += 2;
        if (!function) {
            return {};
        }
        const ParameterProperties* parameter = parameterOf(*function, output, position);
        return parameter ? parameter->Parameter_Name : std::string();
    }

    AttributeProperties* attributeAt(const std::string& wholeKey) {
        canvas::LabelsD& owner = node(BeforeFirstDot(wholeKey));
        if (RecordSetProperties* recordSet = owner.recordSet()) {
            return recordSet->RecordSet_Outputs->Item(AfterFirstDot(wholeKey));
        }
        const std::string segment = SecondSegment(wholeKey);
        const NodeKindCode kind = segment == "IN" ? KindInput : segment == "OUT" ? KindOutput : KindFree;
        auto* list = listOf<AttributeProperties>(*owner.activity(), kind);
        return list ? list->Item(AfterSecondDot(wholeKey)) : nullptr;
    }

    ParameterProperties* parameterAt(const std::string& wholeKey) {
        ActivityProperties* owner = node(BeforeFirstDot(wholeKey)).activity();
        return owner ? listOf<ParameterProperties>(*owner, KindParameter)->Item(AfterSecondDot(wholeKey)) : nullptr;
    }

    canvas::DrawForm& form_;
    repository::Catalogue& catalogue_;
    std::array<ActivityTypeProperties, 3> types_;
    const std::vector<std::int16_t> places_ = catalogue_.tables.activityTypes.listed();
    const std::int16_t dataType_ = catalogue_.tables.dataTypes.first();
    std::string brought_;
    std::string typeFunctionKey_;
};

}  // namespace

bool buildSampleScenario(canvas::DrawForm& form, repository::Catalogue& catalogue) {
    SampleBuilder builder(form, catalogue);
    builder.makeNodes();
    if (!builder.readTypes()) {
        return false;
    }
    builder.fillRecordSets();
    builder.fillActivities();
    builder.drawEdges();
    builder.addLinks();
    builder.synchronize();
    return true;
}

}  // namespace orvent::shell
