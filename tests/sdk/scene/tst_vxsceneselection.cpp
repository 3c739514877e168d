#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QtTest>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>

/// Selections are drawn as the names of the selected nodes in order, the primary one with a star.
class TestSceneSelection : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void selectingMakesPrimary();
    void nothingNewIsNotReported();
    void deselectingThePrimarySelectsTheLast();
    void deselectingAnotherLeavesThePrimary();
    void orderIsThatOfSelecting();
    void primaryWithoutAndBack();
    void primaryOfAnotherScene();
    void severalAtOnce();
    void allAndNone();
    void allKeepsThePrimary();
    void nodesThatAreNotSelectable();
    void signalsAreEmittedInTheNewState();
    void receiversMayChangeTheSelection();
    void receiversMayRemoveNodes();
    void removedNodesAreDeselected();
    void longEditingLeavesNothingBehind();
    void manyNodesInLinearTime_data();
    void manyNodesInLinearTime();

private:
    QString drawn() const;

    std::unique_ptr<VxWarningGuard> m_guard;
    std::unique_ptr<VxScene> m_scene;
    VxNode *a = nullptr;
    VxNode *b = nullptr;
    VxNode *c = nullptr;
    VxNode *d = nullptr;
};

void TestSceneSelection::init()
{
    m_guard = std::make_unique<VxWarningGuard>();
    m_scene = std::make_unique<VxScene>();
    for (VxNode **node : {&a, &b, &c, &d}) {
        *node = new VxNode(QString(QLatin1Char(char('a' + m_scene->getNumNodes()))));
        m_scene->addNode(*node);
    }
}

void TestSceneSelection::cleanup()
{
    m_scene.reset();
    m_guard.reset();
}

QString TestSceneSelection::drawn() const
{
    QStringList names;
    int count = 0;
    for (VxNodeListIterator it = m_scene->selectedNodeListIterator(); it.hasNext(); ++count) {
        const VxNode *node = it.next();
        names << node->getName();
        if (node == m_scene->getPrimarySelection())
            names.last() += QLatin1Char('*');
        if (!node->isSelected())
            names.last() += QLatin1Char('?');
    }
    if (count != m_scene->getNumSelectedNodes())
        names << QStringLiteral("wrong count");
    return names.join(QLatin1Char(' '));
}

void TestSceneSelection::selectingMakesPrimary()
{
    QSignalSpy list(m_scene.get(), &VxScene::nodeSelectionListChanged);
    QSignalSpy primary(m_scene.get(), &VxScene::primarySelectionChanged);
    QSignalSpy ofNode(a, &VxNode::selectedChanged);
    a->select();
    QCOMPARE(drawn(), QStringLiteral("a*"));
    b->select();
    QCOMPARE(drawn(), QStringLiteral("a b*"));
    QCOMPARE(list.count(), 2);
    QCOMPARE(primary.count(), 2);
    QCOMPARE(ofNode.count(), 1);
    a->select();
    QCOMPARE(drawn(), QStringLiteral("a* b"));
    QCOMPARE(list.count(), 2);
    QCOMPARE(primary.count(), 3);
    QCOMPARE(primary.last().first().value<VxNode *>(), a);
}

void TestSceneSelection::nothingNewIsNotReported()
{
    a->select();
    QSignalSpy list(m_scene.get(), &VxScene::nodeSelectionListChanged);
    QSignalSpy primary(m_scene.get(), &VxScene::primarySelectionChanged);
    QSignalSpy ofNode(a, &VxNode::selectedChanged);
    a->select();
    b->select(false);
    m_scene->setPrimarySelection(a);
    QCOMPARE(list.count() + primary.count() + ofNode.count(), 0);
}

void TestSceneSelection::deselectingThePrimarySelectsTheLast()
{
    for (VxNode *node : {a, b, c, d})
        node->select();
    d->select(false);
    QCOMPARE(drawn(), QStringLiteral("a b c*"));
    c->select(false);
    QCOMPARE(drawn(), QStringLiteral("a b*"));
    a->select(false);
    b->select(false);
    QCOMPARE(drawn(), QString());
    QVERIFY(!m_scene->getPrimarySelection());
}

void TestSceneSelection::deselectingAnotherLeavesThePrimary()
{
    for (VxNode *node : {a, b, c})
        node->select();
    QSignalSpy primary(m_scene.get(), &VxScene::primarySelectionChanged);
    a->select(false);
    QCOMPARE(drawn(), QStringLiteral("b c*"));
    QCOMPARE(primary.count(), 0);
}

