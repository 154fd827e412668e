#pragma once

#include <initializer_list>
#include <string>

#include "canvas/draw_form.h"
#include "entities/key_grammar.h"
#include "entities/link_types.h"
#include "testkit/scripted_ports.h"

namespace orvent::testkit {

/// Builds a small scenario node by node. Attributes are named by whole keys ("RS1.ID", "Load.IN.ID").
class GraphBuilder {
  public:
    using Names = std::initializer_list<const char*>;

    explicit GraphBuilder(canvas::DrawForm& form) : form_(form) {}

    entities::RecordSetProperties& recordSet(const std::string& name, Names attributes = {}) {
        entities::RecordSetProperties& result = *node(name, canvas::NodeTypeRecordSet).recordSet();
        for (const std::string attribute : attributes) {
            result.RecordSet_Outputs->Add(attribute, 0, attribute).ParentKeyName = name;
        }
        return result;
    }

    entities::ActivityProperties& activity(const std::string& name, Names inputs = {}, Names outputs = {}) {
        entities::ActivityProperties& result = *node(name, canvas::NodeTypeActivity).activity();
        result.Act_Type = 0;
        for (const std::string input : inputs) {
            result.Act_Inputs->Add(input, 0, entities::TagNone, input).ParentKeyName = name;
        }
        for (const std::string output : outputs) {
            result.Act_Outputs->Add(output, 0, entities::TagNone, output).ParentKeyName = name;
        }
        return result;
    }

    canvas::LabelsD& node(const std::string& name, canvas::NodeTypeCode nodeType) {
        return form_.Labels.Add({0, 0, 1050, 450}, name, nodeType, name);
    }

    void edge(const std::string& from, const std::string& to) {
        form_.Lines.addFullLine(form_.NamesColl.Item(from), 3, form_.NamesColl.Item(to), 1, canvas::EdgeTypeProvider,
                                canvas::AngleStraight, 0);
    }

    /// Both ends of a provider link between two nodes.
    void feed(const std::string& from, const std::string& to) {
        const entities::LinkType type =
            node(from).recordSet() || node(to).recordSet() ? entities::LinkRecordSet : entities::LinkActivity;
        attribute(from).ProviderFor->Add(owner(to), type, to);
        attribute(to).ProvidedFrom->Add(owner(from), type, from);
    }

    /// Both ends of a link from an input to an output of one activity.
    void pass(const std::string& activity, const std::string& input, const std::string& output) {
        attribute(activity + ".IN." + input).ProviderFor->Add(activity, entities::LinkInput, ".OUT." + output);
        attribute(activity + ".OUT." + output).ProvidedFrom->Add(activity, entities::LinkInput, ".IN." + input);
    }

    entities::AttributeProperties& attribute(const std::string& key) {
        canvas::LabelsD& holder = node(key);
        if (entities::RecordSetProperties* recordSet = holder.recordSet()) {
            return *recordSet->RecordSet_Outputs->Item(entities::AfterFirstDot(key));
        }
        entities::ActivityProperties& activity = *holder.activity();
        const std::string name = entities::AfterSecondDot(key);
        return entities::SecondSegment(key) == "IN" ? *activity.Act_Inputs->Item(name)
                                                    : *activity.Act_Outputs->Item(name);
    }

  private:
    static std::string owner(const std::string& key) { return entities::BeforeFirstDot(key); }
    canvas::LabelsD& node(const std::string& key) { return *form_.nodeNamed(owner(key)); }

    canvas::DrawForm& form_;
};

/// A fixture with a scenario to build.
class GraphTest : public CanvasTest {
  public:
    canvas::DrawForm form{ports.services()};
    GraphBuilder graph{form};
};

}  // namespace orvent::testkit
