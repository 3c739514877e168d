#include "dopesheetmousetestbase.h"
#include "testing/vxtestmain.h"

#include <QtTest/QSignalSpy>
#include <vxcore/vxundostackhold.h>

// Keys that are dragged in the dope sheet, with real events.
class TestDopeSheetKeyDrag : public QObject, private DopeSheetMouseTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUpMouse(); }
    void cleanup() { tearDownMouse(); }

    void dragMovesTheSelectedKeys();
    void dragOfAnUnselectedKeyMovesItAlone();
    void dragIsTwoPixelsWide();
    void dragSnapsTheKeyThatWasHit();
    void ctrlDragsToTheTick();
    void dragStopsAtTime0();
    void dragStopsAtTheEnd();
    void dragBackToTheStart();
    void dragReplacesAtTheDrop();
    void previewsKeepKeysInTheWay();
    void clickRevertsAPreview();
    void escapeRestoresTheKeys();
    void commandsAreDeferredUntilTheDrop();
    void lockedKeysStay();
    void otherWindowEndsTheDrag();
    void destroyedViewRollsTheDragBack();
    void rowsThatVanishInADrag();
};

void TestDopeSheetKeyDrag::dragMovesTheSelectedKeys()
{
    hip->getXPosControl()->setKey(1600, 5.0f, VxKeyInterp::Tcb, 0.5f, 0.25f, -1.0f);
    select(hipX(), 1600, 3201);
    select(translationOf(ball, 0), -1, VxTimeMax);
    drag(at(hipX(), 3200), 40);
    QCOMPARE(keyTimes(hip->getXPosControl()), Times({0, 2240, 3840, 9440}));
    QCOMPARE(keyTimes(ball->getXPosControl()), Times({2240}));
    QCOMPARE(keyTimes(hip->getYPosControl()), Times({1600}));
    float tension = 0;
    float continuity = 0;
    float bias = 0;
    QCOMPARE(hip->getXPosControl()->getKeyValue(1), 5.0f);
    QCOMPARE(hip->getXPosControl()->getKeyInterpolationType(1, &tension, &continuity, &bias), 2);
    QCOMPARE(QVector<float>({tension, continuity, bias}), QVector<float>({0.5f, 0.25f, -1.0f}));
    // What was selected still is, the rows above show it, and it can be dragged again.
    QCOMPARE(selected(hipX()), Times({2240, 3840}));
    QCOMPARE(selected(translationOf(ball, 0)), Times({2240}));
    QCOMPARE(selected(rowOf(ball)), Times({2240}));
    QCOMPARE(vxApp->getUndoStack()->undoText(), QStringLiteral("Move Keys"));
    drag(at(hipX(), 2240), -20);
    QCOMPARE(keyTimes(hip->getXPosControl()), Times({0, 1920, 3520, 9440}));
    QCOMPARE(undoCount(), 2);

    vxApp->getUndoStack()->undo();
    vxApp->getUndoStack()->undo();
    QCOMPARE(keyTimes(hip->getXPosControl()), Times({0, 1600, 3200, 9440}));
    QCOMPARE(keyTimes(ball->getXPosControl()), Times({1600}));
    vxApp->getUndoStack()->redo();
    QCOMPARE(keyTimes(hip->getXPosControl()), Times({0, 2240, 3840, 9440}));
}

void TestDopeSheetKeyDrag::dragOfAnUnselectedKeyMovesItAlone()
{
    select(translationOf(ball, 0), -1, VxTimeMax);
    drag(at(hipX(), 1600), 30);
    QCOMPARE(keyTimes(hip->getXPosControl()), Times({0, 2080, 3200, 9440}));
    QCOMPARE(keyTimes(ball->getXPosControl()), Times({1600}));
}

void TestDopeSheetKeyDrag::dragIsTwoPixelsWide()
{
    select(hipX(), -1, VxTimeMax);
    const QPoint edge = at(hipX(), 1600) - QPoint(4, 0);
    drag(edge, 2);
    QCOMPARE(undoCount(), 0);
    QCOMPARE(selected(hipX()), Times({1600})); // a click
    select(hipX(), -1, VxTimeMax);
    drag(edge, 3);
    QCOMPARE(undoCount(), 0);                                 // less than half a frame
    QCOMPARE(selected(hipX()), Times({0, 1600, 3200, 9440})); // but a drag
}

void TestDopeSheetKeyDrag::dragSnapsTheKeyThatWasHit()
{
    addKeys(hip->getXPosControl(), {5000, 5100});
    select(hipX(), 5000, 5101);
    drag(at(hipX(), 5000), 10);
    const Times now = keyTimes(hip->getXPosControl());
    QCOMPARE(now.at(3) % 160, 0);
    QCOMPARE(now.at(4) - now.at(3), 100);
}

