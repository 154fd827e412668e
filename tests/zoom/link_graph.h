#pragma once

#include <algorithm>
#include <sstream>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "canvas/canvas.h"
#include "entities/nodes.h"
#include "links/synchronize_functions.h"
#include "platform/codes.h"

namespace orvent::testkit {

/// Record sets, activities with functions and a constant, joined by links of every kind. Each end of a link is a line
/// of text: holder, list ("<-" provided from, "->" provider for, "<~" regulated from, "~>" regulator for), type, name,
/// key.
class LinkGraph {
  public:
    using Lines = std::vector<std::string>;
    using Entity = std::variant<entities::AttributeProperties*, entities::ParameterProperties*>;

    /// Both ends of each link.
    static inline const std::vector<std::pair<std::string, std::string>> kLinks = {
        {"RS1.AU_ID -> 1 A1 A1.IN.AU_ID", "A1.IN.AU_ID <- 1 RS1 RS1.AU_ID"},
        {"RS4.SONUM -> 1 A2 A2.IN.SONUM", "A2.IN.SONUM <- 1 RS4 RS4.SONUM"},
        {"A2.OUT.ED_ID -> 1 RS2 RS2.ED_ID", "RS2.ED_ID <- 1 A2 A2.OUT.ED_ID"},
        {"RS3.PUB_ID ~> 1 A2 A2.PARAM.PUB_ID", "A2.PARAM.PUB_ID <~ 1 RS3 RS3.PUB_ID"},
        {"C1 ~> 6 A2 A2.PARAM.SONUM", "A2.PARAM.SONUM <~ 6 C1 C1"},
        // from activity to activity
        {"A1.OUT.AU_ID -> 2 A2 A2.IN.AU_ID", "A2.IN.AU_ID <- 2 A1 A1.OUT.AU_ID"},
        {"A1.OUT.A1.O12 -> 2 A2 A2.IN.A1.O12", "A2.IN.A1.O12 <- 2 A1 A1.OUT.A1.O12"},
        {"A2.OUT.AU_ID -> 2 A3 A3.IN.AU_ID", "A3.IN.AU_ID <- 2 A2 A2.OUT.AU_ID"},
        // inside an activity
        {"A1.IN.AU_ID -> 3 A1 .OUT.AU_ID", "A1.OUT.AU_ID <- 3 A1 .IN.AU_ID"},
        {"A2.IN.SONUM -> 3 A2 .OUT.SONUM", "A2.OUT.SONUM <- 3 A2 .IN.SONUM"},
        {"A2.IN.SONUM ~> 3 A2 .PARAM.SONUM", "A2.PARAM.SONUM <~ 3 A2 .IN.SONUM"},
        {"A2.IN.AU_ID -> 4 A2 .OUT.AU_ID", "A2.OUT.AU_ID <- 4 A2 .IN.AU_ID"},
        {"A2.IN.AU_ID ~> 4 A2 .PARAM.AU_ID", "A2.PARAM.AU_ID <~ 4 A2 .IN.AU_ID"},
        {"A2.PARAM.AU_ID ~> 10 A2 .OUT.AU_ID", "A2.OUT.AU_ID <~ 10 A2 .PARAM.AU_ID"},
        {"A2.IN.A1.O12 -> 4 A2 .OUT.A1.O12", "A2.OUT.A1.O12 <- 4 A2 .IN.A1.O12"},
        {"A3.IN.AU_ID -> 4 A3 .OUT.AU_ID", "A3.OUT.AU_ID <- 4 A3 .IN.AU_ID"},
        // a function of A2 that was drawn by itself
        {"A2.IN.A1.O12 ~> 13 F1 F1.IN.I1", "F1.IN.I1 <~ 13 A2 .IN.A1.O12"},
        {"RS3.PUB_ID ~> 12 F1 F1.A2.I2", "F1.IN.I2 <~ 12 RS3 RS3.PUB_ID"},
        {"RS4.SONUM ~> 14 F1 F1.A2.I3", "F1.IN.I3 <~ 14 RS4 RS4.SONUM"},
        {"F1.OUT.O1 ~> 11 A2 .OUT.A1.O12", "A2.OUT.A1.O12 <~ 11 F1 F1.OUT.O1"},
        // a function of the activity's type
        {"A2.IN.A1.O12 ~> 13 A2.F2 A2.F2.IN.I1", "A2.F2.IN.I1 <~ 13 A2 .IN.A1.O12"},
        {"RS3.PUB_ID ~> 12 A2.F2 A2.F2.IN.I2", "A2.F2.IN.I2 <~ 12 RS3 RS3.PUB_ID"},
        {"RS4.SONUM ~> 14 A2.F2 A2.F2.IN.I3", "A2.F2.IN.I3 <~ 14 RS4 RS4.SONUM"},
        {"C1 ~> 14 A2.F2 A2.F2.IN.I4", "A2.F2.IN.I4 <~ 14 C1 C1"},
        {"A2.F2.OUT.O1 ~> 11 A2 .OUT.A1.O12", "A2.OUT.A1.O12 <~ 11 A2.F2 A2.F2.OUT.O1"},
    };

