#include "links/synchronize_functions.h"

#include "entities/members.h"
#include "links/link_mirrors.h"

namespace orvent::links {

using namespace entities;

namespace {

template <class Owner>
void writeAll(canvas::Canvas& Form, Owner& owner, ActivityProperties* InDialog) {
    eachMember(owner, [&](auto& member) { mirrorLinks(Work::Write, Form, member, InDialog); });
}

}  // namespace

void SynchronizeAttribute(canvas::Canvas& Form, AttributeProperties& attribute, ActivityProperties* InDialog) {
    mirrorLinks(Work::Write, Form, attribute, InDialog);
}

void SynchronizeParameter(canvas::Canvas& Form, ParameterProperties& parameter, ActivityProperties* InDialog) {
    mirrorLinks(Work::Write, Form, parameter, InDialog);
}

void SynchronizeFunction(canvas::Canvas& Form, FunctionProperties& function, ActivityProperties* InDialog) {
    writeAll(Form, function, InDialog);
}

void SynchronizeActivity(canvas::Canvas& Form, ActivityProperties& activity, ActivityProperties* InDialog) {
    writeAll(Form, activity, InDialog);
}

void SynchronizeRecordSet(canvas::Canvas& Form, RecordSetProperties& recordSet) {
    writeAll(Form, recordSet, nullptr);
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
