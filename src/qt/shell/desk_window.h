#pragma once

#include <QMdiSubWindow>
#include <QPointer>
#include <QTimer>
#include <functional>
#include <optional>

#include "canvas/canvas_pointer.h"

namespace orvent::qt {

class CanvasEditor;
class Legend;
class Minimap;
class OfferBar;
class Theme;

/// The child window of one form with a canvas. It never closes by itself: a close request goes to the frame's logic,
/// which takes the window away when the form goes.
class DeskWindow : public QMdiSubWindow, private canvas::CanvasListener {
    Q_OBJECT

  public:
    using AskClose = std::function<void(canvas::CanvasForm&)>;

    DeskWindow(canvas::CanvasForm& form, const Theme& theme, const canvas::PointerPorts& ports, AskClose askClose);
    ~DeskWindow() override;

    /// The form shown, or nothing once it was released.
    canvas::CanvasForm* form() const { return form_; }
    /// Its canvas, between what the form offers and its legend; only while it has a form.
    CanvasEditor& editor() const { return *editor_; }
    void showMinimap(bool shown);
    /// Forgets the form, which is about to go; the window stays empty.
    void release();

    /// Its size among windows side by side.
    QSize sizeHint() const override { return {720, 480}; }

    /// The view's scale and the pointer's place.
    const QString& corner() const { return corner_; }

    /// Only the window in front is on the way of the Tab key.
    void showInFront(bool front) { setFocusPolicy(front ? Qt::StrongFocus : Qt::ClickFocus); }

    /// Takes input or not, as its form does.
    void showEnabled();

    /// Something may have changed; `settled` follows once for all that happens in a short while.
    void changeSeen();

  Q_SIGNALS:
    void formShown();    ///< its caption, or whether it takes input
    void settled();      ///< a while after changes
    void cornerShown();  ///< what the frame's corner tells of it

  protected:
    void closeEvent(QCloseEvent* event) override;
    bool focusNextPrevChild(bool next) override;

  private:
    void showCorner(std::optional<canvas::Point> place);
    void formChanged() override;
    void nodeChanged(const canvas::LabelsD&) override { changeSeen(); }
    void nodeRemoved(const canvas::LabelsD&) override { changeSeen(); }
    void edgeChanged(const canvas::LinesD&) override { changeSeen(); }
    void edgeRemoved(const canvas::LinesD&) override { changeSeen(); }
    void manyChanged() override { changeSeen(); }

    canvas::CanvasForm* form_;
    canvas::CanvasSubscription subscription_;
    const Theme& theme_;
    AskClose askClose_;
    QPointer<Minimap> minimap_;  ///< goes with the editor
    CanvasEditor* editor_;
    OfferBar* offer_;
    Legend* legend_;
    QTimer settling_;
    QString corner_;
};

/// Takes the focus from a control of the frame to the next, or the one before, at which the Tab key stops. The window
/// of the scenario in front is one of them, which the toolkit would pass by for the sake of its focus proxy. False when
/// there is none.
bool walkFocus(QWidget& from, bool next);

}  // namespace orvent::qt
