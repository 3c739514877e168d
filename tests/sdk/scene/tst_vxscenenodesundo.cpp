#include "scenenodestestbase.h"
#include "testing/vxtestmain.h"

/// Adding, removing and moving nodes, undone and redone.
class TestSceneNodesUndo : public SceneNodesTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void additionIsUndone();
    void removalIsUndone();
    void restoredNodesCanBeRemovedAgain();
    void movesAreUndone();
    void traitsAreUndone();
    void severalChangesInOneHold();
    void addingAndRemovingInOneHoldMakesNoEntry();
    void movingThereAndBackMakesNoEntry();
    void interleavedMovesAreUndoneExactly();
    void randomEditsAreUndoneExactly();
    void nodeAtTheAddressOfADestroyedOne();
    void historyOwnsRemovedNodes();
    void cancelledRemovalDestroys();
    void listenersEndAndBeginHolds();
    void changesOutsideOfASceneAreNotRecorded();
};

void TestSceneNodesUndo::additionIsUndone()
{
    buildSample();
    VxUndoStackHold hold;
    add(QStringLiteral("f"), find(QStringLiteral("b")));
    hold.accept(QStringLiteral("Add"));
    checkUndo(QStringLiteral("a(b(c) d) e"), QStringLiteral("a(b(c f) d) e"));
}

void TestSceneNodesUndo::removalIsUndone()
{
    buildSample();
    VxNode *b = find(QStringLiteral("b"));
    VxNode *c = find(QStringLiteral("c"));
    c->getXPosControl()->setKey(160, 5, 0);
    {
        VxUndoStackHold hold;
        m_scene->removeNode(b);
        hold.accept(QStringLiteral("Remove"));
    }
    QSignalSpy added(m_scene.get(), &VxScene::nodeAdded);
    QSignalSpy about(m_scene.get(), &VxScene::aboutToRemoveNode);
    checkUndo(QStringLiteral("a(b(c) d) e"), QStringLiteral("a(d) e"));
    QCOMPARE(added.count(), 4);
    QCOMPARE(added.first().first().value<VxNode *>(), b);
    QCOMPARE(added.at(1).first().value<VxNode *>(), c);
    QCOMPARE(about.count(), 2);
    m_stack->undo();
    QCOMPARE(find(QStringLiteral("c")), c);
    QCOMPARE(c->getXPosControl()->getNumKeys(), 1);
}

// Such as a gesture, which ends when one of its nodes is removed. The history owns what was removed
// while it recorded; anything else is destroyed.
void TestSceneNodesUndo::listenersEndAndBeginHolds()
{
    buildSample();
    const QPointer<VxNode> first = find(QStringLiteral("b"));
    const QPointer<VxNode> second = find(QStringLiteral("d"));
    auto hold = std::make_unique<VxUndoStackHold>();
    const auto change = connect(m_scene.get(), &VxScene::aboutToRemoveNode, this, [&hold] {
        if (hold)
            hold.reset();
        else
            hold = std::make_unique<VxUndoStackHold>();
    });
    m_scene->removeNode(first);
    QVERIFY(!hold);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!first);
    m_scene->removeNode(second);
    QVERIFY(hold && second);
    hold->accept(QStringLiteral("Remove"));
    disconnect(change);
    m_stack->undo();
    QCOMPARE(drawn(), QStringLiteral("a(d) e"));
}

void TestSceneNodesUndo::restoredNodesCanBeRemovedAgain()
{
    buildSample();
    VxNode *b = find(QStringLiteral("b"));
    const QSignalSpy leaves(find(QStringLiteral("c")), &VxElement::aboutToBeRemoved);
    for (int round = 1; round <= 2; ++round) {
        VxUndoStackHold hold;
        QVERIFY(m_scene->removeNode(b));
        hold.accept(QStringLiteral("Remove"));
        QCOMPARE(drawn(), QStringLiteral("a(d) e"));
        QCOMPARE(leaves.count(), round);
        m_stack->undo();
        QCOMPARE(drawn(), QStringLiteral("a(b(c) d) e"));
    }
    QVERIFY(m_scene->removeNode(b));
    QCOMPARE(drawn(), QStringLiteral("a(d) e"));
}

