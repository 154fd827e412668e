#pragma once

#include <QApplication>

#include "qt/platform/adapters.h"

namespace orvent::qt {

/// The number of this version, as the build has it.
QString programVersion();

/// The program's event loop. A fault that leaves an event handler is shown, and the loop goes on; the step that raised
/// it has stopped where it was.
class Application : public QApplication {
    Q_OBJECT

  public:
    Application(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;

  private:
    void report(const std::string& description);

    QtMessageBox messages_;
    bool reporting_ = false;
};

}  // namespace orvent::qt
