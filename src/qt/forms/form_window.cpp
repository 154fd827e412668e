#include "qt/forms/form_window.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <QVBoxLayout>

#include "qt/theme/theme.h"

namespace orvent::qt {

namespace {

// The contents of a dialog can shrink to that, which fits with its buttons and title on the smallest screen meant.
constexpr QSize kLeastBody(560, 320);
constexpr int kAround = 40;  // a window's title and a strip of what lies below

/// The contents of a dialog; what a low screen cannot show is scrolled to.
class BodyArea : public QScrollArea {
  public:
    explicit BodyArea(QWidget* parent) : QScrollArea(parent) {
        setFrameShape(QFrame::NoFrame);
        setWidgetResizable(true);
        setFocusPolicy(Qt::NoFocus);  // it follows the control that has the focus
        viewport()->setAutoFillBackground(false);
    }
    QSize sizeHint() const override { return widget()->sizeHint(); }
    QSize minimumSizeHint() const override { return widget()->minimumSizeHint().boundedTo(kLeastBody); }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == widget() && event->type() == QEvent::LayoutRequest) {
            updateGeometry();
        }
        return QScrollArea::eventFilter(watched, event);
    }
};

/// Its parts shrink as far as they can before anything is scrolled; the toolkit would ask for their preferred heights.
class Contents : public QWidget {
  public:
    using QWidget::QWidget;
    int heightForWidth(int width) const override { return layout()->totalMinimumHeightForWidth(width); }
};

}  // namespace

FormWindow::FormWindow(const QString& title, QWidget* parent)
    : QDialog(parent), body_(new QVBoxLayout), lastRow_(new QHBoxLayout), buttons_(new QDialogButtonBox(this)) {
    setWindowTitle(title);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(Spacing::section, Spacing::section, Spacing::section, Spacing::margin);
    rows->setSpacing(Spacing::section);
    body_->setSpacing(Spacing::gap);
    auto* contents = new Contents;
    body_->setContentsMargins({});
    contents->setLayout(body_);
    auto* area = new BodyArea(this);
    area->setObjectName(QStringLiteral("body"));
    area_ = area;
    area->setWidget(contents);
    contents->setAutoFillBackground(false);
    rows->addWidget(area, 1);
    lastRow_->setSpacing(Spacing::section);
    lastRow_->addWidget(buttons_, 1);
    rows->addLayout(lastRow_);
    connect(buttons_, &QDialogButtonBox::rejected, this, &FormWindow::cancel);
}

FormWindow::FormWindow(const QString& title, forms::Editor& editor, QWidget* parent) : FormWindow(title, parent) {
    editor_ = &editor;
}

void FormWindow::showEvent(QShowEvent* event) {
    // The toolkit gives a window without a size of its own two thirds of the screen at most.
    QSize wanted = testAttribute(Qt::WA_Resized) ? size() : size().expandedTo(sizeHint());
    // Also narrower ones get what their contents cannot do without.
    const int beside = sizeHint().width() - area_->sizeHint().width();
    wanted.setWidth(std::max(wanted.width(), area_->widget()->minimumSizeHint().width() + beside));
    const QSize room = screen()->availableSize() - QSize(kAround, kAround);
    if (wanted.height() > room.height()) {
        wanted.rwidth() += style()->pixelMetric(QStyle::PM_ScrollBarExtent);  // it scrolls downwards alone
    }
    resize(wanted.boundedTo(room));
    QDialog::showEvent(event);
}

void FormWindow::growToContents() {
    if (!isVisible()) {
        return;
    }
    layout()->activate();
    const QWidget& contents = *area_->widget();
    const int missing = contents.layout()->totalMinimumHeightForWidth(contents.width()) - area_->viewport()->height();
    const int room = screen()->availableSize().height() - kAround;
    if (missing > 0) {
        resize(width(), std::max(height(), std::min(height() + missing, room)));
    }
}

void FormWindow::reject() {
    if (mayDismiss()) {
        cancel();
    }
}

void FormWindow::done(int result) {
    if (editor_ && result != Accepted && !editor_->mayClose()) {
        return;
    }
    QDialog::done(result);
    if (editor_) {
        editor_->end();
    }
}

QPushButton& FormWindow::addOK(const QString& name, const QString& text) {
    return addAccept(name, text, [this] { return editor_->OK(); });
}

QPushButton& FormWindow::addAccept(const QString& name, const QString& text, std::function<bool()> act) {
    accept_ = buttons_->addButton(text, QDialogButtonBox::AcceptRole);
    accept_->setObjectName(name);
    accept_->setDefault(true);
    connect(accept_, &QPushButton::clicked, this, [this, act = std::move(act)] {
        if (act()) {
            accept();
        }
    });
    return *accept_;
}

QPushButton& FormWindow::addCancel(const QString& name) {
    QPushButton* cancel = buttons_->addButton(tr("&Cancel"), QDialogButtonBox::RejectRole);
    cancel->setObjectName(name);
    cancel->setAutoDefault(false);
    return *cancel;
}

QPushButton& FormWindow::addSideButton(const QString& name, const QString& text, std::function<void()> act) {
    QPushButton* button = buttons_->addButton(text, QDialogButtonBox::ResetRole);
    button->setObjectName(name);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, std::move(act));
    return *button;
}

QLabel& FormWindow::addNote(const QString& name) {
    auto* note = new QLabel(this);
    note->setObjectName(name);
    note->setForegroundRole(QPalette::PlaceholderText);
    lastRow_->insertWidget(0, note, 1);
    lastRow_->setStretchFactor(buttons_, 0);
    return *note;
}

void FormWindow::press() {
    accept_->click();
}

}  // namespace orvent::qt
