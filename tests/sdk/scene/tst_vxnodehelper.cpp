#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"

#include <QtTest>
#include <limits>
#include <random>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxnodehelper.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxundostack.h>
#include <vxcore/vxundostackhold.h>

namespace {

QVector<VxFloatProperty *> controls(const VxNode *node)
{
    return {node->getXPosControl(),  node->getYPosControl(),   node->getZPosControl(),
            node->getXRotControl(),  node->getYRotControl(),   node->getZRotControl(),
            node->getScaleControl(), node->getXScaleControl(), node->getYScaleControl(),
            node->getZScaleControl()};
}

void setPlace(VxNode *node, float x, float y, float z)
{
    node->getXPosControl()->setStoredValue(x);
    node->getYPosControl()->setStoredValue(y);
    node->getZPosControl()->setStoredValue(z);
}

void setTurn(VxNode *node, float x, float y, float z)
{
    node->getXRotControl()->setStoredValue(x);
    node->getYRotControl()->setStoredValue(y);
    node->getZRotControl()->setStoredValue(z);
}

QString valuesOf(const VxNode *node)
{
    QStringList all;
    for (const VxFloatProperty *control : controls(node)) {
        QStringList one{QString::number(double(control->getStoredValue()), 'g', 9)};
        for (int i = 0; i < control->getNumKeys(); ++i)
            one << QStringLiteral("%1:%2/%3")
                       .arg(control->getKeyTime(i))
                       .arg(double(control->getKeyValue(i)), 0, 'g', 9)
                       .arg(control->getKeyInterpolationType(i));
        all << one.join(' ');
    }
    return all.join(" | ");
}

/// The largest difference of two transforms, relative to the numbers in them.
float difference(const QMatrix4x4 &a, const QMatrix4x4 &b)
{
    float most = 0;
    float size = 1;
    for (int i = 0; i < 16; ++i) {
        size = qMax(size, qAbs(a.constData()[i]));
        most = qMax(most, qAbs(a.constData()[i] - b.constData()[i]));
        if (!qIsFinite(b.constData()[i]))
            return std::numeric_limits<float>::infinity();
    }
    return most / size;
}

constexpr float Same = 2e-5f;

} // namespace

/// A node "ball" at the top level that is moved below "hand", a child of "arm"; both are away
/// from the world's origin and turned.
class tst_VxNodeHelper : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void shownUnlessSomethingAboveIsHidden();
    void aNodeWithoutKeysStays();
    void movingThereAndBackRestoresTheValues();
    void sameSpaceChangesNothing();
    void aStretchedParent_data();
    void aStretchedParent();
    void aSkewIsReported();
    void keysKeepTheirPlaces_data();
    void keysKeepTheirPlaces();
    void aShiftKeepsTheKeysShapes();
    void onlyMovedNodesGetKeys();
    void betweenKeysThePresentPlaceIsKept();
    void spinsAreKept();
    void aParentOfNoSizeChangesNothing();
    void aParentOfNoSizeAtOtherTimes();
    void aFlatNodeStaysFlat();
    void fromAParentOfNoSizeThePlaceIsKept();
    void noNumbers();
    void lockedAndLinkedControlsStay();
    void aLockedScaleIsCompensatedByTheAxes();
    void undoIsExact();
    void anyTwoPlaces();

private:
    bool move(VxNode *parent, VxTime time = 0);
    VxNode *add(const char *name, VxNode *parent = nullptr);

    QScopedPointer<VxWarningGuard> m_guard;
    QScopedPointer<VxUndoStack> m_stack;
    QScopedPointer<VxScene> m_scene;
    VxNode *m_arm = nullptr;
    VxNode *m_hand = nullptr;
    VxNode *m_ball = nullptr;
};

