#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "canvas/draw_form.h"
#include "statements/ldl_generator.h"
#include "testkit/graph_builder.h"

namespace orvent::statements {

/// An activity CheckAge that reads AU_ID and AGE from record set AUTHORS and CITY from the activity Other, and writes
/// ID and FULL; and the variables of a template as a test wants them.
class LDLGeneratorTest : public testkit::GraphTest {
  protected:
    LDLGeneratorTest() {
        graph.recordSet("AUTHORS", {"AU_ID", "AGE"});
        graph.activity("Other", {}, {"CITY"});
        activity = &graph.activity("CheckAge", {"AU_ID", "AGE", "CITY"}, {"ID", "FULL"});
        graph.feed("AUTHORS.AU_ID", "CheckAge.IN.AU_ID");
        graph.feed("AUTHORS.AGE", "CheckAge.IN.AGE");
        graph.feed("Other.OUT.CITY", "CheckAge.IN.CITY");
        sources = sourcesOf(*activity);
        for (int i = 1; i <= 2; ++i) {
            outputs.append(activity->Act_Outputs->share(i), activity->Act_Outputs->Item(i)->Key);
        }
    }

    LDLVariable& define(const std::string& name, LDLVariableType type, const std::string& regulatorName = {},
                        int from = -1, LDLRegulatorType regulator = RegUndefined) {
        return set(variables.Add(name), type, regulator, regulatorName, from);
    }
    LDLVariable& constant(const std::string& name, const std::string& text) {
        return define(name, VarParameter, text, 0, RegConstant);
    }
    LDLVariable& array(const std::string& name, LDLVariableType type, const std::vector<std::string>& constants) {
        LDLVariable& result = define(name, type);
        result.SubVariables = std::make_unique<LDLVariableCollection>();
        for (const std::string& text : constants) {
            LDLVariable& element = result.SubVariables->Add(std::to_string(result.SubVariables->Count() + 1));
            set(element, VarUndefined, text.empty() ? RegUndefined : RegConstant, text, 0);
        }
        return result;
    }

    LDLGenerator generator() const { return {variables, sources, outputs, *activity, form}; }

    entities::ActivityProperties* activity = nullptr;
    LDLsourceColl sources;
    entities::Act_OutputsCollection outputs;
    LDLVariableCollection variables;

  private:
    static LDLVariable& set(LDLVariable& variable, LDLVariableType type, LDLRegulatorType regulator,
                            const std::string& name, int from) {
        variable.VariableType = type;
        variable.RegulatorType = regulator;
        variable.RegulatorName = name;
        variable.RegulatedFrom = static_cast<std::int16_t>(from);
        variable.Defined = true;
        return variable;
    }
};

}  // namespace orvent::statements
