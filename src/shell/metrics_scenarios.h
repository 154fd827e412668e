#pragma once

#include <vector>

#include "analysis/metrics_form.h"
#include "repository/scenario_windows.h"
#include "shell/desk.h"

namespace orvent::shell {

/// The scenarios of the frame, for the window of metrics.
class MetricsScenarios : public analysis::OpenScenarios {
  public:
    MetricsScenarios(repository::ScenarioWindows& windows, Desk& desk, int slotCount)
        : windows_(windows), desk_(desk), slotCount_(slotCount) {}

    std::vector<int> openSlots() const override {
        std::vector<int> used;
        for (int slot = 0; slot < slotCount_; ++slot) {
            if (at(slot)) {
                used.push_back(slot);
            }
        }
        return used;
    }
    const canvas::DrawForm* at(int slot) const override {
        return slot >= 0 && slot < slotCount_ ? windows_.scenario(slot) : nullptr;
    }
    void reveal(int slot, std::int32_t node) override {
        canvas::DrawForm& form = *windows_.scenario(slot);
        desk_.reveal(form, *form.Labels.byIndex(node));
    }

  private:
    repository::ScenarioWindows& windows_;
    Desk& desk_;
    int slotCount_;
};

}  // namespace orvent::shell
