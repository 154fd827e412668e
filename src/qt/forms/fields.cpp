#include "qt/forms/fields.h"

#include <QPainter>
#include <QWheelEvent>

#include "qt/theme/theme.h"

namespace orvent::qt {

namespace {

constexpr int kFieldWidth = 240;
constexpr int kFieldHeight = 28;  // as buttons
constexpr int kTypeRow = 28;

/// The wheel on its way over an untouched box scrolls what is around it, and changes nothing that nobody looks at.
class ChoiceBox : public QComboBox {
  public:
    explicit ChoiceBox(QWidget* parent) : QComboBox(parent) { setFocusPolicy(Qt::StrongFocus); }

  protected:
    void wheelEvent(QWheelEvent* event) override {
        if (hasFocus()) {
            QComboBox::wheelEvent(event);
        } else {
            event->ignore();
        }
    }
};

}  // namespace

QFormLayout* newForm() {
    auto* form = new QFormLayout;
    form->setHorizontalSpacing(Spacing::margin);
    form->setVerticalSpacing(Spacing::gap);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->setLabelAlignment(Qt::AlignLeft | Qt::AlignTop);
    return form;
}

QLabel* newCaption(const QString& caption, QWidget* parent) {
    auto* label = new QLabel(caption, parent);
    label->setMinimumHeight(kFieldHeight);
    // In line with the first line of its field, also of a high one.
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    label->setContentsMargins(0, (kFieldHeight - label->fontMetrics().height()) / 2, 0, 0);
    return label;
}

QLabel* addField(QFormLayout& form, const QString& caption, QWidget* field) {
    QLabel* label = newCaption(caption, field->parentWidget());
    label->setBuddy(field);
    form.addRow(label, field);
    return label;
}

QString withLetter(QString caption, QLatin1Char letter) {
    const auto at = caption.indexOf(letter);
    return at < 0 ? caption : caption.insert(at, QLatin1Char('&'));
}

QComboBox* newChoice(const QString& name, QWidget* parent) {
    auto* choice = new ChoiceBox(parent);
    choice->setObjectName(name);
    choice->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    choice->setMinimumSize(kFieldWidth, kFieldHeight);
    return choice;
}

QLineEdit* newField(const QString& name, QWidget* parent) {
    auto* field = new QLineEdit(parent);
    field->setObjectName(name);
    field->setMinimumSize(kFieldWidth, kFieldHeight);
    return field;
}

void selectFromStart(QLineEdit& field) {
    const int length = static_cast<int>(field.text().size());
    field.setSelection(length, -length);
}

void paintHint(QAbstractScrollArea& view, const QString& words) {
    QPainter painter(view.viewport());
    painter.setPen(view.palette().color(QPalette::PlaceholderText));
    painter.drawText(view.viewport()->rect().adjusted(Spacing::margin, 0, -Spacing::margin, 0),
                     Qt::AlignCenter | Qt::TextWordWrap, words);
}

HintList::HintList(QString hint, QWidget* parent) : QListWidget(parent), hint_(std::move(hint)) {
    setIconSize({Spacing::icon, Spacing::icon});
    setUniformItemSizes(true);
}

QListWidgetItem* HintList::addRow(const QIcon& icon) {
    auto* row = new QListWidgetItem(icon, QString(), this);
    row->setSizeHint({0, kTypeRow});
    return row;
}

void HintList::paintEvent(QPaintEvent* event) {
    QListWidget::paintEvent(event);
    if (count() == 0) {
        paintHint(*this, hint_);
    }
}

void HintList::focusInEvent(QFocusEvent* event) {
    QListWidget::focusInEvent(event);
    // The toolkit makes the first row current without selecting it, so that the first arrow key would skip it.
    if (selectedItems().isEmpty()) {
        setCurrentIndex(QModelIndex());
    }
}

}  // namespace orvent::qt
