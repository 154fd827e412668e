#pragma once

#include <QObject>
#include <functional>

#include "shell/frame_host.h"
#include "shell/mdi_form.h"

class QDockWidget;
class QMainWindow;
class QToolButton;

namespace orvent::shell {
class MDIForm1;
}

namespace orvent::qt {

class FindDock;
class HistoryDock;
class OutlineDock;
class ProblemsDock;
class RowsDock;
class TypesDock;

/// The lists beside the windows of a frame, and the count of problems in its status corner.
class FrameDocks : public QObject {
    Q_OBJECT

  public:
    /// `logic` gives the frame's, or nothing once that is gone. The frame has its status bar.
    FrameDocks(QMainWindow& frame, std::function<shell::MDIForm1*()> logic);

    void show(shell::Dock dock, bool shown);
    bool isShown(shell::Dock dock) const;
    /// The keyboard goes there.
    void enter(shell::Dock dock);
    void setEnabled(bool enabled);
    /// Steps, or the scenario in front, may have changed.
    void refresh();
    /// The problems of the scenario in front are others than before.
    void refreshProblems();

  private:
    QDockWidget* widget(shell::Dock dock) const;

    /// Gives a list's logic, which is there as long as the frame's is.
    template <class Form>
    std::function<Form*()> listOf(Form& (shell::SideLists::*list)()) const {
        return [this, list] {
            shell::MDIForm1* its = logic_();
            return its ? &(its->lists().*list)() : nullptr;
        };
    }

    std::function<shell::MDIForm1*()> logic_;
    HistoryDock* history_;
    ProblemsDock* problems_;
    FindDock* find_;
    OutlineDock* outline_;
    TypesDock* types_;
    RowsDock* rows_;
    QToolButton* count_;
};

}  // namespace orvent::qt