void TestDopeSheetKeyDrag::ctrlDragsToTheTick()
{
    select(hipX(), 3200, 3200);
    drag(at(hipX(), 3200), 7, Qt::ControlModifier);
    QCOMPARE(keyTimes(hip->getXPosControl()), Times({0, 1600, 3200 + 7 * 16, 9440}));
}

void TestDopeSheetKeyDrag::dragStopsAtTime0()
{
    select(hipX(), 0, 1601);
    drag(at(hipX(), 1600), -50);
    QCOMPARE(keyTimes(hip->getXPosControl()), Times({0, 1600, 3200, 9440}));
    QCOMPARE(undoCount(), 0);
    select(translationOf(hip, 1), -1, VxTimeMax);
    view->setKeySelection(false, hipX(), hipX(), 0, 0);
    drag(at(hipX(), 1600), -300);
    QCOMPARE(keyTimes(hip->getYPosControl()), Times({0}));
    QCOMPARE(keyTimes(hip->getXPosControl()), Times({0, 3200, 9440}));
    vxApp->getUndoStack()->undo();
    QCOMPARE(keyTimes(hip->getXPosControl()), Times({0, 1600, 3200, 9440}));
}

void TestDopeSheetKeyDrag::dragStopsAtTheEnd()
{
    select(hipX(), 3200, VxTimeMax);
    drag(at(hipX(), 3200), 200);
    QCOMPARE(keyTimes(hip->getXPosControl()), Times({0, 1600, 3360, 9600}));
    drag(at(hipX(), 3360), 100);
    QCOMPARE(keyTimes(hip->getXPosControl()), Times({0, 1600, 3360, 9600}));
    QCOMPARE(undoCount(), 1);
}

void TestDopeSheetKeyDrag::dragBackToTheStart()
{
    select(hipX(), 1600, 3201);
    VxMouseDriver hand = mouse();
    const QPoint from = at(hipX(), 1600);
    hand.press(from);
    waitForPreview(hand, from + QPoint(50, 0), Times({0, 2400, 4000, 9440}));
    hand.release(from + QPoint(0, 5));
    QCOMPARE(keyTimes(hip->getXPosControl()), Times({0, 1600, 3200, 9440}));
    QCOMPARE(selected(hipX()), Times({1600, 3200}));
    QCOMPARE(undoCount(), 0);
    QVERIFY(!vxApp->getUndoStack()->isRecording());
}

void TestDopeSheetKeyDrag::dragReplacesAtTheDrop()
{
    hip->getXPosControl()->setKey(1600, 7.0f, VxKeyInterp::Constant);
    select(hipX(), 1600, 1600);
    drag(at(hipX(), 1600), 100);
    QCOMPARE(keyTimes(hip->getXPosControl()), Times({0, 3200, 9440}));
    QCOMPARE(hip->getXPosControl()->getKeyValue(1), 7.0f);
    QCOMPARE(selected(hipX()), Times({3200}));
    vxApp->getUndoStack()->undo();
    QCOMPARE(keyTimes(hip->getXPosControl()), Times({0, 1600, 3200, 9440}));
    QCOMPARE(hip->getXPosControl()->getKeyValue(1), 7.0f);
    QCOMPARE(hip->getXPosControl()->getKeyValue(2), 1.0f);
}

void TestDopeSheetKeyDrag::previewsKeepKeysInTheWay()
{
    select(hipX(), 1600, 1600);
    VxMouseDriver hand = mouse();
    const QPoint from = at(hipX(), 1600);
    hand.press(from);
    waitForPreview(hand, from + QPoint(100, 0), Times({0, 3199, 3200, 9440}));
    QCOMPARE(selected(hipX()), Times({3199}));
    QVERIFY(!view->hasCopiedKeys());
    waitForPreview(hand, from + QPoint(150, 0), Times({0, 3200, 4000, 9440}));
    QCOMPARE(selected(hipX()), Times({4000}));
    hand.release(from + QPoint(150, 0));
    QCOMPARE(keyTimes(hip->getXPosControl()), Times({0, 3200, 4000, 9440}));
    QCOMPARE(undoCount(), 1);
    vxApp->getUndoStack()->undo();
    QCOMPARE(keyTimes(hip->getXPosControl()), Times({0, 1600, 3200, 9440}));
}

// Away and back again within the distance of a click.
void TestDopeSheetKeyDrag::clickRevertsAPreview()
{
    select(hipX(), 1600, 3201);
    VxMouseDriver hand = mouse();
    const QPoint from = at(hipX(), 1600);
    hand.press(from);
    waitForPreview(hand, from + QPoint(50, 0), Times({0, 2400, 4000, 9440}));
    hand.release(from + QPoint(1, 1));
    QCOMPARE(keyTimes(hip->getXPosControl()), Times({0, 1600, 3200, 9440}));
    QCOMPARE(selected(hipX()), Times({1600}));
    QCOMPARE(undoCount(), 0);
    QVERIFY(!vxApp->getUndoStack()->isRecording());
}

