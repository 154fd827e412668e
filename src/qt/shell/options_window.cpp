#include "qt/shell/options_window.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QTableWidget>
#include <algorithm>

#include "qt/forms/fields.h"
#include "qt/text.h"
#include "qt/theme/icons.h"
#include "qt/theme/model_colour.h"
#include "qt/theme/theme.h"

namespace orvent::qt {

namespace {

constexpr int kNumberWidth = 92;
constexpr int kShownKinds = 9;  // of problems, the others are scrolled to
constexpr QSize kSwatch(34, 14);

/// A number without needless zeros.
class PixelBox : public QDoubleSpinBox {
  public:
    using QDoubleSpinBox::QDoubleSpinBox;
    QString textFromValue(double value) const override { return QString::number(value, 'g', 8); }
};

QIcon swatch(std::int32_t colour) {
    QPixmap picture(kSwatch);
    picture.fill(fromModel(colour));
    return QIcon(picture);
}

}  // namespace

OptionsWindow::OptionsWindow(shell::OptionsForm& logic, QWidget* parent)
    : FormWindow(tr("Options"), logic, parent), logic_(logic) {
    setObjectName(QStringLiteral("OptionsForm"));
    auto* sides = new QHBoxLayout;
    auto* left = new QVBoxLayout;
    left->addWidget(newSizes());
    left->addWidget(newZoom());
    left->addStretch();
    auto* right = new QVBoxLayout;
    right->addWidget(newProblems());
    right->addWidget(newFunctions());
    sides->addLayout(left);
    sides->addLayout(right, 1);
    body().addLayout(sides);
    buildRest();
    logic_.show = [this] { showState(); };
    addSideButton(QStringLiteral("butDefault"), withLetter(tr("Default"), QLatin1Char('D')),
                  [this] { logic_.butDefault(); });
    addSideButton(QStringLiteral("butAplly"), withLetter(tr("Apply"), QLatin1Char('A')), [this] { logic_.butAplly(); });
    addAccept(QStringLiteral("butOK"), tr("&OK"), [this] { return logic_.butOK(); });
    addCancel(QStringLiteral("butCancel"));
    showState();
    numbers_[7]->setFocus();
}

QDoubleSpinBox* OptionsWindow::newNumber(std::size_t index) {
    auto* number = new PixelBox(this);
    number->setObjectName(QStringLiteral("Text%1").arg(shell::optionFields()[index].number));
    number->setLocale(QLocale::c());
    number->setRange(shell::optionFields()[index].least(), shell::optionFields()[index].most());
    number->setDecimals(2);
    number->setSuffix(tr(" px"));
    number->setMinimumWidth(kNumberWidth);
    number->setAlignment(Qt::AlignRight);
    // Only what the user changes goes back: a stored size need not be a whole number of hundredths.
    connect(number, &QDoubleSpinBox::valueChanged, this,
            [this, index](double value) { logic_.Text[index] = QByteArray::number(value, 'f', 2).toStdString(); });
    numbers_[index] = number;
    return number;
}

QGroupBox* OptionsWindow::newSizes() {
    auto* group = new QGroupBox(tr("New nodes"), this);
    auto* grid = new QGridLayout(group);
    grid->setHorizontalSpacing(Spacing::margin);
    grid->addWidget(new QLabel(tr("Width"), group), 0, 1, Qt::AlignRight);
    grid->addWidget(new QLabel(tr("Height"), group), 0, 2, Qt::AlignRight);
    int row = 0;
    const auto fields = shell::optionFields();
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (fields[i].group != shell::OptionGroup::draw) {
            continue;
        }
        if (fields[i].part == "Height") {
            grid->addWidget(new QLabel(text(fields[i].caption), group), ++row, 0);
        }
        grid->addWidget(newNumber(i), row, fields[i].part == "Width" ? 1 : 2);
    }
    grid->setColumnStretch(0, 1);
    // By row, from left to right: the fields stand with the heights first.
    for (std::size_t i = 6; i < fields.size(); i += 2) {
        setTabOrder(numbers_[i + 1], numbers_[i]);
    }
    return group;
}

