#pragma once

#include "entities/members.h"
#include "exchange/keys.h"

namespace orvent::exchange {

/// The member of a document in which a list of an owner's members stands, by the kind of its items.
constexpr Key listKey(entities::NodeKindCode kind) {
    switch (kind) {
        case entities::KindInput:
        case entities::KindFunctionInput:
            return Key::inputs;
        case entities::KindOutput:
        case entities::KindFunctionOutput:
            return Key::outputs;
        case entities::KindParameter:
            return Key::parameters;
        default:
            return Key::attributes;
    }
}

}  // namespace orvent::exchange