void TestSceneSelection::orderIsThatOfSelecting()
{
    for (VxNode *node : {c, a, d, b})
        node->select();
    a->select(false);
    a->select();
    QCOMPARE(drawn(), QStringLiteral("c d b a*"));
    c->select(false);
    d->select(false);
    b->select(false);
    QCOMPARE(drawn(), QStringLiteral("a*"));
    c->select();
    QCOMPARE(drawn(), QStringLiteral("a c*"));
}

void TestSceneSelection::primaryWithoutAndBack()
{
    a->select();
    b->select();
    QSignalSpy list(m_scene.get(), &VxScene::nodeSelectionListChanged);
    QSignalSpy primary(m_scene.get(), &VxScene::primarySelectionChanged);
    m_scene->setPrimarySelection(nullptr);
    QCOMPARE(drawn(), QStringLiteral("a b"));
    b->select(false);
    QVERIFY(!m_scene->getPrimarySelection());
    m_scene->setPrimarySelection(c);
    QCOMPARE(drawn(), QStringLiteral("a c*"));
    m_scene->setPrimarySelection(a);
    QCOMPARE(drawn(), QStringLiteral("a* c"));
    QCOMPARE(list.count(), 2);
    QCOMPARE(primary.count(), 3);
}

void TestSceneSelection::primaryOfAnotherScene()
{
    VxNode outside(QStringLiteral("outside"));
    m_scene->setPrimarySelection(&outside);
    QCOMPARE(drawn(), QString());
    QVERIFY(!m_scene->getPrimarySelection());
}

void TestSceneSelection::severalAtOnce()
{
    a->select(true);
    d->setSelectable(false);
    VxNode outside(QStringLiteral("outside"));
    QSignalSpy lists(m_scene.get(), &VxScene::nodeSelectionListChanged);
    QSignalSpy primaries(m_scene.get(), &VxScene::primarySelectionChanged);
    m_scene->selectNodes({b, d, &outside, c, a}, true);
    QCOMPARE(drawn(), QStringLiteral("a* b c"));
    QCOMPARE(lists.count(), 1);
    QCOMPARE(primaries.count(), 0);
    m_scene->selectNodes({a, b, d}, false);
    QCOMPARE(drawn(), QStringLiteral("c*"));
    QCOMPARE(lists.count(), 2);
    QCOMPARE(primaries.count(), 1);
    m_scene->selectNodes({}, true);
    QCOMPARE(lists.count(), 2);
}

void TestSceneSelection::allAndNone()
{
    QSignalSpy list(m_scene.get(), &VxScene::nodeSelectionListChanged);
    QSignalSpy primary(m_scene.get(), &VxScene::primarySelectionChanged);
    QSignalSpy ofNode(b, &VxNode::selectedChanged);
    m_scene->selectAllNodes(true);
    QCOMPARE(drawn(), QStringLiteral("a b c d*"));
    m_scene->selectAllNodes(true);
    QCOMPARE(list.count(), 1);
    QCOMPARE(primary.count(), 1);
    m_scene->selectAllNodes(false);
    QCOMPARE(drawn(), QString());
    m_scene->selectAllNodes(false);
    QCOMPARE(list.count(), 2);
    QCOMPARE(primary.count(), 2);
    QCOMPARE(primary.last().first().value<VxNode *>(), nullptr);
    QCOMPARE(ofNode.count(), 2);
    QCOMPARE(ofNode.first().first().toBool(), true);
    QCOMPARE(ofNode.last().first().toBool(), false);
}

void TestSceneSelection::allKeepsThePrimary()
{
    c->select();
    QSignalSpy primary(m_scene.get(), &VxScene::primarySelectionChanged);
    m_scene->selectAllNodes(true);
    QCOMPARE(drawn(), QStringLiteral("c* a b d"));
    QCOMPARE(primary.count(), 0);
}

void TestSceneSelection::nodesThatAreNotSelectable()
{
    b->select();
    b->setSelectable(false);
    QCOMPARE(drawn(), QString());
    b->select();
    m_scene->setPrimarySelection(b);
    QCOMPARE(drawn(), QString());
    m_scene->selectAllNodes(true);
    QCOMPARE(drawn(), QStringLiteral("a c d*"));
}

void TestSceneSelection::signalsAreEmittedInTheNewState()
{
    QStringList story;
    connect(a, &VxNode::selectedChanged, this, [&] { story << QStringLiteral("a ") + drawn(); });
    connect(d, &VxNode::selectedChanged, this, [&] { story << QStringLiteral("d ") + drawn(); });
    connect(m_scene.get(), &VxScene::nodeSelectionListChanged, this,
            [&] { story << QStringLiteral("list ") + drawn(); });
    connect(m_scene.get(), &VxScene::primarySelectionChanged, this,
            [&] { story << QStringLiteral("primary ") + drawn(); });
    m_scene->selectAllNodes(true);
    QCOMPARE(story, (QStringList{"a a b c d*", "d a b c d*", "list a b c d*", "primary a b c d*"}));
}