void tst_VxNodeHelper::init()
{
    m_guard.reset(new VxWarningGuard);
    m_stack.reset(new VxUndoStack);
    m_scene.reset(new VxScene);
    m_arm = add("arm");
    m_hand = add("hand", m_arm);
    m_ball = add("ball");
    setPlace(m_arm, 10, 20, 30);
    setTurn(m_arm, 20, -35, 70);
    m_hand->setOrigin({0, 12, 0});
    setTurn(m_hand, 0, 45, 10);
    setPlace(m_ball, 1, 2, 3);
    setTurn(m_ball, 15, 25, 35);
    m_ball->setOrigin({0.5f, 0, -0.5f});
}

void tst_VxNodeHelper::cleanup()
{
    m_stack->clear();
    m_scene.reset();
    m_stack.reset();
    m_guard.reset();
}

VxNode *tst_VxNodeHelper::add(const char *name, VxNode *parent)
{
    auto *node = new VxNode(QString::fromLatin1(name));
    m_scene->addNode(node, parent);
    return node;
}

bool tst_VxNodeHelper::move(VxNode *parent, VxTime time)
{
    VxUndoStackHold hold;
    const bool kept =
        VxNodeHelper::keepWorldTransform(m_ball, m_ball->getNodeParent(), parent, time);
    m_ball->setNodeParent(parent);
    hold.accept("Move");
    return kept;
}

void tst_VxNodeHelper::shownUnlessSomethingAboveIsHidden()
{
    VxNode *finger = add("finger", m_hand);
    QVERIFY(VxNodeHelper::isShown(finger));
    QVERIFY(!VxNodeHelper::getHiddenAncestor(finger));
    m_hand->setVisible(false);
    QVERIFY(!VxNodeHelper::isShown(finger) && VxNodeHelper::isShown(m_arm));
    m_arm->setVisible(false);
    QCOMPARE(VxNodeHelper::getHiddenAncestor(finger), m_arm);
    QVERIFY(finger->isVisible());
    m_arm->setVisible(true);
    m_hand->setVisible(true);
    finger->setVisible(false);
    QVERIFY(!VxNodeHelper::isShown(finger));
    QVERIFY(!VxNodeHelper::getHiddenAncestor(finger));
}

void tst_VxNodeHelper::aNodeWithoutKeysStays()
{
    const QMatrix4x4 before = m_ball->getWorldTransform(0);
    QVERIFY(move(m_hand));
    QCOMPARE(m_ball->getNodeParent(), m_hand);
    QVERIFY(difference(before, m_ball->getWorldTransform(0)) < Same);
    QVERIFY(m_ball->getXPosControl()->getStoredValue() != 1);
    for (const VxFloatProperty *control : controls(m_ball))
        QCOMPARE(control->getNumKeys(), 0);
    QCOMPARE(m_ball->getScaleControl()->getStoredValue(), 1.0f);
}

void tst_VxNodeHelper::movingThereAndBackRestoresTheValues()
{
    QVector<float> before;
    for (const VxFloatProperty *control : controls(m_ball))
        before << control->getStoredValue();
    for (int i = 0; i < 10; ++i) {
        QVERIFY(move(m_hand));
        QVERIFY(move(nullptr));
    }
    for (int i = 0; i < before.size(); ++i)
        QVERIFY(qAbs(controls(m_ball).at(i)->getStoredValue() - before.at(i)) < 1e-4f);
}

void tst_VxNodeHelper::sameSpaceChangesNothing()
{
    VxNode *still = add("still"); // at the origin, not turned
    m_ball->getXRotControl()->setKey(0, 89.99f, 2, 0.5f);
    m_ball->getXRotControl()->setKey(160, 123.4f, 0);
    const QString before = valuesOf(m_ball);
    QVERIFY(move(still));
    QCOMPARE(valuesOf(m_ball), before);
}

void tst_VxNodeHelper::aStretchedParent_data()
{
    QTest::addColumn<float>("all");
    QTest::addColumn<float>("x");
    QTest::addColumn<float>("y");
    QTest::addColumn<float>("uniform"); // the ball's scale afterwards; 1: its axes are stretched
    QTest::newRow("twice as large") << 2.f << 1.f << 1.f << 0.5f;
    QTest::newRow("tiny") << 1e-4f << 1.f << 1.f << 1e4f;
    QTest::newRow("longer along one axis") << 1.f << 4.f << 1.f << 1.f;
    QTest::newRow("mirrored") << 1.f << -1.f << 1.f << 1.f;
    QTest::newRow("mirrored twice") << 1.f << -1.f << -1.f << 1.f;
}

