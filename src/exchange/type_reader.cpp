#include "exchange/type_reader.h"

#include <algorithm>

namespace orvent::exchange {

namespace {

std::vector<TypeMember> readTypeMembers(const ValueReader& in, JsonTree::Place type, Key key) {
    std::vector<TypeMember> members;
    in.eachOf(type, key, [&](JsonTree::Place at) {
        in.object(at, keySet({Key::name, Key::type}));
        members.push_back({in.text(in.required(at, Key::name)), in.text(in.required(at, Key::type))});
    });
    return members;
}

FunctionTypeDefinition readFunctionType(const ValueReader& in, JsonTree::Place at) {
    in.object(at, keySet({Key::name, Key::description, Key::inputs, Key::outputs}));
    return {in.text(in.required(at, Key::name)), in.linesOf(at, Key::description), readTypeMembers(in, at, Key::inputs),
            readTypeMembers(in, at, Key::outputs)};
}

ActivityTypeDefinition readActivityType(const ValueReader& in, JsonTree::Place at) {
    in.object(at, keySet({Key::name, Key::description, Key::sql, Key::ldl, Key::schemata, Key::provider, Key::consumer,
                          Key::outputs, Key::parameters, Key::functions}));
    return {in.text(in.required(at, Key::name)),
            in.linesOf(at, Key::description),
            in.linesOf(at, Key::sql),
            in.linesOf(at, Key::ldl),
            in.smallOf(at, Key::schemata),
            in.smallOf(at, Key::provider),
            in.smallOf(at, Key::consumer),
            readTypeMembers(in, at, Key::outputs),
            readTypeMembers(in, at, Key::parameters),
            readTypeMembers(in, at, Key::functions)};
}

const std::string& typeName(const std::string& type) {
    return type;
}
template <class Definition>
const std::string& typeName(const Definition& type) {
    return type.name;
}

/// Reads a list of types and sorts it; a name that is there twice is refused.
template <class Read>
auto readTypeList(const ValueReader& in, JsonTree::Place types, Key key, Read read) {
    std::vector<decltype(read(types))> list;
    in.eachOf(types, key, [&](JsonTree::Place at) { list.push_back(read(at)); });
    const auto byName = [](const auto& type) -> const std::string& { return typeName(type); };
    std::ranges::sort(list, {}, byName);
    const auto twice = std::ranges::adjacent_find(list, {}, byName);
    if (twice != list.end()) {
        in.tree().refuse(in.required(types, key), "the type \"" + typeName(*twice) + "\" is there twice");
    }
    return list;
}

}  // namespace

TypeDefinitions readTypes(const ValueReader& in, JsonTree::Place at) {
    in.object(at, keySet({Key::data, Key::functions, Key::activities}));
    return {readTypeList(in, at, Key::data, [&in](JsonTree::Place each) { return in.text(each); }),
            readTypeList(in, at, Key::functions, [&in](JsonTree::Place each) { return readFunctionType(in, each); }),
            readTypeList(in, at, Key::activities, [&in](JsonTree::Place each) { return readActivityType(in, each); })};
}

}  // namespace orvent::exchange