void TestSceneNodesUndo::movesAreUndone()
{
    buildSample();
    VxUndoStackHold hold;
    find(QStringLiteral("b"))->setNodeParent(nullptr, 0);
    hold.accept(QStringLiteral("Move"));
    QSignalSpy moved(m_scene.get(), &VxScene::nodeParentChanged);
    checkUndo(QStringLiteral("a(b(c) d) e"), QStringLiteral("b(c) a(d) e"));
    QCOMPARE(moved.count(), 4);
}

void TestSceneNodesUndo::traitsAreUndone()
{
    VxNode *n = add(QStringLiteral("n"));
    VxUndoStackHold hold;
    n->setLabel(QStringLiteral("First"));
    n->setLabel(QStringLiteral("Second"));
    n->setVisible(false);
    n->setSelectable(false);
    n->setIkNode(true);
    n->setRotationOrder(VxNode::ZYX);
    n->setOrigin({1, 2, 3});
    n->setEndPoint({4, 5, 6});
    hold.accept(QStringLiteral("Traits"));
    for (int round = 0; round < 2; ++round) {
        m_stack->undo();
        QCOMPARE(n->getLabel(), QStringLiteral("n"));
        QVERIFY(n->isVisible());
        QVERIFY(n->isSelectable());
        QVERIFY(!n->isIkNode());
        QCOMPARE(n->getRotationOrder(), VxNode::XYZ);
        QCOMPARE(n->getOrigin(), QVector3D());
        QCOMPARE(n->getEndPoint(), QVector3D());
        m_stack->redo();
        QCOMPARE(n->getLabel(), QStringLiteral("Second"));
        QVERIFY(!n->isVisible());
        QVERIFY(!n->isSelectable());
        QVERIFY(n->isIkNode());
        QCOMPARE(n->getRotationOrder(), VxNode::ZYX);
        QCOMPARE(n->getOrigin(), QVector3D(1, 2, 3));
        QCOMPARE(n->getEndPoint(), QVector3D(4, 5, 6));
    }
}

void TestSceneNodesUndo::severalChangesInOneHold()
{
    buildSample();
    VxUndoStackHold hold;
    VxNode *f = add(QStringLiteral("f"));
    find(QStringLiteral("b"))->setNodeParent(f);
    m_scene->removeNode(find(QStringLiteral("a")));
    f->setNodeParent(find(QStringLiteral("e")));
    find(QStringLiteral("c"))->setNodeParent(nullptr, 0);
    hold.accept(QStringLiteral("Several"));
    checkUndo(QStringLiteral("a(b(c) d) e"), QStringLiteral("c e(f(b))"));
}

void TestSceneNodesUndo::addingAndRemovingInOneHoldMakesNoEntry()
{
    buildSample();
    VxUndoStackHold hold;
    const QPointer<VxNode> node(add(QStringLiteral("f")));
    m_scene->removeNode(node);
    QVERIFY(node);
    hold.accept(QStringLiteral("Nothing"));
    QCOMPARE(m_stack->count(), 0);
    QVERIFY(!node);
}

void TestSceneNodesUndo::movingThereAndBackMakesNoEntry()
{
    buildSample();
    VxUndoStackHold hold;
    VxNode *d = find(QStringLiteral("d"));
    d->setNodeParent(find(QStringLiteral("e")));
    d->setNodeParent(find(QStringLiteral("a")), 1);
    d->setNodeParent(find(QStringLiteral("a")), 1);
    hold.accept(QStringLiteral("Nothing"));
    QCOMPARE(m_stack->count(), 0);
}

void TestSceneNodesUndo::interleavedMovesAreUndoneExactly()
{
    for (const char *name : {"a", "b", "c"})
        add(QString::fromLatin1(name));
    VxUndoStackHold hold;
    // After the removal b has its old index again, though it has moved.
    find(QStringLiteral("b"))->setNodeParent(nullptr, 2);
    m_scene->removeNode(find(QStringLiteral("a")));
    hold.accept(QStringLiteral("Move and remove"));
    checkUndo(QStringLiteral("a b c"), QStringLiteral("c b"));
}

