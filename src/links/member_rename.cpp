#include "links/member_rename.h"

#include <memory>
#include <utility>

#include "links/kept_mirrors.h"
#include "links/link_mirrors.h"
#include "links/propagate_rename.h"
#include "links/rename_activity.h"
#include "links/synchronize_functions.h"

namespace orvent::links {

using namespace entities;

void renameOwner(canvas::Canvas& Form, ActivityProperties& activity, const std::string& former,
                 const std::string& now) {
    KeptMirrors mirrors(Form);
    mirrors.hold(activity);
    renameActivity(activity, former, now);
    mirrors.rekey();
    Form.tellRenamed({{}, KindFree, former, now});
}

void renameOwner(canvas::Canvas& Form, RecordSetProperties& recordSet, const std::string& former,
                 const std::string& now) {
    KeptMirrors mirrors(Form);
    mirrors.hold(recordSet);
    for (AttributeProperties& attribute : recordSet.RecordSet_Outputs) {
        attribute.ParentKeyName = now;
    }
    recordSet.RecordSet_Name = now;
    mirrors.rekey();
    Form.tellRenamed({{}, KindFree, former, now});
}

Renames renameMembers(canvas::Canvas& Form, RecordSetProperties& recordSet,
                      const std::unordered_map<std::string, std::string>& keys) {
    KeptMirrors mirrors(Form);
    std::vector<std::pair<AttributeProperties*, std::string>> renamed;
    std::vector<std::shared_ptr<AttributeProperties>> members;
    for (int at = 1; at <= recordSet.RecordSet_Outputs.count(); ++at) {
        members.push_back(recordSet.RecordSet_Outputs->share(at));
        AttributeProperties& attribute = *members.back();
        if (const auto key = keys.find(attribute.Key); key != keys.end() && key->second != attribute.Key) {
            mirrors.hold(attribute);
            renamed.emplace_back(&attribute, attribute.Key);
            attribute.Changed = true;
        }
    }
    Renames carried;
    if (renamed.empty()) {
        return carried;
    }
    for (const auto& [attribute, former] : renamed) {
        attribute->Key = keys.at(former);
        // Noted by way of a name of its own, since they may exchange their keys.
        Form.tellRenamed({recordSet.RecordSet_Name, KindRecordSetAttribute, former, "\n" + attribute->Key});
    }
    recordSet.RecordSet_Outputs->Clear();
    for (const std::shared_ptr<AttributeProperties>& member : members) {
        recordSet.RecordSet_Outputs->append(member, member->Key);
    }
    mirrors.rekey();
    for (const auto& [attribute, former] : renamed) {
        Form.tellRenamed({recordSet.RecordSet_Name, KindRecordSetAttribute, "\n" + attribute->Key, attribute->Key});
        const Renames readers = PropagateRename(Form, *attribute, former);
        carried.insert(carried.end(), readers.begin(), readers.end());
    }
    return carried;
}

namespace {

template <class Owner>
void follow(Owner& owner, const Renames& renames) {
    std::unordered_map<std::string, std::string> keys;
    for (const Rename& rename : renames) {
        keys.emplace(wholeKey(rename.owner, rename.kind, rename.former),
                     wholeKey(rename.owner, rename.kind, rename.now));
    }
    if (keys.empty()) {
        return;
    }
    eachLinked(owner, [&](auto& member) {
        eachLinkList(member, [&]<class Link>(Direction, Lazy<LinkCollection<Link>>& links) {
            RekeyedLinks<Link> renamed;
            for (const Link& link : links) {
                if (const auto key = keys.find(link.key()); key != keys.end()) {
                    renamed.add(*links, link, key->second);
                }
            }
            renamed.apply();
        });
    });
}

/// One that bears the key already is none any more in the view; it goes with the records that are replaced.
template <class List>
void replayIn(canvas::Canvas& Form, Lazy<List>& list, const Rename& rename) {
    if (!list.peek() || !list->Item(rename.former)) {
        return;
    }
    if (auto* gone = list->Item(rename.now)) {
        eachLinked(*gone, [&](auto& member) { mirrorLinks(Work::Erase, Form, member, nullptr); });
        list->Remove(rename.now);
    }
    rekeyMember(Form, *list, rename.former, rename.now);
}

void replayMember(canvas::Canvas& Form, ActivityProperties& activity, const Rename& rename) {
    const auto replay = [&](auto& list, NodeKindCode) { replayIn(Form, list, rename); };
    if (rename.kind == KindFunction) {
        replayIn(Form, activity.Act_Functions, rename);
    } else if (rename.function.empty()) {
        withList(activity, rename.kind, replay);
    } else if (FunctionProperties* function = activity.Act_Functions->Item(rename.function)) {
        withList(*function, rename.kind, replay);
    }
}

}  // namespace

void followRenames(ActivityProperties& activity, const Renames& renames) {
    follow(activity, renames);
}
void followRenames(RecordSetProperties& recordSet, const Renames& renames) {
    follow(recordSet, renames);
}

void replayRenames(canvas::Canvas& Form, const Renames& renames) {
    for (const Rename& rename : renames) {
        const bool ofOwner = rename.kind == KindFree;
        canvas::LabelsD* node = Form.nodeNamed(ofOwner ? rename.former : rename.owner);
        ActivityProperties* activity = node ? node->activity() : nullptr;
        RecordSetProperties* recordSet = node ? node->recordSet() : nullptr;
        if (ofOwner && (activity || recordSet)) {
            node->setCaption(rename.now);
            activity ? renameOwner(Form, *activity, rename.former, rename.now)
                     : renameOwner(Form, *recordSet, rename.former, rename.now);
        } else if (activity) {
            replayMember(Form, *activity, rename);
        } else if (recordSet) {
            replayIn(Form, recordSet->RecordSet_Outputs, rename);
        }
    }
}

}  // namespace orvent::links
