#pragma once

#include "platform/fault.h"

namespace orvent::exchange {

/// A text that is no document of ours. `what()` tells where and what was expected.
class BadDocument : public platform::Fault {
  public:
    using Fault::Fault;
};

}  // namespace orvent::exchange
