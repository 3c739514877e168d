#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"
#include "vxtimeline/dopesheet/dopesheetselectionmodel.h"

#include <QtCore/QIdentityProxyModel>
#include <QtGui/QStandardItemModel>
#include <QtTest>
#include <random>

using Flags = QItemSelectionModel::SelectionFlags;

namespace {

// A tree of two columns. Each node has the given number of children down to the given depth.
void addChildren(QStandardItem *parent, int count, int depth)
{
    for (int i = 0; i < count; ++i) {
        const QString name = QString::number(i);
        const QList<QStandardItem *> row{new QStandardItem(name), new QStandardItem(name)};
        if (depth > 1)
            addChildren(row.first(), count, depth - 1);
        parent->appendRow(row);
    }
}

void collectRows(const QAbstractItemModel &model, const QModelIndex &parent, QModelIndexList *rows)
{
    for (int row = 0; row < model.rowCount(parent); ++row) {
        rows->append(model.index(row, 0, parent));
        collectRows(model, rows->last(), rows);
    }
}

QModelIndexList rowsOf(const QAbstractItemModel &model)
{
    QModelIndexList rows;
    collectRows(model, QModelIndex(), &rows);
    return rows;
}

// What a view selects for Ctrl+A: all children of one parent are a range, column by column or not.
QItemSelection everything(const QAbstractItemModel &model)
{
    QItemSelection selection;
    selection.select(model.index(0, 0), model.index(model.rowCount() - 1, 0));
    for (const QModelIndex &row : rowsOf(model)) {
        if (model.rowCount(row) > 0)
            selection.append(QItemSelectionRange(model.index(0, 0, row),
                                                 model.index(model.rowCount(row) - 1, 0, row)));
    }
    return selection;
}

QItemSelection firstHalf(const QItemSelection &selection)
{
    QItemSelection half;
    for (int i = 0; i < selection.size() / 2; ++i)
        half.append(selection.at(i));
    return half;
}

// Counts the calls of parent(): every comparison of two ranges makes some.
class CountingModel : public QIdentityProxyModel
{
public:
    QModelIndex parent(const QModelIndex &index) const override
    {
        ++count;
        return QIdentityProxyModel::parent(index);
    }
    mutable qint64 count = 0;
};

} // namespace

// The dope sheet's selection model beside a plain one, which has to have the same rows selected
// after everything that is done to both.
class TestDopeSheetSelectionModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard = std::make_unique<VxWarningGuard>();
        model = std::make_unique<QStandardItemModel>();
        addChildren(model->invisibleRootItem(), 4, 3);
        ours = std::make_unique<DopeSheetSelectionModel>(model.get());
        plain = std::make_unique<QItemSelectionModel>(model.get());
    }
    void cleanup()
    {
        ours.reset();
        plain.reset();
        model.reset();
        guard.reset();
    }

    void nothingAtFirst();
    void wholeRowsForAnyColumn();
    void rangesThatMeet();
    void cellsStayCells();
    void rowsAreAddedAndRemoved();
    void reportsSelectedAndDeselectedRows();
    void silentReset();
    void asManyRangesAsParents();
    void randomSession();
    void workGrowsWithTheRanges();

private:
    void select(const QItemSelection &selection, Flags command)
    {
        ours->select(selection, command);
        plain->select(selection, command);
    }
    void compare() const
    {
        for (const QModelIndex &row : rowsOf(*model)) {
            QCOMPARE(ours->isSelected(row), plain->isSelected(row));
            QCOMPARE(ours->isSelected(row.sibling(row.row(), 1)),
                     plain->isSelected(row.sibling(row.row(), 1)));
            QCOMPARE(ours->isRowSelected(row), plain->isSelected(row));
            QCOMPARE(ours->isRowSelected(row.sibling(row.row(), 1)), plain->isSelected(row));
        }
    }
    QModelIndex child(std::initializer_list<int> path) const
    {
        QModelIndex index;
        for (const int row : path)
            index = model->index(row, 0, index);
        return index;
    }

    std::unique_ptr<VxWarningGuard> guard;
    std::unique_ptr<QStandardItemModel> model;
    std::unique_ptr<DopeSheetSelectionModel> ours;
    std::unique_ptr<QItemSelectionModel> plain;
};

void TestDopeSheetSelectionModel::nothingAtFirst()
{
    compare();
    QVERIFY(!ours->isRowSelected(QModelIndex()));
    QStandardItemModel other(1, 1);
    QVERIFY(!ours->isRowSelected(other.index(0, 0)));
}

void TestDopeSheetSelectionModel::wholeRowsForAnyColumn()
{
    QItemSelection selection;
    selection.select(child({1, 0}), child({1, 2}));
    const QModelIndex cell = child({2, 3});
    selection.select(cell.sibling(cell.row(), 1), cell.sibling(cell.row(), 1));
    select(selection, Flags(QItemSelectionModel::Select) | QItemSelectionModel::Rows);
    compare();
    QVERIFY(ours->isRowSelected(cell));
    QVERIFY(ours->isRowSelected(child({1, 1})));
    QVERIFY(!ours->isRowSelected(child({1, 3})));
    QVERIFY(!ours->isRowSelected(child({1})));
}

void TestDopeSheetSelectionModel::rangesThatMeet()
{
    QItemSelection selection;
    selection.append(QItemSelectionRange(child({1, 0}), child({1, 2})));
    selection.append(QItemSelectionRange(child({1, 2}), child({1, 3})));
    for (const auto command : {QItemSelectionModel::Select, QItemSelectionModel::Toggle,
                               QItemSelectionModel::Deselect}) {
        select(selection, Flags(command) | QItemSelectionModel::Rows);
        compare();
    }
}