QGroupBox* OptionsWindow::newZoom() {
    auto* group = new QGroupBox(tr("Zoom view"), this);
    auto* grid = new QGridLayout(group);
    int row = 0;
    const auto fields = shell::optionFields();
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (fields[i].group == shell::OptionGroup::zoom) {
            QString caption = text(fields[i].caption);
            caption += fields[i].part.empty() ? QString() : QStringLiteral(" %1:").arg(text(fields[i].part));
            grid->addWidget(new QLabel(caption, group), row, 0);
            grid->addWidget(newNumber(i), row++, 1);
        }
    }
    grid->setColumnStretch(0, 1);  // its numbers stand below those of the new nodes
    return group;
}

QGroupBox* OptionsWindow::newProblems() {
    auto* group = new QGroupBox(tr("Problems that are told"), this);
    auto* column = new QVBoxLayout(group);
    problems_ = new QListWidget(group);
    problems_->setObjectName(QStringLiteral("lstProblemKinds"));
    problems_->setAccessibleName(group->title());
    problems_->setUniformItemSizes(true);
    for (const analysis::ProblemWords& row : analysis::problemWords()) {
        auto* item = new QListWidgetItem(tr(row.title), problems_);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        item->setCheckState(Qt::Checked);
        item->setToolTip(tr(row.why));
    }
    problems_->setCurrentRow(0);
    problems_->setFixedHeight(kShownKinds * problems_->sizeHintForRow(0) + 2 * problems_->frameWidth());
    connect(problems_, &QListWidget::itemChanged, this, [this](const QListWidgetItem* item) {
        logic_.Problems.set(static_cast<std::size_t>(problems_->row(item)), item->checkState() == Qt::Checked);
    });
    column->addWidget(problems_);
    return group;
}

QGroupBox* OptionsWindow::newFunctions() {
    auto* group = new QGroupBox(tr("Functions in SQL"), this);
    auto* column = new QVBoxLayout(group);
    auto* words = new QLabel(tr("What a call is in exported SQL; {1} and {2} are its inputs"), group);
    words->setWordWrap(true);
    column->addWidget(words);
    functions_ = new QTableWidget(0, 2, group);
    functions_->setObjectName(QStringLiteral("grdFunctions"));
    functions_->setAccessibleName(group->title());
    functions_->setHorizontalHeaderLabels({tr("Function"), tr("SQL expression")});
    functions_->horizontalHeader()->setStretchLastSection(true);
    functions_->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    functions_->verticalHeader()->hide();
    functions_->setTabKeyNavigation(false);
    connect(functions_, &QTableWidget::itemChanged, this, [this](const QTableWidgetItem* item) {
        const auto row = static_cast<std::size_t>(item->row());
        logic_.Functions.resize(std::max(logic_.Functions.size(), row + 1));
        sql::OwnFunction& function = logic_.Functions[row];
        (item->column() == 0 ? function.name : function.expression) = item->text().toStdString();
        showFunctions();
    });
    column->addWidget(functions_);
    return group;
}

/// The rows, and an empty one to go on with.
void OptionsWindow::showFunctions() {
    const QSignalBlocker quiet(functions_);
    functions_->setRowCount(static_cast<int>(logic_.Functions.size()) + 1);
    for (int row = 0; row < functions_->rowCount(); ++row) {
        const auto at = static_cast<std::size_t>(row);
        const sql::OwnFunction function = at < logic_.Functions.size() ? logic_.Functions[at] : sql::OwnFunction{};
        for (const int column : {0, 1}) {
            if (!functions_->item(row, column)) {
                functions_->setItem(row, column, new QTableWidgetItem);
            }
            functions_->item(row, column)->setText(text(column == 0 ? function.name : function.expression));
        }
    }
}

void OptionsWindow::newSampleRows() {
    constexpr int kMostSampleRows = 1000000;
    sampleRows_ = new QSpinBox(this);
    sampleRows_->setObjectName(QStringLiteral("numSampleRows"));
    sampleRows_->setRange(1, kMostSampleRows);
    sampleRows_->setGroupSeparatorShown(true);
    sampleRows_->setAlignment(Qt::AlignRight);
    sampleRows_->setMinimumWidth(kNumberWidth);
    sampleRows_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    sampleRows_->setToolTip(tr("So many rows of each record set that nobody feeds are read for the list of rows"));
    connect(sampleRows_, &QSpinBox::valueChanged, this, [this](int rows) { logic_.SampleRows = std::to_string(rows); });
}

