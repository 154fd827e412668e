#include "qt/statements/variable_list.h"

#include <QHeaderView>
#include <algorithm>

#include "qt/theme/icons.h"
#include "statements/ldl_guide.h"

namespace orvent::qt {

namespace {

enum Column { NameColumn, KindColumn, MeaningColumn, Columns };
constexpr int kVariableIcon = 16;

QString kindCaption(statements::LDLVariableType kind) {
    for (const statements::LDLKindOption& option : statements::kLDLKindOptions) {
        if (option.kind == kind) {
            return QLatin1String(option.caption);
        }
    }
    return QStringLiteral("–");
}

}  // namespace

VariableList::VariableList(QWidget* parent, std::function<void(const QString&)> go) : QTreeWidget(parent) {
    setObjectName(QStringLiteral("listVariables"));
    setColumnCount(Columns);
    setHeaderHidden(true);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setFocusPolicy(Qt::NoFocus);
    setIconSize({kVariableIcon, kVariableIcon});
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);  // the meaning is shortened, and whole in its tool tip
    // Names are as wide as they are; what the columns leave is for the meaning.
    header()->setSectionResizeMode(NameColumn, QHeaderView::ResizeToContents);
    header()->setSectionResizeMode(KindColumn, QHeaderView::ResizeToContents);
    header()->setSectionResizeMode(MeaningColumn, QHeaderView::Stretch);
    connect(this, &QTreeWidget::itemClicked, this,
            [go = std::move(go)](QTreeWidgetItem* row) { go(row->text(NameColumn).mid(1)); });
}

void VariableList::showState(const statements::LDLForm& logic) {
    const int count = logic.Variables.Count();
    while (topLevelItemCount() > count) {
        delete takeTopLevelItem(count);
    }
    while (topLevelItemCount() < count) {
        addTopLevelItem(new QTreeWidgetItem);
    }
    const statements::LDLGuide guide(logic);
    const QIcon complete = icon(QStringLiteral("complete"));
    const QIcon missing = icon(QStringLiteral("missing"));
    for (const statements::LDLVariable& variable : logic.Variables) {
        QTreeWidgetItem& row = *topLevelItem(variable.Index - 1);
        const bool current = &variable == logic.CurrentVariable;
        const bool whole = logic.isComplete(variable);
        const statements::LDLVariableType kind = current            ? logic.kind
                                                 : variable.Defined ? variable.VariableType
                                                                    : statements::VarUndefined;
        row.setText(NameColumn, QLatin1Char('@') + QString::fromStdString(variable.VariableName));
        row.setIcon(NameColumn, whole ? complete : missing);
        row.setToolTip(NameColumn, whole ? tr("Complete") : tr("Something is missing"));
        row.setText(KindColumn, kindCaption(kind));
        const QString meaning = QString::fromStdString(guide.meaningOf(variable));
        row.setText(MeaningColumn, meaning);
        row.setToolTip(MeaningColumn, meaning);
        row.setForeground(MeaningColumn, palette().color(QPalette::PlaceholderText));
        if (current) {
            setCurrentItem(&row);
        }
    }
}

}  // namespace orvent::qt
