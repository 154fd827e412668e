#include "history/node_bytes.h"

#include <algorithm>

#include "history/byte_archive.h"

namespace orvent::history {

namespace {

using namespace entities;

/// What a node stands for, by the kind of its entity.
enum class EntityKind : std::uint8_t { none, activity, recordSet, comment, attribute, parameter, function };

/// The fields of all records. `Archive` writes const ones, or reads.
template <class Archive>
class Records {
  public:
    explicit Records(Archive& archive) : archive_(archive) {}

    template <class Activity>
    requires std::is_base_of_v<ActivityProperties, std::remove_const_t<Activity>>
    void record(Activity& activity) {
        fields(activity.Act_LDL, activity.Act_SchemaNo, activity.NodeID, activity.Act_SQL, activity.Act_Log,
               activity.Act_Description, activity.Act_Type, activity.Act_Name, activity.statementDoubt);
        members(activity);
        items(activity.Act_Functions, [&](auto& function) { record(function); });
        toBeWritten(activity);
    }

    template <class RecordSet>
    requires std::is_base_of_v<RecordSetProperties, std::remove_const_t<RecordSet>>
    void record(RecordSet& recordSet) {
        fields(recordSet.NodeID, recordSet.RecordSet_SQL, recordSet.RecordSet_Name);
        members(recordSet);
        sources(recordSet.DB2Key);
        toBeWritten(recordSet);
    }

    template <class Comment>
    requires std::is_base_of_v<CommentProperties, std::remove_const_t<Comment>>
    void record(Comment& comment) {
        fields(comment.Comment, comment.NodeID);
        toBeWritten(comment);
    }

    template <class Function>
    requires std::is_base_of_v<FunctionProperties, std::remove_const_t<Function>>
    void record(Function& function) {
        // Not the name: everything that copies or stores a function names it by its key.
        fields(function.FunctionID, function.NodeKind, function.Function_Key, function.Function_Source,
               function.Function_Type);
        std::string owner = function.ParentKeyName();
        archive_.field(owner);
        if constexpr (Archive::kReads) {
            function.Function_Name = function.Function_Key;
            function.setParentKeyName(owner);
        }
        members(function);
        toBeWritten(function);
    }

    template <class Attribute>
    requires std::is_base_of_v<AttributeProperties, std::remove_const_t<Attribute>>
    void record(Attribute& attribute) {
        fields(attribute.SubNode_ID, attribute.NodeKind, attribute.Tag, attribute.ParentKeyName, attribute.Key,
               attribute.Attribute_Type, attribute.Attribute_Name);
        links(attribute.ProvidedFrom);
        links(attribute.RegulatedFrom);
        links(attribute.RegulatorFor);
        links(attribute.ProviderFor);
        toBeWritten(attribute);
    }

    template <class Parameter>
    requires std::is_base_of_v<ParameterProperties, std::remove_const_t<Parameter>>
    void record(Parameter& parameter) {
        fields(parameter.SubNode_ID, parameter.ParentFunctionActivity, parameter.NodeKind, parameter.Tag,
               parameter.ParentKeyName, parameter.Key, parameter.Parameter_Name, parameter.Parameter_Type);
        links(parameter.RegulatedFrom);
        links(parameter.RegulatorFor);
        toBeWritten(parameter);
    }

    template <class... Fields>
    void fields(Fields&... all) {
        (archive_.field(all), ...);
    }

    void numbers(std::vector<canvas::EdgeNumber>& all) {
        const std::size_t count = counted(all.size());
        all.resize(count);
        for (canvas::EdgeNumber& number : all) {
            archive_.field(number);
        }
    }

  private:
    std::size_t counted(std::size_t written) {
        if constexpr (Archive::kReads) {
            return archive_.listed();
        } else {
            archive_.count(written);
            return written;
        }
    }

    template <class Record>
    void toBeWritten(Record& read) {
        if constexpr (Archive::kReads) {
            read.Changed = true;
        }
    }

    template <class Owner>
    void members(Owner& owner) {
        eachList(owner, [&](auto& list, NodeKindCode) { items(list, [&](auto& member) { record(member); }); });
    }

