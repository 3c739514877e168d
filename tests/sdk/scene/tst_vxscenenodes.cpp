#include "scenenodestestbase.h"
#include "testing/vxtestmain.h"

/// Hierarchies: adding, removing and moving nodes, and the signals of it.
class TestSceneNodes : public SceneNodesTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void parentsAreAddedBeforeChildren();
    void nodesAreListedInHierarchyOrder();
    void iteratorsKeepTheirList();
    void nodesAreFound();
    void refusedNodesStayTheCallers();
    void removalIsReportedInOrder();
    void removedNodesAreDestroyedOutsideOfAHold();
    void removalOfForeignNodesIsRefused();
    void receiversMayInterfereWithRemoval();
    void receiversMayRemoveAddedNodes();
    void nodesRemovedByAReceiverAreNotReported();
    void nodeDestroyedOnItsOwnLeavesTheScene();
    void sceneDestroysItsNodes();
    void nodesMoveWithinTheScene();
    void eventsAreReportedInOrder_data();
    void eventsAreReportedInOrder();
    void nodesDoNotMoveBetweenScenes();
    void manyNodesAreAddedAndRemovedInLinearTime_data();
    void manyNodesAreAddedAndRemovedInLinearTime();
};

void TestSceneNodes::parentsAreAddedBeforeChildren()
{
    auto *top = new VxNode(QStringLiteral("top"));
    auto *left = new VxNode(QStringLiteral("left"));
    top->addNodeChild(left);
    left->addNodeChild(new VxNode(QStringLiteral("leaf")));
    top->addNodeChild(new VxNode(QStringLiteral("right")));
    QStringList added;
    connect(m_scene.get(), &VxScene::nodeAdded, this, [&](VxNode *node) {
        // Everything is in place when the first one is announced.
        QCOMPARE(m_scene->getNumNodes(), 4);
        QCOMPARE(node->getScene(), m_scene.get());
        added << node->getName();
    });
    QVERIFY(m_scene->addNode(top));
    QCOMPARE(added, (QStringList{"top", "left", "leaf", "right"}));
}

void TestSceneNodes::nodesAreListedInHierarchyOrder()
{
    buildSample();
    QStringList names;
    for (VxNodeListIterator it = m_scene->nodeListIterator(); it.hasNext();)
        names << it.next()->getName();
    QCOMPARE(names, (QStringList{"a", "b", "c", "d", "e"}));
    QCOMPARE(m_scene->getNumNodes(), 5);
    QCOMPARE(find(QStringLiteral("e"))->getSiblingIndex(), 1);
    QCOMPARE(find(QStringLiteral("d"))->getSiblingIndex(), 1);
}

void TestSceneNodes::iteratorsKeepTheirList()
{
    buildSample();
    VxNodeListIterator it = m_scene->nodeListIterator();
    QCOMPARE(it.count(), 5);
    add(QStringLiteral("f"));
    QCOMPARE(it.count(), 5);
    QCOMPARE(it.next()->getName(), QStringLiteral("a"));
    while (it.hasNext())
        QVERIFY(it.next());
    QVERIFY(!it.next());
    QCOMPARE(m_scene->nodeListIterator().count(), 6);
}

void TestSceneNodes::nodesAreFound()
{
    buildSample();
    VxNode *second = add(QStringLiteral("c"));
    QCOMPARE(find(QStringLiteral("c"))->getNodeParent(), find(QStringLiteral("b")));
    QVERIFY(!find(QStringLiteral("none")));
    second->setLabel(QStringLiteral("Second"));
    QCOMPARE(m_scene->findNodeByLabel(QStringLiteral("Second")), second);
    QVERIFY(!m_scene->findNodeByLabel(QStringLiteral("none")));
}

void TestSceneNodes::refusedNodesStayTheCallers()
{
    buildSample();
    m_guard->expect("VxScene::addNode(): null is not a node");
    QVERIFY(!m_scene->addNode(nullptr));
    m_guard->expect("VxScene::addNode(): a is already in a scene");
    QVERIFY(!m_scene->addNode(find(QStringLiteral("a"))));
    VxNode outside(QStringLiteral("outside"));
    auto *child = new VxNode(QStringLiteral("child"));
    outside.addNodeChild(child);
    m_guard->expect("VxScene::addNode(): child has a parent");
    QVERIFY(!m_scene->addNode(child));
    m_guard->expect("VxScene::addNode(): the parent child of outside is not in this scene");
    QVERIFY(!m_scene->addNode(&outside, child));
    QCOMPARE(drawn(), QStringLiteral("a(b(c) d) e"));
}

