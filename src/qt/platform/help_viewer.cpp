#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

#include "platform/fault.h"
#include "qt/platform/adapters.h"
#include "qt/platform/help_window.h"

namespace orvent::qt {

QtHelpViewer::QtHelpViewer() : opener_([](const QUrl& url) { return QDesktopServices::openUrl(url); }) {}

void QtHelpViewer::open(const std::string& path) {
    const QFileInfo file(QString::fromStdString(path));
    if (!file.isFile()) {
        throw platform::Fault(path + "\nThe help file does not exist.");
    }
    if (!file.isReadable()) {
        throw platform::Fault(path + "\nThe help file cannot be read.");
    }
    if (!opener_(QUrl::fromLocalFile(file.absoluteFilePath()))) {
        showHelpWindow();  // no program on this desktop opens this kind of file
    }
}

}  // namespace orvent::qt