    static const std::string& keyOf(const FunctionProperties& function) { return function.Function_Key; }
    static const std::string& keyOf(const AttributeProperties& attribute) { return attribute.Key; }
    static const std::string& keyOf(const ParameterProperties& parameter) { return parameter.Key; }

    /// A list with the key under which each item stands, which is its own as a rule.
    template <class List, class Item>
    void items(List& list, Item item) {
        if constexpr (Archive::kReads) {
            using Record = std::remove_cvref_t<decltype(*list->Item(1))>;
            for (std::size_t left = archive_.listed(); left > 0; --left) {
                auto read = std::make_shared<Record>();
                item(*read);
                std::string key;
                archive_.field(key);
                append(*list, std::move(read), key);
            }
        } else {
            archive_.count(static_cast<std::size_t>(list.count()));
            int position = 0;
            for (const auto& each : list) {
                item(each);
                archive_.field(list.peek()->keyAt(++position));
            }
        }
    }

    template <class List, class Record>
    static void append(List& list, std::shared_ptr<Record> record, const std::string& key) {
        if (!key.empty() && list.Item(key)) {
            throw BadBytes();
        }
        list.append(std::move(record), key);
    }

    template <class Links>
    void links(Links& list) {
        if constexpr (Archive::kReads) {
            for (std::size_t left = archive_.listed(); left > 0; --left) {
                std::string name, key;
                LinkType type{};
                fields(name, type, key);
                list->Add(name, type, key);
            }
        } else {
            archive_.count(static_cast<std::size_t>(list.count()));
            for (const auto& link : list) {
                fields(link.name());
                const LinkType type = link.type();
                fields(type);
                fields(link.key());
            }
        }
    }

    template <class Sources>
    void sources(Sources& list) {
        if constexpr (Archive::kReads) {
            for (std::size_t left = archive_.listed(); left > 0; --left) {
                std::string key, source;
                fields(key, source);
                if (!key.empty() && list->Item(key)) {
                    throw BadBytes();
                }
                list->append(std::make_unique<std::string>(source), key);
            }
        } else {
            archive_.count(static_cast<std::size_t>(list.count()));
            for (int at = 1; at <= list.count(); ++at) {
                fields(list.peek()->keyAt(at), *list.peek()->Item(at));
            }
        }
    }

