#pragma once

#include <QMdiSubWindow>
#include <functional>

#include "canvas/canvas_pointer.h"
#include "canvas/draw_form.h"

namespace orvent::qt {

class CanvasEditor;
class Theme;

/// The child window of one scenario. It never closes by itself: a close request goes to the frame's logic, which takes
/// the window away when the scenario goes.
class ScenarioWindow : public QMdiSubWindow, private canvas::CanvasListener {
    Q_OBJECT

  public:
    using AskClose = std::function<void(canvas::DrawForm&)>;

    ScenarioWindow(canvas::DrawForm& form, const Theme& theme, const canvas::PointerPorts& ports, AskClose askClose);
    ~ScenarioWindow() override;

    /// The scenario shown, or nothing once it was released.
    canvas::DrawForm* form() const { return form_; }
    /// Its canvas; only while it has a scenario.
    CanvasEditor& editor() const { return *editor_; }
    /// Forgets the scenario, which is about to go; the window stays empty.
    void release();

    /// Its size among windows side by side.
    QSize sizeHint() const override { return {720, 480}; }

    /// Takes input or not, as its scenario does.
    void showEnabled();

  Q_SIGNALS:
    void captionChanged();

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void formChanged() override;

    canvas::DrawForm* form_;
    canvas::CanvasSubscription subscription_;
    AskClose askClose_;
    CanvasEditor* editor_;
};

}  // namespace orvent::qt
