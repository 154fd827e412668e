#pragma once

#include <QLineEdit>
#include <functional>

namespace orvent::qt {

/// A node's name while it is edited in its box. It is given with Enter, or when the keys go elsewhere; Escape leaves
/// the node as it was. Whoever hears of it drops the field.
class NameField : public QLineEdit {
  public:
    struct Ends {
        std::function<void(const QString&)> given;
        std::function<void()> left;
    };

    NameField(const QString& name, Ends ends, QWidget* parent);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    void give();

    Ends ends_;
    bool ended_ = false;
};

}  // namespace orvent::qt