    Archive& archive_;
};

EntityKind kindOf(const canvas::NodeProperties& entity) {
    return std::visit(
        []<class Held>(const Held& held) {
            if constexpr (requires { *held; }) {
                using Record = std::remove_cvref_t<decltype(*held)>;
                return !held                                         ? EntityKind::none
                       : std::is_same_v<Record, ActivityProperties>  ? EntityKind::activity
                       : std::is_same_v<Record, RecordSetProperties> ? EntityKind::recordSet
                       : std::is_same_v<Record, CommentProperties>   ? EntityKind::comment
                       : std::is_same_v<Record, AttributeProperties> ? EntityKind::attribute
                       : std::is_same_v<Record, ParameterProperties> ? EntityKind::parameter
                       : std::is_same_v<Record, FunctionProperties>  ? EntityKind::function
                                                                     : EntityKind::none;
            } else {
                return EntityKind::none;
            }
        },
        entity);
}

template <class Record>
canvas::NodeProperties readRecord(Records<ByteReader>& in) {
    auto record = std::make_shared<Record>();
    in.record(*record);
    return record;
}

canvas::NodeProperties readEntity(EntityKind kind, Records<ByteReader>& in, ByteReader& archive) {
    switch (kind) {
        case EntityKind::none: {
            std::int16_t number = 0;
            archive.field(number);
            return number;
        }
        case EntityKind::activity: {
            canvas::NodeProperties activity = readRecord<ActivityProperties>(in);
            std::get<platform::Shared<ActivityProperties>>(activity)->Act_Inputs->Changed = true;
            return activity;
        }
        case EntityKind::recordSet:
            return readRecord<RecordSetProperties>(in);
        case EntityKind::comment:
            return readRecord<CommentProperties>(in);
        case EntityKind::attribute:
            return readRecord<AttributeProperties>(in);
        case EntityKind::parameter:
            return readRecord<ParameterProperties>(in);
        case EntityKind::function:
            return readRecord<FunctionProperties>(in);
    }
    throw BadBytes();
}

/// What all nodes have, in front of their entity.
template <class Archive, class State>
void nodeFields(Records<Archive>& records, State& node) {
    records.fields(node.index, node.kind, node.box.Left, node.box.Top, node.box.Width, node.box.Height, node.keyName,
                   node.caption, node.holdsKeyName, node.holdsCaption);
}

void needEnd(const ByteReader& archive) {
    if (!archive.atEnd()) {
        throw BadBytes();
    }
}

template <class Record>
void eachName(const Record& owner, const LinkedNames& told) {
    eachMember(owner, [&told](const auto& member) {
        const auto tell = [&told](const auto& links) {
            for (const auto& link : links) {
                told(link.name());
            }
        };
        tell(member.RegulatedFrom);
        tell(member.RegulatorFor);
        if constexpr (requires { member.ProvidedFrom; }) {
            tell(member.ProvidedFrom);
            tell(member.ProviderFor);
        }
    });
}

}  // namespace

void writeHead(std::string& out, const canvas::NodeState& node, TextPool& texts) {
    ByteWriter archive(out, texts);
    Records<ByteWriter> records(archive);
    archive.field(node.readiness);
    nodeFields(records, node);
    for (const auto* lines : {&node.starting, &node.ending}) {
        archive.count(lines->size());
        for (const canvas::EdgeNumber line : *lines) {
            archive.field(line);
        }
    }
}

void writeEntity(std::string& out, const canvas::NodeProperties& entity, TextPool& texts) {
    ByteWriter archive(out, texts);
    Records<ByteWriter> records(archive);
    archive.field(kindOf(entity));
    std::visit(
        [&]<class Held>(const Held& held) {
            if constexpr (std::is_same_v<Held, std::int16_t>) {
                archive.field(held);
            } else if constexpr (requires { records.record(std::as_const(*held)); }) {
                if (held) {
                    records.record(std::as_const(*held));
                } else {
                    archive.field(std::int16_t{0});
                }
            } else {
                archive.field(std::int16_t{0});
            }
        },
        entity);
}

canvas::NodeState headOf(std::string_view head, const TextPool& texts) {
    ByteReader archive(head, texts);
    Records<ByteReader> records(archive);
    canvas::NodeState node;
    archive.field(node.readiness);
    nodeFields(records, node);
    records.numbers(node.starting);
    records.numbers(node.ending);
    needEnd(archive);
    return node;
}

canvas::NodeProperties entityOf(std::string_view entity, canvas::NodeNumber node, const TextPool& texts) {
    ByteReader archive(entity, texts);
    Records<ByteReader> records(archive);
    EntityKind kind{};
    archive.field(kind);
    canvas::NodeProperties read = readEntity(kind, records, archive);
    needEnd(archive);
    if (auto* parameter = std::get_if<platform::Shared<ParameterProperties>>(&read)) {
        (*parameter)->LabelIndex = node;
    }
    return read;
}

canvas::NodeState nodeOf(const NodeBytes& bytes, const TextPool& texts) {
    canvas::NodeState node = headOf(*bytes.head, texts);
    node.entity = entityOf(*bytes.entity, node.index, texts);
    return node;
}

bool sameButReady(std::string_view one, std::string_view other) {
    return one.substr(1) == other.substr(1);
}

void eachLinkedName(const canvas::NodeProperties& entity, const LinkedNames& told) {
    if (const auto* activity = std::get_if<platform::Shared<ActivityProperties>>(&entity); activity && *activity) {
        eachName(**activity, told);
    } else if (const auto* set = std::get_if<platform::Shared<RecordSetProperties>>(&entity); set && *set) {
        eachName(**set, told);
    }
}

}  // namespace orvent::history
