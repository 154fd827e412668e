#include "qt/repository/view_scenarios_window.h"

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "qt/forms/fields.h"
#include "qt/theme/icons.h"
#include "qt/theme/theme.h"

namespace orvent::qt {

namespace {

constexpr QSize kListSize(380, 220);

QAction* addShortcut(QMenu* menu, QWidget* list, const QString& name, const QString& caption, const QString& picture,
                     Qt::Key key) {
    QAction* action = menu->addAction(icon(picture), caption);
    action->setObjectName(name);
    action->setShortcut(key);
    // Not while a label is edited: its editor has the focus then.
    action->setShortcutContext(Qt::WidgetShortcut);
    list->addAction(action);
    return action;
}

}  // namespace

ViewScenariosWindow::ViewScenariosWindow(repository::ViewScenarios& logic, QWidget* parent)
    : FormWindow(QString::fromStdString(logic.title), parent), logic_(logic) {
    setObjectName(QStringLiteral("ViewScenarios"));
    buildList();
    buildMenu();
    lblScenarios = new QLabel(tr("Scenarios"), this);
    lblScenarios->setObjectName(QStringLiteral("lblScenarios"));
    lblScenarios->setBuddy(ScenarioView);
    txtScenarioName = newField(QStringLiteral("txtScenarioName"), this);
    lblScenarioName = new QLabel(tr("Scenario name"), this);
    lblScenarioName->setObjectName(QStringLiteral("lblScenarioName"));
    lblScenarioName->setBuddy(txtScenarioName);

    body().addWidget(lblScenarios);
    body().addWidget(ScenarioView, 1);
    body().addSpacing(Spacing::gap);
    body().addWidget(lblScenarioName);
    body().addWidget(txtScenarioName);
    OKButton = &addAccept(QStringLiteral("OKButton"), QString::fromStdString(logic_.OKCaption),
                          [this] { return logic_.OKButton(); });
    addCancel(QStringLiteral("CancelButton"));
    hint_ = &addNote(QStringLiteral("lblHint"));

    connect(txtScenarioName, &QLineEdit::textEdited, this, [this](const QString& text) {
        logic_.changeName(text.toStdString());
        showState();
    });
    showState();
    if (logic_.txtScenarioName.empty()) {
        ScenarioView->setFocus();
    } else {
        txtScenarioName->setFocus();
        txtScenarioName->selectAll();
    }
}

void ViewScenariosWindow::buildList() {
    ScenarioView = new HintList(tr("No scenarios saved yet"), this);
    ScenarioView->setObjectName(QStringLiteral("ScenarioView"));
    ScenarioView->setMinimumSize(kListSize);
    ScenarioView->setEditTriggers(QAbstractItemView::NoEditTriggers);
    ScenarioView->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(ScenarioView, &QListWidget::itemSelectionChanged, this, [this] {
        const QList<QListWidgetItem*> items = ScenarioView->selectedItems();
        if (!items.isEmpty()) {
            choose(ScenarioView->row(items.constFirst()));
        }
    });
    connect(ScenarioView, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { choose(ScenarioView->row(item)); });
    connect(ScenarioView, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* item) {
        choose(ScenarioView->row(item));
        press();
    });
    connect(ScenarioView, &QListWidget::itemChanged, this, &ViewScenariosWindow::renameLater);
}

void ViewScenariosWindow::buildMenu() {
    ScenarioViewM = new QMenu(this);
    ScenarioViewM->setObjectName(QStringLiteral("ScenarioViewM"));
    ScenarioViewRenameM = addShortcut(ScenarioViewM, ScenarioView, QStringLiteral("ScenarioViewRenameM"), tr("Rename"),
                                      QStringLiteral("rename"), Qt::Key_F2);
    ScenarioViewDeleteM = addShortcut(ScenarioViewM, ScenarioView, QStringLiteral("ScenarioViewDeleteM"), tr("Delete"),
                                      QStringLiteral("delete"), Qt::Key_Delete);
    connect(ScenarioViewRenameM, &QAction::triggered, this,
            [this] { ScenarioView->editItem(ScenarioView->item(logic_.selected)); });
    connect(ScenarioViewDeleteM, &QAction::triggered, this, [this] {
        logic_.ScenarioViewDelete();
        showState();
    });
    connect(ScenarioView, &QWidget::customContextMenuRequested, this, [this](const QPoint& place) {
        if (QListWidgetItem* item = ScenarioView->itemAt(place)) {
            choose(ScenarioView->row(item));
            ScenarioViewM->popup(ScenarioView->viewport()->mapToGlobal(place));
        }
    });
}

void ViewScenariosWindow::choose(int item) {
    logic_.clickItem(item);
    showState();
}

void ViewScenariosWindow::renameLater(QListWidgetItem* item) {
    // A message box must not open while the list is still closing its label editor.
    QMetaObject::invokeMethod(
        this,
        [this, row = ScenarioView->row(item), name = item->text().toStdString()] {
            logic_.ScenarioViewRename(row, name);
            showState();
        },
        Qt::QueuedConnection);
}

void ViewScenariosWindow::showState() {
    const QSignalBlocker quietList(ScenarioView);
    const QIcon picture = icon(QStringLiteral("ScenarioDB"));
    const int count = static_cast<int>(logic_.ScenarioView.size());
    while (ScenarioView->count() > count) {
        delete ScenarioView->takeItem(ScenarioView->count() - 1);
    }
    while (ScenarioView->count() < count) {
        QListWidgetItem* item = ScenarioView->addRow(picture);
        item->setFlags(item->flags() | Qt::ItemIsEditable);
    }
    for (int row = 0; row < count; ++row) {
        ScenarioView->item(row)->setText(
            QString::fromStdString(logic_.ScenarioView[static_cast<std::size_t>(row)].name));
    }
    ScenarioView->setCurrentRow(logic_.selected);

    const QString name = QString::fromStdString(logic_.txtScenarioName);
    if (txtScenarioName->text() != name) {
        txtScenarioName->setText(name);
    }
    OKButton->setEnabled(logic_.canOK());
    hint_->setText(QString::fromStdString(logic_.hint()));
    ScenarioViewRenameM->setEnabled(logic_.selected >= 0);
    ScenarioViewDeleteM->setEnabled(logic_.selected >= 0);
}

}  // namespace orvent::qt