void TestDopeSheetSelectionModel::cellsStayCells()
{
    const QModelIndex row = child({1, 1});
    const QModelIndex cell = row.sibling(row.row(), 1);
    QItemSelection selection(cell, cell);
    selection.select(child({0}), child({0}));
    select(selection, QItemSelectionModel::Select);
    compare();
    QVERIFY(!ours->isRowSelected(row));
    QVERIFY(ours->isSelected(cell));
    QVERIFY(ours->isRowSelected(child({0})));
}

void TestDopeSheetSelectionModel::rowsAreAddedAndRemoved()
{
    select(everything(*model), Flags(QItemSelectionModel::Select) | QItemSelectionModel::Rows);
    compare();
    model->insertRow(1, {new QStandardItem("new"), new QStandardItem("new")});
    compare();
    QVERIFY(!ours->isRowSelected(model->index(1, 0)));
    QVERIFY(ours->isRowSelected(model->index(4, 0)));
    model->removeRow(0, model->index(2, 0));
    compare();
    model->item(3)->sortChildren(0, Qt::DescendingOrder);
    compare();
    model->removeRows(0, model->rowCount());
    compare();
    QVERIFY(!ours->hasSelection());
}

// Listeners of a change read the new state.
void TestDopeSheetSelectionModel::reportsSelectedAndDeselectedRows()
{
    ours->select(child({0}), QItemSelectionModel::Select | QItemSelectionModel::Rows);
    QVERIFY(ours->isRowSelected(child({0})));
    int reports = 0;
    connect(ours.get(), &QItemSelectionModel::selectionChanged, this,
            [&](const QItemSelection &selected, const QItemSelection &deselected) {
                ++reports;
                QVERIFY(!ours->isRowSelected(child({0})));
                QVERIFY(ours->isRowSelected(child({1, 2})));
                QVERIFY(selected.contains(child({1, 2})));
                QVERIFY(deselected.contains(child({0})));
            });
    QItemSelection other;
    other.select(child({1, 1}), child({1, 2}));
    other.select(child({3, 1}), child({3, 2}));
    ours->select(other, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    QCOMPARE(reports, 1);
}

void TestDopeSheetSelectionModel::silentReset()
{
    ours->select(child({1, 1}), QItemSelectionModel::Select | QItemSelectionModel::Rows);
    QVERIFY(ours->isRowSelected(child({1, 1})));
    ours->reset();
    QVERIFY(!ours->isRowSelected(child({1, 1})));
}

void TestDopeSheetSelectionModel::asManyRangesAsParents()
{
    ours->select(everything(*model), QItemSelectionModel::Select | QItemSelectionModel::Rows);
    QCOMPARE(ours->selection().size(), 1 + 4 + 16);
    QCOMPARE(ours->selectedRows().size(), 4 + 16 + 64);
}

void TestDopeSheetSelectionModel::randomSession()
{
    std::mt19937 random(7);
    const auto below = [&random](int end) { return int(random() % unsigned(end)); };
    const QVector<Flags> commands{QItemSelectionModel::Select, QItemSelectionModel::ClearAndSelect,
                                  QItemSelectionModel::Deselect, QItemSelectionModel::Toggle,
                                  QItemSelectionModel::SelectCurrent};
    for (int step = 0; step < 400; ++step) {
        const QModelIndexList rows = rowsOf(*model);
        QItemSelection selection;
        const int ranges = below(5);
        for (int i = 0; i < ranges; ++i) {
            const QModelIndex first = rows.at(below(rows.size()));
            const int last = first.row() + below(model->rowCount(first.parent()) - first.row());
            selection.append(QItemSelectionRange(first, first.sibling(last, below(2))));
        }
        select(selection, commands.at(below(commands.size())) | QItemSelectionModel::Rows);
        if (step % 20 == 0) {
            const QModelIndex parent = rows.at(below(rows.size())).parent();
            model->insertRow(below(model->rowCount(parent)), parent);
            model->insertColumns(0, model->columnCount(parent) > 1 ? 0 : 2, parent);
        }
        if (step % 20 == 10)
            model->removeRow(below(4), rows.at(below(rows.size())).parent());
        compare();
        if (QTest::currentTestFailed())
            return;
    }
}

void TestDopeSheetSelectionModel::workGrowsWithTheRanges()
{
    const auto questions = [](int parents) {
        QStandardItemModel wide;
        for (int i = 0; i < parents; ++i) {
            wide.appendRow({new QStandardItem("parent"), new QStandardItem("parent")});
            addChildren(wide.item(i), 3, 1);
        }
        CountingModel counting;
        counting.setSourceModel(&wide);
        DopeSheetSelectionModel selection(&counting);
        const QItemSelection all = everything(counting);
        counting.count = 0;
        selection.select(all, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        const bool found =
            selection.isRowSelected(counting.index(2, 0, counting.index(parents - 1, 0)));
        selection.select(all, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        selection.select(firstHalf(all),
                         QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        selection.select(all, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        selection.clear();
        return found ? counting.count : -1;
    };
    const qint64 some = questions(200);
    const qint64 more = questions(1600);
    QVERIFY(some > 0);
    QVERIFY2(more < 12 * some, qPrintable(QStringLiteral("%1, then %2").arg(some).arg(more)));
}

VX_TEST_MAIN(TestDopeSheetSelectionModel)
#include "tst_dopesheetselectionmodel.moc"
