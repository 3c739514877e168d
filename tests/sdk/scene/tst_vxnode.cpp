#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QtTest>
#include <random>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxpropertygrouptree.h>

namespace {

bool isNear(const QVector3D &a, const QVector3D &b)
{
    return (a - b).length() < 1e-4f;
}

QStringList names(const QVector<VxNode *> &nodes)
{
    QStringList list;
    for (const VxNode *node : nodes)
        list << node->getName();
    return list;
}

} // namespace

class TestNode : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

    void controls();
    void controlsAreMadeOnDemand();
    void controlsInAnyOrder();
    void buildsAHierarchy();
    void placesAmongSiblings_data();
    void placesAmongSiblings();
    void impossibleParentsAreRefused();
    void nodesNestedTooDeeplyAreRefused();
    void parentChangeIsReported();
    void destructionDestroysTheChildren();
    void childDestroyedOnItsOwnIsRemoved();
    void aDeepChainIsDestroyed();
    void traits();
    void wrongRotationOrder();
    void nothingIsSelectedOutsideOfAScene();
    void restingTransform();
    void translationAndOrigin();
    void uniformTimesAxisScale();
    void rotationOrders_data();
    void rotationOrders();
    void transformsFollowTheKeys();
    void worldTransform();
    void manyTransformsAreCheap();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
};

void TestNode::controls()
{
    const VxNode node(QStringLiteral("n"));
    struct Expected
    {
        VxFloatProperty *control;
        const char *name;
        const char *label;
        const char *group;
        VxFloatProperty::Axis axis;
    };
    const Expected expected[] = {
        {node.getXPosControl(), "XTranslate", "X Translate", "Translation", VxFloatProperty::XAxis},
        {node.getYPosControl(), "YTranslate", "Y Translate", "Translation", VxFloatProperty::YAxis},
        {node.getZPosControl(), "ZTranslate", "Z Translate", "Translation", VxFloatProperty::ZAxis},
        {node.getXRotControl(), "XRotate", "X Rotate", "Rotation", VxFloatProperty::XAxis},
        {node.getYRotControl(), "YRotate", "Y Rotate", "Rotation", VxFloatProperty::YAxis},
        {node.getZRotControl(), "ZRotate", "Z Rotate", "Rotation", VxFloatProperty::ZAxis},
        {node.getScaleControl(), "Scale", "Scale", "Scale", VxFloatProperty::AllAxes},
        {node.getXScaleControl(), "XScale", "X Scale", "Scale", VxFloatProperty::XAxis},
        {node.getYScaleControl(), "YScale", "Y Scale", "Scale", VxFloatProperty::YAxis},
        {node.getZScaleControl(), "ZScale", "Z Scale", "Scale", VxFloatProperty::ZAxis},
    };
    int index = 0;
    for (const Expected &e : expected) {
        const bool isScale = qstrcmp(e.group, "Scale") == 0;
        QCOMPARE(node.getProperty(index++), e.control);
        QCOMPARE(e.control->getName(), QString::fromLatin1(e.name));
        QCOMPARE(e.control->getLabel(), QString::fromLatin1(e.label));
        QCOMPARE(e.control->getPath(),
                 QStringLiteral("/General/Transforms/") + QString::fromLatin1(e.group));
        QCOMPARE(e.control->getAxis(), e.axis);
        QCOMPARE(e.control->getDefaultValue(), isScale ? 1.0f : 0.0f);
        QCOMPARE(e.control->isPercentage(), isScale);
        QVERIFY(e.control->canBeKeyed());
    }
    QCOMPARE(node.getNumProperties(), 10);
    QCOMPARE(node.getPropertyGroups()->collectAllProperties().first(), node.getXPosControl());
}

void TestNode::controlsAreMadeOnDemand()
{
    VxNode node(QStringLiteral("n"));
    QCOMPARE(node.getNumProperties(), 10);
    QVERIFY(node.getMadeProperties().isEmpty());
    QCOMPARE(node.getLocalTransform(0), QMatrix4x4());
    QVERIFY(node.getMadeProperties().isEmpty());
    const VxProperty *turn = node.getProperty(4);
    QCOMPARE(turn->getName(), QStringLiteral("YRotate"));
    QCOMPARE(turn->getOwner(), &node);
    QCOMPARE(turn->getPath(), QStringLiteral("/General/Transforms/Rotation"));
    QCOMPARE(node.getYRotControl(), turn);
    QCOMPARE(node.findProperty(QStringLiteral("Scale")), node.getScaleControl());
    QCOMPARE(node.getProperty(6), node.getScaleControl());
    QCOMPARE(node.getMadeProperties().size(), 2);
    QVERIFY(!node.findProperty(QStringLiteral("Bend")));
    QVERIFY(!node.getProperty(10));
    QVERIFY(!node.getProperty(-1));
    // The names are in use before the controls are made.
    VxFloatProperty same(QStringLiteral("XTranslate"), 0.0f);
    m_guard->expect(QRegularExpression(QStringLiteral("XTranslate.*name in use")));
    QVERIFY(!node.addProperty(&same, QString()));
    QCOMPARE(node.getPropertyGroups()->collectAllProperties().size(), 10);
    QCOMPARE(node.getMadeProperties().size(), 10);
}

