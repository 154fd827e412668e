#include "qt/shell/facts_window.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPalette>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>
#include <set>

#include "qt/text.h"

namespace orvent::qt {

namespace {

constexpr int kExpectedHeight = 90;
constexpr QSize kLeastTable(460, 220);

}  // namespace

void FactsModel::change(const std::function<void()>& what) {
    beginResetModel();
    what();
    endResetModel();
}

int FactsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(logic_.rows().size());
}

int FactsModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(logic_.columns().size());
}

QVariant FactsModel::data(const QModelIndex& index, int role) const {
    const entities::Field& field =
        logic_.rows()[static_cast<std::size_t>(index.row())][static_cast<std::size_t>(index.column())];
    switch (role) {
        case Qt::DisplayRole:
            return field ? text(*field) : QStringLiteral("NULL");
        case Qt::EditRole:
            return field ? field->empty() ? QStringLiteral("\"\"") : text(*field) : QString();
        case Qt::ForegroundRole:
            return field ? QVariant() : QVariant(QPalette().brush(QPalette::PlaceholderText));
        default:
            return {};
    }
}

QVariant FactsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole) {
        return {};
    }
    return orientation == Qt::Horizontal ? QVariant(text(logic_.columns()[static_cast<std::size_t>(section)]))
                                         : QVariant(section + 1);
}

Qt::ItemFlags FactsModel::flags(const QModelIndex& index) const {
    return QAbstractTableModel::flags(index) | Qt::ItemIsEditable;
}

bool FactsModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole) {
        return false;
    }
    logic_.type(static_cast<std::size_t>(index.row()), static_cast<std::size_t>(index.column()),
                value.toString().toStdString());
    Q_EMIT dataChanged(index, index);
    return true;
}

FactsWindow::FactsWindow(shell::FactsForm& logic, QWidget* parent)
    : FormWindow(tr("Rows And Expectations Of %1").arg(text(logic.Caption())), parent),
      logic_(logic),
      model_(new FactsModel(logic, this)),
      view_(nullptr) {
    setObjectName(QStringLiteral("FactsWindow"));
    if (logic.hasRows()) {
        addRows();
    }
    auto* expected = new QPlainTextEdit(text(logic.txtExpected));
    expected->setObjectName(QStringLiteral("txtExpected"));
    expected->setPlaceholderText(tr("At least 3 rows\nNo row where COLUMN > 10"));
    expected->setMinimumHeight(kExpectedHeight);
    expected->setMaximumHeight(kExpectedHeight);
    expected->setTabChangesFocus(true);
    auto* label = new QLabel(tr("What is &expected of its rows, a line each:"));
    label->setBuddy(expected);
    body().addWidget(label);
    body().addWidget(expected);
    addAccept(QStringLiteral("cmdOK"), tr("&OK"), [this, expected] {
        logic_.txtExpected = expected->toPlainText().toStdString();
        return logic_.cmdOK_Click();
    });
    addCancel(QStringLiteral("cmdCancel"));
}

void FactsWindow::addRows() {
    view_ = new QTableView;
    view_->setObjectName(QStringLiteral("lstFacts"));
    view_->setAccessibleName(tr("Rows"));
    view_->setModel(model_);
    view_->setMinimumSize(kLeastTable);
    auto* note =
        new QLabel(tr("Rows that the scenario is tried on instead of those of a data source. Nothing at all is "
                      "NULL, and \"\" is the empty text."));
    note->setWordWrap(true);
    body().addWidget(note);
    body().addWidget(view_, 1);
    auto* buttons = new QHBoxLayout;
    const auto add = [&](const char* name, const QString& words, const std::function<void()>& what) {
        auto* button = new QPushButton(words);
        button->setObjectName(QLatin1String(name));
        button->setAutoDefault(false);
        buttons->addWidget(button);
        connect(button, &QPushButton::clicked, this, what);
    };
    add("cmdAddRow", tr("&Add Row"), [this] { model_->change([this] { logic_.cmdAddRow_Click(); }); });
    add("cmdRemove", tr("&Remove"), [this] {
        std::set<std::size_t> rows;
        for (const QModelIndex& index : view_->selectionModel()->selectedIndexes()) {
            rows.insert(static_cast<std::size_t>(index.row()));
        }
        model_->change([&] { logic_.cmdRemove_Click({rows.begin(), rows.end()}); });
    });
    add("cmdPaste", tr("&Paste"), [this] { model_->change([this] { logic_.cmdPaste_Click(); }); });
    add("cmdLoad", tr("&Load..."), [this] { model_->change([this] { logic_.cmdLoad_Click(); }); });
    buttons->addStretch(1);
    body().addLayout(buttons);
}

SourceLoginWindow::SourceLoginWindow(shell::SourceLogin& logic, QWidget* parent)
    : FormWindow(tr("Login At %1").arg(text(logic.source())), parent) {
    setObjectName(QStringLiteral("SourceLogin"));
    auto* note =
        new QLabel(tr("Rows are read from this data source; nothing is written there. The password is kept "
                      "until the program ends."));
    note->setWordWrap(true);
    body().addWidget(note);
    auto* user = new QLineEdit(text(logic.txtUser));
    user->setObjectName(QStringLiteral("txtUser"));
    auto* password = new QLineEdit;
    password->setObjectName(QStringLiteral("txtPassword"));
    password->setEchoMode(QLineEdit::Password);
    auto* fields = new QFormLayout;
    fields->addRow(tr("&User:"), user);
    fields->addRow(tr("&Password:"), password);
    body().addLayout(fields);
    addAccept(QStringLiteral("cmdOK"), tr("&OK"), [&logic, user, password] {
        logic.txtUser = user->text().toStdString();
        logic.txtPassword = password->text().toStdString();
        logic.isOk = true;
        return true;
    });
    addCancel(QStringLiteral("cmdCancel"));
}

}  // namespace orvent::qt
