#include "exchange/entity_writer.h"

#include "exchange/list_keys.h"
#include "links/members.h"

namespace orvent::exchange {

using links::Direction;
using links::NearEnd;

namespace {

/// The name at an index of a table; what has no type by mistake has the empty one.
std::string_view typeNameAt(const entities::NameTable& table, std::int16_t index) {
    const bool within = index >= 0 && static_cast<std::size_t>(index) < table.size();
    return within ? std::string_view(table.name(index)) : std::string_view();
}

}  // namespace

void EntityWriter::write(const canvas::LabelsD& node) {
    if (const auto* activity = node.activity()) {
        write(*activity, node.Caption());
    } else if (const auto* recordSet = node.recordSet()) {
        write(*recordSet, node.Caption());
    } else if (node.entity<entities::CommentProperties>()) {
        writeLines(Key::comment, node.Comment());
    }
}

void EntityWriter::writeLines(Key key, const std::string& text) {
    if (!text.empty()) {
        begin(out_, key);
        out_.lines(text);
    }
}

void EntityWriter::write(const entities::ActivityProperties& activity, const std::string& caption) {
    if (activity.Act_Name != caption) {
        begin(out_, Key::entityName);
        out_.text(activity.Act_Name);
    }
    if (activity.Act_Type != -1) {
        begin(out_, Key::type);
        out_.text(typeNameAt(tables_.activityTypes, activity.Act_Type));
    }
    begin(out_, Key::schemata);
    out_.number(activity.Act_SchemaNo);
    writeLines(Key::description, activity.Act_Description);
    writeLines(Key::log, activity.Act_Log);
    writeLines(Key::sql, activity.Act_SQL);
    writeLines(Key::ldl, activity.Act_LDL);
    entities::eachList(activity,
                       [this](const auto& list, entities::NodeKindCode kind) { writeList(listKey(kind), list, kind); });
    if (activity.Act_Functions.count() > 0) {
        begin(out_, Key::functions);
        out_.open('[');
        for (const entities::FunctionProperties& function : activity.Act_Functions) {
            out_.nextLine();
            writeFunction(function);
        }
        out_.close(']');
    }
}

void EntityWriter::writeFunction(const entities::FunctionProperties& function) {
    out_.open('{');
    begin(out_, Key::key);
    out_.text(function.Function_Key);
    begin(out_, Key::type);
    out_.text(typeNameAt(tables_.functionTypes, function.Function_Type));
    begin(out_, Key::source);
    out_.number(static_cast<std::int16_t>(function.Function_Source));
    entities::eachList(function,
                       [this](const auto& list, entities::NodeKindCode kind) { writeList(listKey(kind), list, kind); });
    out_.close('}');
}

void EntityWriter::write(const entities::RecordSetProperties& recordSet, const std::string& caption) {
    if (recordSet.RecordSet_Name != caption) {
        begin(out_, Key::entityName);
        out_.text(recordSet.RecordSet_Name);
    }
    writeLines(Key::sql, recordSet.RecordSet_SQL);
    writeList(Key::attributes, recordSet.RecordSet_Outputs, entities::KindRecordSetAttribute,
              [&](const entities::AttributeProperties& attribute) {
                  if (const std::string source = recordSet.dbKey(attribute.Key); !source.empty()) {
                      beginInline(out_, Key::source);
                      out_.text(source);
                  }
              });
}

/// Each member begins a line, and so does each of its lists of links, one level further in. `more` writes what else the
/// first line has.
template <class List, class More>
void EntityWriter::writeList(Key key, const entities::Lazy<List>& members, entities::NodeKindCode kind, More more) {
    if (members.count() == 0) {
        return;
    }
    begin(out_, key);
    out_.open('[');
    for (const auto& member : members) {
        out_.nextLine();
        out_.open('{');
        beginInline(out_, Key::key);
        out_.text(member.Key);
        if (const std::string& name = links::nameOf(member); name != member.Key) {
            beginInline(out_, Key::name);
            out_.text(name);
        }
        if (member.NodeKind != kind) {
            beginInline(out_, Key::kind);
            writeCode(out_, member.NodeKind);
        }
        beginInline(out_, Key::type);
        out_.text(typeNameAt(tables_.dataTypes, links::typeOf(member)));
        if (member.Tag != entities::TagNone) {
            beginInline(out_, Key::tag);
            out_.number(static_cast<std::int16_t>(member.Tag));
        }
        more(member);
        const NearEnd near(member);
        if constexpr (requires { member.ProvidedFrom; }) {
            writeLinks(Key::providedFrom, Direction::ProvidedFrom, near, member.ProvidedFrom);
            writeLinks(Key::providerFor, Direction::ProviderFor, near, member.ProviderFor);
        }
        writeLinks(Key::regulatedFrom, Direction::RegulatedFrom, near, member.RegulatedFrom);
        writeLinks(Key::regulatorFor, Direction::RegulatorFor, near, member.RegulatorFor);
        out_.closeHere('}');
    }
    out_.close(']');
}

template <class Links>
void EntityWriter::writeLinks(Key key, Direction direction, const NearEnd& near, const Links& links) {
    bool any = false;
    for (const auto& link : links) {
        if (extract_.keeps && !extract_.keeps(direction, near, {link.name(), link.type(), link.key()})) {
            continue;
        }
        if (!any) {
            begin(out_, key);
            out_.openInline('[');
            any = true;
        }
        out_.next();
        out_.openInline('{');
        beginInline(out_, Key::node);
        out_.text(link.name());
        beginInline(out_, Key::type);
        writeCode(out_, link.type());
        beginInline(out_, Key::key);
        out_.text(link.key());
        out_.closeInline('}');
    }
    if (any) {
        out_.closeInline(']');
    }
}

}  // namespace orvent::exchange
