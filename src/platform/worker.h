#pragma once

#include <chrono>
#include <condition_variable>
#include <exception>
#include <functional>
#include <mutex>
#include <thread>

namespace orvent::platform {

/// A thread that does one job at a time. All of it is called in the thread that made it; what a job touches is that
/// thread's again as soon as `wait` or `isBusy` has told that the job has ended.
class Worker {
  public:
    Worker() = default;
    ~Worker();  ///< waits for the job
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    /// Called in the worker's own thread when a job has ended. It must not wait for anybody.
    void setOnEnd(std::function<void()> onEnd);
    bool tellsEnd() const { return static_cast<bool>(onEnd_); }

    /// Begins a job; there must be none.
    void start(std::function<void()> job);
    bool isBusy() const;
    /// Waits for the end of the job, at most so long; whether there is none now.
    bool wait(std::chrono::milliseconds most) const;
    /// Throws what the last job has thrown, if it has.
    void rethrow();

  private:
    void work();

    mutable std::mutex mutex_;
    mutable std::condition_variable changed_;
    std::function<void()> onEnd_;
    std::function<void()> job_;
    std::exception_ptr fault_;
    bool stops_ = false;
    std::thread thread_;  ///< from the first job on
};

}  // namespace orvent::platform
