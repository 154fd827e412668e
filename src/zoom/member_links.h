#pragma once

#include "zoom/synchronize_functions.h"
#include "zoom/unsynchronize_functions.h"

namespace orvent::zoom {

// The links of an attribute or a parameter, whichever it is.

inline void linkMember(canvas::Canvas& Form, entities::AttributeProperties& attribute,
                       entities::ActivityProperties* InDialog) {
    SynchronizeAttribute(Form, attribute, InDialog);
}
inline void linkMember(canvas::Canvas& Form, entities::ParameterProperties& parameter,
                       entities::ActivityProperties* InDialog) {
    SynchronizeParameter(Form, parameter, InDialog);
}

inline void unlinkMember(canvas::Canvas& Form, entities::AttributeProperties& attribute, bool ClearLinks,
                         entities::ActivityProperties* InDialog) {
    UnSynchronizeAttribute(Form, attribute, ClearLinks, InDialog);
}
inline void unlinkMember(canvas::Canvas& Form, entities::ParameterProperties& parameter, bool ClearLinks,
                         entities::ActivityProperties* InDialog) {
    UnSynchronizeParameter(Form, parameter, ClearLinks, InDialog);
}

}  // namespace orvent::zoom