void TestSceneSelection::receiversMayChangeTheSelection()
{
    // Only one node at a time: each new primary drops the others.
    connect(m_scene.get(), &VxScene::nodeSelectionListChanged, this, [&] {
        const auto nodes = m_scene->getSelectedNodes();
        if (nodes.size() > 1)
            nodes.first()->select(false);
    });
    QVector<VxNode *> primaries;
    connect(m_scene.get(), &VxScene::primarySelectionChanged, this,
            [&](VxNode *node) { primaries << node; });
    for (VxNode *node : {a, b, c})
        node->select();
    QCOMPARE(drawn(), QStringLiteral("c*"));
    QCOMPARE(primaries, (QVector<VxNode *>{a, b, c}));
}

void TestSceneSelection::receiversMayRemoveNodes()
{
    connect(a, &VxNode::selectedChanged, this, [&](bool selected) {
        if (selected)
            m_scene->removeNode(d);
    });
    m_scene->selectAllNodes(true);
    QCOMPARE(drawn(), QStringLiteral("a b c*"));
}

void TestSceneSelection::removedNodesAreDeselected()
{
    b->setNodeParent(a);
    m_scene->selectAllNodes(true);
    m_scene->setPrimarySelection(b);
    QSignalSpy list(m_scene.get(), &VxScene::nodeSelectionListChanged);
    QSignalSpy primary(m_scene.get(), &VxScene::primarySelectionChanged);
    m_scene->removeNode(a);
    QCOMPARE(drawn(), QStringLiteral("c d*"));
    QCOMPARE(list.count(), 1);
    QCOMPARE(primary.count(), 1);
}

void TestSceneSelection::longEditingLeavesNothingBehind()
{
    const auto askOften = [this] {
        QElapsedTimer timer;
        timer.start();
        int count = 0;
        for (int i = 0; i < 1000; ++i)
            count += m_scene->getSelectedNodes().size();
        return count == 1000 ? timer.nsecsElapsed() : -1;
    };
    a->select();
    const qint64 before = std::max({askOften(), askOften(), askOften()});
    for (int i = 0; i < 100000; ++i) {
        b->select();
        m_scene->setPrimarySelection(a);
        b->select(false);
    }
    QCOMPARE(drawn(), QStringLiteral("a*"));
    // The places given up would make each list 100000 long.
    const qint64 after = std::min({askOften(), askOften(), askOften()});
    QVERIFY2(after < 50 * before, qPrintable(QStringLiteral("%1, %2").arg(before).arg(after)));
}

void TestSceneSelection::manyNodesInLinearTime_data()
{
    QTest::addColumn<int>("stride");
    QTest::newRow("deselected first to last") << 1;
    QTest::newRow("deselected last to first") << -1;
    QTest::newRow("deselected here and there") << 7919;
}

void TestSceneSelection::manyNodesInLinearTime()
{
    QFETCH(int, stride);
    while (m_scene->getNumNodes() < 16000)
        m_scene->addNode(new VxNode(QStringLiteral("n")));
    const auto nodes = m_scene->getNodes();
    // The floor visits the same nodes in the same order and makes each send a signal twice, so
    // that what caches and a busy machine do counts on both sides.
    const auto walk = [&](auto on, auto off) {
        QElapsedTimer timer;
        timer.start();
        for (VxNode *node : nodes)
            on(node);
        for (int i = 0, at = 0; i < nodes.size(); ++i) {
            at = (at + stride + nodes.size()) % nodes.size();
            off(nodes.at(at));
        }
        return timer.nsecsElapsed();
    };
    double least = 1e9;
    for (int round = 0; round < 5; ++round) {
        const qint64 floor = walk([](VxNode *node) { node->setVisible(false); },
                                  [](VxNode *node) { node->setVisible(true); });
        const qint64 used =
            walk([](VxNode *node) { node->select(); }, [](VxNode *node) { node->select(false); });
        QCOMPARE(m_scene->getNumSelectedNodes(), 0);
        least = qMin(least, double(used) / double(floor));
    }
    qInfo("%.1f times the floor", least);
    // Searching a list of 16000 nodes for each would cost hundreds of times the floor.
    QVERIFY2(least < 40, qPrintable(QString::number(least)));
}

VX_TEST_MAIN(TestSceneSelection)
#include "tst_vxsceneselection.moc"
