#pragma once

#include <cstdint>
#include <initializer_list>
#include <string_view>

namespace orvent::exchange {

/// The names of members that a document may have, in alphabetical order.
enum class Key : std::uint8_t {
    activities,
    angle,
    attributes,
    box,
    changed,
    column,
    columns,
    comment,
    consumer,
    data,
    deleted,
    description,
    duplicates,
    edges,
    entityName,
    expected,
    facts,
    format,
    from,
    fromPoint,
    functions,
    id,
    ids,
    inputs,
    inputsChanged,
    key,
    kind,
    ldl,
    log,
    mark,
    name,
    node,
    nodes,
    op,
    outputs,
    parameters,
    program,
    providedFrom,
    provider,
    providerFor,
    regulatedFrom,
    regulatorFor,
    rows,
    scenario,
    schemata,
    source,
    sql,
    stored,
    tag,
    to,
    toPoint,
    type,
    types,
    value,
    version,
    unknown,
};

std::string_view nameOf(Key key);

/// `Key::unknown` for a name that no member has.
Key keyNamed(std::string_view name);

constexpr std::uint64_t keyBit(Key key) {
    return std::uint64_t{1} << static_cast<unsigned>(key);
}
constexpr std::uint64_t keySet(std::initializer_list<Key> keys) {
    std::uint64_t bits = 0;
    for (const Key key : keys) {
        bits |= keyBit(key);
    }
    return bits;
}

}  // namespace orvent::exchange