void tst_VxNodeHelper::aStretchedParent()
{
    QFETCH(float, all);
    QFETCH(float, x);
    QFETCH(float, y);
    m_hand->getScaleControl()->setStoredValue(all);
    m_hand->getXScaleControl()->setStoredValue(x);
    m_hand->getYScaleControl()->setStoredValue(y);
    // Along the same axes: else unequal factors would skew.
    setTurn(m_arm, 0, 0, 0);
    setTurn(m_hand, 0, 0, 0);
    setTurn(m_ball, 0, 90, 0);
    const QMatrix4x4 before = m_ball->getWorldTransform(0);
    QVERIFY(move(m_hand));
    QVERIFY(difference(before, m_ball->getWorldTransform(0)) < Same);
    QFETCH(float, uniform);
    QVERIFY(qAbs(m_ball->getScaleControl()->getStoredValue() / uniform - 1) < 1e-5f);
    QVERIFY(move(nullptr));
    QVERIFY(difference(before, m_ball->getWorldTransform(0)) < Same);
}

void tst_VxNodeHelper::aSkewIsReported()
{
    m_hand->getXScaleControl()->setStoredValue(3);
    const QVector3D before = m_ball->getWorldTransform(0).column(3).toVector3D();
    QVERIFY(!move(m_hand));
    const QVector3D after = m_ball->getWorldTransform(0).column(3).toVector3D();
    QVERIFY((after - before).length() < 1e-4f); // the place at least
}

void tst_VxNodeHelper::keysKeepTheirPlaces_data()
{
    QTest::addColumn<bool>("parentMoves");
    QTest::newRow("below a parent at rest") << false;
    QTest::newRow("below a parent in motion") << true;
}

void tst_VxNodeHelper::keysKeepTheirPlaces()
{
    QFETCH(bool, parentMoves);
    if (parentMoves) {
        m_arm->getYRotControl()->setKey(0, 0, 0);
        m_arm->getYRotControl()->setKey(1600, 200, 0);
        m_hand->getXPosControl()->setKey(160, 3, 0);
        m_hand->getXPosControl()->setKey(800, -4, 0);
    }
    // Position and rotation at times of their own.
    for (const VxTime time : {0, 320, 480, 1600}) {
        m_ball->getXPosControl()->setKey(time, float(time) / 100, 0);
        m_ball->getYPosControl()->setKey(time, 5 - float(time) / 400, 1);
    }
    for (const VxTime time : {160, 480, 800})
        m_ball->getZRotControl()->setKey(time, float(time) / 3, 2, 0.25f);
    const QVector<VxTime> times{0, 160, 320, 480, 800, 1600};
    QVector<QMatrix4x4> before;
    for (const VxTime time : times)
        before << m_ball->getWorldTransform(time);
    QVERIFY(move(m_hand, 480));
    for (int i = 0; i < times.size(); ++i)
        QVERIFY2(difference(before.at(i), m_ball->getWorldTransform(times.at(i))) < Same,
                 qPrintable(QString::number(times.at(i))));
    // No key is lost, and those that were keep their types.
    VxFloatProperty *y = m_ball->getYPosControl();
    VxFloatProperty *z = m_ball->getZRotControl();
    for (const VxTime time : {0, 320, 480, 1600})
        QCOMPARE(y->getKeyInterpolationType(y->findKey(time)), 1);
    for (const VxTime time : {160, 480, 800}) {
        float tension = 0;
        QCOMPARE(z->getKeyInterpolationType(z->findKey(time), &tension), 2);
        QCOMPARE(tension, 0.25f);
    }
    QCOMPARE(m_ball->getScaleControl()->getNumKeys(), 0);
    QCOMPARE(m_ball->getXScaleControl()->getNumKeys(), 0);
}

