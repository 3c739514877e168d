#include "ballpanetestbase.h"
#include "testing/vxtestmain.h"
#include "vxtimeline/keys/keycreation.h"

#include <vxcore/vxbone.h>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxskeleton.h>

// The keys that the pane creates on selected rows, figures and nodes, on one frame and on several.
class TestTimePaneKeyCreation : public QObject, private BallPaneTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { showBall(); }
    void cleanup() { tearDown(); }

    void keysOfSelectedRows();
    void severalKeysOfSelectedRowsAreOne();
    void keysOfLockedRows();
    void figureOfASkeleton();
    void figureOfABone();
    void keysBelowOnSeveralFrames();
    void typeOtherFiltersRowsOnly();
    void repeatedKeysAreLikeTheFirst();
    void repeatedKeysOfALimitedValue();
    void framesBeyondTheEndOfTime();
};

void TestTimePaneKeyCreation::keysOfSelectedRows()
{
    pane->setFilteredKeyCreationScope(VxTimePane::ScopeProperties);
    ball->select(true);
    clickName(ball->getYPosControl());
    clickName(ball->getZPosControl(), Qt::ControlModifier);
    QVERIFY(vxScene->getPrimarySelection());
    vxScene->setTime(800);
    pane->createFilteredKeys();
    QCOMPARE(keyTimes(ball->getYPosControl()), Times({800}));
    QCOMPARE(keyTimes(ball->getZPosControl()), Times({800}));
    QCOMPARE(keyTimes(x()), Times({0, 1600, 3200}));
    QCOMPARE(undoTexts(), QStringList("Create Filtered Keys"));
    vxApp->getUndoStack()->undo();
    QCOMPARE(keyTimes(ball->getYPosControl()), Times());
}

void TestTimePaneKeyCreation::severalKeysOfSelectedRowsAreOne()
{
    pane->setFilteredKeyCreationScope(VxTimePane::ScopeProperties);
    ball->select(true);
    clickName(ball->getYPosControl());
    pane->createFilteredKeys(5);
    QCOMPARE(keyTimes(ball->getYPosControl()), Times({1600}));
}

void TestTimePaneKeyCreation::keysOfLockedRows()
{
    pane->setFilteredKeyCreationScope(VxTimePane::ScopeProperties);
    ball->select(true);
    ball->getYPosControl()->setLocked(true);
    clickName(ball->getYPosControl());
    pane->createFilteredKeys();
    QCOMPARE(keyTimes(ball->getYPosControl()), Times());
    QCOMPARE(undoTexts(), QStringList());
}

void TestTimePaneKeyCreation::figureOfASkeleton()
{
    auto *figure = new VxSkeleton(QStringLiteral("figure"));
    auto *hip = new VxBone(QStringLiteral("hip"));
    figure->addNodeChild(hip);
    vxScene->addNode(figure);
    pane->setFilteredKeyCreationScope(VxTimePane::ScopeObject);
    figure->select(true);
    pane->createFilteredKeys(2);
    QCOMPARE(keyTimes(figure->getXPosControl()), Times({1600, 1760}));
    QCOMPARE(keyTimes(hip->getXPosControl()), Times({1600, 1760}));
    QCOMPARE(keyTimes(ball->getYPosControl()), Times());
}

// The bone's skeleton and everything that hangs on it, other bones too.
void TestTimePaneKeyCreation::figureOfABone()
{
    auto *figure = new VxSkeleton(QStringLiteral("figure"));
    auto *hip = new VxBone(QStringLiteral("hip"));
    auto *thigh = new VxBone(QStringLiteral("thigh"));
    auto *chest = new VxBone(QStringLiteral("chest"));
    auto *hat = new VxNode(QStringLiteral("hat"));
    figure->addNodeChild(hip);
    hip->addNodeChild(thigh);
    hip->addNodeChild(chest);
    chest->addNodeChild(hat);
    vxScene->addNode(figure);
    pane->setFilteredKeyCreationScope(VxTimePane::ScopeObject);
    thigh->select(true);
    pane->createFilteredKeys();
    for (const VxNode *node : QVector<const VxNode *>{figure, hip, thigh, chest, hat})
        QCOMPARE(keyTimes(node->getXPosControl()), Times({1600}));
    QCOMPARE(keyTimes(ball->getYPosControl()), Times());
}

