#pragma once

#include <QIcon>
#include <QWidget>

class QLabel;
class QPushButton;

namespace orvent::qt {

/// A tinted strip that tells where its user is, in bold, and what comes next.
class GuideStrip : public QWidget {
    Q_OBJECT

  public:
    explicit GuideStrip(QWidget* parent);

    void show(const QIcon& icon, const QString& place, const QString& hint);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QIcon icon_;
    QLabel* place_;
    QLabel* hint_;
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
