#include "scenetree/treeindentation.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QHeaderView>
#include <QStandardItemModel>
#include <QTreeView>
#include <QtTest>
#include <memory>

using Rows = QVector<TreeIndentation::Row>;
Q_DECLARE_METATYPE(Rows)

/// Names of deep trees stay to be read.
class tst_TreeIndentation : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

    void fitting_data();
    void fitting();
    void followsOpenRows();
    void followsTheRoom();

private:
    // A chain of so many rows in a tree of 200 pixels.
    void build(int depth);

    std::unique_ptr<VxWarningGuard> m_guard;
    std::unique_ptr<QStandardItemModel> m_model;
    std::unique_ptr<QTreeView> m_view;
};

void tst_TreeIndentation::build(int depth)
{
    m_view.reset();
    m_model = std::make_unique<QStandardItemModel>();
    QStandardItem *parent = m_model->invisibleRootItem();
    for (int i = 0; i < depth; ++i) {
        auto *item = new QStandardItem(QStringLiteral("joint"));
        parent->appendRow(item);
        parent = item;
    }
    m_view = std::make_unique<QTreeView>();
    m_view->setModel(m_model.get());
    m_view->setHeaderHidden(true);
    m_view->setIndentation(20);
    m_view->resize(200, 300);
    new TreeIndentation(m_view.get());
    m_view->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_view.get()));
}

void tst_TreeIndentation::fitting_data()
{
    QTest::addColumn<Rows>("rows");
    QTest::addColumn<int>("room");
    QTest::addColumn<int>("indentation");
    QTest::newRow("no rows") << Rows() << 100 << 14;
    QTest::newRow("room enough") << Rows{{3, 50}} << 100 << 14;
    QTest::newRow("exactly") << Rows{{5, 30}} << 100 << 14;
    QTest::newRow("a pixel too little") << Rows{{5, 31}} << 100 << 13;
    QTest::newRow("the worst row counts") << Rows{{1, 80}, {8, 20}, {2, 20}} << 100 << 10;
    QTest::newRow("too deep for anything") << Rows{{40, 20}} << 100 << 6;
    QTest::newRow("a long name takes half") << Rows{{5, 300}} << 100 << 10;
    QTest::newRow("a name without room") << Rows{{1, 300}} << 100 << 14;
}

void tst_TreeIndentation::fitting()
{
    QFETCH(Rows, rows);
    QFETCH(int, room);
    QTEST(TreeIndentation::fitting(rows, room, 14, 6), "indentation");
}

void tst_TreeIndentation::followsOpenRows()
{
    build(12);
    QCoreApplication::processEvents();
    QCOMPARE(m_view->indentation(), 20);
    m_view->expandAll();
    QModelIndex deepest = m_model->index(0, 0);
    while (m_model->hasChildren(deepest))
        deepest = m_model->index(0, 0, deepest);
    QTRY_VERIFY(m_view->indentation() < 20);
    QVERIFY(m_view->indentation() > 6);
    QVERIFY(m_view->visualRect(deepest).width() >=
            m_view->fontMetrics().horizontalAdvance(QStringLiteral("joint")));
    m_view->collapse(m_model->index(0, 0));
    QTRY_COMPARE(m_view->indentation(), 20);
    // Rows inserted into an open row count, too.
    m_view->expand(m_model->index(0, 0));
    QTRY_VERIFY(m_view->indentation() < 20);
    m_model->removeRow(0);
    QTRY_COMPARE(m_view->indentation(), 20);
}

void tst_TreeIndentation::followsTheRoom()
{
    build(12);
    m_view->expandAll();
    QTRY_VERIFY(m_view->indentation() < 20);
    m_view->resize(600, 300);
    QTRY_COMPARE(m_view->indentation(), 20);
    m_view->resize(100, 300);
    QTRY_COMPARE(m_view->indentation(), 6);
}

VX_TEST_MAIN(tst_TreeIndentation)
#include "tst_treeindentation.moc"