void OptionsWindow::buildRest() {
    QFormLayout* form = newForm();
    lblColor_ = new QPushButton(this);
    lblColor_->setObjectName(QStringLiteral("lblColor"));
    lblColor_->setIconSize(kSwatch);
    lblColor_->setToolTip(tr("Choose another colour"));
    lblColor_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(lblColor_, &QPushButton::clicked, this, [this] {
        logic_.chooseColour();
        showState();
    });
    shortNames_ = new QCheckBox(tr("Short &Names For New Members"), this);
    shortNames_->setObjectName(QStringLiteral("chkShortNames"));
    shortNames_->setToolTip(tr("ID instead of BOOKS_ID, where that is free; the key stays BOOKS_ID"));
    connect(shortNames_, &QCheckBox::clicked, this, [this](bool on) { logic_.ShortNames = on; });
    auto* line = new QHBoxLayout;
    line->addWidget(lblColor_);
    line->addStretch();
    line->addWidget(shortNames_);
    QLabel* colour = newCaption(tr("Selected Node Applied Color:"), this);
    colour->setBuddy(lblColor_);
    form->addRow(colour, line);

    newSampleRows();
    QLabel* rows = newCaption(tr("Rows Of A Sample:"), this);
    rows->setBuddy(sampleRows_);
    form->addRow(rows, sampleRows_);

    auto* row = new QHBoxLayout;
    txtSQL_ = newField(QStringLiteral("txtSQL"), this);
    missing_ = txtSQL_->addAction(icon(QStringLiteral("warning")), QLineEdit::TrailingPosition);
    missing_->setObjectName(QStringLiteral("missing"));
    missing_->setToolTip(tr("There is no such file"));
    connect(txtSQL_, &QLineEdit::textEdited, this, [this](const QString& path) {
        logic_.txtSQL = path.toStdString();
        showState();
    });
    auto* open = new QPushButton(icon(QStringLiteral("open")), QString(), this);
    open->setObjectName(QStringLiteral("SqlOpen"));
    open->setToolTip(tr("Choose a file"));
    open->setAccessibleName(open->toolTip());
    open->setAutoDefault(false);
    connect(open, &QPushButton::clicked, this, [this] {
        logic_.SqlOpen();
        showState();
    });
    row->addWidget(txtSQL_, 1);
    row->addWidget(open);
    QLabel* caption = newCaption(tr("Repository's Creation SQL File:"), this);
    caption->setBuddy(txtSQL_);
    form->addRow(caption, row);
    body().addLayout(form);
}

void OptionsWindow::showState() {
    for (std::size_t i = 0; i < numbers_.size(); ++i) {
        const QSignalBlocker quiet(numbers_[i]);
        numbers_[i]->setValue(QByteArray::fromStdString(logic_.Text[i]).toDouble());
    }
    lblColor_->setIcon(swatch(logic_.lblColor));
    lblColor_->setText(fromModel(logic_.lblColor).name());
    if (txtSQL_->text() != QString::fromStdString(logic_.txtSQL)) {
        txtSQL_->setText(QString::fromStdString(logic_.txtSQL));
    }
    shortNames_->setChecked(logic_.ShortNames);
    {
        const QSignalBlocker quiet(sampleRows_);
        sampleRows_->setValue(QByteArray::fromStdString(logic_.SampleRows).toInt());
    }
    const QSignalBlocker quiet(problems_);
    for (int row = 0; row < problems_->count(); ++row) {
        const bool told = logic_.Problems.test(static_cast<std::size_t>(row));
        problems_->item(row)->setCheckState(told ? Qt::Checked : Qt::Unchecked);
    }
    showFunctions();
    missing_->setVisible(!logic_.hasScript());
}

}  // namespace orvent::qt
