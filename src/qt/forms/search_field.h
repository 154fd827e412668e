#pragma once

#include <QLineEdit>
#include <functional>

namespace orvent::qt {

/// A box whose words narrow a list or tree beside it. Enter leads on to what is found and Escape empties the box; only
/// in an empty one Escape means what it means in its window.
class SearchField : public QLineEdit {
    Q_OBJECT

  public:
    SearchField(const QString& name, const QString& placeholder, QWidget* parent);

    /// Set by the owner: goes to the first hit.
    std::function<void()> goToFirst;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace orvent::qt
