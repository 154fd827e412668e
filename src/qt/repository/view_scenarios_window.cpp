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
    lblScenarios_ = new QLabel(tr("Scenarios"), this);
    lblScenarios_->setObjectName(QStringLiteral("lblScenarios"));
    lblScenarios_->setBuddy(scenarioView_);
    txtScenarioName_ = newField(QStringLiteral("txtScenarioName"), this);
    lblScenarioName_ = new QLabel(tr("Scenario name"), this);
    lblScenarioName_->setObjectName(QStringLiteral("lblScenarioName"));
    lblScenarioName_->setBuddy(txtScenarioName_);

    body().addWidget(lblScenarios_);
    body().addWidget(scenarioView_, 1);
    body().addSpacing(Spacing::gap);
    body().addWidget(lblScenarioName_);
    body().addWidget(txtScenarioName_);
    ok_ = &addAccept(QStringLiteral("OKButton"), QLatin1Char('&') + QString::fromStdString(logic_.OKCaption),
                     [this] { return logic_.OKButton(); });
    addCancel(QStringLiteral("CancelButton"));
    hint_ = &addNote(QStringLiteral("lblHint"));

    connect(txtScenarioName_, &QLineEdit::textEdited, this, [this](const QString& text) {
        logic_.changeName(text.toStdString());
        showState();
    });
    logic_.show = [this] { showState(); };
    showState();
    if (logic_.txtScenarioName.empty()) {
        scenarioView_->setFocus();
    } else {
        txtScenarioName_->setFocus();
        txtScenarioName_->selectAll();
    }
}

void ViewScenariosWindow::buildList() {
    scenarioView_ = new HintList(tr("No scenarios saved yet"), this);
    scenarioView_->setObjectName(QStringLiteral("ScenarioView"));
    scenarioView_->setAccessibleName(tr("Scenarios"));
    scenarioView_->setMinimumSize(kListSize);
    scenarioView_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    scenarioView_->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(scenarioView_, &QListWidget::itemSelectionChanged, this, [this] {
        const QList<QListWidgetItem*> items = scenarioView_->selectedItems();
        if (!items.isEmpty()) {
            choose(scenarioView_->row(items.constFirst()));
        }
    });
    connect(scenarioView_, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { choose(scenarioView_->row(item)); });
    connect(scenarioView_, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* item) {
        choose(scenarioView_->row(item));
        press();
    });
    connect(scenarioView_, &QListWidget::itemChanged, this, &ViewScenariosWindow::renameLater);
}

void ViewScenariosWindow::buildMenu() {
    scenarioViewM_ = new QMenu(this);
    scenarioViewM_->setObjectName(QStringLiteral("ScenarioViewM"));
    scenarioViewRenameM_ = addShortcut(scenarioViewM_, scenarioView_, QStringLiteral("ScenarioViewRenameM"),
                                       tr("Rename"), QStringLiteral("rename"), Qt::Key_F2);
    scenarioViewDeleteM_ = addShortcut(scenarioViewM_, scenarioView_, QStringLiteral("ScenarioViewDeleteM"),
                                       tr("Delete"), QStringLiteral("delete"), Qt::Key_Delete);
    connect(scenarioViewRenameM_, &QAction::triggered, this,
            [this] { scenarioView_->editItem(scenarioView_->item(logic_.selected)); });
    connect(scenarioViewDeleteM_, &QAction::triggered, this, [this] {
        logic_.ScenarioViewDelete();
        showState();
    });
    connect(scenarioView_, &QWidget::customContextMenuRequested, this, [this](const QPoint& place) {
        if (QListWidgetItem* item = scenarioView_->itemAt(place)) {
            choose(scenarioView_->row(item));
            scenarioViewM_->popup(scenarioView_->viewport()->mapToGlobal(place));
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
        [this, row = scenarioView_->row(item), name = item->text().toStdString()] {
            logic_.ScenarioViewRename(row, name);
            showState();
        },
        Qt::QueuedConnection);
}

void ViewScenariosWindow::showState() {
    const QSignalBlocker quietList(scenarioView_);
    const QIcon picture = icon(QStringLiteral("ScenarioDB"));
    const int count = static_cast<int>(logic_.ScenarioView.size());
    while (scenarioView_->count() > count) {
        delete scenarioView_->takeItem(scenarioView_->count() - 1);
    }
    while (scenarioView_->count() < count) {
        QListWidgetItem* item = scenarioView_->addRow(picture);
        item->setFlags(item->flags() | Qt::ItemIsEditable);
    }
    for (int row = 0; row < count; ++row) {
        scenarioView_->item(row)->setText(
            QString::fromStdString(logic_.ScenarioView[static_cast<std::size_t>(row)].name));
    }
    scenarioView_->setCurrentRow(logic_.selected);

    const QString name = QString::fromStdString(logic_.txtScenarioName);
    if (txtScenarioName_->text() != name) {
        txtScenarioName_->setText(name);
    }
    ok_->setEnabled(logic_.canOK());
    hint_->setText(QString::fromStdString(logic_.hint()));
    scenarioViewRenameM_->setEnabled(logic_.selected >= 0);
    scenarioViewDeleteM_->setEnabled(logic_.selected >= 0);
}

}  // namespace orvent::qt
