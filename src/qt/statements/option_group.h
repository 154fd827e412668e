#pragma once

#include <QButtonGroup>
#include <QRadioButton>
#include <functional>

namespace orvent::qt {

/// Option buttons of which one is chosen, or none.
class OptionGroup : public QButtonGroup {
    Q_OBJECT

  public:
    /// `chosen` hears the number of an option when the user chooses it, and not when it is chosen already.
    OptionGroup(QWidget* parent, std::function<void(int)> chosen);

    /// A new option; numbers are the caller's own.
    QRadioButton& add(int number, const char* name, const char* caption);

    /// Shows the option as chosen; none for a number without option. No signals.
    void show(int number);

    /// Puts the focus on the chosen option, or else on the first that is visible.
    void focus();

  private:
    QWidget* parent_;
};

}  // namespace orvent::qt
