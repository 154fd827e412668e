#include "qt/canvas/canvas_editor.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QToolTip>
#include <utility>

#include "qt/canvas/canvas_accessible.h"
#include "qt/canvas/tint_legend.h"
#include "qt/menu_filling.h"
#include "qt/text.h"

namespace orvent::qt {

namespace {

constexpr int kLongestTip = 1000;                            // letters of a name
constexpr QPalette::ColorRole kRim = QPalette::LinkVisited;  // one that no part of the view takes its colour from

struct PointerShape {
    int MousePointer;
    Qt::CursorShape shape;
};

constexpr PointerShape kShapes[] = {{5, Qt::SizeAllCursor},
                                    {6, Qt::SizeBDiagCursor},
                                    {7, Qt::SizeVerCursor},
                                    {8, Qt::SizeFDiagCursor},
                                    {9, Qt::SizeHorCursor}};

struct Key {
    int key;
    int code;
};

constexpr Key kKeys[] = {
    {Qt::Key_Escape, canvas::EscapeKey}, {Qt::Key_Left, canvas::LeftKey},   {Qt::Key_Up, canvas::UpKey},
    {Qt::Key_Right, canvas::RightKey},   {Qt::Key_Down, canvas::DownKey},   {Qt::Key_Delete, canvas::DeleteKey},
    {Qt::Key_Return, canvas::EnterKey},  {Qt::Key_Enter, canvas::EnterKey}, {Qt::Key_F2, canvas::RenameKey}};

/// The code of a key that the canvas may take, 0 for others.
int codeOf(const QKeyEvent& event) {
    const Qt::KeyboardModifiers held = event.modifiers() & ~Qt::KeypadModifier;
    if (event.key() == Qt::Key_F10 && held == Qt::ShiftModifier) {
        return canvas::MenuKey;
    }
    if (event.key() >= Qt::Key_A && event.key() <= Qt::Key_Z) {
        return held == Qt::NoModifier ? event.key() : 0;
    }
    for (const Key& row : kKeys) {
        if (row.key == event.key()) {
            const bool arrow = row.code >= canvas::LeftKey && row.code <= canvas::DownKey;
            const bool meant = held == Qt::NoModifier || row.code == canvas::DeleteKey ||
                               row.code == canvas::EscapeKey || (arrow && held == Qt::ControlModifier);
            return meant ? row.code : 0;
        }
    }
    return 0;
}

int buttonOf(Qt::MouseButtons buttons) {
    return (buttons & Qt::LeftButton ? canvas::LeftButton : 0) | (buttons & Qt::RightButton ? canvas::RightButton : 0);
}

}  // namespace

CanvasEditor::CanvasEditor(canvas::CanvasForm& form, const Theme& theme, const canvas::PointerPorts& ports,
                           QWidget* parent)
    : CanvasViewWidget(form, theme, parent), pointer_(form, ownState(), ports), light_(form, pointer_) {
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setLineWidth(2);
    setForegroundRole(kRim);
    viewport()->setAcceptDrops(true);
    connect(this, &CanvasViewWidget::scaleChanged, this, &CanvasEditor::placeCommentEditor);
    connect(this, &CanvasViewWidget::scaleChanged, this, &CanvasEditor::placeNameField);
    connect(&theme, &Theme::changed, this, &CanvasEditor::showFocus);
    showFocus();
}

CanvasEditor::~CanvasEditor() {
    // The gesture under way ends with the window; nothing is left to show it.
    stopListening();
    if (comment_) {
        comment_->removeEventFilter(this);
    }
}

canvas::PointerEvent CanvasEditor::pointerEvent(const QMouseEvent& event, int button) const {
    return {hitAt(event.position()), transform().toTwips(event.position()), button,
            event.modifiers().testFlag(Qt::ControlModifier),
            static_cast<float>(QApplication::startDragDistance() * kTwipsPerPixel / scale())};
}

void CanvasEditor::mousePressEvent(QMouseEvent* event) {
    second_.stop();
    CanvasViewWidget::mousePressEvent(event);
    if (event->button() == Qt::LeftButton && !pointer_.resizes() && takeCommentBar(event->position())) {
        return;
    }
    if (const int button = buttonOf(event->button())) {
        pointer_.press(pointerEvent(*event, button));
        light_.follow();
    }
}

void CanvasEditor::mouseMoveEvent(QMouseEvent* event) {
    CanvasViewWidget::mouseMoveEvent(event);
    if (event->buttons().testFlag(Qt::LeftButton) && dragCommentBar(event->position())) {
        return;
    }
    if (!event->buttons().testFlag(Qt::MiddleButton)) {
        pointer_.move(pointerEvent(*event, buttonOf(event->buttons())));
        showPointerShape();
        light_.follow();
    }
    Q_EMIT pointed(transform().toTwips(event->position()));
}

void CanvasEditor::mouseReleaseEvent(QMouseEvent* event) {
    CanvasViewWidget::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton && dropCommentBar()) {
        return;
    }
    if (const int button = buttonOf(event->button())) {
        pointer_.release(pointerEvent(*event, button));
        light_.follow();
        if (pointer_.clickedAgain()) {
            second_.start(QApplication::doubleClickInterval(), this);
        }
        tellAccessibleFocus(*this);
    }
}

