#include "analysis/node_texts.h"

#include <array>

#include "canvas/owners.h"
#include "links/members.h"

namespace orvent::analysis {

using namespace entities;
using canvas::LabelsD;

namespace {

constexpr std::array<std::string_view, 11> kTitles = {
    "name",          "caption",       "key",         "type",          "source column", "constant",
    "SQL statement", "LDL statement", "description", "rejected rows", "comment"};
static_assert(!kTitles[static_cast<std::size_t>(TextKind::comment)].empty());

constexpr std::array<std::string_view, kPlaceKinds> kKindWords = {
    "",          "activity", "record-set",     "comment",        "log", "constant", "attribute", "input", "output",
    "parameter", "function", "function-input", "function-output"};
static_assert(!kKindWords[kPlaceKinds - 1].empty());

PlaceKind kindOf(NodeKindCode kind, PlaceKind otherwise) {
    switch (kind) {
        case KindInput:
            return PlaceKind::input;
        case KindOutput:
            return PlaceKind::output;
        case KindParameter:
            return PlaceKind::parameter;
        case KindRecordSetAttribute:
            return PlaceKind::attribute;
        case KindFunctionOutput:
            return PlaceKind::functionOutput;
        case KindFunctionInput:
            return PlaceKind::functionInput;
        case KindFunction:
            return PlaceKind::function;
        case KindConstant:
            return PlaceKind::constant;
        default:
            return otherwise;
    }
}

/// Whether a node of the canvas shows that very entity.
template <class Member>
bool hasNode(const canvas::Canvas& canvas, const Member& member) {
    if constexpr (requires { member.LabelIndex; }) {
        const LabelsD* node = canvas.isZoom() ? canvas.Labels.byIndex(member.LabelIndex) : nullptr;
        return node && node->entity<Member>() == &member;
    } else {
        const LabelsD* node = canvas.isZoom() ? canvas.nodeNamed(member.Function_Key) : nullptr;
        return node && node->template entity<Member>() == &member;
    }
}

/// Tells the texts of one node.
class Teller {
  public:
    Teller(const canvas::Canvas& canvas, const LabelsD& node, const CatalogueTables& tables, TextVisitor& visitor)
        : canvas_(canvas), node_(node), tables_(tables), visitor_(visitor) {}

    void tell() {
        const bool lacksEdges = node_.StartingLines().Count() == 0 && node_.EndingLines().Count() == 0;
        if (const ActivityProperties* activity = node_.activity()) {
            tellNode(PlaceKind::activity, lacksEdges);
            tellActivity(*activity);
        } else if (const RecordSetProperties* recordSet = node_.recordSet()) {
            tellNode(PlaceKind::recordSet, lacksEdges);
            tell(TextKind::sql, recordSet->RecordSet_SQL);
            tellLists(*recordSet, 0, recordSet);
        } else if (const auto* comment = node_.entity<CommentProperties>()) {
            tellNode(PlaceKind::comment, false);
            tell(TextKind::comment, comment->Comment);
        } else if (const auto* function = node_.entity<FunctionProperties>()) {
            tellNode(PlaceKind::function, false);
            tell(TextKind::type, tables_.functionTypes.shown(function->Function_Type));
            tellLists(*function, 0);
        } else if (const auto* attribute = node_.entity<AttributeProperties>()) {
            tellNode(kindOf(attribute->NodeKind, PlaceKind::attribute), isFree(*attribute));
            tellMember(*attribute);
        } else if (const auto* parameter = node_.entity<ParameterProperties>()) {
            tellNode(kindOf(parameter->NodeKind, PlaceKind::parameter), isFree(*parameter));
            tellMember(*parameter);
        } else {
            tellNode(node_.NodeType() == canvas::NodeTypeLog ? PlaceKind::log : PlaceKind::other, false);
        }
    }

  private:
    void tell(TextKind kind, std::string_view text) {
        if (!text.empty()) {
            visitor_.text(kind, text);
        }
    }

    /// A name, and what else it is called where that is something else.
    void tellNames(std::string_view name, TextKind other, std::string_view otherName) {
        tell(TextKind::name, name);
        if (otherName != name) {
            tell(other, otherName);
        }
    }

    void tellNode(PlaceKind kind, bool isFree) {
        visitor_.place({node_.Index()}, kind, isFree);
        if (kind == PlaceKind::comment) {
            return;  // nobody reads its name
        }
        // The key of a member is its own name, not that of its node.
        const bool isMember = canvas::nodeKind(node_.NodeType()).naming == canvas::Naming::own;
        tellNames(isMember ? std::string_view(node_.Caption()) : node_.KeyName(),
                  isMember ? TextKind::key : TextKind::caption, isMember ? node_.KeyName() : node_.Caption());
    }

