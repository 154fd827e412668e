#pragma once

#include <algorithm>
#include <map>
#include <sstream>
#include <string>
#include <variant>
#include <vector>

#include "canvas/canvas.h"
#include "entities/nodes.h"

namespace orvent::testkit {

/// A scenario of a few activities and record sets, with all its links on both ends, each as one line of text:
/// holder, list ("<-" provided from, "->" provider for, "<~" regulated from, "~>" regulator for), type, name, key.
class LinkGraph {
  public:
    using Lines = std::vector<std::string>;
    using Entity = std::variant<entities::AttributeProperties*, entities::ParameterProperties*>;

    explicit LinkGraph(canvas::Canvas& canvas) : canvas_(canvas) {
        for (const char* name : {"RS1", "RS2", "RS3", "RS4"}) {
            canvas.Labels.Add(0, 1050, 0, 450, name, canvas::NodeTypeRecordSet);
        }
        for (const char* name : {"Activity1", "Activity2", "Activity3"}) {
            canvas.Labels.Add(0, 1050, 0, 450, name, canvas::NodeTypeActivity);
        }
        for (const char* key : {"MyFun", "Activity2.Fun22"}) {
            entities::FunctionProperties function;
            function.setParentKeyName("Activity2");
            activity("Activity2").Act_Functions->AddFunctionProps(function, key, 0);
        }
        for (const std::string& line : all()) {
            std::istringstream words(line);
            std::string holder, list, name, key;
            std::int16_t type = 0;
            words >> holder >> list >> type >> name >> key;
            std::visit([&](auto* entity) { addLink(*entity, list, name, type, key); }, make(holder));
        }
    }

    /// Stands for Activity2 when it is set, as the copy of a dialog does.
    entities::ActivityProperties* working = nullptr;

    entities::ActivityProperties& activity(const std::string& name) {
        return working && name == "Activity2" ? *working : *canvas_.nodeNamed(name)->activity();
    }
    entities::RecordSetProperties& recordSet(const std::string& name) { return *canvas_.nodeNamed(name)->recordSet(); }

    /// Every link that the record sets and activities of the canvas hold, sorted.
    Lines present() {
        Lines lines;
        for (canvas::LabelsD& node : canvas_.Labels) {
            if (node.activity()) {
                writeActivity(*node.activity(), lines);
            } else if (node.recordSet()) {
                write(node.recordSet()->RecordSet_Outputs, lines);
            }
        }
        std::sort(lines.begin(), lines.end());
        return lines;
    }

    static Lines of(entities::ActivityProperties& activity) {
        Lines lines;
        writeActivity(activity, lines);
        std::sort(lines.begin(), lines.end());
        return lines;
    }

    static Lines sorted(Lines lines) {
        std::sort(lines.begin(), lines.end());
        return lines;
    }

    /// The lines that `keep` accepts.
    template <class Keep>
    static Lines filtered(const Lines& lines, Keep keep) {
        Lines result;
        std::copy_if(lines.begin(), lines.end(), std::back_inserter(result), keep);
        return result;
    }

