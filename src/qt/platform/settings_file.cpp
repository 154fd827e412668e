#include "qt/platform/settings_file.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSettings>
#include <QStandardPaths>
#include <QStringDecoder>

#include "platform/fault.h"

namespace orvent::qt {

namespace {

QString entry(const std::string& section, const std::string& key) {
    return QString::fromStdString(section + "/" + key);
}

/// The toolkit takes nearly any line with a "=" for a key. Here a key is one that it would write itself, and stands
/// below a section.
bool isSettings(QByteArray file) {
    static const QRegularExpression section(QStringLiteral("^\\[[^\\[\\]]+\\]$"));
    static const QRegularExpression keyAndValue(QStringLiteral("^[-\\w.%\\\\ ]+=[^\\x00-\\x08\\x0A-\\x1F]*$"),
                                                QRegularExpression::UseUnicodePropertiesOption);
    if (file.startsWith("\xEF\xBB\xBF")) {  // some editors put one in front of a text
        file.remove(0, 3);
    }
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString text = utf8(file);
    bool below = false;
    for (const QString& part : text.split(QLatin1Char('\n'))) {
        const QString line = part.trimmed();
        below = below || section.match(line).hasMatch();
        const bool isNote = line.isEmpty() || line.startsWith(QLatin1Char(';')) || line.startsWith(QLatin1Char('#'));
        if (!isNote && !section.match(line).hasMatch() && !(below && keyAndValue.match(line).hasMatch())) {
            return false;
        }
    }
    return !utf8.hasError();
}

}  // namespace

bool holdsSettings(const QString& path) {
    QFile file(path);
    QSettings settings(path, QSettings::IniFormat);
    settings.sync();
    return file.open(QIODevice::ReadOnly) && isSettings(file.readAll()) && settings.status() == QSettings::NoError;
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
    if (exists() && !holdsSettings(path_)) {
        throw platform::Fault("The settings file holds something else, and is left as it is:\n" + path_.toStdString());
    }
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
