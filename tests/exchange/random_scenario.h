#pragma once

#include <random>
#include <string>
#include <utility>
#include <vector>

#include "canvas/draw_form.h"
#include "links/synchronize_functions.h"
#include "testkit/model_text.h"

namespace orvent::exchange {

/// Fills an empty window with anything that a scenario may hold: members of all kinds, links with and without a far
/// end, texts with any letters, codes that no name stands for.
class RandomScenario {
  public:
    RandomScenario(canvas::DrawForm& form, unsigned seed) : form_(form), random_(seed) {
        form.setScenarioName(text());
        for (int at = 0, count = pick(12); at < count; ++at) {
            addNode(at);
        }
        for (int at = 0, count = form.Labels.Count() == 0 ? 0 : pick(15); at < count; ++at) {
            form.Lines.addFullLine(canvas::NodeNumber{pick(form.Labels.Count()) + 1}, small(),
                                   canvas::NodeNumber{pick(form.Labels.Count()) + 1}, small(),
                                   static_cast<canvas::EdgeTypeCode>(pick(8)), static_cast<canvas::AngleCode>(pick(6)),
                                   0);
        }
        for (int at = 0, count = owners_.empty() ? 0 : pick(40); at < count; ++at) {
            addLink();
        }
        // Mirrors of links that lead anywhere may lead somewhere else.
        for (std::string before; std::exchange(before, testkit::modelText(form)) != testkit::modelText(form);) {
            synchronize();
        }
    }

  private:
    void synchronize() {
        for (canvas::LabelsD& node : form_.Labels) {
            if (node.activity()) {
                links::SynchronizeActivity(form_, *node.activity(), nullptr);
            } else if (node.recordSet()) {
                links::SynchronizeRecordSet(form_, *node.recordSet());
            }
        }
    }

    int pick(int count) { return std::uniform_int_distribution<int>(0, count - 1)(random_); }
    std::int16_t small() { return static_cast<std::int16_t>(pick(6) == 0 ? pick(65536) - 32768 : pick(5)); }
    std::string text() {
        static const char* const parts[] = {"load", "\n",   "\"", "\\", "\r\n", "ä",    "漢",  "😀",
                                            "\t",   "\x01", "/",  " ",  "",     "\x7f", "A.B", "{}"};
        std::string whole;
        for (int at = pick(6); at > 0; --at) {
            whole += parts[pick(16)];
        }
        return whole;
    }
    float place() {
        return pick(3) == 0 ? std::uniform_real_distribution<float>(-1e4F, 1e5F)(random_)
                            : 50.F * static_cast<float>(pick(200));
    }

    /// No link leads to a node whose name was refused, and none comes from there.
    void ownerNamed(const std::string& name) {
        if (form_.Labels.at(form_.Labels.Count())->Caption() != canvas::kErrorName) {
            owners_.push_back(name);
        }
    }

    void addNode(int number) {
        using namespace canvas;
        static constexpr NodeTypeCode kinds[] = {NodeTypeActivity,  NodeTypeActivity, NodeTypeRecordSet,
                                                 NodeTypeRecordSet, NodeTypeComment,  NodeTypeLog,
                                                 NodeTypeConstant,  NodeTypeCode{77}};
        const NodeTypeCode kind = kinds[pick(8)];
        // Now and then a name that is taken.
        const std::string name = pick(6) == 0 ? "N0" : "N" + std::to_string(number);
        form_.quietNames = true;
        LabelsD& node = form_.Labels.Add({place(), place(), 210 + place() / 100, 450}, name, kind);
        form_.quietNames = false;
        if (auto* activity = node.activity()) {
            fill(*activity);
        } else if (auto* recordSet = node.recordSet()) {
            recordSet->RecordSet_SQL = text();
            fillList(*recordSet->RecordSet_Outputs, recordSet->RecordSet_Name);
            for (auto& attribute : recordSet->RecordSet_Outputs) {
                recordSet->addDbKey(attribute.Key, text());
            }
            ownerNamed(recordSet->RecordSet_Name);
        } else {
            node.setComment(text());
        }
        if (node.activity() || node.recordSet()) {
            giveFacts(node);
        }
        node.setReady((node.activity() && node.activity()->Act_Type != -1) ||
                      (node.recordSet() && node.recordSet()->RecordSet_Outputs.count() > 0));
    }

    entities::Field field() { return pick(3) == 0 ? entities::Field() : entities::Field(text()); }

