#include "bench/graphs.h"

#include <array>
#include <cstddef>
#include <string>

#include "entities/key_grammar.h"
#include "entities/link_types.h"
#include "links/synchronize_functions.h"

namespace orvent::bench {

namespace {

constexpr int kAttributes = 4;
constexpr int kGroupsOfAFlow = 5;

struct Node {
    const char* name;
    bool isActivity;
};

constexpr std::array<Node, 10> kGroup = {{{"SOURCE_A", false},
                                          {"SOURCE_B", false},
                                          {"JOIN", true},
                                          {"STAGE", false},
                                          {"CHECK", true},
                                          {"LEFT", true},
                                          {"LEFT_TARGET", false},
                                          {"RIGHT", true},
                                          {"RIGHT_TARGET", false},
                                          {"UNION", true}}};

/// The attributes `first` to `last` of one node of a group feed those of another.
struct Feed {
    std::size_t from, to;
    int first, last;
};

constexpr std::array<Feed, 10> kFeeds = {{{0, 2, 1, 2},
                                          {1, 2, 3, 4},
                                          {2, 3, 1, 4},
                                          {3, 4, 1, 4},
                                          {4, 5, 1, 4},
                                          {5, 6, 1, 4},
                                          {4, 7, 1, 4},
                                          {7, 8, 1, 4},
                                          {6, 9, 1, 2},
                                          {8, 9, 3, 4}}};

std::string attributeName(int number) {
    return "COLUMN_" + std::to_string(number);
}

class Builder {
  public:
    explicit Builder(canvas::DrawForm& form) : form_(form) {}

    void addGroup(int group) {
        const int former = firstOfGroup_;
        firstOfGroup_ = static_cast<int>(form_.LabelsNo) + 1;
        for (const Node& node : kGroup) {
            addNode(node, group);
        }
        for (const Feed& feed : kFeeds) {
            connect(label(firstOfGroup_, feed.from), label(firstOfGroup_, feed.to), feed.first, feed.last);
        }
        if (group % kGroupsOfAFlow != 0) {
            connect(label(former, kGroup.size() - 1), label(firstOfGroup_, 0), 1, kAttributes);
        }
    }

  private:
    canvas::LabelsD& label(int first, std::size_t place) {
        return *form_.Labels.byIndex(canvas::NodeNumber{first + static_cast<int>(place)});
    }

    void addNode(const Node& node, int group) {
        const std::string name = std::string("G").append(std::to_string(group)).append("_").append(node.name);
        const auto column = static_cast<float>(form_.Labels.Count() % 100);
        const auto row = static_cast<float>(form_.Labels.Count() / 100);
        canvas::LabelsD& label =
            form_.Labels.Add({2000 * column, 1000 * row, 1050, 450}, name,
                             node.isActivity ? canvas::NodeTypeActivity : canvas::NodeTypeRecordSet, name);
        if (node.isActivity) {
            fillActivity(*label.activity());
        } else {
            fillRecordSet(*label.recordSet());
        }
    }

    static void fillActivity(entities::ActivityProperties& activity) {
        const std::string& name = activity.Act_Name;
        activity.Act_Type = 0;
        activity.Act_SchemaNo = 1;
        activity.Act_Description = "One step of the nightly load";
        activity.Act_SQL = "SELECT COLUMN_1,COLUMN_2,COLUMN_3,COLUMN_4 FROM " + name;
        activity.Act_LDL = name + "_out(C1,C2,C3,C4)<-" + name + "_in1(C1,C2,C3,C4).";
        for (int i = 1; i <= kAttributes; ++i) {
            activity.Act_Inputs->Add(attributeName(i), 0, entities::TagNone, attributeName(i)).ParentKeyName = name;
            auto& output = activity.Act_Outputs->Add(attributeName(i), 0, entities::TagNone, attributeName(i));
            output.ParentKeyName = name;
            output.ProvidedFrom->Add(name, entities::LinkInput,
                                     entities::relativeKey(entities::KindInput, attributeName(i)));
        }
    }

    static void fillRecordSet(entities::RecordSetProperties& recordSet) {
        const std::string& name = recordSet.RecordSet_Name;
        recordSet.RecordSet_SQL = "SELECT COLUMN_1,COLUMN_2,COLUMN_3,COLUMN_4 FROM " + name;
        for (int i = 1; i <= kAttributes; ++i) {
            recordSet.RecordSet_Outputs->Add(attributeName(i), 0, attributeName(i)).ParentKeyName = name;
            recordSet.addDbKey(attributeName(i), "WAREHOUSE." + name + "." + attributeName(i));
        }
    }

    void connect(canvas::LabelsD& from, canvas::LabelsD& to, int first, int last) {
        const bool withRecordSet = from.recordSet() || to.recordSet();
        const entities::NodeKindCode kind = to.recordSet() ? entities::KindRecordSetAttribute : entities::KindInput;
        for (int i = first; i <= last; ++i) {
            const std::string name = attributeName(i);
            entities::AttributeProperties* source = from.recordSet() ? from.recordSet()->RecordSet_Outputs->Item(name)
                                                                     : from.activity()->Act_Outputs->Item(name);
            source->ProviderFor->Add(to.KeyName(), withRecordSet ? entities::LinkRecordSet : entities::LinkActivity,
                                     entities::wholeKey(to.KeyName(), kind, name));
        }
        form_.Lines.addFullLine(from.Index(), 3, to.Index(), 1, canvas::EdgeTypeProvider, canvas::AngleStraight, 0);
    }

    canvas::DrawForm& form_;
    int firstOfGroup_ = 0;
};

}  // namespace

void buildScenario(canvas::DrawForm& form, int nodes) {
    Builder builder(form);
    for (int group = 0; group < nodes / static_cast<int>(kGroup.size()); ++group) {
        builder.addGroup(group);
    }
}

void synchronizeScenario(canvas::DrawForm& form) {
    for (canvas::LabelsD& node : form.Labels) {
        if (entities::ActivityProperties* activity = node.activity()) {
            links::SynchronizeActivity(form, *activity, nullptr);
        }
    }
    for (canvas::LabelsD& node : form.Labels) {
        if (entities::RecordSetProperties* recordSet = node.recordSet()) {
            links::SynchronizeRecordSet(form, *recordSet);
        }
    }
}

}  // namespace orvent::bench
