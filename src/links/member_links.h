#pragma once

#include "links/synchronize_functions.h"
#include "links/unsynchronize_functions.h"

namespace orvent::links {

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

}  // namespace orvent::links
