#include "links/propagate_rename.h"

#include <algorithm>
#include <array>
#include <vector>

#include "entities/link_types.h"
#include "entities/members.h"
#include "links/kept_mirrors.h"
#include "links/members.h"
#include "links/synchronize_functions.h"

namespace orvent::links {

using namespace entities;
using canvas::Renames;

namespace {

/// Which links carry a new key on, and to what of the activity that the link names.
struct RenameRow {
    NodeKindCode from;
    Direction links;
    std::array<LinkType, 2> types;
    NodeKindCode to;
    bool relative;  ///< the link names its far end by the relative key
    bool travelsOn;
};

constexpr std::array<LinkType, 2> kInner = {LinkInput, LinkActivityInput};
constexpr std::array<LinkType, 2> kByActivity = {LinkActivity, LinkActivity};
constexpr std::array<LinkType, 2> kByRecordSet = {LinkRecordSet, LinkRecordSet};

constexpr std::array<RenameRow, 6> kRenames = {{
    {KindInput, Direction::ProviderFor, kInner, KindOutput, true, true},
    {KindInput, Direction::RegulatorFor, kInner, KindParameter, true, false},
    {KindOutput, Direction::ProviderFor, kByActivity, KindInput, false, true},
    {KindRecordSetAttribute, Direction::ProvidedFrom, kByRecordSet, KindOutput, false, false},
    {KindRecordSetAttribute, Direction::ProviderFor, kByRecordSet, KindInput, false, true},
    {KindRecordSetAttribute, Direction::RegulatorFor, kByRecordSet, KindParameter, false, false},
}};

struct Match {
    const RenameRow* row;
    std::string name;
    LinkType type;
    std::string key;
};

/// An attribute that has its new key, and the links that are still to be followed.
struct Step {
    AttributeProperties* attribute;
    std::vector<Match> matches;
    std::size_t next = 0;
};

/// The key by which a link of that row names an entity of the activity `name`.
std::string farKey(const RenameRow& row, const std::string& name, const std::string& key) {
    return row.relative ? relativeKey(row.to, key) : wholeKey(name, row.to, key);
}

/// A link follows when its far end bears the old key as a whole.
template <class Link>
bool follows(const RenameRow& row, const Link& link, const std::string& oldKey) {
    return (link.type() == row.types[0] || link.type() == row.types[1]) &&
           link.key() == farKey(row, link.name(), oldKey);
}

template <class Links>
void collect(const RenameRow& row, const Lazy<Links>& links, const std::string& oldKey, std::vector<Match>& matches) {
    const Links* present = links.peek();
    for (int at = links.count(); at >= 1; --at) {
        const auto& link = *present->Item(at);
        if (follows(row, link, oldKey)) {
            matches.push_back({&row, link.name(), link.type(), link.key()});
        }
    }
}

Step stepAt(AttributeProperties& attribute, const std::string& oldKey) {
    Step step{&attribute, {}};
    for (const RenameRow& row : kRenames) {
        if (row.from != attribute.NodeKind) {
            continue;
        }
        switch (row.links) {
            case Direction::ProvidedFrom:
                collect(row, attribute.ProvidedFrom, oldKey, step.matches);
                break;
            case Direction::ProviderFor:
                collect(row, attribute.ProviderFor, oldKey, step.matches);
                break;
            default:
                collect(row, attribute.RegulatorFor, oldKey, step.matches);
                break;
        }
    }
    return step;
}

/// The link keeps its place; one that is not there is added.
template <class Links>
void replaceLink(Lazy<Links>& links, const std::string& oldKey, const std::string& name, LinkType type,
                 const std::string& newKey) {
    if (!links->rekey(oldKey, newKey)) {
        links->Add(name, type, newKey);
    }
}

void replaceMatch(AttributeProperties& attribute, const Match& match, const std::string& newKey) {
    switch (match.row->links) {
        case Direction::ProvidedFrom:
            return replaceLink(attribute.ProvidedFrom, match.key, match.name, match.type, newKey);
        case Direction::ProviderFor:
            return replaceLink(attribute.ProviderFor, match.key, match.name, match.type, newKey);
        default:
            return replaceLink(attribute.RegulatorFor, match.key, match.name, match.type, newKey);
    }
}

/// The node that shows the entity, if there is one, follows.
template <class Entity>
void renameNode(canvas::Canvas& Form, const std::string& formerKey, const Entity& renamed) {
    canvas::LabelsD* node = Form.nodeNamed(formerKey);
    if (!node || node->entity<Entity>() != &renamed) {
        return;
    }
    const std::string formerName = node->Caption();
    const std::string& name = nameOf(renamed);
    node->setKeyName(wholeKey(renamed.ParentKeyName, renamed.NodeKind, renamed.Key));
    node->setCaption(name);
    if (node->ToolTipText().starts_with(formerName + "(")) {
        node->setToolTipText(name + node->ToolTipText().substr(formerName.size()));
    }
}

class Propagation {
  public:
    Propagation(canvas::Canvas& form, const std::string& oldKey) : form_(form), oldKey_(oldKey) {}