void tst_VxNodeHelper::aShiftKeepsTheKeysShapes()
{
    setTurn(m_arm, 0, 0, 0);
    setTurn(m_hand, 0, 0, 0);
    VxFloatProperty *x = m_ball->getXPosControl();
    x->setKey(0, 1, 2, 0.5f);
    x->setKey(160, 7, 1);
    x->setKey(320, 2, 0);
    m_ball->getYPosControl()->setKey(240, 4, 0);
    QVector<QMatrix4x4> before;
    for (VxTime time = 0; time <= 400; time += 10)
        before << m_ball->getWorldTransform(time);
    QVERIFY(move(m_hand, 77));
    QCOMPARE(x->getNumKeys(), 3);
    QCOMPARE(x->getKeyValue(0), -9.0f); // the arm is at 10
    QCOMPARE(m_ball->getYPosControl()->getNumKeys(), 1);
    for (VxTime time = 0; time <= 400; time += 10)
        QVERIFY(difference(before.at(time / 10), m_ball->getWorldTransform(time)) < Same);
}

void tst_VxNodeHelper::onlyMovedNodesGetKeys()
{
    // Turned about Z only: X and Y mix, Z does not.
    setTurn(m_arm, 0, 0, 90);
    setTurn(m_hand, 0, 0, 0);
    setTurn(m_ball, 0, 0, 0);
    m_ball->getXPosControl()->setKey(0, 1, 0);
    m_ball->getXPosControl()->setKey(160, 2, 0);
    QVERIFY(move(m_hand));
    QCOMPARE(m_ball->getYPosControl()->getNumKeys(), 2); // X of the world is -Y now
    QCOMPARE(m_ball->getZPosControl()->getNumKeys(), 0);
    QCOMPARE(m_ball->getZRotControl()->getNumKeys(), 0);
    QCOMPARE(m_ball->getZRotControl()->getStoredValue(), -90.0f);
}

void tst_VxNodeHelper::betweenKeysThePresentPlaceIsKept()
{
    m_arm->getYRotControl()->setKey(0, 0, 0);
    m_arm->getYRotControl()->setKey(1600, 300, 0);
    m_ball->getXPosControl()->setKey(0, 0, 0);
    m_ball->getXPosControl()->setKey(1600, 50, 0);
    const QMatrix4x4 before = m_ball->getWorldTransform(700);
    QVERIFY(move(m_hand, 700));
    QVERIFY(difference(before, m_ball->getWorldTransform(700)) < Same);
    QVERIFY(m_ball->getXPosControl()->hasKey(700));
    // Where the curve passes the position anyway no key is needed.
    setTurn(m_arm, 0, 0, 0);
    m_arm->getYRotControl()->deleteAllKeys();
    const int count = m_ball->getXPosControl()->getNumKeys();
    QVERIFY(move(nullptr, 900));
    QCOMPARE(m_ball->getXPosControl()->getNumKeys(), count);
}

void tst_VxNodeHelper::spinsAreKept()
{
    setTurn(m_arm, 0, 40, 0);
    setTurn(m_hand, 0, 0, 0);
    setTurn(m_ball, 0, 0, 0);
    VxFloatProperty *y = m_ball->getYRotControl();
    for (int i = 0; i <= 10; ++i)
        y->setKey(i * 160, float(i) * 150, 0);
    QVERIFY(move(m_hand));
    for (int i = 0; i <= 10; ++i)
        QVERIFY(qAbs(y->getKeyValue(i) - (float(i) * 150 - 40)) < 1e-3f);
    QCOMPARE(m_ball->getXRotControl()->getNumKeys(), 0);
}

