#include "run/interruption.h"

namespace orvent::run {

void Interruption::cancel() {
    const std::lock_guard lock(mutex_);
    cancelled_ = true;
    if (working_) {
        working_->cancel();
    }
}

Interruption::Working::Working(Interruption& owner, platform::Connection& connection) : owner_(owner) {
    const std::lock_guard lock(owner_.mutex_);
    if (owner_.cancelled_) {
        throw platform::Fault("Cancelled.");
    }
    owner_.working_ = &connection;
}

Interruption::Working::~Working() {
    const std::lock_guard lock(owner_.mutex_);
    owner_.working_ = nullptr;
}

}  // namespace orvent::run
