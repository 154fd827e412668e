#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include "qt/platform/adapters.h"
#include "qt/text.h"

namespace orvent::qt {

void QtClipboard::put(const std::string& content, const std::string& mime) {
    auto* data = new QMimeData;
    data->setData(qt::text(mime), QByteArray::fromStdString(content));
    data->setText(qt::text(content));
    QGuiApplication::clipboard()->setMimeData(data);
}

std::string QtClipboard::text(const std::string& mime) const {
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    if (!data) {
        return {};
    }
    const QString type = qt::text(mime);
    return data->hasFormat(type) ? data->data(type).toStdString() : data->text().toStdString();
}

}  // namespace orvent::qt
