#include "exchange/type_writer.h"

#include "exchange/member_text.h"

namespace orvent::exchange {

namespace {

class TypeWriter {
  public:
    explicit TypeWriter(JsonText& out) : out_(out) {}

    void write(const TypeDefinitions& types) {
        out_.open('{');
        list(Key::data, types.data, [this](const std::string& name) { out_.text(name); });
        list(Key::functions, types.functions, [this](const FunctionTypeDefinition& type) { write(type); });
        list(Key::activities, types.activities, [this](const ActivityTypeDefinition& type) { write(type); });
        out_.close('}');
    }

  private:
    void write(const FunctionTypeDefinition& type) {
        out_.open('{');
        text(Key::name, type.name);
        text(Key::description, type.description);
        members(Key::inputs, type.inputs);
        members(Key::outputs, type.outputs);
        out_.close('}');
    }

    void write(const ActivityTypeDefinition& type) {
        out_.open('{');
        text(Key::name, type.name);
        text(Key::description, type.description);
        text(Key::sql, type.sql);
        text(Key::ldl, type.ldl);
        number(Key::schemata, type.schemata);
        number(Key::provider, type.provider);
        number(Key::consumer, type.consumer);
        members(Key::outputs, type.outputs);
        members(Key::parameters, type.parameters);
        members(Key::functions, type.functions);
        out_.close('}');
    }

    void text(Key key, const std::string& text) {
        if (!text.empty() || key == Key::name) {
            begin(out_, key);
            out_.lines(text);
        }
    }
    void number(Key key, std::int16_t value) {
        if (value != 0) {
            begin(out_, key);
            out_.number(value);
        }
    }
    void members(Key key, const std::vector<TypeMember>& list) {
        this->list(key, list, [this](const TypeMember& member) {
            out_.openInline('{');
            beginInline(out_, Key::name);
            out_.text(member.name);
            beginInline(out_, Key::type);
            out_.text(member.type);
            out_.closeInline('}');
        });
    }
    template <class List, class Write>
    void list(Key key, const List& list, Write write) {
        if (list.empty()) {
            return;
        }
        begin(out_, key);
        out_.open('[');
        for (const auto& each : list) {
            out_.nextLine();
            write(each);
        }
        out_.close(']');
    }

    JsonText& out_;
};

}  // namespace

void writeTypes(JsonText& out, const TypeDefinitions& types) {
    TypeWriter(out).write(types);
}

}  // namespace orvent::exchange
