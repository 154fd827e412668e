#pragma once

#include "platform/fault.h"

namespace orvent::history {

/// Bytes that are none of a node.
class BadBytes : public platform::Fault {
  public:
    BadBytes() : Fault("These are no bytes of a node.") {}
};

}  // namespace orvent::history