void TestDopeSheetKeyDrag::escapeRestoresTheKeys()
{
    select(hipX(), 1600, 3201);
    VxMouseDriver hand = mouse();
    const QPoint from = at(hipX(), 1600);
    hand.press(from);
    waitForPreview(hand, from + QPoint(100, 0), Times({0, 3200, 4800, 9440}));
    QTest::keyClick(view.get(), Qt::Key_Escape);
    QCOMPARE(keyTimes(hip->getXPosControl()), Times({0, 1600, 3200, 9440}));
    QCOMPARE(selected(hipX()), Times({1600, 3200}));
    hand.moveTo(from + QPoint(120, 0));
    hand.release(from + QPoint(120, 0));
    QCOMPARE(keyTimes(hip->getXPosControl()), Times({0, 1600, 3200, 9440}));
    QCOMPARE(selected(hipX()), Times({1600, 3200}));
    QCOMPARE(undoCount(), 0);
    QVERIFY(!vxApp->getUndoStack()->isRecording());
}

void TestDopeSheetKeyDrag::commandsAreDeferredUntilTheDrop()
{
    select(hipX(), 1600, 1600);
    VxMouseDriver hand = mouse();
    const QPoint from = at(hipX(), 1600);
    hand.press(from);
    hand.moveTo(from + QPoint(50, 0));
    view->deleteKeys();
    view->setInterpType(1);
    view->copyKeys();
    vxScene->setTime(800);
    view->pasteKeys();
    QVERIFY(view->hasCopiedKeys());
    QCOMPARE(hip->getXPosControl()->getNumKeys(), 4);
    QCOMPARE(hip->getXPosControl()->getKeyInterpolationType(1), 0);
    hand.release(from + QPoint(50, 0));
    QCOMPARE(keyTimes(hip->getXPosControl()), Times({0, 2400, 3200, 9440}));
    view->deleteKeys();
    QCOMPARE(keyTimes(hip->getXPosControl()), Times({0, 3200, 9440}));
}

void TestDopeSheetKeyDrag::lockedKeysStay()
{
    select(hipX(), 1600, 1600);
    select(translationOf(ball, 0), 1600, 1600);
    hip->getXPosControl()->setLocked(true);
    drag(at(hipX(), 1600), 50);
    QCOMPARE(keyTimes(hip->getXPosControl()), Times({0, 1600, 3200, 9440}));
    QCOMPARE(selected(hipX()), Times({1600}));
    QCOMPARE(keyTimes(ball->getXPosControl()), Times({2400}));
    QCOMPARE(undoCount(), 1);
}

void TestDopeSheetKeyDrag::otherWindowEndsTheDrag()
{
    select(hipX(), 1600, 1600);
    VxMouseDriver hand = mouse();
    const QPoint from = at(hipX(), 1600);
    hand.press(from);
    waitForPreview(hand, from + QPoint(50, 0), Times({0, 2400, 3200, 9440}));
    QFocusEvent leave(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
    QCoreApplication::sendEvent(view.get(), &leave);
    QCOMPARE(keyTimes(hip->getXPosControl()), Times({0, 1600, 3200, 9440}));
    QVERIFY(!vxApp->getUndoStack()->isRecording());
    hand.release(from);
    click(hipX(), 3200);
    QCOMPARE(selected(hipX()), Times({3200}));
}

void TestDopeSheetKeyDrag::destroyedViewRollsTheDragBack()
{
    select(hipX(), 1600, 1600);
    VxMouseDriver hand = mouse();
    const QPoint from = at(hipX(), 1600);
    hand.press(from);
    waitForPreview(hand, from + QPoint(50, 0), Times({0, 2400, 3200, 9440}));
    view.reset();
    QCOMPARE(keyTimes(hip->getXPosControl()), Times({0, 1600, 3200, 9440}));
    QVERIFY(!vxApp->getUndoStack()->isRecording());
}

void TestDopeSheetKeyDrag::rowsThatVanishInADrag()
{
    select(hipX(), 1600, 1600);
    select(translationOf(ball, 0), 1600, 1600);
    VxMouseDriver hand = mouse();
    const QPoint from = at(hipX(), 1600);
    hand.press(from);
    waitForPreview(hand, from + QPoint(50, 0), Times({0, 2400, 3200, 9440}));
    model->removeNode(ball);
    vxScene->removeNode(leg);
    hand.moveTo(from + QPoint(60, 0));
    hand.release(from + QPoint(60, 0));
    QCOMPARE(keyTimes(hip->getXPosControl()), Times({0, 2560, 3200, 9440}));
    QCOMPARE(keyTimes(ball->getXPosControl()), Times({2560}));
}

VX_TEST_MAIN(TestDopeSheetKeyDrag)
#include "tst_dopesheetkeydrag.moc"
