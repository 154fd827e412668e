#pragma once

#include <QMdiArea>
#include <functional>

#include "canvas/draw_form.h"

class QMenu;

namespace orvent::qt {

class ScenarioWindow;

/// The child windows of the frame, as tabs or as windows side by side. It remembers which one is active also while
/// another window of the program is in front.
class ScenarioArea : public QMdiArea {
    Q_OBJECT

  public:
    explicit ScenarioArea(QWidget* parent);
    ~ScenarioArea() override;

    void add(ScenarioWindow* window);
    /// Takes the window away; it is deleted later, since its own close request may be under way.
    void drop(ScenarioWindow* window);

    void dropAll();

    ScenarioWindow* windowOf(const canvas::DrawForm& form) const;
    canvas::DrawForm* activeScenario() const;
    ScenarioWindow* activeWindow() const { return active_; }

    /// Shows captions, and which windows take input.
    void refresh();
    /// `WindowM`: arrangements, then the windows.
    void fillMenu(QMenu& menu);

  Q_SIGNALS:
    void activeChanged();

  private:
    void activated(QMdiSubWindow* window);
    void arrange(ViewMode mode, void (QMdiArea::*step)());
    void bringForward(ScenarioWindow* window);
    void dressTabs();
    QList<ScenarioWindow*> windows() const;

    ScenarioWindow* active_ = nullptr;
};

}  // namespace orvent::qt
