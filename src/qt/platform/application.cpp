#include "qt/platform/application.h"

#include <exception>

#include "platform/settings_store.h"

namespace orvent::qt {

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
    setApplicationName(QLatin1String(platform::kApplicationKey));
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