// The list has the same order whichever control is made first, with other properties around and
// controls destroyed.
void TestNode::controlsInAnyOrder()
{
    VxNode plain(QStringLiteral("n"));
    QStringList expected;
    for (int i = 0; i < plain.getNumProperties(); ++i)
        expected += plain.getProperty(i)->getName();
    std::mt19937 random(5);
    for (int round = 0; round < 50; ++round) {
        VxNode node(QStringLiteral("n"));
        QStringList names = expected;
        for (int step = 0; step < 12; ++step) {
            const int index = int(random() % unsigned(names.size()));
            switch (random() % 4) {
            case 0:
                QCOMPARE(node.getProperty(index)->getName(), names.at(index));
                break;
            case 1:
                QCOMPARE(node.findProperty(names.at(index))->getName(), names.at(index));
                break;
            case 2:
                names += QStringLiteral("extra %1").arg(step);
                node.addProperty(new VxFloatProperty(names.last(), 0.0f), QString());
                break;
            default:
                delete node.getProperty(index);
                names.removeAt(index);
            }
            QCOMPARE(node.getNumProperties(), names.size());
        }
        QStringList found;
        for (int i = 0; i < node.getNumProperties(); ++i)
            found += node.getProperty(i)->getName();
        QCOMPARE(found, names);
    }
}

void TestNode::buildsAHierarchy()
{
    VxNode root(QStringLiteral("root"));
    for (const char *name : {"a", "b"})
        QVERIFY(root.addNodeChild(new VxNode(QString::fromLatin1(name))));
    QVERIFY(root.getNodeChild(0)->addNodeChild(new VxNode(QStringLiteral("a1"))));

    QCOMPARE(root.getNumNodeChildren(), 2);
    QVERIFY(!root.getNodeChild(2));
    QVERIFY(!root.getNodeChild(-1));
    QCOMPARE(root.getNodeChild(0)->getNodeParent(), &root);
    QVector<VxNode *> children;
    root.getNodeChildren(children);
    QCOMPARE(names(children), (QStringList{"a", "b"}));
    root.getNodeChildren(children, true);
    QCOMPARE(names(children), (QStringList{"a", "b", "a", "a1", "b"}));
    QVERIFY(root.isAncestorOf(root.getNodeChild(0)->getNodeChild(0)));
    QVERIFY(!root.isAncestorOf(&root));
    QVERIFY(!root.getNodeChild(1)->isAncestorOf(root.getNodeChild(0)));
    QVERIFY(!root.isAncestorOf(nullptr));
    QCOMPARE(root.getSiblingIndex(), -1);
    QCOMPARE(root.getNodeChild(1)->getSiblingIndex(), 1);
    QVERIFY(!root.getSkeleton());
}

void TestNode::placesAmongSiblings_data()
{
    QTest::addColumn<QString>("moved");
    QTest::addColumn<int>("index");
    QTest::addColumn<QStringList>("after");

    QTest::newRow("to the end") << "a" << -1 << QStringList{"b", "c", "d", "a"};
    QTest::newRow("beyond the end") << "a" << 99 << QStringList{"b", "c", "d", "a"};
    QTest::newRow("to the front") << "c" << 0 << QStringList{"c", "a", "b", "d"};
    QTest::newRow("one later") << "b" << 2 << QStringList{"a", "c", "b", "d"};
    QTest::newRow("one earlier") << "c" << 1 << QStringList{"a", "c", "b", "d"};
    QTest::newRow("where it is") << "b" << 1 << QStringList{"a", "b", "c", "d"};
}

void TestNode::placesAmongSiblings()
{
    QFETCH(QString, moved);
    QFETCH(int, index);
    QFETCH(QStringList, after);

    VxNode root(QStringLiteral("root"));
    VxNode *node = nullptr;
    for (const char *name : {"a", "b", "c", "d"}) {
        auto *child = new VxNode(QString::fromLatin1(name));
        root.addNodeChild(child);
        if (child->getName() == moved)
            node = child;
    }
    QSignalSpy changed(node, &VxNode::parentChanged);
    QVERIFY(node->setNodeParent(&root, index));
    QVector<VxNode *> children;
    root.getNodeChildren(children);
    QCOMPARE(names(children), after);
    QCOMPARE(node->getSiblingIndex(), after.indexOf(moved));
    QCOMPARE(changed.count(), 0);
}

