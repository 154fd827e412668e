#include "exchange/entity_reader.h"

#include "exchange/facts_text.h"
#include "exchange/list_keys.h"

namespace orvent::exchange {

using entities::ActivityProperties;
using entities::RecordSetProperties;

namespace {

constexpr std::uint64_t kNodeKeys = keySet({Key::name, Key::kind, Key::box});
constexpr std::uint64_t kActivityKeys =
    kNodeKeys | kFactKeys |
    keySet({Key::entityName, Key::type, Key::schemata, Key::description, Key::log, Key::sql, Key::ldl, Key::inputs,
            Key::outputs, Key::parameters, Key::functions});
constexpr std::uint64_t kRecordSetKeys = kNodeKeys | kFactKeys | keySet({Key::entityName, Key::sql, Key::attributes});
constexpr std::uint64_t kParameterKeys =
    keySet({Key::key, Key::name, Key::kind, Key::type, Key::tag, Key::regulatedFrom, Key::regulatorFor});
constexpr std::uint64_t kAttributeKeys = kParameterKeys | keySet({Key::providedFrom, Key::providerFor});

}  // namespace

canvas::NodeProperties EntityReader::read(Place at, const Document::Node& node) {
    switch (node.kind) {
        case canvas::NodeTypeActivity:
            return readActivity(at, node.caption);
        case canvas::NodeTypeRecordSet:
            return readRecordSet(at, node.caption);
        case canvas::NodeTypeComment: {
            in_.object(at, kNodeKeys | keySet({Key::comment}));
            auto comment = std::make_shared<entities::CommentProperties>();
            comment->Comment = in_.linesOf(at, Key::comment);
            return comment;
        }
        default:
            in_.object(at, kNodeKeys);
            return canvas::nodeKind(node.kind).newEntity(node.caption, node.caption, {});
    }
}

canvas::NodeProperties EntityReader::readActivity(Place at, const std::string& caption) {
    in_.object(at, kActivityKeys);
    auto activity = std::make_shared<ActivityProperties>();
    activity->Act_Name = in_.textOf(at, Key::entityName, caption);
    if (const Place type = in_.tree().member(at, Key::type); type != JsonTree::kNowhere) {
        activity->Act_Type = typeIn(activities_, type);
    }
    activity->Act_SchemaNo = in_.smallOf(at, Key::schemata);
    activity->Act_Description = in_.linesOf(at, Key::description);
    activity->Act_Log = in_.linesOf(at, Key::log);
    activity->Act_SQL = in_.linesOf(at, Key::sql);
    activity->Act_LDL = in_.linesOf(at, Key::ldl);
    entities::eachList(*activity, [&](auto& list, entities::NodeKindCode kind) {
        const std::uint64_t keys = kind == entities::KindParameter ? kParameterKeys : kAttributeKeys;
        in_.eachOf(at, listKey(kind), [&](Place each) { addMember(*list, each, activity->Act_Name, keys); });
    });
    in_.eachOf(at, Key::functions, [&](Place each) { addFunction(*activity, each); });
    return activity;
}

canvas::NodeProperties EntityReader::readRecordSet(Place at, const std::string& caption) {
    in_.object(at, kRecordSetKeys);
    auto recordSet = std::make_shared<RecordSetProperties>();
    recordSet->RecordSet_Name = in_.textOf(at, Key::entityName, caption);
    recordSet->RecordSet_SQL = in_.linesOf(at, Key::sql);
    in_.eachOf(at, Key::attributes, [&](Place each) {
        const auto& attribute = addMember(*recordSet->RecordSet_Outputs, each, recordSet->RecordSet_Name,
                                          kAttributeKeys | keySet({Key::source}));
        recordSet->addDbKey(attribute.Key, in_.textOf(each, Key::source));
    });
    return recordSet;
}

std::int16_t EntityReader::typeIn(Names& table, Place at) const {
    const std::string_view name = in_.view(at);
    const auto known = table.indices.find(name);
    if (known != table.indices.end()) {
        return known->second;
    }
    if (table.names.size() > static_cast<std::size_t>(std::numeric_limits<std::int16_t>::max())) {
        in_.tree().refuse(at, "there are too many types");
    }
    const auto index = static_cast<std::int16_t>(table.names.size());
    table.names.emplace_back(name);
    table.indices.emplace(name, index);
    return index;
}

template <class List>
links::EntityOf<List>& EntityReader::addMember(List& list, Place at, const std::string& owner, std::uint64_t keys) {
    in_.object(at, keys);
    const Place keyAt = in_.required(at, Key::key);
    const std::string key = in_.text(keyAt);
    if (list.Item(key)) {
        in_.tree().refuse(keyAt, "another one of this list has the key \"" + key + "\"");
    }
    auto member = std::make_shared<links::EntityOf<List>>();
    member->Key = key;
    links::nameOf(*member) = in_.textOf(at, Key::name, key);
    links::typeOf(*member) = typeIn(data_, in_.required(at, Key::type));
    member->NodeKind = in_.codeOr(at, Key::kind, list.nodeKind());
    member->Tag = static_cast<entities::TagCode>(in_.smallOf(at, Key::tag));
    member->ParentKeyName = owner;
    readAllLinks(*member, at);
    return list.append(std::move(member), key);
}

void EntityReader::addFunction(ActivityProperties& activity, Place at) {
    in_.object(at, keySet({Key::key, Key::type, Key::source, Key::inputs, Key::outputs}));
    const Place keyAt = in_.required(at, Key::key);
    auto function = std::make_shared<entities::FunctionProperties>();
    function->Function_Key = function->Function_Name = in_.text(keyAt);
    if (activity.Act_Functions->Item(function->Function_Key)) {
        in_.tree().refuse(keyAt, "another one of this list has the key \"" + function->Function_Key + "\"");
    }
    function->Function_Type = typeIn(functions_, in_.required(at, Key::type));
    function->Function_Source = static_cast<entities::FunctionSourceCode>(in_.smallOf(at, Key::source));
    entities::eachList(*function, [&](auto& list, entities::NodeKindCode kind) {
        in_.eachOf(at, listKey(kind), [&](Place each) {
            auto& parameter = addMember(*list, each, function->Function_Key, kParameterKeys);
            parameter.NodeKind = in_.codeOr(each, Key::kind, kind);
        });
    });
    function->setParentKeyName(activity.Act_Name);
    const std::string key = function->Function_Key;
    activity.Act_Functions->append(std::move(function), key);
}

template <class Links>
void EntityReader::readLinks(entities::Lazy<Links>& links, Place member, Key key) const {
    in_.eachOf(member, key, [&](Place at) {
        in_.object(at, keySet({Key::node, Key::type, Key::key}));
        const Place far = in_.required(at, Key::key);
        const std::string farKey = in_.text(far);
        const int before = links.count();
        links->Add(in_.text(in_.required(at, Key::node)), in_.code<entities::LinkType>(in_.required(at, Key::type)),
                   farKey);
        if (links.count() == before) {
            in_.tree().refuse(far, "another link of this list leads to \"" + farKey + "\"");
        }
    });
}

template <class Member>
void EntityReader::readAllLinks(Member& member, Place at) const {
    if constexpr (requires { member.ProvidedFrom; }) {
        readLinks(member.ProvidedFrom, at, Key::providedFrom);
        readLinks(member.ProviderFor, at, Key::providerFor);
    }
    readLinks(member.RegulatedFrom, at, Key::regulatedFrom);
    readLinks(member.RegulatorFor, at, Key::regulatorFor);
}

}  // namespace orvent::exchange
