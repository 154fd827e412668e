// The models of lists and trees: every change arrives as itself, and the toolkit's own examiner finds no fault.

#include <QClipboard>
#include <QGuiApplication>
#include <random>

#include "qt/forms/list_model.h"
#include "qt/forms/row_view.h"
#include "qt/forms/tree_model.h"
#include "window_test.h"

namespace orvent::qt {

using forms::List;
using forms::Tree;

namespace {

QIcon noPicture(const std::string&, std::int32_t) {
    return {};
}

forms::ListRow row(const std::string& key) {
    return {.Key = key, .Text = "text of " + key};
}

/// The rows that a view would show after the changes that the model told, kept by those alone.
class Follower : public QObject {
  public:
    explicit Follower(ListModel& model) : model_(model) {
        connect(&model, &QAbstractItemModel::rowsInserted, this,
                [this](const QModelIndex&, int at) { shown.insert(at, label(at)); });
        connect(&model, &QAbstractItemModel::rowsRemoved, this,
                [this](const QModelIndex&, int at) { shown.remove(at); });
        connect(&model, &QAbstractItemModel::rowsMoved, this,
                [this](const QModelIndex&, int from, int, const QModelIndex&, int to) {
                    shown.move(from, to > from ? to - 1 : to);
                });
        connect(&model, &QAbstractItemModel::dataChanged, this, [this](const QModelIndex& at, const QModelIndex& to) {
            for (int row = at.row(); row <= to.row(); ++row) {
                shown[row] = label(row);
            }
        });
        connect(&model, &QAbstractItemModel::modelReset, this, [this] {
            ++resets;
            shown.clear();
            for (int at = 0; at < model_.rowCount(); ++at) {
                shown.append(label(at));
            }
        });
    }
    QString label(int at) const { return model_.index(at, 0).data().toString(); }

    QStringList shown;
    int resets = 0;

  private:
    ListModel& model_;
};

}  // namespace

class ListModelsTest : public WindowTest {
    Q_OBJECT

  private Q_SLOTS:
    void selectedRowsAreCopiedWithTabs() {
        List list;
        forms::ListRow second = row("b");
        second.SubItems = {"NUMBER", "RS1"};
        list.add(row("a"));
        list.add(second);
        ListModel model(list, {QStringLiteral("Name"), QStringLiteral("Type"), QStringLiteral("From")}, noPicture,
                        nullptr);
        RowView view(model, QStringLiteral("List"), nullptr);
        view.setReport(true);
        list.select(2);
        QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("text of b\tNUMBER\tRS1\n"));
    }

    void anyChangesOfAListArriveAsThemselves() {
        List list;
        list.add(row("first"));
        ListModel model(list, {QStringLiteral("Name"), QStringLiteral("Type")}, noPicture, nullptr);
        QAbstractItemModelTester examiner(&model);
        Follower follower(model);
        follower.shown.append(follower.label(0));
        std::mt19937 random(3);
        const auto any = [&] { return static_cast<int>(random() % static_cast<unsigned>(list.Count() + 1)) + 1; };
        const auto change = [&](int step) {
            switch (random() % 5) {
                case 0:
                case 1:
                    list.add(row(std::to_string(step)), any());
                    break;
                case 2:
                    list.remove(any());
                    break;
                case 3:
                    list.move(any(), any());
                    break;
                default:
                    list.setText(any(), "new " + std::to_string(step));
            }
        };
        const auto followed = [&] {
            QCOMPARE(follower.shown.size(), list.Count());
            for (int at = 0; at < list.Count(); ++at) {
                QCOMPARE(follower.shown[at], follower.label(at));
            }
        };
        for (int step = 0; step < 3000; ++step) {
            change(step);
            QCOMPARE(follower.shown.size(), list.Count());
        }
        followed();
        for (int step = 0; step < 300; ++step) {
            const List::Gathering one(list);
            change(step);
        }
        followed();
        QCOMPARE(follower.resets, 0);
        for (int step = 0; step < 300; ++step) {
            {
                const List::Gathering many(list);
                for (int each = 0; each < 4; ++each) {
                    change(step);
                }
            }
            followed();
        }
        QVERIFY(follower.resets > 200 && follower.resets < 300);
        follower.resets = 0;
        list.rebuild([&] {
            list.Clear();
            list.add(row("only"));
        });
        QCOMPARE(model.rowCount(), 1);
        QCOMPARE(follower.resets, 1);
        list.Clear();
        QCOMPARE(model.rowCount(), 0);
        QCOMPARE(follower.resets, 2);
    }

