#include <QColorDialog>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QLineEdit>
#include <QStringList>

#include "qt/platform/adapters.h"
#include "qt/platform/working_window.h"
#include "qt/theme/model_colour.h"

namespace orvent::qt {

std::string QtInputBox::ask(const std::string& prompt, const std::string& title, const std::string& proposal) {
    const WorkingWindow over;
    QInputDialog dialog(over.widget());
    dialog.setWindowTitle(QString::fromStdString(title.empty() ? kProgramName : title));
    dialog.setLabelText(QString::fromStdString(prompt));
    dialog.setTextValue(QString::fromStdString(proposal));
    dialog.resize(360, dialog.sizeHint().height());
    return dialog.exec() == QDialog::Accepted ? dialog.textValue().toStdString() : std::string();
}

QString toolkitFilter(const std::string& filter) {
    const QStringList parts = QString::fromStdString(filter).split(QLatin1Char('|'));
    QStringList pairs;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString words = parts[i];
        const qsizetype bracket = words.lastIndexOf(QLatin1Char('('));
        if (bracket >= 0 && words.endsWith(QLatin1Char(')'))) {
            words.truncate(bracket);
        }
        QString pattern = parts[i + 1];
        pairs << QStringLiteral("%1 (%2)").arg(words.trimmed(), pattern.replace(QLatin1Char(';'), QLatin1Char(' ')));
    }
    return pairs.join(QStringLiteral(";;"));
}

std::string QtFileDialog::openFile(const std::string& filter) {
    const WorkingWindow over;
    return QFileDialog::getOpenFileName(over.widget(), QString(), QString(), toolkitFilter(filter)).toStdString();
}

std::string QtSaveDialog::saveFile(const std::string& title, const std::string& filter, const std::string& folder,
                                   platform::OldFile oldFile) {
    const QFileInfo wished(QString::fromStdString(folder));
    const QString pattern = QString::fromStdString(filter).section(QLatin1Char('|'), 1, 1);
    const bool isFile = !wished.isDir() && QDir::match(pattern, wished.fileName());
    // A folder that is not there yet would be taken for the file's name.
    QFileInfo start(isFile ? wished.path() : wished.filePath());
    while (!start.isDir() && !start.isRoot() && start.path() != start.filePath()) {
        start.setFile(start.path());
    }
    const WorkingWindow over;
    QFileDialog dialog(over.widget(), QString::fromStdString(title), start.filePath(), toolkitFilter(filter));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    if (isFile) {
        dialog.selectFile(wished.fileName());
    }
    if (oldFile == platform::OldFile::onlyNamed) {
        dialog.setOption(QFileDialog::DontConfirmOverwrite);
    } else {
        dialog.setDefaultSuffix(QFileInfo(pattern).suffix());  // so that the file meant is the one that is asked about
    }
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().constFirst().toStdString() : std::string();
}

std::optional<std::int32_t> QtColourDialog::choose(std::int32_t present) {
    const WorkingWindow over;
    const QColor chosen = QColorDialog::getColor(fromModel(present), over.widget());
    return chosen.isValid() ? std::optional(toModel(chosen)) : std::nullopt;
}

}  // namespace orvent::qt
