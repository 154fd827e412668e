#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <array>

#include "qt/platform/adapters.h"
#include "qt/platform/working_window.h"

namespace orvent::qt {

namespace {

using platform::Answer;
using platform::Buttons;

struct BoxButton {
    Buttons asked;
    QMessageBox::StandardButtons shown;
    QMessageBox::StandardButton standard;  ///< pressed by Return
    QMessageBox::StandardButton escape;    ///< meant by closing the box
};

const std::array<BoxButton, 8> kBoxButtons = {{
    {Buttons::ok, QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Ok},
    {Buttons::okCancel, QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Ok, QMessageBox::Cancel},
    {Buttons::yesNo, QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes, QMessageBox::No},
    {Buttons::yesNoCancel, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Yes,
     QMessageBox::Cancel},
    {Buttons::destroyOkCancel, QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Cancel, QMessageBox::Cancel},
    {Buttons::destroyYesNo, QMessageBox::Yes | QMessageBox::No, QMessageBox::No, QMessageBox::No},
    {Buttons::destroyYesNoCancel, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Cancel,
     QMessageBox::Cancel},
    {Buttons::discardGoOn, QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Cancel, QMessageBox::Cancel},
}};

QMessageBox::Icon pictureOf(platform::Icon icon) {
    switch (icon) {
        case platform::Icon::information:
            return QMessageBox::Information;
        case platform::Icon::question:
            return QMessageBox::Question;
        case platform::Icon::warning:
            return QMessageBox::Warning;
        case platform::Icon::critical:
            return QMessageBox::Critical;
        case platform::Icon::none:
            break;
    }
    return QMessageBox::NoIcon;
}

Answer answerOf(int button) {
    switch (button) {
        case QMessageBox::Yes:
            return Answer::yes;
        case QMessageBox::No:
            return Answer::no;
        case QMessageBox::Cancel:
            return Answer::cancel;
        default:
            return Answer::ok;
    }
}

/// A text that is too high for a small screen, or has a word that is too wide for it, stands in a field that scrolls
/// and breaks words. Other texts stay as the toolkit lays them out.
void fitText(QMessageBox& box) {
    constexpr QSize room(460, 240);
    auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    auto* grid = qobject_cast<QGridLayout*>(box.layout());
    if (!label || !grid) {
        return;
    }
    const QSize needed =
        label->fontMetrics().boundingRect(QRect(0, 0, room.width(), 0), Qt::TextWordWrap, box.text()).size();
    if (needed.width() <= room.width() && needed.height() <= room.height()) {
        return;
    }
    int row = 0;
    int column = 0;
    int rows = 0;
    int columns = 0;
    grid->getItemPosition(grid->indexOf(label), &row, &column, &rows, &columns);
    auto* field = new QPlainTextEdit(box.text(), &box);
    field->setReadOnly(true);
    field->setTabChangesFocus(true);
    field->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    field->setFixedSize(room);
    label->hide();
    grid->addWidget(field, row, column, rows, columns);
}

}  // namespace

Answer QtMessageBox::showWith(const std::string& smaller, const std::string& text, const std::string& title,
                              platform::Icon icon, Buttons buttons) {
    const BoxButton& row = kBoxButtons[static_cast<std::size_t>(buttons)];
    const WorkingWindow over;
    QMessageBox box(over.widget());
    box.setWindowTitle(QString::fromStdString(title.empty() ? kProgramName : title));
    box.setTextFormat(Qt::PlainText);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    box.setText(QString::fromStdString(text));
    box.setInformativeText(QString::fromStdString(smaller));
    box.setIcon(pictureOf(icon));
    box.setStandardButtons(row.shown);
    box.setDefaultButton(row.standard);
    box.setEscapeButton(row.escape);
    if (buttons == Buttons::discardGoOn) {
        box.button(QMessageBox::Discard)->setText(QMessageBox::tr("&Discard"));
        box.button(QMessageBox::Cancel)->setText(QMessageBox::tr("&Go On"));
    }
    fitText(box);
    return answerOf(box.exec());
}

}  // namespace orvent::qt
