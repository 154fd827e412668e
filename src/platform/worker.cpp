#include "platform/worker.h"

#include <utility>

namespace orvent::platform {

Worker::~Worker() {
    {
        const std::lock_guard lock(mutex_);
        stops_ = true;
        changed_.notify_all();
    }
    if (thread_.joinable()) {
        thread_.join();
    }
}

void Worker::setOnEnd(std::function<void()> onEnd) {
    const std::lock_guard lock(mutex_);
    onEnd_ = std::move(onEnd);
}

void Worker::start(std::function<void()> job) {
    const std::lock_guard lock(mutex_);
    job_ = std::move(job);
    fault_ = nullptr;
    if (!thread_.joinable()) {
        thread_ = std::thread([this] { work(); });
    }
    changed_.notify_all();
}

bool Worker::isBusy() const {
    const std::lock_guard lock(mutex_);
    return static_cast<bool>(job_);
}

bool Worker::wait(std::chrono::milliseconds most) const {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, most, [this] { return !job_; });
}

void Worker::rethrow() {
    if (const std::exception_ptr fault = std::exchange(fault_, nullptr)) {
        std::rethrow_exception(fault);
    }
}

void Worker::work() {
    std::unique_lock lock(mutex_);
    while (true) {
        changed_.wait(lock, [this] { return stops_ || job_; });
        if (!job_) {
            return;
        }
        lock.unlock();
        std::exception_ptr fault;
        try {
            job_();
        } catch (...) {
            fault = std::current_exception();  // for the thread that asks
        }
        lock.lock();
        fault_ = fault;
        job_ = nullptr;
        changed_.notify_all();
        if (onEnd_) {
            onEnd_();
        }
    }
}

}  // namespace orvent::platform
