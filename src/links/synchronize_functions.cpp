#include "links/synchronize_functions.h"

#include "links/link_mirrors.h"

namespace orvent::links {

using namespace entities;

namespace {

template <class Collection>
void writeAll(canvas::Canvas& Form, Lazy<Collection>& items, ActivityProperties* InDialog) {
    if (Collection* present = items.peek()) {
        for (auto& item : *present) {
            mirrorLinks(Work::Write, Form, item, InDialog);
        }
    }
}

}  // namespace

void SynchronizeAttribute(canvas::Canvas& Form, AttributeProperties& attribute, ActivityProperties* InDialog) {
    mirrorLinks(Work::Write, Form, attribute, InDialog);
}

void SynchronizeParameter(canvas::Canvas& Form, ParameterProperties& parameter, ActivityProperties* InDialog) {
    mirrorLinks(Work::Write, Form, parameter, InDialog);
}

void SynchronizeFunction(canvas::Canvas& Form, FunctionProperties& function, ActivityProperties* InDialog) {
    writeAll(Form, function.Function_Inputs, InDialog);
    writeAll(Form, function.Function_Outputs, InDialog);
}

void SynchronizeActivity(canvas::Canvas& Form, ActivityProperties& activity, ActivityProperties* InDialog) {
    writeAll(Form, activity.Act_Inputs, InDialog);
    writeAll(Form, activity.Act_Outputs, InDialog);
    writeAll(Form, activity.Act_Parameters, InDialog);
    if (Act_FunctionsCollection* functions = activity.Act_Functions.peek()) {
        for (FunctionProperties& function : *functions) {
            SynchronizeFunction(Form, function, InDialog);
        }
    }
}

void SynchronizeRecordSet(canvas::Canvas& Form, RecordSetProperties& recordSet) {
    writeAll(Form, recordSet.RecordSet_Outputs, nullptr);
}

void SynchronizeProvidedFrom(canvas::Canvas& Form, const NearEnd& E, ProviderProperties& Link,
                             ActivityProperties* InDialog) {
    mirrorLink(Work::Write, Form, Direction::ProvidedFrom, E, Link, InDialog);
}

void SynchronizeProviderFor(canvas::Canvas& Form, const NearEnd& E, ProviderProperties& Link,
                            ActivityProperties* InDialog) {
    mirrorLink(Work::Write, Form, Direction::ProviderFor, E, Link, InDialog);
}

void SynchronizeRegulatedFrom(canvas::Canvas& Form, const NearEnd& E, RegulatorProperties& Link,
                              ActivityProperties* InDialog) {
    mirrorLink(Work::Write, Form, Direction::RegulatedFrom, E, Link, InDialog);
}

void SynchronizeRegulatorFor(canvas::Canvas& Form, const NearEnd& E, RegulatorProperties& Link,
                             ActivityProperties* InDialog) {
    mirrorLink(Work::Write, Form, Direction::RegulatorFor, E, Link, InDialog);
}

}  // namespace orvent::links
