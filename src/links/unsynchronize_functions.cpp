#include "links/unsynchronize_functions.h"

#include "entities/members.h"
#include "links/link_mirrors.h"
#include "links/mirror_lists.h"

namespace orvent::links {

using namespace entities;

namespace {

template <class Links>
void clear(Lazy<Links>& links) {
    if (Links* present = links.peek()) {
        present->Clear();
    }
}

template <class Member>
void erase(canvas::Canvas& Form, Member& member, bool ClearLinks, ActivityProperties* InDialog) {
    mirrorLinks(Work::Erase, Form, member, InDialog);
    if (ClearLinks) {
        eachLinkList(member, [](Direction, auto& links) { clear(links); });
    }
}

template <class List>
void eraseAll(canvas::Canvas& Form, List& members, bool ClearLinks, ActivityProperties* InDialog) {
    for (auto& member : members) {
        erase(Form, member, ClearLinks, InDialog);
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
    eachList(function, [&](auto& list, NodeKindCode) { eraseAll(Form, list, ClearLinks, InDialog); });
}

void UnSynchronizeActivity(canvas::Canvas& Form, ActivityProperties& activity, bool ClearLinks,
                           ActivityProperties* InDialog) {
    // Functions go first; synchronising takes them last.
    for (FunctionProperties& function : activity.Act_Functions) {
        UnSynchronizeFunction(Form, function, ClearLinks, InDialog);
    }
    for (const NodeKindCode kind : {KindOutput, KindParameter, KindInput}) {
        withList(activity, kind, [&](auto& list, NodeKindCode) { eraseAll(Form, list, ClearLinks, InDialog); });
    }
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