void tst_VxNodeHelper::aParentOfNoSizeChangesNothing()
{
    m_hand->getYScaleControl()->setStoredValue(0);
    m_ball->getXPosControl()->setKey(0, 1, 0);
    const QString before = valuesOf(m_ball);
    QVERIFY(!move(m_hand));
    QCOMPARE(valuesOf(m_ball), before);
    QCOMPARE(m_ball->getNodeParent(), m_hand);
    // Both are below an ancestor of scale 0: nothing between them changes.
    VxNode *finger = add("finger", m_hand);
    setTurn(finger, 10, 20, 30);
    const QMatrix4x4 local = m_ball->getLocalTransform(0);
    QVERIFY(move(finger));
    QVERIFY(difference(local, finger->getLocalTransform(0) * m_ball->getLocalTransform(0)) < Same);
}

void tst_VxNodeHelper::aParentOfNoSizeAtOtherTimes()
{
    // The hand grows from nothing and vanishes again.
    VxFloatProperty *scale = m_hand->getScaleControl();
    scale->setKey(0, 0, 0);
    scale->setKey(160, 1, 0);
    scale->setKey(320, 1, 0);
    scale->setKey(480, 0, 0);
    for (int i = 0; i <= 3; ++i)
        m_ball->getXPosControl()->setKey(i * 160, float(i), 0);
    const QMatrix4x4 first = m_ball->getWorldTransform(160);
    const QMatrix4x4 second = m_ball->getWorldTransform(320);
    const QString before = valuesOf(m_ball);
    QVERIFY(!move(m_hand, 480)); // there is nothing to hold on to just now
    QCOMPARE(valuesOf(m_ball), before);
    m_stack->setIndex(0);
    QVERIFY(move(m_hand, 160));
    QVERIFY(difference(first, m_ball->getWorldTransform(160)) < Same);
    QVERIFY(difference(second, m_ball->getWorldTransform(320)) < Same);
    for (const VxFloatProperty *control : controls(m_ball)) {
        for (int i = 0; i < control->getNumKeys(); ++i)
            QVERIFY(qAbs(control->getKeyValue(i)) < 1000);
    }
}

void tst_VxNodeHelper::aFlatNodeStaysFlat()
{
    m_ball->getScaleControl()->setStoredValue(0);
    const QVector3D before = m_ball->getWorldTransform(0).column(3).toVector3D();
    QVERIFY(move(m_hand));
    const QVector3D after = m_ball->getWorldTransform(0).column(3).toVector3D();
    QVERIFY((after - before).length() < 1e-4f);
    QCOMPARE(m_ball->getScaleControl()->getStoredValue(), 0.0f);
    // Its direction is kept for when it has a size again.
    m_ball->getScaleControl()->setStoredValue(1);
    QVERIFY(move(nullptr));
    QVERIFY(qAbs(m_ball->getXRotControl()->getStoredValue() - 15) < 1e-4f);
}

void tst_VxNodeHelper::fromAParentOfNoSizeThePlaceIsKept()
{
    m_ball->setNodeParent(m_hand);
    m_hand->getScaleControl()->setStoredValue(0);
    const QVector3D before = m_ball->getWorldTransform(0).column(3).toVector3D();
    QVERIFY(!move(nullptr)); // its scale cannot be kept
    const QVector3D after = m_ball->getWorldTransform(0).column(3).toVector3D();
    QVERIFY((after - before).length() < 1e-4f);
    QCOMPARE(m_ball->getXRotControl()->getStoredValue(), 15.0f);
    QCOMPARE(m_ball->getScaleControl()->getStoredValue(), 1.0f);
}

void tst_VxNodeHelper::noNumbers()
{
    const float huge = std::numeric_limits<float>::max();
    setPlace(m_arm, huge, huge, huge);
    m_arm->getScaleControl()->setStoredValue(1e-30f);
    const QString before = valuesOf(m_ball);
    QVERIFY(!move(m_hand));
    QCOMPARE(valuesOf(m_ball), before);
    QVERIFY(move(nullptr) || valuesOf(m_ball) == before);
}

