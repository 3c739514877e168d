#include "dopesheetmodeltestbase.h"
#include "testing/vxtestmain.h"

#include <vxcore/vxundostack.h>
#include <vxcore/vxundostackhold.h>

// Nodes that get another parent, and rows at the top that change places.
class TestDopeSheetModelMoves : public QObject, private DopeSheetModelTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUpModel(); }
    void cleanup() { tearDownModel(); }

    void reparenting();
    void reparentingToTheTop();
    void reparentingBelowANodeNotShown();
    void undoneReparenting();
    void rootMoves_data();
    void rootMoves();
    void onlyTopLevelRowsMove();
};

void TestDopeSheetModelMoves::reparenting()
{
    VxNode *a = node("a");
    VxNode *b = node("b");
    VxNode *child = node("child", a);
    VxNode *low = node("low", child);
    setKeys(low->getXPosControl(), {10});
    m_model->addNode(a, true);
    m_model->addNode(b, true);
    m_view->expandAll();
    const QSignalSpy moves(m_model.get(), &QAbstractItemModel::rowsMoved);
    QCOMPARE(m_model->findItem(a)->keyCount(), 1);
    QCOMPARE(m_model->findItem(b)->keyCount(), 0);
    QVERIFY(child->setNodeParent(b));
    QCOMPARE(moves.count(), 1);
    QCOMPARE(nodesBelow(m_model->findItem(a)), QStringList());
    QCOMPARE(nodesBelow(m_model->findItem(b)), QStringList{QStringLiteral("child")});
    QCOMPARE(nodesBelow(m_model->findItem(child)), QStringList{QStringLiteral("low")});
    QCOMPARE(m_model->findItem(a)->keyCount(), 0);
    QCOMPARE(m_model->findItem(b)->keyCount(), 1);
}

void TestDopeSheetModelMoves::reparentingToTheTop()
{
    VxNode *a = node("a");
    VxNode *child = node("child", a);
    m_model->addNode(a, true);
    m_model->addNode(node("b"));
    QVERIFY(child->setNodeParent(nullptr, 0));
    QCOMPARE(nodesAtTop(),
             QStringList({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("child")}));
}

void TestDopeSheetModelMoves::reparentingBelowANodeNotShown()
{
    VxNode *a = node("a");
    VxNode *unseen = node("unseen");
    node("its child", unseen);
    m_model->addNode(a);
    QVERIFY(a->setNodeParent(unseen));
    QCOMPARE(nodesAtTop(), QStringList{QStringLiteral("unseen")});
    QCOMPARE(nodesBelow(m_model->findItem(unseen)), QStringList{QStringLiteral("a")});
}

void TestDopeSheetModelMoves::undoneReparenting()
{
    VxNode *a = node("a");
    VxNode *b = node("b");
    m_model->addNode(a);
    m_model->addNode(b);
    {
        VxUndoStackHold hold;
        QVERIFY(b->setNodeParent(a));
        hold.accept(QStringLiteral("Parent"));
    }
    QCOMPARE(nodesAtTop(), QStringList{QStringLiteral("a")});
    vxApp->getUndoStack()->undo();
    QCOMPARE(nodesAtTop(), QStringList({QStringLiteral("a"), QStringLiteral("b")}));
}

void TestDopeSheetModelMoves::rootMoves_data()
{
    QTest::addColumn<QString>("move");
    QTest::addColumn<QString>("node");
    QTest::addColumn<QString>("order");
    // The rows that the signal names: start, end, destination. Empty when nothing moves.
    QTest::addColumn<QVector<int>>("rows");
    using Rows = QVector<int>;
    const auto row = [](const char *move, const char *node, const char *order, const Rows &rows) {
        QTest::addRow("%s %s", node, move) << QString::fromLatin1(move) << QString::fromLatin1(node)
                                           << QString::fromLatin1(order) << rows;
    };
    row("to top", "c", "cabd", {2, 2, 0});
    row("to top", "a", "abcd", {});
    row("up", "c", "acbd", {2, 2, 1});
    row("up", "a", "abcd", {});
    row("down", "b", "acbd", {2, 2, 1});
    row("down", "d", "abcd", {});
    row("to bottom", "b", "acdb", {1, 1, 4});
    row("to bottom", "d", "abcd", {});
}

void TestDopeSheetModelMoves::rootMoves()
{
    QFETCH(QString, move);
    QFETCH(QString, node);
    QFETCH(QString, order);
    QFETCH(QVector<int>, rows);
    QMap<QString, VxNode *> nodes;
    for (const char *name : {"a", "b", "c", "d"}) {
        nodes[QString::fromLatin1(name)] = this->node(name);
        m_model->addNode(nodes[QString::fromLatin1(name)]);
    }
    QVector<int> reported;
    connect(
        m_model.get(), &QAbstractItemModel::rowsMoved, this,
        [&reported](const QModelIndex &from, int start, int end, const QModelIndex &to, int row) {
            QVERIFY(!from.isValid() && !to.isValid());
            reported << start << end << row;
        });
    const std::map<QString, void (VxDopeSheetModel::*)(VxNode *)> moves{
        {QStringLiteral("to top"), &VxDopeSheetModel::moveRootRowToTop},
        {QStringLiteral("up"), &VxDopeSheetModel::moveRootRowUp},
        {QStringLiteral("down"), &VxDopeSheetModel::moveRootRowDown},
        {QStringLiteral("to bottom"), &VxDopeSheetModel::moveRootRowToBottom},
    };
    (m_model.get()->*moves.at(move))(nodes.value(node));
    QCOMPARE(nodesAtTop().join(QString()), order);
    QCOMPARE(reported, rows);
    QCOMPARE(labelsAt(m_filter.get()).join(QString()), order);
}

void TestDopeSheetModelMoves::onlyTopLevelRowsMove()
{
    VxNode *a = node("a");
    VxNode *low = node("low", a);
    m_model->addNode(node("first"));
    m_model->addNode(a, true);
    const QSignalSpy moves(m_model.get(), &QAbstractItemModel::rowsMoved);
    for (VxNode *unmoved : {low, node("unseen"), static_cast<VxNode *>(nullptr)}) {
        m_model->moveRootRowToTop(unmoved);
        m_model->moveRootRowUp(unmoved);
        m_model->moveRootRowDown(unmoved);
        m_model->moveRootRowToBottom(unmoved);
    }
    QCOMPARE(moves.count(), 0);
}

VX_TEST_MAIN(TestDopeSheetModelMoves)
#include "tst_dopesheetmodelmoves.moc"
