#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QStatusBar>

#include "qt/platform/adapters.h"

namespace orvent::qt {

namespace {

constexpr int kBusyShape = 11;
constexpr int kWholeBar = 1000;
constexpr qint64 kPaintEvery = 50;  // milliseconds

}  // namespace

QtProgress::~QtProgress() {
    if (busy_) {
        QApplication::restoreOverrideCursor();
    }
}

void QtProgress::attach(QStatusBar* bar) {
    delete label_;
    delete bar_;
    label_ = nullptr;
    bar_ = nullptr;
    if (!bar) {
        return;
    }
    label_ = new QLabel(bar);
    label_->setTextFormat(Qt::PlainText);
    label_->setContentsMargins(6, 2, 6, 2);
    label_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    bar->addWidget(label_, 1);
    bar_ = new QProgressBar(bar);
    bar_->setFixedWidth(180);
    bar_->setMaximum(kWholeBar);
    bar_->setTextVisible(false);
    bar->addPermanentWidget(bar_);
    bar_->hide();
}

void QtProgress::pointer(int shape) {
    const bool busy = shape == kBusyShape;
    if (busy == busy_) {
        return;
    }
    busy_ = busy;
    if (busy) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
    } else {
        QApplication::restoreOverrideCursor();
    }
}

void QtProgress::status(const std::string& text) {
    if (label_) {
        label_->setText(QString::fromStdString(text));
        label_->repaint();  // the step that follows may not return to the event loop for a while
    }
}

void QtProgress::step(std::size_t done, std::size_t total) {
    if (!bar_) {
        return;
    }
    bar_->setVisible(total > 0);
    if (total == 0) {
        sincePaint_.invalidate();
        return;
    }
    bar_->setValue(
        static_cast<int>(static_cast<double>(kWholeBar) * static_cast<double>(done) / static_cast<double>(total)));
    if (!sincePaint_.isValid() || sincePaint_.elapsed() >= kPaintEvery) {
        sincePaint_.start();
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    }
}

}  // namespace orvent::qt
