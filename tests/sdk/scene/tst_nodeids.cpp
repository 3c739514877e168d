#include "scenenodestestbase.h"
#include "testing/vxtestmain.h"

/// Identifiers of nodes: unique in a scene, and the same as long as the node exists.
class TestNodeIds : public SceneNodesTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void nodesGetOneWhenTheyAreAdded();
    void removalAndUndoKeepIt();
    void givenOnesAreKeptUnlessTaken();
    void withinASceneItCannotBeChanged();
    void aClearedSceneStartsAnew();
    void manyNodesAreFoundInConstantTime();
};

void TestNodeIds::nodesGetOneWhenTheyAreAdded()
{
    buildSample();
    QSet<quint64> ids;
    for (VxNode *node : m_scene->getNodes()) {
        QVERIFY(node->getId() > 0);
        QCOMPARE(m_scene->findNodeById(node->getId()), node);
        ids.insert(node->getId());
    }
    QCOMPARE(ids.size(), m_scene->getNumNodes());
    QVERIFY(!m_scene->findNodeById(0));
    QVERIFY(!m_scene->findNodeById(99));
    const VxNode outside(QStringLiteral("x"));
    QCOMPARE(outside.getId(), quint64(0));
}

void TestNodeIds::removalAndUndoKeepIt()
{
    buildSample();
    VxNode *b = find(QStringLiteral("b"));
    const quint64 id = b->getId();
    const quint64 below = find(QStringLiteral("c"))->getId();
    {
        VxUndoStackHold hold;
        m_scene->removeNode(b);
        hold.accept(QStringLiteral("Remove"));
    }
    QVERIFY(!m_scene->findNodeById(id));
    QVERIFY(!m_scene->findNodeById(below));
    VxNode *other = add(QStringLiteral("other"));
    QVERIFY(other->getId() != id && other->getId() != below);
    m_stack->undo();
    QCOMPARE(m_scene->findNodeById(id), b);
    QCOMPARE(find(QStringLiteral("c"))->getId(), below);
    m_stack->redo();
    QVERIFY(!m_scene->findNodeById(id));
    m_stack->undo();
    delete m_scene->findNodeById(id);
    QVERIFY(!m_scene->findNodeById(id));
    QVERIFY(!m_scene->findNodeById(below));
}

void TestNodeIds::givenOnesAreKeptUnlessTaken()
{
    const auto added = [this](quint64 id) {
        auto *node = new VxNode(QStringLiteral("n"));
        node->setId(id);
        m_scene->addNode(node);
        return node->getId();
    };
    QCOMPARE(added(7), quint64(7));
    QCOMPARE(added(7), quint64(8));
    QCOMPARE(added(0), quint64(9));
    QCOMPARE(added(VxNode::MaxId + 1), quint64(10));
    QCOMPARE(added(VxNode::MaxId), VxNode::MaxId);
    QCOMPARE(added(0), quint64(1)); // after the highest one, those that are free
    QCOMPARE(added(VxNode::MaxId), quint64(2));
    QCOMPARE(m_scene->findNodeById(7)->getId(), quint64(7));
}

void TestNodeIds::withinASceneItCannotBeChanged()
{
    VxNode *node = add(QStringLiteral("n"));
    m_guard->expect("VxNode::setId(): n is in a scene");
    node->setId(44);
    QCOMPARE(node->getId(), quint64(1));
}

void TestNodeIds::aClearedSceneStartsAnew()
{
    buildSample();
    m_scene->clear();
    QVERIFY(!m_scene->findNodeById(1));
    QCOMPARE(add(QStringLiteral("n"))->getId(), quint64(1));
}

/// Searching the list of nodes instead takes hundreds of times as long.
void TestNodeIds::manyNodesAreFoundInConstantTime()
{
    constexpr int Count = 40000;
    for (int i = 0; i < Count; ++i)
        add(QStringLiteral("n"));
    const QVector<VxNode *> nodes = m_scene->getNodes();
    QElapsedTimer clock;
    clock.start();
    qint64 sum = 0;
    for (int i = 0; i < Count; ++i)
        sum += nodes.at(i)->getScene() == m_scene.get();
    const qint64 walked = clock.nsecsElapsed();
    clock.restart();
    for (int i = 0; i < Count; ++i)
        sum += m_scene->findNodeById(nodes.at(i)->getId()) == nodes.at(i);
    const qint64 found = clock.nsecsElapsed();
    QCOMPARE(sum, qint64(2 * Count));
    QVERIFY2(found < 100 * walked + 20000000, qPrintable(QString::number(found)));
}

VX_TEST_MAIN(TestNodeIds)
#include "tst_nodeids.moc"
