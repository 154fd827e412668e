#pragma once

#include <vector>

#include "qt/forms/form_window.h"

namespace orvent::qt {

/// Asks which rows of a bunch become elements of an array. All are checked at first.
class BunchChoice : public FormWindow {
    Q_OBJECT

  public:
    BunchChoice(const QString& title, const std::vector<std::string>& items, QWidget* parent);

    /// The places of the checked ones, from 0; none when it was cancelled.
    std::vector<int> chosen() const;

  private:
    std::vector<bool> checked_;
};

}  // namespace orvent::qt