void TestTimePaneKeyCreation::keysBelowOnSeveralFrames()
{
    auto *string = new VxNode(QStringLiteral("string"));
    vxScene->addNode(string, ball);
    string->getYPosControl()->setKey(0, 0, 0);
    string->getYPosControl()->setKey(3200, 20, 0);
    pane->setFilteredKeyCreationScope(VxTimePane::ScopeNodeRecurse);
    ball->select(true);
    pane->createFilteredKeys(3);
    const VxFloatProperty *y = string->getYPosControl();
    QCOMPARE(keyTimes(y), Times({0, 1600, 1760, 1920, 3200}));
    for (int i = 1; i <= 3; ++i)
        QCOMPARE(y->getKeyValue(i), 10.0f);
    QCOMPARE(keyTimes(ball->getZPosControl()), Times({1600, 1760, 1920}));
    QCOMPARE(undoTexts(), QStringList("Create Filtered Keys"));
    vxApp->getUndoStack()->undo();
    QCOMPARE(keyTimes(y), Times({0, 3200}));
}

void TestTimePaneKeyCreation::typeOtherFiltersRowsOnly()
{
    auto *own = new VxFloatProperty(QStringLiteral("own"));
    ball->addProperty(own, QStringLiteral("/General"));
    setTypes(VxTimePane::PropTranslate);
    QVERIFY(!rowOf(own).isValid());
    ball->select(true);
    pane->createFilteredKeys();
    QCOMPARE(keyTimes(own), Times({1600}));
    setTypes(VxTimePane::PropTranslate | VxTimePane::PropOther);
    QVERIFY(rowOf(own).isValid());
}

void TestTimePaneKeyCreation::repeatedKeysAreLikeTheFirst()
{
    x()->setKey(1600, 7.0f, VxKeyInterp::Tcb, 0.5f, -0.25f, 1.0f);
    x()->setKey(1800, 3.0f, VxKeyInterp::Constant); // between two of the new keys
    x()->setKey(1920, 4.0f, VxKeyInterp::Constant); // where one is added
    ball->select(true);
    pane->createFilteredKeys(4);
    QCOMPARE(keyTimes(x()), Times({0, 1600, 1760, 1800, 1920, 2080, 3200}));
    for (const int key : {1, 2, 4, 5}) {
        QCOMPARE(x()->getKeyValue(key), 7.0f);
        QCOMPARE(shapeOf(x(), key), Shape({2, 0.5f, -0.25f, 1.0f}));
    }
    QCOMPARE(shapeOf(x(), 3), Shape({1, 0, 0, 0}));
}

void TestTimePaneKeyCreation::repeatedKeysOfALimitedValue()
{
    VxFloatProperty number(QStringLiteral("number"));
    number.setStoredValue(5.0f);
    number.setMinMax(0.0f, 2.0f, true);
    KeyCreation::setKeysFrom(&number, 0, {0, 160, 320});
    QCOMPARE(keyTimes(&number), Times({0, 160, 320}));
    for (int i = 0; i < 3; ++i)
        QCOMPARE(number.getKeyValue(i), 2.0f);
    VxIntProperty whole(QStringLiteral("whole"));
    whole.setStoredValue(5);
    whole.setMinMax(0, 2, true);
    KeyCreation::setKeysFrom(&whole, 0, {0, 160, 320});
    QCOMPARE(keyTimes(&whole), Times({0, 160, 320}));
    for (int i = 0; i < 3; ++i)
        QCOMPARE(whole.getKeyValue(i), 2);
}

void TestTimePaneKeyCreation::framesBeyondTheEndOfTime()
{
    vxScene->setAnimRange(VxTimeRange(0, VxTimeMax));
    vxScene->setTime(VxTimeMax - 200);
    const VxTime now = vxScene->getTime();
    ball->select(true);
    pane->createFilteredKeys(5);
    QCOMPARE(keyTimes(ball->getYPosControl()), Times({now, now + 160}));
}

VX_TEST_MAIN(TestTimePaneKeyCreation)
#include "tst_timepanekeycreation.moc"
