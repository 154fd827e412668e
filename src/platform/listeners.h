#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace orvent::platform {

/// Who is told of something, in order of subscription. A listener may come or go while they are told.
template <class Listener>
class Listeners {
    struct State {
        std::vector<Listener*> listeners;  ///< nothing where one has gone
        int telling = 0;
    };

  public:
    /// Ends with its holder. It may outlive what it listens to.
    class Subscription {
      public:
        Subscription() = default;
        Subscription(const std::shared_ptr<State>& state, Listener& listener) : state_(state), listener_(&listener) {}
        ~Subscription() { end(); }
        Subscription(Subscription&& other) noexcept
            : state_(std::move(other.state_)), listener_(std::exchange(other.listener_, nullptr)) {}
        Subscription& operator=(Subscription&& other) noexcept {
            if (this != &other) {
                end();
                state_ = std::move(other.state_);
                listener_ = std::exchange(other.listener_, nullptr);
            }
            return *this;
        }

        void end() {
            if (const std::shared_ptr<State> state = state_.lock()) {
                std::vector<Listener*>& all = state->listeners;
                if (const auto place = std::find(all.begin(), all.end(), listener_); place != all.end()) {
                    *place = nullptr;
                    sweep(*state);
                }
            }
            state_.reset();
        }

      private:
        std::weak_ptr<State> state_;
        Listener* listener_ = nullptr;
    };

    Listeners() = default;
    Listeners(const Listeners&) = delete;
    Listeners& operator=(const Listeners&) = delete;

    [[nodiscard]] Subscription add(Listener& listener) {
        state_->listeners.push_back(&listener);
        return Subscription(state_, listener);
    }

    /// Calls `call` with each listener; one that comes meanwhile is not told.
    template <class Call>
    void tell(const Call& call) const {
        const std::shared_ptr<State> state = state_;  // the last listener may take the one who tells with it
        ++state->telling;
        const std::size_t count = state->listeners.size();
        for (std::size_t at = 0; at < count; ++at) {
            if (Listener* listener = state->listeners[at]) {
                call(*listener);
            }
        }
        --state->telling;
        sweep(*state);
    }

  private:
    static void sweep(State& state) {
        if (state.telling == 0) {
            std::erase(state.listeners, nullptr);
        }
    }

    std::shared_ptr<State> state_ = std::make_shared<State>();
};

}  // namespace orvent::platform