    explicit LinkGraph(canvas::Canvas& canvas) : canvas_(canvas) {
        for (const char* name : {"RS1", "RS2", "RS3", "RS4"}) {
            canvas.Labels.Add({0, 0, 1050, 450}, name, canvas::NodeTypeRecordSet);
        }
        for (const char* name : {"A1", "A2", "A3"}) {
            canvas.Labels.Add({0, 0, 1050, 450}, name, canvas::NodeTypeActivity);
        }
        canvas.Labels.Add({0, 0, 1050, 450}, "C1", canvas::NodeTypeConstant);
        for (const char* key : {"F1", "A2.F2"}) {
            activity("A2").Act_Functions->AddFunctionProps({}, key, 0);
        }
        for (const std::string& line : all()) {
            add(line);
        }
        for (entities::FunctionProperties& function : activity("A2").Act_Functions) {
            function.setParentKeyName("A2");
        }
    }

    entities::ActivityProperties& activity(const std::string& name) { return *canvas_.nodeNamed(name)->activity(); }
    entities::RecordSetProperties& recordSet(const std::string& name) { return *canvas_.nodeNamed(name)->recordSet(); }
    entities::ParameterProperties& constant() {
        return *canvas_.nodeNamed("C1")->entity<entities::ParameterProperties>();
    }

    /// Adds one end of a link, with its holder when that is missing.
    void add(const std::string& line) {
        std::istringstream words(line);
        std::string holder, list, name, key;
        std::int16_t code = 0;
        words >> holder >> list >> code >> name >> key;
        const auto type = static_cast<entities::LinkType>(code);
        const auto addTo = [&](const std::string& arrow, auto& links) {
            if (arrow == list) {
                links->Add(name, type, key);
            }
        };
        std::visit([&](auto* entity) { eachList(*entity, addTo); }, entity(holder));
    }

    /// Calls with the arrow and the links of each list of an entity.
    template <class Holder, class Call>
    static void eachList(Holder& entity, Call call) {
        if constexpr (requires { entity.ProvidedFrom; }) {
            call("<-", entity.ProvidedFrom);
            call("->", entity.ProviderFor);
        }
        call("<~", entity.RegulatedFrom);
        call("~>", entity.RegulatorFor);
    }

    /// Gives another activity a function of the same key, with links of the same kinds to members of its own.
    static void addNamesake(canvas::Canvas& canvas, const entities::FunctionProperties& function,
                            const std::string& owner, const std::string& member) {
        using namespace entities;
        ActivityProperties& activity = *canvas.nodeNamed(owner)->activity();
        FunctionProperties& same = activity.Act_Functions->AddFunctionProps(function, "", 0);
        for (auto* parameters : {&same.Function_Inputs, &same.Function_Outputs}) {
            for (ParameterProperties& parameter : *parameters) {
                for (auto* links : {&parameter.RegulatedFrom, &parameter.RegulatorFor}) {
                    for (int at = links->count(); at >= 1; --at) {
                        const RegulatorProperties& link = *(*links)->Item(at);
                        if (const LinkType type = link.type(); link.name() == function.ParentKeyName()) {
                            (*links)->Remove(at);
                            (*links)->Add(owner, type,
                                          relativeKey(type == LinkInputFunction ? KindInput : KindOutput, member));
                        }
                    }
                }
            }
        }
        same.setParentKeyName(owner);
        links::SynchronizeActivity(canvas, activity, nullptr);
    }

    static std::string holderOf(const std::string& line) { return line.substr(0, line.find(' ')); }

    /// Whether the line's holder belongs to that node.
    static bool isOf(const std::string& node, const std::string& line) {
        return line.starts_with(node + ".") || line.starts_with(node + " ") ||
               (node == "A2" && line.starts_with("F1."));
    }