void TestNode::impossibleParentsAreRefused()
{
    VxNode root(QStringLiteral("root"));
    auto *child = new VxNode(QStringLiteral("child"));
    root.addNodeChild(child);
    QVERIFY(!root.setNodeParent(&root));
    QVERIFY(!root.setNodeParent(child));
    QVERIFY(!root.addNodeChild(nullptr));
    QVERIFY(!root.addNodeChild(child));
    QVERIFY(!child->addNodeChild(&root));
    QCOMPARE(child->getNodeParent(), &root);
    QCOMPARE(root.getNumNodeChildren(), 1);
}

void TestNode::nodesNestedTooDeeplyAreRefused()
{
    VxNode root(QStringLiteral("root"));
    VxNode *last = &root;
    while (last->getDepth() < VxNode::MaxDepth - 1) {
        auto *next = new VxNode(QStringLiteral("n"));
        QVERIFY(last->addNodeChild(next));
        last = next;
    }
    VxNode pair(QStringLiteral("pair"));
    pair.addNodeChild(new VxNode(QStringLiteral("tip")));
    QVERIFY(!pair.setNodeParent(last)); // the tip would be beyond
    QVERIFY(!last->addNodeChild(&pair));
    QVERIFY(!pair.getNodeParent());
    VxNode single(QStringLiteral("single"));
    QVERIFY(single.setNodeParent(last));
    QCOMPARE(single.getDepth(), VxNode::MaxDepth);
    QVERIFY(!pair.setNodeParent(&single));
    QVERIFY(single.setNodeParent(nullptr));
}

void TestNode::parentChangeIsReported()
{
    VxNode first(QStringLiteral("first"));
    VxNode second(QStringLiteral("second"));
    VxNode child(QStringLiteral("child"));
    QSignalSpy changed(&child, &VxNode::parentChanged);
    QVERIFY(child.setNodeParent(&first));
    QVERIFY(child.setNodeParent(&second));
    QVERIFY(child.setNodeParent(nullptr));
    QCOMPARE(changed.count(), 3);
    QCOMPARE(changed.at(1).at(0).value<VxNode *>(), &child);
    QCOMPARE(changed.at(1).at(1).value<VxNode *>(), &first);
    QCOMPARE(changed.at(1).at(2).value<VxNode *>(), &second);
    QCOMPARE(changed.at(2).at(2).value<VxNode *>(), nullptr);
    QCOMPARE(first.getNumNodeChildren() + second.getNumNodeChildren(), 0);
}

void TestNode::destructionDestroysTheChildren()
{
    auto root = std::make_unique<VxNode>(QStringLiteral("root"));
    const QPointer<VxNode> child(new VxNode(QStringLiteral("child")));
    const QPointer<VxNode> grandchild(new VxNode(QStringLiteral("grandchild")));
    root->addNodeChild(child);
    child->addNodeChild(grandchild);
    QSignalSpy removed(grandchild.data(), &VxElement::aboutToBeRemoved);
    root.reset();
    QVERIFY(!child);
    QVERIFY(!grandchild);
    QCOMPARE(removed.count(), 1);
}

void TestNode::childDestroyedOnItsOwnIsRemoved()
{
    VxNode root(QStringLiteral("root"));
    for (const char *name : {"a", "b"})
        root.addNodeChild(new VxNode(QString::fromLatin1(name)));
    delete root.getNodeChild(0);
    QCOMPARE(root.getNumNodeChildren(), 1);
    QCOMPARE(root.getNodeChild(0)->getSiblingIndex(), 0);
}

void TestNode::aDeepChainIsDestroyed()
{
    VxNode root(QStringLiteral("root"));
    VxNode *last = &root;
    for (int i = 0; i < 4000; ++i) {
        auto *next = new VxNode(QStringLiteral("n"));
        last->addNodeChild(next);
        last = next;
    }
    const QPointer<VxNode> guard(last);
    delete root.getNodeChild(0);
    QVERIFY(!guard);
}

void TestNode::traits()
{
    VxNode node(QStringLiteral("n"));
    QVERIFY(node.isVisible());
    QVERIFY(node.isSelectable());
    QVERIFY(!node.isIkNode());
    QSignalSpy visible(&node, &VxNode::visibleChanged);
    node.setVisible(false);
    node.setVisible(false);
    node.setSelectable(false);
    node.setIkNode(true);
    QCOMPARE(visible.count(), 1);
    QVERIFY(!node.isVisible());
    QVERIFY(!node.isSelectable());
    QVERIFY(node.isIkNode());
    node.setEndPoint({1, 2, 3});
    QCOMPARE(node.getEndPoint(), QVector3D(1, 2, 3));
}

