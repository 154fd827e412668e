#include "qt/platform/settings_file.h"

#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>

#include "platform/fault.h"

namespace orvent::qt {

namespace {

QString entry(const std::string& section, const std::string& key) {
    return QString::fromStdString(section + "/" + key);
}

}  // namespace

bool holdsSettings(const QString& path) {
    QFile file(path);
    const bool isText = file.open(QIODevice::ReadOnly) && !file.readAll().contains('\0');
    QSettings settings(path, QSettings::IniFormat);
    settings.sync();
    return isText && settings.status() == QSettings::NoError;
}

QtSettingsStore::QtSettingsStore()
    : path_(QStringLiteral("%1/%2/%2.ini")
                .arg(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation),
                     QLatin1String(platform::kApplicationKey))) {}

bool QtSettingsStore::exists() const {
    return QFileInfo::exists(path_);
}

std::string QtSettingsStore::value(const std::string& section, const std::string& key, const std::string& standard) {
    const QVariant stored = QSettings(path_, QSettings::IniFormat).value(entry(section, key));
    return stored.isValid() ? stored.toString().toStdString() : standard;
}

void QtSettingsStore::setValue(const std::string& section, const std::string& key, const std::string& value) {
    // A file object for each write: its status speaks of this write alone.
    QSettings file(path_, QSettings::IniFormat);
    file.setValue(entry(section, key), QString::fromStdString(value));
    file.sync();
    if (file.status() != QSettings::NoError) {
        throw platform::Fault("The settings file cannot be written:\n" + path_.toStdString());
    }
    // It holds a password that is hardly more than hidden. The file is written anew each time, and keeps a mode.
    QFile::setPermissions(path_, QFile::ReadOwner | QFile::WriteOwner);
}

}  // namespace orvent::qt