void TestSceneNodesUndo::randomEditsAreUndoneExactly()
{
    std::mt19937 random(7);
    const auto pick = [&random](int count) { return int(random() % quint32(count)); };
    buildSample();
    QStringList states{drawn()};
    int made = 0;
    for (int entry = 0; entry < 60; ++entry) {
        VxUndoStackHold hold;
        for (int edit = pick(5); edit >= 0; --edit) {
            const auto nodes = m_scene->getNodes();
            VxNode *node = nodes.isEmpty() ? nullptr : nodes.at(pick(nodes.size()));
            VxNode *parent =
                nodes.isEmpty() || pick(4) == 0 ? nullptr : nodes.at(pick(nodes.size()));
            const int kind = pick(5);
            if (!node || kind < 2)
                add(QStringLiteral("n%1").arg(++made), parent);
            else if (kind == 2 && nodes.size() > 3)
                m_scene->removeNode(node);
            else
                node->setNodeParent(parent, pick(4) - 1);
        }
        hold.accept(QString::number(entry));
        // What changed nothing made no entry.
        if (m_stack->count() == states.size())
            states << drawn();
        else
            QCOMPARE(drawn(), states.last());
    }
    QVERIFY(states.size() > 40);
    for (int round = 0; round < 2; ++round) {
        for (int i = states.size() - 2; i >= 0; --i) {
            m_stack->undo();
            QCOMPARE(drawn(), states.at(i));
        }
        for (int i = 1; i < states.size(); ++i) {
            m_stack->redo();
            QCOMPARE(drawn(), states.at(i));
        }
    }
}

// Memory is reused: the position of a destroyed node is not that of the next one.
void TestSceneNodesUndo::nodeAtTheAddressOfADestroyedOne()
{
    add(QStringLiteral("a"));
    void *room = ::operator new(sizeof(VxNode));
    VxUndoStackHold hold;
    auto *first = new (room) VxNode(QStringLiteral("first"));
    m_scene->addNode(first);
    first->setLabel(QStringLiteral("First"));
    first->~VxNode();
    auto *second = new (room) VxNode(QStringLiteral("second"));
    m_scene->addNode(second);
    second->setLabel(QStringLiteral("Second"));
    hold.accept(QStringLiteral("Replace"));
    QCOMPARE(second->getLabel(), QStringLiteral("Second"));
    checkUndo(QStringLiteral("a"), QStringLiteral("a second"));
}

void TestSceneNodesUndo::historyOwnsRemovedNodes()
{
    buildSample();
    const QPointer<VxNode> e(find(QStringLiteral("e")));
    {
        VxUndoStackHold hold;
        m_scene->removeNode(e);
        hold.accept(QStringLiteral("Remove"));
    }
    QVERIFY(e);
    QVERIFY(m_stack->memoryUsed() > qint64(sizeof(VxNode)));
    m_stack->clear();
    QVERIFY(!e);

    // An addition that was undone belongs to the history until another change follows.
    QPointer<VxNode> f;
    {
        VxUndoStackHold hold;
        f = add(QStringLiteral("f"));
        hold.accept(QStringLiteral("Add"));
    }
    m_stack->undo();
    QVERIFY(f);
    {
        VxUndoStackHold hold;
        m_scene->setTime(160);
        hold.accept(QStringLiteral("Time"));
    }
    QVERIFY(!f);
    m_stack->clear();
    QCOMPARE(drawn(), QStringLiteral("a(b(c) d)"));
}

void TestSceneNodesUndo::cancelledRemovalDestroys()
{
    buildSample();
    const QPointer<VxNode> e(find(QStringLiteral("e")));
    VxUndoStackHold hold;
    m_scene->removeNode(e);
    QVERIFY(e);
    hold.cancel();
    QVERIFY(!e);
    QCOMPARE(drawn(), QStringLiteral("a(b(c) d)"));
}

void TestSceneNodesUndo::changesOutsideOfASceneAreNotRecorded()
{
    VxNode node(QStringLiteral("n"));
    VxUndoStackHold hold;
    node.setLabel(QStringLiteral("N"));
    node.setVisible(false);
    node.addNodeChild(new VxNode(QStringLiteral("child")));
    hold.accept(QStringLiteral("Nothing"));
    QCOMPARE(m_stack->count(), 0);
}

VX_TEST_MAIN(TestSceneNodesUndo)
#include "tst_vxscenenodesundo.moc"
