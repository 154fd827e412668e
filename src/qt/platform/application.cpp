#include "qt/platform/application.h"

#include <clocale>
#include <exception>

#include "platform/settings_store.h"
#include "qt/canvas/canvas_accessible.h"

namespace orvent::qt {

QString programVersion() {
    return QStringLiteral(ORVENT_VERSION);
}

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
    setApplicationName(QLatin1String(platform::kApplicationKey));
    setApplicationVersion(programVersion());
    // The base class has taken over the user's locale; numbers in files and statements stay in the C locale, also
    // those that a database driver writes.
    std::setlocale(LC_NUMERIC, "C");
    installCanvasAccessible();
}

bool Application::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception& fault) {
        report(fault.what());
    }
    return false;
}

void Application::report(const std::string& description) {
    if (reporting_) {
        // A painting that fails again and again behind the open box must not stack up boxes.
        qCritical("%s", description.c_str());
        return;
    }
    reporting_ = true;
    messages_.show(description, {}, platform::Icon::critical, platform::Buttons::ok);
    reporting_ = false;
}

}  // namespace orvent::qt
