#pragma once

#include <QWidget>

class QAction;

namespace orvent::qt {

/// What the frame shows while no scenario is open: what this program is for, and the first things to do.
class WelcomePage : public QWidget {
    Q_OBJECT

  public:
    explicit WelcomePage(QWidget* parent);

    /// A large button for `action`, with a line that tells what it is good for.
    void addChoice(QAction& action, const QString& line);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QWidget* card_;
};

}  // namespace orvent::qt
