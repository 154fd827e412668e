#pragma once

#include <QWidget>
#include <vector>

#include "shell/palettes.h"

class QGridLayout;

namespace orvent::qt {

/// A floating palette: a second copy of a bar of tools, with buttons that dock it at a side of the frame. It stays
/// above the frame and leaves the keyboard where it is.
class PaletteWindow : public QWidget {
    Q_OBJECT

  public:
    PaletteWindow(const QString& name, const QString& title, QWidget* frame);

    void addTools(const std::vector<QAction*>& actions);
    /// Shows it where it was, the first time in the corner of the frame's middle.
    void showNear(const QWidget& frame);
    void moveTo(QPoint globally);

  Q_SIGNALS:
    void sideChosen(shell::DockSide side);
    void closed();

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    QGridLayout* tools_;
    bool placed_ = false;
};

}  // namespace orvent::qt
