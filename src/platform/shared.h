#pragma once

#include <memory>
#include <utility>

namespace orvent::platform {

/// A share in something that passes on const: of a const holder only const things are to be had, and no share.
template <class T>
class Shared {
  public:
    Shared() = default;
    Shared(std::shared_ptr<T> held) : held_(std::move(held)) {}
    Shared(Shared& other) : held_(other.held_) {}
    Shared(Shared&&) noexcept = default;
    Shared& operator=(Shared& other) {
        held_ = other.held_;
        return *this;
    }
    Shared& operator=(Shared&&) noexcept = default;
    ~Shared() = default;

    T* get() { return held_.get(); }
    const T* get() const { return held_.get(); }
    T& operator*() { return *held_; }
    const T& operator*() const { return *held_; }
    T* operator->() { return held_.get(); }
    const T* operator->() const { return held_.get(); }
    explicit operator bool() const { return held_ != nullptr; }

    const std::shared_ptr<T>& share() { return held_; }

  private:
    std::shared_ptr<T> held_;
};

}  // namespace orvent::platform
