#pragma once

#include <cstddef>

#include "platform/dialogs.h"

namespace orvent::platform {

/// Shows how far a walk over `total` items is, at every 256th item, and ends the display when it goes.
class Steps {
  public:
    Steps(Progress& progress, std::size_t total) : progress_(progress), total_(total) {}
    ~Steps() { progress_.step(0, 0); }
    Steps(const Steps&) = delete;
    Steps& operator=(const Steps&) = delete;

    void next() {
        if (++done_ % 256 == 0) {
            progress_.step(done_, total_);
        }
    }

  private:
    Progress& progress_;
    std::size_t total_;
    std::size_t done_ = 0;
};

}  // namespace orvent::platform