    void aSelectedRowStaysSelectedWhereverItGoes() {
        List list;
        for (int at = 0; at < 10000; ++at) {
            list.add(row(std::to_string(at)));
        }
        ListModel model(list, {QStringLiteral("Name")}, noPicture, nullptr);
        QItemSelectionModel selection(&model);
        selection.select(model.index(4, 0), QItemSelectionModel::Select);
        QSignalSpy moved(&model, &QAbstractItemModel::rowsMoved);
        list.move(5, 10000);
        list.move(10000, 2);
        QCOMPARE(moved.count(), 2);
        QCOMPARE(selection.selectedIndexes().size(), 1);
        QCOMPARE(selection.selectedIndexes().front().row(), 1);
        QCOMPARE(selection.selectedIndexes().front().data().toString(), QStringLiteral("text of 4"));
    }

    void aTreeTellsItsNodesAndTheCountBesideTheirParent() {
        Tree tree;
        TreeModel model(tree, noPicture, nullptr);
        QAbstractItemModelTester examiner(&model);
        Tree::Node& root = tree.add({"DB", "Record Sets", 1, "DB"});
        Tree::Node& table = tree.add({"DB.RS", "RS", 2, "RS-UnChecked"}, &root);
        for (const char* key : {"DB.RS.A", "DB.RS.B", "DB.RS.C"}) {
            tree.add({key, key, 0, "Field-UnChecked"}, &table);
        }
        const QModelIndex parent = model.index(0, 0, model.index(0, 0));
        const QModelIndex count = parent.siblingAtColumn(1);
        QCOMPARE(count.data().toString(), QStringLiteral("0 of 3"));
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        tree.alter(*tree.find("DB.RS.B"), [](forms::TreeNode& node) { node.Checked = true; });
        QCOMPARE(count.data().toString(), QStringLiteral("1 of 3"));
        QVERIFY(changed.contains({count, count, QVariant::fromValue(QList<int>())}));
        QCOMPARE(model.index(1, 0, parent).data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
        tree.alter(table, [](forms::TreeNode& node) { node.Image = "RS-UnderChecked"; });
        QCOMPARE(parent.data(Qt::CheckStateRole).toInt(), int(Qt::PartiallyChecked));
        tree.narrow("rs.b");
        QCOMPARE(count.data().toString(), QStringLiteral("1 of 3 shown"));
        tree.narrow("");
        {
            const Tree::Gathering gathering(tree);
            for (const char* key : {"DB.RS.C", "DB.RS.B"}) {
                tree.alter(*tree.find(key), [](forms::TreeNode& node) { node.Checked = true; });
            }
            changed.clear();
        }
        QVERIFY(changed.contains(
            {model.index(1, 0, parent), model.index(2, 0, parent), QVariant::fromValue(QList<int>())}));
        QVERIFY(changed.contains({count, count, QVariant::fromValue(QList<int>())}));
        tree.remove(*tree.find("DB.RS.A"));
        QCOMPARE(model.rowCount(parent), 2);
        QCOMPARE(model.index(1, 0, parent).data().toString(), QStringLiteral("DB.RS.C"));

        std::string clicked;
        model.click = [&](Tree::Node& node) { clicked = node.value().Key; };
        QVERIFY(model.setData(model.index(0, 0, parent), Qt::Checked, Qt::CheckStateRole));
        QCOMPARE(clicked, std::string("DB.RS.B"));
        tree.alter(*tree.find("DB.RS.C"), [](forms::TreeNode& node) { node.Refusal = "It is taken."; });
        const QModelIndex refused = model.index(1, 0, parent);
        QCOMPARE(refused.flags() & (Qt::ItemIsUserCheckable | Qt::ItemIsDragEnabled | Qt::ItemIsEnabled),
                 Qt::ItemFlags(Qt::ItemIsEnabled));
        QCOMPARE(refused.data(Qt::ToolTipRole).toString(), QStringLiteral("DB.RS.C\nIt is taken."));
        tree.Clear();
        QCOMPARE(model.rowCount(), 0);
    }
};

}  // namespace orvent::qt

QTEST_MAIN(orvent::qt::ListModelsTest)
#include "list_models_test.moc"