void TestSceneNodes::removalIsReportedInOrder()
{
    buildSample();
    VxNode *b = find(QStringLiteral("b"));
    VxNode *c = find(QStringLiteral("c"));
    auto *object = new VxObject(QStringLiteral("shape"));
    auto *morph = new VxMorph(QStringLiteral("smile"));
    object->addSubElement(morph);
    c->setObject(object);
    m_scene->selectAllNodes(true);
    m_scene->setPrimarySelection(c);

    QStringList story;
    const auto note = [&story](const QString &what) { return [&story, what] { story << what; }; };
    connect(m_scene.get(), &VxScene::aboutToRemoveNode, this, [&](VxNode *node) {
        QCOMPARE(drawn(), QStringLiteral("a(b(c) d) e"));
        QVERIFY(c->isSelected());
        story << QStringLiteral("about ") + node->getName();
    });
    connect(b, &VxNode::selectedChanged, this, note(QStringLiteral("b deselected")));
    connect(c, &VxNode::selectedChanged, this, note(QStringLiteral("c deselected")));
    connect(m_scene.get(), &VxScene::nodeSelectionListChanged, this, note(QStringLiteral("list")));
    connect(m_scene.get(), &VxScene::primarySelectionChanged, this,
            [&](VxNode *primary) { story << QStringLiteral("primary ") + primary->getName(); });
    connect(b, &VxElement::aboutToBeRemoved, this, note(QStringLiteral("b removed")));
    connect(c, &VxElement::aboutToBeRemoved, this, [&] {
        QCOMPARE(c->getScene(), m_scene.get());
        story << QStringLiteral("c removed");
    });
    connect(object, &VxElement::aboutToBeRemoved, this, note(QStringLiteral("shape removed")));
    connect(morph, &VxElement::aboutToBeRemoved, this, note(QStringLiteral("smile removed")));
    connect(m_scene.get(), &VxScene::nodeRemoved, this, [&](VxNode *node) {
        QCOMPARE(drawn(), QStringLiteral("a(d) e"));
        QCOMPARE(drawn(node), QStringLiteral("b(c)"));
        QVERIFY(!c->getScene());
        story << QStringLiteral("removed ") + node->getName();
    });
    QVERIFY(m_scene->removeNode(b));
    QCOMPARE(story, (QStringList{"about b", "b deselected", "c deselected", "list", "primary e",
                                 "b removed", "c removed", "shape removed", "smile removed",
                                 "removed b"}));
    QCOMPARE(m_scene->getNumNodes(), 3);
}

void TestSceneNodes::removedNodesAreDestroyedOutsideOfAHold()
{
    buildSample();
    const QPointer<VxNode> c(find(QStringLiteral("c")));
    QVERIFY(m_scene->removeNode(find(QStringLiteral("a"))));
    QVERIFY(!c);
    QCOMPARE(drawn(), QStringLiteral("e"));
    QCOMPARE(m_stack->count(), 0);
}

void TestSceneNodes::removalOfForeignNodesIsRefused()
{
    VxNode outside(QStringLiteral("outside"));
    m_guard->expect("VxScene::removeNode(): outside is not in this scene");
    QVERIFY(!m_scene->removeNode(&outside));
    m_guard->expect("VxScene::removeNode(): null is not in this scene");
    QVERIFY(!m_scene->removeNode(nullptr));
}

void TestSceneNodes::receiversMayInterfereWithRemoval()
{
    buildSample();
    const QPointer<VxNode> b(find(QStringLiteral("b")));
    int announced = 0;
    connect(m_scene.get(), &VxScene::aboutToRemoveNode, this, [&](VxNode *node) {
        ++announced;
        QVERIFY(m_scene->removeNode(node));
        if (node == b)
            m_scene->removeNode(find(QStringLiteral("a")));
    });
    QSignalSpy removed(m_scene.get(), &VxScene::nodeRemoved);
    QVERIFY(m_scene->removeNode(b));
    QVERIFY(!b);
    QCOMPARE(announced, 2);
    QCOMPARE(removed.count(), 1);
    QCOMPARE(drawn(), QStringLiteral("e"));
}

void TestSceneNodes::receiversMayRemoveAddedNodes()
{
    connect(m_scene.get(), &VxScene::nodeAdded, this, [&](VxNode *node) {
        if (node->getName() == QLatin1String("top"))
            m_scene->removeNode(node);
    });
    QSignalSpy added(m_scene.get(), &VxScene::nodeAdded);
    auto *top = new VxNode(QStringLiteral("top"));
    top->addNodeChild(new VxNode(QStringLiteral("below")));
    QVERIFY(m_scene->addNode(top));
    QCOMPARE(m_scene->getNumNodes(), 0);
    QCOMPARE(added.count(), 1);
}

