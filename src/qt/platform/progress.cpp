#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QStatusBar>
#include <QToolButton>

#include "qt/platform/adapters.h"

namespace orvent::qt {

namespace {

constexpr int kWholeBar = 1000;
constexpr qint64 kPaintEvery = 50;  // milliseconds

}  // namespace

QtProgress::~QtProgress() {
    if (busy_) {
        QApplication::restoreOverrideCursor();
    }
}

void QtProgress::attach(QStatusBar* bar) {
    delete line_;
    delete bar_;
    line_ = nullptr;
    label_ = nullptr;
    open_ = nullptr;
    bar_ = nullptr;
    if (!bar) {
        return;
    }
    line_ = new QWidget(bar);
    label_ = new QLabel(line_);
    label_->setObjectName(QStringLiteral("status"));
    label_->setTextFormat(Qt::PlainText);
    label_->setContentsMargins(6, 2, 6, 2);
    label_->setMinimumWidth(1);  // a long text is cut
    open_ = new QToolButton(line_);
    open_->setObjectName(QStringLiteral("openStatus"));
    open_->setText(QObject::tr("List…"));
    open_->setToolTip(QObject::tr("Show all of it in a list"));
    open_->setFocusPolicy(Qt::TabFocus);
    QFont font = open_->font();
    font.setUnderline(true);  // it has no frame while the pointer is elsewhere
    open_->setFont(font);
    open_->hide();
    QObject::connect(open_, &QToolButton::clicked, open_, [this] {
        const std::function<void()> act = opens_;  // it may bring another text
        act();
    });
    auto* row = new QHBoxLayout(line_);
    row->setContentsMargins({});
    row->setSpacing(0);
    row->addWidget(label_);
    row->addWidget(open_);
    row->addStretch();
    bar->addWidget(line_, 1);
    bar_ = new QProgressBar(bar);
    bar_->setFixedWidth(180);
    bar_->setMaximum(kWholeBar);
    bar_->setTextVisible(false);
    bar->addPermanentWidget(bar_);
    bar_->hide();
}

void QtProgress::pointer(platform::PointerShape shape) {
    const bool busy = shape == platform::PointerShape::busy;
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

void QtProgress::statusWith(const std::string& text, const std::function<void()>& open) {
    if (label_) {
        opens_ = open;
        open_->setVisible(static_cast<bool>(open));
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