    void tellActivity(const ActivityProperties& activity) {
        tell(TextKind::type, tables_.activityTypes.shown(activity.Act_Type));
        tell(TextKind::sql, activity.Act_SQL);
        tell(TextKind::ldl, activity.Act_LDL);
        tell(TextKind::description, activity.Act_Description);
        tell(TextKind::log, activity.Act_Log);
        tellLists(activity, 0);
        std::int32_t position = 0;
        for (const FunctionProperties& function : activity.Act_Functions) {
            ++position;
            if (!hasNode(canvas_, function)) {
                visitor_.place({node_.Index(), KindFunction, position, 0}, PlaceKind::function, false);
                // Its name becomes its key whenever it is copied.
                tell(TextKind::name, function.Function_Key);
                tell(TextKind::type, tables_.functionTypes.shown(function.Function_Type));
                tellLists(function, position);
            }
        }
    }

    template <class Owner>
    void tellLists(const Owner& owner, std::int32_t function, const RecordSetProperties* recordSet = nullptr) {
        eachList(owner, [&](const auto& list, NodeKindCode kind) {
            std::int32_t position = 0;
            for (const auto& member : list) {
                ++position;
                if (hasNode(canvas_, member)) {
                    continue;
                }
                visitor_.place({node_.Index(), kind, function, position}, kindOf(kind, PlaceKind::other),
                               isFree(member));
                tellNames(links::nameOf(member), TextKind::key, member.Key);
                tellMember(member);
                if (recordSet) {
                    tell(TextKind::source, recordSet->dbKey(member.Key));
                }
            }
        });
    }

    template <class Member>
    void tellMember(const Member& member) {
        tell(TextKind::type, tables_.dataTypes.shown(links::typeOf(member)));
        for (const RegulatorProperties& link : member.RegulatedFrom) {
            if (link.type() == LinkConstant || link.type() == LinkConstantFunction) {
                tell(TextKind::constant, link.key());
            }
        }
    }

    template <class Member>
    static bool isFree(const Member& member) {
        if constexpr (requires { member.ProvidedFrom; }) {
            if (member.ProvidedFrom.count() + member.ProviderFor.count() > 0) {
                return false;
            }
        }
        return member.RegulatedFrom.count() + member.RegulatorFor.count() == 0;
    }

    const canvas::Canvas& canvas_;
    const LabelsD& node_;
    const CatalogueTables& tables_;
    TextVisitor& visitor_;
};

/// Gathers the words of one place.
class OnePlace : public TextVisitor {
  public:
    OnePlace(const Place& sought, TextKind kind) : sought_(sought), kind_(kind) {}

    void place(const Place& place, PlaceKind kind, bool) override {
        isThere_ = place == sought_;
        isFunction_ = sought_.function > 0 && place.function == sought_.function && place.member == 0;
        if (isThere_) {
            words.kind = kind;
        }
    }
    void text(TextKind kind, std::string_view text) override {
        if (isFunction_ && !isThere_ && kind == TextKind::name) {
            words.member = std::string(text) + ".";
        }
        if (!isThere_) {
            return;
        }
        if (kind == TextKind::name && !sought_.isNode()) {
            words.member += text;
        }
        if (kind == kind_ && words.text.empty()) {
            words.text = text;
        }
    }

    PlaceWords words;

  private:
    Place sought_;
    TextKind kind_;
    bool isThere_ = false;
    bool isFunction_ = false;
};

}  // namespace

std::string_view titleOf(TextKind kind) {
    return kTitles[static_cast<std::size_t>(kind)];
}

std::string_view wordOf(PlaceKind kind) {
    return kKindWords[static_cast<std::size_t>(kind)];
}

void visitTexts(const canvas::Canvas& canvas, const LabelsD& node, const CatalogueTables& tables,
                TextVisitor& visitor) {
    Teller(canvas, node, tables, visitor).tell();
}

PlaceWords wordsOf(const canvas::Canvas& canvas, const Place& place, TextKind text, const CatalogueTables& tables) {
    OnePlace one(place, text);
    if (const LabelsD* node = canvas.Labels.byIndex(place.node)) {
        visitTexts(canvas, *node, tables, one);
        one.words.owner = node->Caption();
    }
    return std::move(one.words);
}

}  // namespace orvent::analysis