void CanvasEditor::mouseDoubleClickEvent(QMouseEvent* event) {
    second_.stop();
    if (const int button = buttonOf(event->button())) {
        pointer_.doubleClick(pointerEvent(*event, button));
    }
}

void CanvasEditor::keyPressEvent(QKeyEvent* event) {
    second_.stop();
    const int code = codeOf(*event);
    if (code == 0 || !pointer_.keyDown(code, event->modifiers().testFlag(Qt::ControlModifier))) {
        CanvasViewWidget::keyPressEvent(event);
    }
    tellAccessibleFocus(*this);
}

void CanvasEditor::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() == QContextMenuEvent::Keyboard) {
        pointer_.keyDown(canvas::MenuKey);
    }
}

void CanvasEditor::focusInEvent(QFocusEvent* event) {
    CanvasViewWidget::focusInEvent(event);
    showFocus();
    pointer_.focused();
}

void CanvasEditor::focusOutEvent(QFocusEvent* event) {
    CanvasViewWidget::focusOutEvent(event);
    showFocus();
}

/// A frame around the picture, in the background's own colour while the keyboard is elsewhere.
void CanvasEditor::showFocus() {
    QPalette colours = palette();
    colours.setColor(kRim, hasFocus() ? theme().canvas().accent : theme().canvas().background);
    setPalette(colours);
}

void CanvasEditor::changeEvent(QEvent* event) {
    if (event->type() == QEvent::ActivationChange && !isActiveWindow()) {
        pointer_.cancel();
    }
    CanvasViewWidget::changeEvent(event);
}

bool CanvasEditor::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::Leave) {
        pointer_.move({{.element = canvas::Element::outside}, {}, canvas::NoButton, false});
        light_.follow();
        Q_EMIT pointed(std::nullopt);
    } else if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        QToolTip::showText(help->globalPos(), toolTipAt(help->pos()), viewport());
        return true;
    }
    return CanvasViewWidget::viewportEvent(event);
}

QString CanvasEditor::toolTipAt(QPoint place) const {
    const canvas::LabelsD* node = nodeAt(transform().toTwips(place));
    if (!node) {
        return {};
    }
    const canvas::NodeTip tip = pointer_.tipOf(*node);
    QStringList lines{text(tip.kind).toHtmlEscaped()};
    if (!tip.counts.empty()) {
        lines << text(tip.counts);
    }
    if (!tip.lack.empty()) {
        lines << tr("Still has %1").arg(text(tip.lack));
    }
    if (!tip.beyond.empty()) {
        lines << text(tip.beyond).toHtmlEscaped();
    }
    // Escaped: a caption may hold characters that a tool tip would take for markup.
    return QStringLiteral("<b>%1</b><br>%2")
        .arg(text(tip.name).left(kLongestTip).toHtmlEscaped(), lines.join(QStringLiteral("<br>")));
}

void CanvasEditor::showPointerShape() {
    const canvas::LabelsD* node =
        shownCanvas().OverLabel ? shownCanvas().Labels.byIndex(shownCanvas().CurrentNode) : nullptr;
    for (const PointerShape& row : kShapes) {
        if (node && node->MousePointer() == row.MousePointer) {
            viewport()->setCursor(row.shape);
            return;
        }
    }
    viewport()->unsetCursor();
}

std::optional<canvas::Point> CanvasEditor::pointerPlace() const {
    const QPoint place = viewport()->mapFromGlobal(QCursor::pos());
    return viewport()->rect().contains(place) ? std::optional(transform().toTwips(place)) : std::nullopt;
}

// Context menus.