    // The chain may be as long as the scenario, so it is followed with a stack of its own.
    Renames run(AttributeProperties& first) {
        stack_.push_back(stepAt(first, oldKey_));
        while (!stack_.empty()) {
            Step& step = stack_.back();
            if (step.next < step.matches.size()) {
                follow(*step.attribute, Match(step.matches[step.next++]));
                continue;
            }
            AttributeProperties& done = *step.attribute;
            stack_.pop_back();
            if (!stack_.empty()) {
                SynchronizeAttribute(form_, done, nullptr);
            }
        }
        return std::move(renames_);
    }

  private:
    void follow(AttributeProperties& attribute, const Match& match) {
        canvas::LabelsD* node = form_.nodeNamed(match.name);
        ActivityProperties* activity = node ? node->activity() : nullptr;
        if (!activity) {
            return;
        }
        withList(*activity, match.row->to, [&](auto& list, NodeKindCode kind) {
            if constexpr (requires { (*list.begin()).ProvidedFrom; }) {
                if (AttributeProperties* renamed = rekey(attribute, match, list.peek())) {
                    activity->Act_Inputs->Changed = activity->Act_Inputs->Changed || kind == KindInput;
                    goOn(*match.row, *renamed);
                }
            } else {
                regulated(attribute, match, list.peek());
            }
        });
    }

    void goOn(const RenameRow& row, AttributeProperties& renamed) {
        if (row.travelsOn) {
            stack_.push_back(stepAt(renamed, oldKey_));
        } else {
            SynchronizeAttribute(form_, renamed, nullptr);
        }
    }

    /// The chain ends where the far end is missing or its owner has an entity of the new key.
    template <class List>
    bool canRename(const AttributeProperties& attribute, const List* list) const {
        return list && list->Item(oldKey_) && !list->Item(attribute.Key);
    }

    /// Gives the entity under the old key the new one, at its place.
    template <class List>
    auto& rename(List& list, const std::string& newKey) {
        rekeyMember(form_, list, oldKey_, newKey);
        auto& renamed = *list.Item(newKey);
        if (nameOf(renamed) == oldKey_) {
            nameOf(renamed) = newKey;
        }
        renamed.Changed = true;
        renameNode(form_, wholeKey(renamed.ParentKeyName, renamed.NodeKind, oldKey_), renamed);
        renames_.push_back({renamed.ParentKeyName, renamed.NodeKind, oldKey_, newKey});
        form_.tellRenamed(renames_.back());
        return renamed;
    }

    template <class List>
    AttributeProperties* rekey(AttributeProperties& attribute, const Match& match, List* list) {
        if (!canRename(attribute, list)) {
            return nullptr;
        }
        replaceMatch(attribute, match, farKey(*match.row, match.name, attribute.Key));
        return &rename(*list, attribute.Key);
    }

    void regulated(AttributeProperties& attribute, const Match& match, Act_ParametersCollection* list) {
        if (!canRename(attribute, list)) {
            return;
        }
        replaceMatch(attribute, match, farKey(*match.row, match.name, attribute.Key));
        auto& links = list->Item(oldKey_)->RegulatedFrom;
        if (const std::string key = keyOf(attribute, match, attribute.Key); !links->Item(key)) {
            replaceLink(links, keyOf(attribute, match, oldKey_), attribute.ParentKeyName, match.type, key);
        }
        SynchronizeParameter(form_, rename(*list, attribute.Key), nullptr);
    }

    static std::string keyOf(const AttributeProperties& attribute, const Match& match, const std::string& key) {
        return match.row->relative ? relativeKey(attribute.NodeKind, key)
                                   : wholeKey(attribute.ParentKeyName, attribute.NodeKind, key);
    }

    canvas::Canvas& form_;
    const std::string& oldKey_;
    std::vector<Step> stack_;
    Renames renames_;
};

}  // namespace

Renames PropagateRename(canvas::Canvas& Form, AttributeProperties& A, const std::string& OldKey) {
    return A.Key == OldKey ? Renames() : Propagation(Form, OldKey).run(A);
}

}  // namespace orvent::links
