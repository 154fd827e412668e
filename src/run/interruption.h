#pragma once

#include <atomic>
#include <mutex>

#include "platform/database.h"

namespace orvent::run {

/// Lets another thread break into what a run waits for.
class Interruption {
  public:
    /// From any thread: the statement that works ends soon, and no other one begins until `reset`. A driver may miss it
    /// while a statement is just beginning; then it is called again.
    void cancel();
    void reset() { cancelled_ = false; }
    bool isCancelled() const { return cancelled_; }

    /// As long as it lives, statements of that connection may be broken into. Throws a `platform::Fault` where no
    /// statement may begin.
    class Working {
      public:
        Working(Interruption& owner, platform::Connection& connection);
        ~Working();
        Working(const Working&) = delete;
        Working& operator=(const Working&) = delete;

      private:
        Interruption& owner_;
    };

  private:
    std::mutex mutex_;
    platform::Connection* working_ = nullptr;
    std::atomic<bool> cancelled_ = false;
};

}  // namespace orvent::run