    /// What the graph is built of, sorted.
    static Lines all() {
        return sorted({
            "RS1.AU_ID -> 1 Activity1 Activity1.IN.AU_ID",
            "Activity1.IN.AU_ID <- 1 RS1 RS1.AU_ID",
            "RS4.SONUM -> 1 Activity2 Activity2.IN.SONUM",
            "Activity2.IN.SONUM <- 1 RS4 RS4.SONUM",
            "RS2.ED_ID <- 1 Activity2 Activity2.OUT.ED_ID",
            "Activity2.OUT.ED_ID -> 1 RS2 RS2.ED_ID",
            "RS3.PUB_ID ~> 1 Activity2 Activity2.PARAM.PUB_ID",
            "Activity2.PARAM.PUB_ID <~ 1 RS3 RS3.PUB_ID",
            // from activity to activity
            "Activity1.OUT.AU_ID -> 2 Activity2 Activity2.IN.AU_ID",
            "Activity2.IN.AU_ID <- 2 Activity1 Activity1.OUT.AU_ID",
            "Activity1.OUT.Activity1.Output12 -> 2 Activity2 Activity2.IN.Activity1.Output12",
            "Activity2.IN.Activity1.Output12 <- 2 Activity1 Activity1.OUT.Activity1.Output12",
            "Activity2.OUT.AU_ID -> 2 Activity3 Activity3.IN.AU_ID",
            "Activity3.IN.AU_ID <- 2 Activity2 Activity2.OUT.AU_ID",
            "Activity2.OUT.ED_ID -> 2 Activity3 Activity3.IN.ED_ID",
            "Activity3.IN.ED_ID <- 2 Activity2 Activity2.OUT.ED_ID",
            // inside an activity
            "Activity1.IN.AU_ID -> 3 Activity1 .OUT.AU_ID",
            "Activity1.OUT.AU_ID <- 3 Activity1 .IN.AU_ID",
            "Activity2.IN.SONUM -> 3 Activity2 .OUT.SONUM",
            "Activity2.OUT.SONUM <- 3 Activity2 .IN.SONUM",
            "Activity2.IN.SONUM ~> 3 Activity2 .PARAM.SONUM",
            "Activity2.PARAM.SONUM <~ 3 Activity2 .IN.SONUM",
            "Activity2.IN.AU_ID -> 4 Activity2 .OUT.AU_ID",
            "Activity2.OUT.AU_ID <- 4 Activity2 .IN.AU_ID",
            "Activity2.IN.AU_ID ~> 4 Activity2 .PARAM.AU_ID",
            "Activity2.PARAM.AU_ID <~ 4 Activity2 .IN.AU_ID",
            "Activity2.PARAM.AU_ID ~> 10 Activity2 .OUT.AU_ID",
            "Activity2.OUT.AU_ID <~ 10 Activity2 .PARAM.AU_ID",
            "Activity2.IN.Activity1.Output12 -> 4 Activity2 .OUT.Activity1.Output12",
            "Activity2.OUT.Activity1.Output12 <- 4 Activity2 .IN.Activity1.Output12",
            "Activity3.IN.AU_ID -> 4 Activity3 .OUT.AU_ID",
            "Activity3.OUT.AU_ID <- 4 Activity3 .IN.AU_ID",
            // a function that was drawn by itself
            "Activity2.IN.Activity1.Output12 ~> 13 MyFun MyFun.IN.Input11",
            "MyFun.IN.Input11 <~ 13 Activity2 .IN.Activity1.Output12",
            "RS3.PUB_ID ~> 12 MyFun MyFun.Activity2.Input12",
            "MyFun.IN.Input12 <~ 12 RS3 RS3.PUB_ID",
            "RS4.SONUM ~> 14 MyFun MyFun.Activity2.Input13",
            "MyFun.IN.Input13 <~ 14 RS4 RS4.SONUM",
            "MyFun.OUT.Output11 ~> 11 Activity2 .OUT.Activity1.Output12",
            "Activity2.OUT.Activity1.Output12 <~ 11 MyFun MyFun.OUT.Output11",
            // a function of the activity's type
            "Activity2.IN.Activity1.Output12 ~> 13 Activity2.Fun22 Activity2.Fun22.IN.Input21",
            "Activity2.Fun22.IN.Input21 <~ 13 Activity2 .IN.Activity1.Output12",
            "RS3.PUB_ID ~> 12 Activity2.Fun22 Activity2.Fun22.IN.Input22",
            "Activity2.Fun22.IN.Input22 <~ 12 RS3 RS3.PUB_ID",
            "RS4.SONUM ~> 14 Activity2.Fun22 Activity2.Fun22.IN.Input23",
            "Activity2.Fun22.IN.Input23 <~ 14 RS4 RS4.SONUM",
            "Activity2.Fun22.OUT.Output21 ~> 11 Activity2 .OUT.Activity1.Output12",
            "Activity2.OUT.Activity1.Output12 <~ 11 Activity2.Fun22 Activity2.Fun22.OUT.Output21",
        });
    }

