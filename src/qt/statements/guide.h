#pragma once

#include <QIcon>
#include <QWidget>
#include <functional>
#include <vector>

class QLabel;
class QPushButton;

namespace orvent::qt {

/// A line of the strip, and the name of what a click on it goes to; empty when it goes nowhere.
struct GuideLine {
    QString words;
    QString target;
};

/// A tinted strip that tells where its user is, in bold, what comes next, and what else is to be known.
class GuideStrip : public QWidget {
    Q_OBJECT

  public:
    /// `go` hears the target of a line that was clicked.
    GuideStrip(QWidget* parent, std::function<void(const QString&)> go);

    void show(const QIcon& icon, const QString& place, const GuideLine& hint, const std::vector<GuideLine>& notes);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    std::function<void(const QString&)> go_;
    QIcon icon_;
    QLabel* place_;
    QLabel* hint_;
    QLabel* notes_;
    QString target_;
};

/// A button with a quiet text below that tells why it is grey.
class GuidedButton : public QWidget {
    Q_OBJECT

  public:
    GuidedButton(const QString& name, const QString& caption, QWidget* parent);

    QPushButton& button() { return *button_; }
    /// A button with a reason is grey; one without may have a note in its place.
    void show(const QString& reason, const QString& note);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QPushButton* button_;
    QString line_;
};

}  // namespace orvent::qt