    static Lines sorted(Lines lines) {
        std::sort(lines.begin(), lines.end());
        return lines;
    }

    /// Of what the graph is built of the lines for which `keep(line, line of the other end)` holds, sorted.
    template <class Keep>
    static Lines picked(Keep keep) {
        Lines result;
        for (const auto& [source, target] : kLinks) {
            if (keep(source, target)) {
                result.push_back(source);
            }
            if (keep(target, source)) {
                result.push_back(target);
            }
        }
        return sorted(result);
    }
    static Lines all() {
        return picked([](auto&, auto&) { return true; });
    }

    /// All that may hold links.
    std::vector<Entity> holders() {
        std::vector<Entity> result;
        if (canvas_.isNameTaken("C1")) {
            result.emplace_back(&constant());
        }
        for (canvas::LabelsD& node : canvas_.Labels) {
            if (node.activity()) {
                collect(*node.activity(), result);
            } else if (node.recordSet()) {
                collect(node.recordSet()->RecordSet_Outputs, result);
            }
        }
        return result;
    }
    static std::vector<Entity> holdersOf(entities::ActivityProperties& activity) {
        std::vector<Entity> result;
        collect(activity, result);
        return result;
    }

    /// The links that they hold, sorted.
    static Lines lines(const std::vector<Entity>& holders) {
        Lines result;
        for (const Entity& each : holders) {
            const auto write = [&](const std::string& arrow, auto& links) {
                for (auto& link : links) {
                    result.push_back(keyOf(each) + " " + arrow + " " + std::to_string(platform::numberOf(link.type())) +
                                     " " + link.name() + " " + link.key());
                }
            };
            std::visit([&](auto* entity) { eachList(*entity, write); }, each);
        }
        return sorted(result);
    }
    Lines present() { return lines(holders()); }

    static std::string keyOf(const Entity& entity) {
        return std::visit([](auto* e) { return entities::wholeKey(e->ParentKeyName, e->NodeKind, e->Key); }, entity);
    }

  private:
    /// The entity of that whole key; it is made when there is none.
    Entity entity(const std::string& wholeKey) {
        using namespace entities;
        const std::string owner = BeforeFirstDot(wholeKey), list = SecondSegment(wholeKey);
        if (owner.empty()) {
            return &constant();
        }
        if (owner.starts_with("RS")) {
            return item<AttributeCollection>(*recordSet(owner).RecordSet_Outputs, owner, KindRecordSetAttribute, list);
        }
        for (FunctionProperties& function : activity("A2").Act_Functions) {
            const std::string& name = function.Function_Key;
            if (wholeKey.starts_with(name + ".")) {
                const bool input = wholeKey.find(".IN.") != std::string::npos;
                return item<ParameterCollection>(input ? *function.Function_Inputs : *function.Function_Outputs, name,
                                                 input ? KindFunctionInput : KindFunctionOutput,
                                                 AfterLastDot(wholeKey));
            }
        }
        ActivityProperties& holder = activity(owner);
        const std::string key = AfterSecondDot(wholeKey);
        if (list == "PARAM") {
            return item<ParameterCollection>(*holder.Act_Parameters, owner, KindParameter, key);
        }
        return list == "IN" ? item<AttributeCollection>(*holder.Act_Inputs, owner, KindInput, key)
                            : item<AttributeCollection>(*holder.Act_Outputs, owner, KindOutput, key);
    }

    template <class List>
    static Entity item(List& list, const std::string& owner, entities::NodeKindCode kind, const std::string& key) {
        if (!list.Item(key)) {
            auto& added = list.Add(key, 0, entities::TagNone, key);
            added.NodeKind = kind;
            added.ParentKeyName = owner;
        }
        return list.Item(key);
    }

    template <class List>
    static void collect(entities::Lazy<List>& list, std::vector<Entity>& result) {
        for (auto& item : list) {
            result.emplace_back(&item);
        }
    }
    static void collect(entities::ActivityProperties& activity, std::vector<Entity>& result) {
        collect(activity.Act_Inputs, result);
        collect(activity.Act_Outputs, result);
        collect(activity.Act_Parameters, result);
        for (entities::FunctionProperties& function : activity.Act_Functions) {
            collect(function.Function_Inputs, result);
            collect(function.Function_Outputs, result);
        }
    }

    canvas::Canvas& canvas_;
};

}  // namespace orvent::testkit