    /// The entity of that whole key; made when the graph is built.
    Entity make(const std::string& wholeKey) {
        using namespace entities;
        const std::string last = AfterLastDot(wholeKey);
        for (FunctionProperties& function : activity("Activity2").Act_Functions) {
            if (wholeKey.starts_with(function.Function_Key)) {
                const bool input = wholeKey.ends_with(".IN." + last);
                return parameter(input ? *function.Function_Inputs : *function.Function_Outputs, function.Function_Key,
                                 input ? KindFunctionInput : KindFunctionOutput, last, "Activity2");
            }
        }
        const std::string owner = BeforeFirstDot(wholeKey);
        if (owner.starts_with("RS")) {
            return attribute(*recordSet(owner).RecordSet_Outputs, owner, KindRecordSetAttribute, last);
        }
        const std::string key = AfterSecondDot(wholeKey), segment = SecondSegment(wholeKey);
        if (segment == "PARAM") {
            return parameter(*activity(owner).Act_Parameters, owner, KindParameter, key, "");
        }
        return segment == "IN" ? attribute(*activity(owner).Act_Inputs, owner, KindInput, key)
                               : attribute(*activity(owner).Act_Outputs, owner, KindOutput, key);
    }

    static entities::AttributeProperties* attribute(entities::AttributeCollection& list, const std::string& owner,
                                                    std::int16_t kind, const std::string& key) {
        if (!list.Item(key)) {
            auto& attribute = list.Add(key, 0, 0, key);
            attribute.NodeKind = kind;
            attribute.ParentKeyName = owner;
        }
        return list.Item(key);
    }

  private:
    static entities::ParameterProperties* parameter(entities::ParameterCollection& list, const std::string& owner,
                                                    std::int16_t kind, const std::string& key,
                                                    const std::string& functionActivity) {
        if (!list.Item(key)) {
            auto& parameter = list.Add(key, 0, 0, key);
            parameter.NodeKind = kind;
            parameter.ParentKeyName = owner;
            parameter.ParentFunctionActivity = functionActivity;
        }
        return list.Item(key);
    }

    template <class Holder>
    static void addLink(Holder& entity, const std::string& list, const std::string& name, std::int16_t type,
                        const std::string& key) {
        if constexpr (requires { entity.ProvidedFrom; }) {
            if (list == "<-") {
                entity.ProvidedFrom->Add(name, type, key);
            } else if (list == "->") {
                entity.ProviderFor->Add(name, type, key);
            }
        }
        if (list == "<~") {
            entity.RegulatedFrom->Add(name, type, key);
        } else if (list == "~>") {
            entity.RegulatorFor->Add(name, type, key);
        }
    }

    template <class List>
    static void write(const entities::Lazy<List>& list, Lines& lines) {
        if (const List* items = list.peek()) {
            for (auto& item : *items) {
                const std::string whole = entities::wholeKey(item.ParentKeyName, item.NodeKind, item.Key);
                if constexpr (requires { item.ProvidedFrom; }) {
                    writeLinks(whole + " <- ", item.ProvidedFrom, lines);
                    writeLinks(whole + " -> ", item.ProviderFor, lines);
                }
                writeLinks(whole + " <~ ", item.RegulatedFrom, lines);
                writeLinks(whole + " ~> ", item.RegulatorFor, lines);
            }
        }
    }

    template <class Links>
    static void writeLinks(const std::string& start, const entities::Lazy<Links>& links, Lines& lines) {
        if (const Links* items = links.peek()) {
            for (auto& link : *items) {
                lines.push_back(start + std::to_string(link.type()) + " " + link.name() + " " + link.key());
            }
        }
    }

    static void writeActivity(entities::ActivityProperties& activity, Lines& lines) {
        write(activity.Act_Inputs, lines);
        write(activity.Act_Outputs, lines);
        write(activity.Act_Parameters, lines);
        if (const auto* functions = activity.Act_Functions.peek()) {
            for (auto& function : *functions) {
                write(function.Function_Inputs, lines);
                write(function.Function_Outputs, lines);
            }
        }
    }

    canvas::Canvas& canvas_;
};

}  // namespace orvent::testkit