void TestNode::wrongRotationOrder()
{
    VxNode node(QStringLiteral("n"));
    m_guard->expect(QRegularExpression(QStringLiteral("6 is not a rotation order")));
    node.setRotationOrder(static_cast<VxNode::RotationOrder>(6));
    QCOMPARE(node.getRotationOrder(), VxNode::XYZ);
}

void TestNode::nothingIsSelectedOutsideOfAScene()
{
    VxNode node(QStringLiteral("n"));
    node.select();
    QVERIFY(!node.isSelected());
}

void TestNode::restingTransform()
{
    const VxNode node(QStringLiteral("n"));
    QVERIFY(node.getLocalTransform(0).isIdentity());
    QVERIFY(node.getWorldTransform(4800).isIdentity());
}

void TestNode::translationAndOrigin()
{
    VxNode node(QStringLiteral("n"));
    node.setOrigin({10, 20, 30});
    node.getXPosControl()->setStoredValue(1);
    node.getYPosControl()->setStoredValue(2);
    node.getZPosControl()->setStoredValue(3);
    QVERIFY(isNear(node.getLocalTransform(0) * QVector3D(0, 0, 0), {11, 22, 33}));
}

void TestNode::uniformTimesAxisScale()
{
    VxNode node(QStringLiteral("n"));
    node.getScaleControl()->setStoredValue(2);
    node.getYScaleControl()->setStoredValue(0.5f);
    node.getZScaleControl()->setStoredValue(-1);
    QVERIFY(isNear(node.getLocalTransform(0) * QVector3D(1, 1, 1), {2, 1, -2}));
}

void TestNode::rotationOrders_data()
{
    QTest::addColumn<int>("order");
    QTest::addColumn<QString>("axes");

    const QMetaEnum orders = QMetaEnum::fromType<VxNode::RotationOrder>();
    for (int i = 0; i < orders.keyCount(); ++i)
        QTest::newRow(orders.key(i)) << orders.value(i) << QString::fromLatin1(orders.key(i));
}

void TestNode::rotationOrders()
{
    QFETCH(int, order);
    QFETCH(QString, axes);

    VxNode node(QStringLiteral("n"));
    node.setOrigin({4, 5, 6});
    node.setRotationOrder(static_cast<VxNode::RotationOrder>(order));
    const float degrees[] = {25, -70, 160};
    node.getXRotControl()->setStoredValue(degrees[0]);
    node.getYRotControl()->setStoredValue(degrees[1]);
    node.getZRotControl()->setStoredValue(degrees[2]);
    node.getScaleControl()->setStoredValue(3);

    // The toolkit multiplies from the right, so the letters are followed from left to right.
    QMatrix4x4 expected;
    expected.translate(4, 5, 6);
    for (const QChar letter : axes) {
        const int axis = letter.unicode() - 'X';
        QVector3D direction;
        direction[axis] = 1;
        expected.rotate(degrees[axis], direction);
    }
    expected.scale(3);
    for (const QVector3D &point : {QVector3D(1, 0, 0), QVector3D(0, 1, 0), QVector3D(1, 2, 3)})
        QVERIFY(isNear(node.getLocalTransform(0) * point, expected * point));
}

void TestNode::transformsFollowTheKeys()
{
    VxNode node(QStringLiteral("n"));
    node.getXPosControl()->setKey(0, 0, 0);
    node.getXPosControl()->setKey(4800, 10, 0);
    node.getZRotControl()->setKey(0, 0, 0);
    node.getZRotControl()->setKey(4800, 180, 0);
    QVERIFY(isNear(node.getLocalTransform(2400) * QVector3D(1, 0, 0), {5, 1, 0}));
    QVERIFY(isNear(node.getLocalTransform(4800) * QVector3D(1, 0, 0), {9, 0, 0}));
}

void TestNode::worldTransform()
{
    VxNode root(QStringLiteral("root"));
    auto *child = new VxNode(QStringLiteral("child"));
    root.addNodeChild(child);
    root.getZRotControl()->setStoredValue(90);
    root.setOrigin({100, 0, 0});
    child->setOrigin({1, 0, 0});
    child->getScaleControl()->setStoredValue(2);
    QVERIFY(isNear(child->getWorldTransform(0) * QVector3D(1, 0, 0), {100, 3, 0}));
}

void TestNode::manyTransformsAreCheap()
{
    VxNode node(QStringLiteral("n"));
    for (int i = 0; i < node.getNumProperties(); ++i) {
        auto *control = qobject_cast<VxFloatProperty *>(node.getProperty(i));
        for (VxTime time = 0; time < 48000; time += 160)
            control->setKey(time, float(time % 7), 0);
    }
    float sum = 0;
    QBENCHMARK
    {
        for (VxTime time = 0; time < 48000; time += 160)
            sum += node.getLocalTransform(time)(0, 3);
    }
    QVERIFY(sum > 0);
}

VX_TEST_MAIN(TestNode)
#include "tst_vxnode.moc"
