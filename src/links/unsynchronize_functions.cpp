#include "links/unsynchronize_functions.h"

#include "links/link_mirrors.h"

namespace orvent::links {

using namespace entities;

namespace {

template <class Links>
void clear(Lazy<Links>& links) {
    if (Links* present = links.peek()) {
        present->Clear();
    }
}

void erase(canvas::Canvas& Form, AttributeProperties& attribute, bool ClearLinks, ActivityProperties* InDialog) {
    mirrorLinks(Work::Erase, Form, attribute, InDialog);
    if (ClearLinks) {
        clear(attribute.ProvidedFrom);
        clear(attribute.ProviderFor);
        clear(attribute.RegulatedFrom);
        clear(attribute.RegulatorFor);
    }
}

void erase(canvas::Canvas& Form, ParameterProperties& parameter, bool ClearLinks, ActivityProperties* InDialog) {
    mirrorLinks(Work::Erase, Form, parameter, InDialog);
    if (ClearLinks) {
        clear(parameter.RegulatedFrom);
        clear(parameter.RegulatorFor);
    }
}

template <class Collection>
void eraseAll(canvas::Canvas& Form, Lazy<Collection>& items, bool ClearLinks, ActivityProperties* InDialog) {
    if (Collection* present = items.peek()) {
        for (auto& item : *present) {
            erase(Form, item, ClearLinks, InDialog);
        }
    }
}

}  // namespace

void UnSynchronizeAttribute(canvas::Canvas& Form, AttributeProperties& attribute, bool ClearLinks,
                            ActivityProperties* InDialog) {
    erase(Form, attribute, ClearLinks, InDialog);
}

void UnSynchronizeParameter(canvas::Canvas& Form, ParameterProperties& parameter, bool ClearLinks,
                            ActivityProperties* InDialog) {
    erase(Form, parameter, ClearLinks, InDialog);
}

void UnSynchronizeFunction(canvas::Canvas& Form, FunctionProperties& function, bool ClearLinks,
                           ActivityProperties* InDialog) {
    eraseAll(Form, function.Function_Inputs, ClearLinks, InDialog);
    eraseAll(Form, function.Function_Outputs, ClearLinks, InDialog);
}

void UnSynchronizeActivity(canvas::Canvas& Form, ActivityProperties& activity, bool ClearLinks,
                           ActivityProperties* InDialog) {
    // Functions go first; synchronising takes them last.
    if (Act_FunctionsCollection* functions = activity.Act_Functions.peek()) {
        for (FunctionProperties& function : *functions) {
            UnSynchronizeFunction(Form, function, ClearLinks, InDialog);
        }
    }
    eraseAll(Form, activity.Act_Outputs, ClearLinks, InDialog);
    eraseAll(Form, activity.Act_Parameters, ClearLinks, InDialog);
    eraseAll(Form, activity.Act_Inputs, ClearLinks, InDialog);
}

void UnSynchronizeRecordSet(canvas::Canvas& Form, RecordSetProperties& recordSet, bool ClearLinks,
                            ActivityProperties* InDialog) {
    eraseAll(Form, recordSet.RecordSet_Outputs, ClearLinks, InDialog);
}

void UnSynchronizeProvidedFrom(canvas::Canvas& Form, const NearEnd& E, ProviderProperties& Link,
                               ActivityProperties* InDialog) {
    mirrorLink(Work::Erase, Form, Direction::ProvidedFrom, E, Link, InDialog);
}

void UnSynchronizeProviderFor(canvas::Canvas& Form, const NearEnd& E, ProviderProperties& Link,
                              ActivityProperties* InDialog) {
    mirrorLink(Work::Erase, Form, Direction::ProviderFor, E, Link, InDialog);
}

void UnSynchronizeRegulatedFrom(canvas::Canvas& Form, const NearEnd& E, RegulatorProperties& Link,
                                ActivityProperties* InDialog) {
    mirrorLink(Work::Erase, Form, Direction::RegulatedFrom, E, Link, InDialog);
}

void UnSynchronizeRegulatorFor(canvas::Canvas& Form, const NearEnd& E, RegulatorProperties& Link,
                               ActivityProperties* InDialog) {
    mirrorLink(Work::Erase, Form, Direction::RegulatorFor, E, Link, InDialog);
}

}  // namespace orvent::links
