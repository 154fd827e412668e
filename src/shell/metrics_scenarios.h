#pragma once

#include <array>
#include <vector>

#include "analysis/metrics_form.h"
#include "repository/scenario_windows.h"
#include "shell/desk.h"
#include "shell/scenario_listener.h"

namespace orvent::shell {

/// The scenarios of the frame, for the window of metrics. A slot can be used again, so a scenario's number also holds
/// how many were closed there before.
template <int kSlots>
class MetricsScenarios : public analysis::OpenScenarios, private ScenarioListener {
  public:
    MetricsScenarios(repository::ScenarioWindows& windows, ScenarioListeners& listeners, Desk& desk)
        : windows_(windows), desk_(desk), subscription_(listeners.add(*this)) {}

    int numberOf(int slot) const { return slot + kSlots * closed_[static_cast<std::size_t>(slot)]; }

    std::vector<int> open() const override {
        std::vector<int> used;
        for (int slot = 0; slot < kSlots; ++slot) {
            if (windows_.scenario(slot)) {
                used.push_back(numberOf(slot));
            }
        }
        return used;
    }
    const canvas::DrawForm* at(int scenario) const override {
        const int slot = scenario % kSlots;
        return scenario >= 0 && numberOf(slot) == scenario ? windows_.scenario(slot) : nullptr;
    }
    void reveal(int scenario, canvas::NodeNumber node) override {
        canvas::DrawForm& form = *windows_.scenario(scenario % kSlots);
        desk_.reveal(form, *form.Labels.byIndex(node));
    }

  private:
    void scenarioClosed(canvas::DrawForm& form) override { ++closed_[static_cast<std::size_t>(form.slot())]; }

    repository::ScenarioWindows& windows_;
    Desk& desk_;
    std::array<int, kSlots> closed_ = {};
    ScenarioSubscription subscription_;
};

}  // namespace orvent::shell
