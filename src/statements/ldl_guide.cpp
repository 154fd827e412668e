#include "statements/ldl_guide.h"

namespace orvent::statements {

TemplateSubject LDLGuide::subject() const {
    return {form_.OriginalTemplate.empty() ? form_.txtTemplate : form_.OriginalTemplate,
            form_.Variables,
            form_.Sources,
            form_.OutputsView,
            *form_.Activity,
            form_.WholeNumbers()};
}

LDLGuide::Mood LDLGuide::mood() const {
    if (!form_.trouble().empty() || !faults().empty()) {
        return Mood::missing;
    }
    bool whole = !form_.Enabled.txtTemplate;
    for (const LDLVariable& variable : form_.Variables) {
        whole = whole && form_.isComplete(variable);
    }
    return whole ? Mood::complete : Mood::underWay;
}

std::string LDLGuide::typeText() const {
    const entities::ActivityTypeProperties& type = form_.type();
    if (type.ActType_Name.empty() || type.ActType_Description.empty()) {
        return type.ActType_Name;
    }
    return type.ActType_Name + ": " + type.ActType_Description;
}

std::string LDLGuide::meaningOf(const LDLVariable& variable) const {
    return sentencesAbout(form_.type().ActType_Description, variable.VariableName);
}

TemplateRole LDLGuide::proposal() const {
    if (!form_.CurrentVariable || form_.kind != VarUndefined) {
        return {};
    }
    const auto roles = rolesIn(form_.OriginalTemplate, form_.Variables, form_.type());
    const auto role = roles.find(form_.CurrentVariable->VariableName);
    return role == roles.end() ? TemplateRole{} : role->second;
}

std::vector<Advice> LDLGuide::faults() const {
    if (!form_.hasStatement()) {
        return {};
    }
    std::vector<Advice> result = faultsOf(form_.txtTemplate);
    for (const std::string& fault : form_.generatorFaults()) {
        result.push_back({fault, {}});
    }
    return result;
}

std::vector<Advice> LDLGuide::advice() const {
    std::vector<Advice> result = faults();
    const std::vector<Advice> fits = adviceOn(subject());
    result.insert(result.end(), fits.begin(), fits.end());
    const int links = form_.ActivityCreated ? 0 : linksOfGeneratedOutputs(*form_.Activity);
    if (links > 0) {
        result.push_back({"Creating the activity replaces generated outputs that others read: " +
                              std::to_string(links) + (links == 1 ? " link goes." : " links go."),
                          {}});
    }
    return result;
}

bool LDLGuide::offersWholeNumbers() const {
    return cutsNumbers(subject());
}

std::string LDLGuide::sourceCaption(int at) const {
    const std::string& name = form_.listInputs.items[static_cast<std::size_t>(at)];
    const LDLSource* source = form_.Sources.Source(at + 1);
    return source ? name + " (" + source->Source + ")" : name;
}

}  // namespace orvent::statements