// The history keeps them alive, but they are not in the scene any more.
void TestSceneNodes::nodesRemovedByAReceiverAreNotReported()
{
    auto *top = new VxNode(QStringLiteral("top"));
    auto *below = new VxNode(QStringLiteral("below"));
    top->addNodeChild(below);
    QVector<VxNode *> announced;
    connect(m_scene.get(), &VxScene::nodeAdded, this, [&](VxNode *node) {
        announced.append(node);
        if (node == top)
            m_scene->removeNode(below);
    });
    VxUndoStackHold hold;
    m_scene->addNode(top);
    hold.accept(QStringLiteral("Add"));
    QCOMPARE(announced, QVector<VxNode *>{top});
    QCOMPARE(drawn(), QStringLiteral("top"));
}

void TestSceneNodes::nodeDestroyedOnItsOwnLeavesTheScene()
{
    buildSample();
    VxNode *a = find(QStringLiteral("a"));
    a->select();
    QSignalSpy about(m_scene.get(), &VxScene::aboutToRemoveNode);
    delete a;
    QCOMPARE(about.count(), 1);
    QCOMPARE(drawn(), QStringLiteral("e"));
    QCOMPARE(m_scene->getNumNodes(), 1);
    QVERIFY(!m_scene->getPrimarySelection());
}

void TestSceneNodes::sceneDestroysItsNodes()
{
    buildSample();
    const QPointer<VxNode> c(find(QStringLiteral("c")));
    c->select();
    m_scene.reset();
    QVERIFY(!c);
}

void TestSceneNodes::nodesMoveWithinTheScene()
{
    buildSample();
    VxNode *c = find(QStringLiteral("c"));
    QSignalSpy ofNode(c, &VxNode::parentChanged);
    QSignalSpy ofScene(m_scene.get(), &VxScene::nodeParentChanged);
    QVERIFY(c->setNodeParent(find(QStringLiteral("e"))));
    QCOMPARE(drawn(), QStringLiteral("a(b d) e(c)"));
    QVERIFY(c->setNodeParent(nullptr, 1));
    QCOMPARE(drawn(), QStringLiteral("a(b d) c e"));
    QCOMPARE(ofNode.count(), 2);
    QCOMPARE(ofScene.count(), 2);
    QVERIFY(c->setNodeParent(nullptr, 0));
    QCOMPARE(drawn(), QStringLiteral("c a(b d) e"));
    QCOMPARE(ofScene.count(), 2);
    QVERIFY(!find(QStringLiteral("a"))->setNodeParent(find(QStringLiteral("d"))));
    QCOMPARE(m_scene->getNumNodes(), 5);
    QCOMPARE(m_scene->getNodes().first(), c);
}

void TestSceneNodes::eventsAreReportedInOrder_data()
{
    QTest::addColumn<QString>("node");
    QTest::addColumn<QString>("parent");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("drawing");
    QTest::addColumn<bool>("reported");
    QTest::newRow("to the front of its siblings") << "d"
                                                  << "a" << 0 << "a(d b(c)) e" << true;
    QTest::newRow("to where it is") << "d"
                                    << "a" << 1 << "a(b(c) d) e" << false;
    QTest::newRow("to the end, where it is") << "d"
                                             << "a" << -1 << "a(b(c) d) e" << false;
    QTest::newRow("from the front to the end") << "b"
                                               << "a" << -1 << "a(d b(c)) e" << true;
    QTest::newRow("as the last one below another") << "e"
                                                   << "b" << -1 << "a(b(c e) d)" << false;
    QTest::newRow("as the first one below another") << "e"
                                                    << "b" << 0 << "a(b(e c) d)" << true;
    QTest::newRow("to the front of the top level") << "c"
                                                   << "" << 0 << "c a(b d) e" << true;
    QTest::newRow("among the top level") << "e"
                                         << "" << 0 << "e a(b(c) d)" << true;
}

