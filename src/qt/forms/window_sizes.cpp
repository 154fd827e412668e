#include "qt/forms/window_sizes.h"

#include <QScreen>
#include <QSplitter>
#include <QStringList>

#include "platform/fault.h"

namespace orvent::qt {

namespace {

constexpr QSize kScreenMargin(0, 40);  // a window's title
constexpr const char* kSection = "Windows";

}  // namespace

void WindowSizes::keep(const QWidget& window) {
    size_ = window.size();
    for (const QSplitter* splitter : window.findChildren<QSplitter*>()) {
        if (!splitter->objectName().isEmpty()) {
            splitters_[splitter->objectName()] = splitter->saveState();
        }
    }
}

void WindowSizes::give(QWidget& window) const {
    const QSize wanted = size_.isValid() ? size_ : window.size();
    window.resize(wanted.boundedTo(window.screen()->availableSize() - kScreenMargin));
    for (QSplitter* splitter : window.findChildren<QSplitter*>()) {
        if (splitters_.contains(splitter->objectName())) {
            splitter->restoreState(splitters_[splitter->objectName()]);
        }
    }
}

std::string WindowSizes::text() const {
    if (!size_.isValid()) {
        return {};
    }
    QStringList words{QString::number(size_.width()), QString::number(size_.height())};
    for (auto splitter = splitters_.cbegin(); splitter != splitters_.cend(); ++splitter) {
        words << splitter.key() + QLatin1Char('=') + QString::fromLatin1(splitter.value().toHex());
    }
    return words.join(QLatin1Char(' ')).toStdString();
}

void WindowSizes::read(const std::string& text) {
    const QStringList words = QString::fromStdString(text).split(QLatin1Char(' '));
    if (words.size() < 2) {
        return;
    }
    const QSize size(words[0].toInt(), words[1].toInt());
    size_ = size.isEmpty() ? QSize() : size;
    for (const QString& word : words.sliced(2)) {
        const QString name = word.section(QLatin1Char('='), 0, 0);
        splitters_[name] = QByteArray::fromHex(word.section(QLatin1Char('='), 1).toLatin1());
    }
}

WindowSizes& SizeMemory::of(const std::string& window) {
    const auto [entry, isNew] = known_.try_emplace(window);
    if (isNew && store_) {
        entry->second.read(store_->value(kSection, window, ""));
    }
    return entry->second;
}

void SizeMemory::store(const std::string& window) {
    const std::string text = of(window).text();
    try {
        if (store_ && store_->value(kSection, window, "") != text) {
            store_->setValue(kSection, window, text);
        }
    } catch (const platform::Fault&) {
        return;  // nobody is asked to mend that for a size
    }
}

}  // namespace orvent::qt