    void giveFacts(const canvas::LabelsD& node) {
        using Kind = entities::Expectation::Kind;
        static constexpr const char* operators[] = {"=", "!=", "<", "<=", ">", ">="};
        entities::NodeFacts facts;
        if (pick(3) == 0) {
            facts.facts.emplace();
            for (int at = pick(4); at > 0; --at) {
                facts.facts->columns.push_back(text());
            }
            for (int at = pick(4); at > 0; --at) {
                entities::FieldRow& row = facts.facts->rows.emplace_back();
                for (std::size_t column = 0; column < facts.facts->columns.size(); ++column) {
                    row.push_back(field());
                }
            }
        }
        for (int at = pick(3); at > 0; --at) {
            const auto kind = static_cast<Kind>(pick(4));
            facts.expectations.push_back(kind == Kind::none
                                             ? entities::Expectation{kind, 0, text(), operators[pick(6)], field()}
                                             : entities::Expectation{kind, pick(1000), {}, {}, {}});
        }
        if (!facts.isEmpty()) {
            form_.facts[node.Index()] = facts;
        }
    }

    void fill(entities::ActivityProperties& activity) {
        activity.Act_Type = static_cast<std::int16_t>(pick(3) - 1);
        activity.Act_SchemaNo = small();
        activity.Act_LDL = text();
        activity.Act_SQL = text();
        activity.Act_Log = text();
        activity.Act_Description = text();
        ownerNamed(activity.Act_Name);
        fillList(*activity.Act_Inputs, activity.Act_Name);
        fillList(*activity.Act_Outputs, activity.Act_Name);
        fillList(*activity.Act_Parameters, activity.Act_Name);
        for (int at = 0, count = pick(3); at < count; ++at) {
            entities::FunctionProperties function;
            function.Function_Key = function.Function_Name =
                (pick(2) == 0 ? activity.Act_Name + "." : "") + "F" + std::to_string(at);
            function.Function_Type = static_cast<std::int16_t>(pick(2));
            function.Function_Source = static_cast<entities::FunctionSourceCode>(small());
            fillList(*function.Function_Inputs, function.Function_Key);
            fillList(*function.Function_Outputs, function.Function_Key);
            function.setParentKeyName(activity.Act_Name);
            activity.Act_Functions->AddFunctionProps(function, "", 0);
            ownerNamed(function.Function_Key);
        }
    }

    template <class List>
    void fillList(List& list, const std::string& owner) {
        for (int at = 0, count = pick(12); at < count; ++at) {
            const std::string key = pick(4) == 0 ? "N0.X" + std::to_string(at) : "M" + std::to_string(at);
            auto& member = [&]() -> auto& {
                if constexpr (requires { list.Add(key, std::int16_t{0}, entities::TagNone, key); }) {
                    return list.Add(key, static_cast<std::int16_t>(pick(3)), static_cast<entities::TagCode>(small()),
                                    key);
                } else {
                    return list.Add(key, static_cast<std::int16_t>(pick(3)), key);
                }
            }
            ();
            member.ParentKeyName = owner;
            if (pick(20) == 0) {
                member.NodeKind = static_cast<entities::NodeKindCode>(pick(20));
            }
        }
    }

    /// A link from a member of anything to one of anything, in one of its lists.
    void addLink() {
        using namespace entities;
        canvas::LabelsD& node = *form_.Labels.at(1 + pick(form_.Labels.Count()));
        if (node.Caption() == canvas::kErrorName) {
            return;
        }
        const std::string far = owners_[static_cast<std::size_t>(pick(static_cast<int>(owners_.size())))];
        static const char* const infixes[] = {".", ".IN.", ".OUT.", ".PARAM."};
        const std::string key = (pick(3) == 0 ? std::string() : far) + infixes[pick(4)] + "M" + std::to_string(pick(6));
        const auto type = static_cast<LinkType>(pick(17));
        const auto give = [&](auto& list) {
            if (list.count() == 0) {
                return;
            }
            auto& member = *list->Item(1 + pick(list.count()));
            (pick(2) == 0 ? member.RegulatedFrom : member.RegulatorFor)->Add(far, type, key);
            if constexpr (requires { member.ProvidedFrom; }) {
                (pick(2) == 0 ? member.ProvidedFrom : member.ProviderFor)->Add(far, type, key);
            }
        };
        if (auto* activity = node.activity()) {
            switch (pick(4)) {
                case 0:
                    return give(activity->Act_Inputs);
                case 1:
                    return give(activity->Act_Outputs);
                case 2:
                    return give(activity->Act_Parameters);
                default:
                    for (FunctionProperties& function : activity->Act_Functions) {
                        give(function.Function_Inputs);
                        give(function.Function_Outputs);
                    }
            }
        } else if (auto* recordSet = node.recordSet()) {
            give(recordSet->RecordSet_Outputs);
        }
    }

    canvas::DrawForm& form_;
    std::mt19937 random_;
    std::vector<std::string> owners_;
};

}  // namespace orvent::exchange