void TestSceneNodes::eventsAreReportedInOrder()
{
    QFETCH(QString, node);
    QFETCH(QString, parent);
    QFETCH(int, index);
    QFETCH(QString, drawing);
    QFETCH(bool, reported);
    buildSample();
    QStringList reports;
    connect(m_scene.get(), &VxScene::nodeParentChanged, this, [&] { reports << "parent"; });
    connect(m_scene.get(), &VxScene::nodeAdded, this, [&] { reports << "added"; });
    connect(m_scene.get(), &VxScene::nodeOrderChanged, this,
            [&](const VxNode *moved) { reports << "order " + moved->getName(); });
    const bool changesParent = find(node)->getNodeParent() != find(parent);
    VxUndoStackHold hold;
    QVERIFY(find(node)->setNodeParent(find(parent), index));
    hold.accept(QStringLiteral("Move"));
    QCOMPARE(drawn(), drawing);
    QStringList expected;
    if (changesParent)
        expected << "parent";
    if (reported)
        expected << "order " + node;
    QCOMPARE(reports, expected);
    // A node restored among others is reported, too.
    reports.clear();
    VxUndoStackHold removal;
    m_scene->removeNode(find(node));
    removal.accept(QStringLiteral("Remove"));
    m_stack->undo();
    QCOMPARE(drawn(), drawing);
    const VxNode *above = find(node)->getNodeParent();
    const int siblings = above ? above->getNumNodeChildren() : m_scene->getRootNodes().size();
    QCOMPARE(reports.contains("order " + node), find(node)->getSiblingIndex() != siblings - 1);
    QCOMPARE(reports.first(), QString("added"));
}

void TestSceneNodes::nodesDoNotMoveBetweenScenes()
{
    buildSample();
    VxScene other;
    auto *stranger = new VxNode(QStringLiteral("stranger"));
    other.addNode(stranger);
    VxNode outside(QStringLiteral("outside"));
    VxNode *e = find(QStringLiteral("e"));
    QVERIFY(!e->setNodeParent(stranger));
    QVERIFY(!e->setNodeParent(&outside));
    QVERIFY(!outside.setNodeParent(e));
    QVERIFY(!e->addNodeChild(&outside));
    QVERIFY(!outside.addNodeChild(e));
    m_guard->expect("VxScene::removeNode(): stranger is not in this scene");
    QVERIFY(!m_scene->removeNode(stranger));
    QCOMPARE(drawn(), QStringLiteral("a(b(c) d) e"));
}

void TestSceneNodes::manyNodesAreAddedAndRemovedInLinearTime_data()
{
    QTest::addColumn<QString>("shape");
    QTest::addColumn<QString>("order");
    for (const char *shape : {"roots", "children of one", "chain"}) {
        for (const char *order : {"first to last", "last to first", "all at once"})
            QTest::addRow("%s, %s", shape, order)
                << QString::fromLatin1(shape) << QString::fromLatin1(order);
    }
}

void TestSceneNodes::manyNodesAreAddedAndRemovedInLinearTime()
{
    QFETCH(QString, shape);
    QFETCH(QString, order);
    const auto build = [&](int count, QVector<VxNode *> &nodes) {
        VxNode *parent = shape == QLatin1String("roots") ? nullptr : add(QStringLiteral("top"));
        for (int i = 0; i < count; ++i) {
            nodes << add(QStringLiteral("n"), parent);
            if (shape == QLatin1String("chain"))
                parent = nodes.last();
        }
    };
    const auto run = [&](int count) {
        QVector<VxNode *> nodes;
        QElapsedTimer timer;
        timer.start();
        build(count, nodes);
        m_scene->selectAllNodes(true);
        if (shape == QLatin1String("chain") && order == QLatin1String("first to last"))
            m_scene->removeNode(nodes.first());
        else if (order == QLatin1String("first to last"))
            for (VxNode *node : qAsConst(nodes))
                m_scene->removeNode(node);
        else if (order == QLatin1String("last to first"))
            for (int i = count - 1; i >= 0; --i)
                m_scene->removeNode(nodes.at(i));
        else
            m_scene->clear();
        const qint64 used = timer.nsecsElapsed();
        m_scene->clear();
        return used;
    };
    const auto floor = [](int count) {
        QElapsedTimer timer;
        timer.start();
        QVector<VxNode *> nodes;
        for (int i = 0; i < count; ++i)
            nodes << new VxNode(QStringLiteral("n"));
        qDeleteAll(nodes);
        return timer.nsecsElapsed();
    };
    // How much more the scene's work grows than that of making and destroying the nodes, which
    // caches and a busy machine slow down alike. Quadratic cost would be near 8.
    // A chain stays within the limit of depth.
    const int many = shape == QLatin1String("chain") ? 4000 : 8000;
    double least = 1e9;
    for (int round = 0; round < 3; ++round) {
        const double growth = double(run(many)) / double(run(many / 8));
        least = qMin(least, growth / (double(floor(many)) / double(floor(many / 8))));
    }
    qInfo("%d nodes take 8 * %.1f times as long as %d", many, least, many / 8);
    QVERIFY2(least < 4, qPrintable(QString::number(least)));
}

VX_TEST_MAIN(TestSceneNodes)
#include "tst_vxscenenodes.moc"