void tst_VxNodeHelper::lockedAndLinkedControlsStay()
{
    m_ball->getXRotControl()->setLocked(true);
    const QVector3D before = m_ball->getWorldTransform(0).column(3).toVector3D();
    QVERIFY(!move(m_hand));
    QCOMPARE(m_ball->getXRotControl()->getStoredValue(), 15.0f);
    QCOMPARE(m_ball->getYRotControl()->getStoredValue(), 25.0f); // of no use alone
    QVERIFY((m_ball->getWorldTransform(0).column(3).toVector3D() - before).length() < 1e-4f);
    // What another property drives stays with that one, whose values are not touched.
    m_ball->getXRotControl()->setLocked(false);
    VxNode *driver = add("driver");
    m_ball->getXPosControl()->setLink(driver->getXPosControl());
    const QString driven = valuesOf(driver);
    const float own = m_ball->getXPosControl()->getStoredValue();
    const QVector3D place = m_ball->getWorldTransform(0).column(3).toVector3D();
    QVERIFY(!move(nullptr));
    QCOMPARE(m_ball->getXPosControl()->getStoredValue(), own);
    const QVector3D after = m_ball->getWorldTransform(0).column(3).toVector3D();
    QVERIFY(qAbs(after.y() - place.y()) < 1e-4f && qAbs(after.z() - place.z()) < 1e-4f);
    QCOMPARE(valuesOf(driver), driven);
}

void tst_VxNodeHelper::aLockedScaleIsCompensatedByTheAxes()
{
    m_arm->getScaleControl()->setStoredValue(4);
    m_ball->getScaleControl()->setLocked(true);
    const QMatrix4x4 before = m_ball->getWorldTransform(0);
    QVERIFY(move(m_hand));
    QVERIFY(difference(before, m_ball->getWorldTransform(0)) < Same);
    QCOMPARE(m_ball->getScaleControl()->getStoredValue(), 1.0f);
    QCOMPARE(m_ball->getYScaleControl()->getStoredValue(), 0.25f);
}

void tst_VxNodeHelper::undoIsExact()
{
    m_arm->getYRotControl()->setKey(0, 0, 0);
    m_arm->getYRotControl()->setKey(1600, 300, 0);
    m_ball->getXPosControl()->setKey(0, 0, 2, 0.5f);
    m_ball->getXPosControl()->setKey(800, 50, 1);
    const QString before = valuesOf(m_ball);
    QVERIFY(move(m_hand, 100));
    const QString after = valuesOf(m_ball);
    QVERIFY(after != before);
    QCOMPARE(m_stack->count(), 1);
    m_stack->undo();
    QCOMPARE(valuesOf(m_ball), before);
    QVERIFY(!m_ball->getNodeParent());
    m_stack->redo();
    QCOMPARE(valuesOf(m_ball), after);
    QCOMPARE(m_ball->getNodeParent(), m_hand);
}

void tst_VxNodeHelper::anyTwoPlaces()
{
    std::mt19937 random(11);
    std::uniform_real_distribution<float> any(-1, 1);
    VxNode *other = add("other", m_arm);
    const QVector<VxNode *> parents{nullptr, m_arm, m_hand, other};
    for (int round = 0; round < 300; ++round) {
        for (VxNode *node : {m_arm, m_hand, other, m_ball}) {
            setPlace(node, any(random) * 50, any(random) * 50, any(random) * 50);
            setTurn(node, any(random) * 400, any(random) * 400, any(random) * 400);
            node->getScaleControl()->setStoredValue(std::exp(any(random) * 2));
            node->setRotationOrder(VxNode::RotationOrder(random() % 6));
        }
        VxNode *to = parents.at(int(random() % 4));
        const QMatrix4x4 before = m_ball->getWorldTransform(0);
        QVERIFY2(move(to), qPrintable(QString::number(round)));
        const float off = difference(before, m_ball->getWorldTransform(0));
        QVERIFY2(off < Same * 5, qPrintable(QStringLiteral("%1: %2").arg(round).arg(double(off))));
    }
}

VX_TEST_MAIN(tst_VxNodeHelper)
#include "tst_vxnodehelper.moc"