void CanvasEditor::showMenu(const canvas::ContextMenu& menu, canvas::Point at) {
    auto* shown = new QMenu(this);
    shown->setObjectName(text(menu.name));
    shown->setAttribute(Qt::WA_DeleteOnClose);
    fillMenu(
        *shown, menu.items,
        [this](const canvas::ContextItem& item, QMenu& holder) {
            auto* action = new QAction(text(item.caption), &holder);
            // Folding may close the window, which must not happen while its own menu is still at work.
            const bool later = item.action == canvas::MenuAction::expanded;
            connect(
                action, &QAction::triggered, this, [this, name = item.name] { pointer_.choose(name); },
                later ? Qt::QueuedConnection : Qt::AutoConnection);
            return action;
        },
        [this](const canvas::ContextItem& item, QAction& action) { showState(action, pointer_.stateOf(item)); });
    shown->popup(viewport()->mapToGlobal(transform().toPixels(at).toPoint()));
}

// The text of a comment.

void CanvasEditor::stateChanged() {
    CanvasViewWidget::stateChanged();
    showCommentEditor();
    showNameField();
}

/// The legend stands below the picture and covers nothing of it.
void CanvasEditor::showTints(canvas::Tints* tints) {
    setTints(tints);
    if (!tints) {
        delete std::exchange(legend_, nullptr);
        setViewportMargins({});
        return;
    }
    if (!legend_) {
        legend_ = new TintLegend(*tints, theme(), this);
        connect(legend_, &TintLegend::chosen, this, [this] { showTints(this->tints()); });
        setViewportMargins(0, 0, 0, legend_->sizeHint().height());
        legend_->show();
    }
    legend_->refresh();
    placeLegend();
}

void CanvasEditor::resizeEvent(QResizeEvent* event) {
    CanvasViewWidget::resizeEvent(event);
    placeLegend();
}

void CanvasEditor::placeLegend() {
    if (legend_) {
        const QRect picture = viewport()->geometry();
        legend_->setGeometry(picture.left(), picture.bottom() + 1, picture.width(), legend_->sizeHint().height());
    }
}

void CanvasEditor::showCommentEditor() {
    const canvas::LabelsD* node = shownCanvas().Labels.byIndex(state().EditedComment);
    if (!node && comment_) {
        QPlainTextEdit* former = comment_;
        comment_ = nullptr;
        former->removeEventFilter(this);
        if (former->hasFocus()) {
            setFocus();
        }
        former->hide();
        former->deleteLater();  // it may be its own key or focus event that ends it
    } else if (node && !comment_) {
        comment_ = new QPlainTextEdit(viewport());
        comment_->setObjectName(QStringLiteral("commentEditor"));
        comment_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        comment_->setTabChangesFocus(true);
        comment_->setPlainText(QString::fromStdString(node->Comment()));
        QPalette colours = comment_->palette();
        const NodeColours shown = nodeColours(node->Color(), theme().canvas());
        colours.setColor(QPalette::Base, shown.fill);
        colours.setColor(QPalette::Text, shown.caption);
        comment_->setPalette(colours);
        connect(comment_, &QPlainTextEdit::textChanged, this,
                [this] { pointer_.editComment(comment_->toPlainText().toStdString()); });
        comment_->installEventFilter(this);
        placeCommentEditor();
        comment_->selectAll();
        comment_->show();
        comment_->setFocus();
    }
}

void CanvasEditor::placeCommentEditor() {
    const canvas::LabelsD* node = shownCanvas().Labels.byIndex(state().EditedComment);
    if (node && comment_) {
        constexpr QSize leastRoom(64, 26);
        constexpr int leastLetters = 9;
        QFont letters = font();
        letters.setPixelSize(std::max(leastLetters, static_cast<int>(std::lround(kParagraphPixels * scale()))));
        comment_->setFont(letters);
        const QRect box = transform().toPixels(boxOf(*node)).toAlignedRect().adjusted(2, 2, -2, -2);
        const QSize room = box.size().expandedTo(leastRoom);
        comment_->setFrameShape(room == box.size() ? QFrame::NoFrame : QFrame::Box);  // it stands out of a small box
        comment_->setGeometry(QRect(box.topLeft(), room));
    }
}

bool CanvasEditor::eventFilter(QObject* watched, QEvent* event) {
    if (watched == comment_) {
        const bool escape =
            event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
        // Its own context menu takes the focus for a moment only.
        const bool left =
            event->type() == QEvent::FocusOut && static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason;
        if (escape || left) {
            pointer_.endEditing();
            return escape;
        }
    }
    return CanvasViewWidget::eventFilter(watched, event);
}

}  // namespace orvent::qt
