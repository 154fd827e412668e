// Takes any text as a template: scans it, gives its variables kinds and values, and generates.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "canvas/draw_form.h"
#include "platform/fault.h"
#include "statements/ldl_generator.h"

using namespace orvent;
using namespace orvent::statements;

namespace {

class NoMessages : public platform::MessageBox {
  public:
    platform::Answer show(const std::string&, const std::string&, platform::Icon, platform::Buttons) override {
        std::abort();  // generating shows no messages
    }
};

/// Names of one text always get the same definition, so that a finding can be played again.
void define(LDLVariable& variable, std::size_t seed) {
    static constexpr const char* kTexts[] = {"0", "2", "1", "AUTHORS", "word", "@X", "a_in1", "", "-1", "32767"};
    variable.Defined = true;
    variable.VariableType = static_cast<LDLVariableType>(seed % 10);
    variable.RegulatorType = static_cast<LDLRegulatorType>(seed / 3 % 5);
    variable.RegulatorName = kTexts[seed / 2 % std::size(kTexts)];
    variable.RegulatedFrom = static_cast<std::int16_t>(seed % 4 - 1);
    if (variable.SubVariables) {
        static constexpr LDLVariableType kArrays[] = {VarParameterArray, VarFunctionParameterArray, VarOutputArray};
        variable.VariableType = kArrays[seed % 3];
        for (int element = 1; element <= 3; ++element) {
            define(variable.SubVariables->Add(std::to_string(element)), seed + static_cast<std::size_t>(element));
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    NoMessages messages;
    const canvas::CanvasSettings settings;
    canvas::DrawForm form({messages, settings});
    auto& authors = *form.Labels.Add({0, 0, 1050, 450}, "AUTHORS", canvas::NodeTypeRecordSet, "AUTHORS").recordSet();
    authors.RecordSet_Outputs->Add("AU_ID", 0, "AU_ID");
    entities::ActivityProperties activity;
    activity.Act_Name = size % 2 ? "CheckAge" : "Data";
    auto& input = activity.Act_Inputs->Add("AU_ID", 0, entities::TagNone, "AU_ID");
    input.ProvidedFrom->Add("AUTHORS", entities::LinkRecordSet, "AUTHORS.AU_ID");
    activity.Act_Outputs->Add("ID", 0, entities::TagNone, "ID");
    const LDLsourceColl sources = sourcesOf(activity);

    LDLVariableCollection variables;
    try {
        scanTemplate(text, variables);
    } catch (const platform::Fault&) {
        // What was found so far is defined all the same.
    }
    for (LDLVariable& variable : variables) {
        std::size_t seed = variable.VariableName.size();
        for (const char c : variable.VariableName) {
            seed = seed * 31 + static_cast<unsigned char>(c);
        }
        define(variable, seed);
    }
    const LDLGenerator generator(variables, sources, *activity.Act_Outputs, activity, form);
    if (generator.GenerateLDL(text).text.size() > kMostCharacters + 100) {
        std::abort();
    }
    return 0;
}
