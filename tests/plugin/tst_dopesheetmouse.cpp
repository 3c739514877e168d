#include "dopesheettestbase.h"

#include <QtTest/QSignalSpy>
#include <vxcore/vxundostack.h>
#include <vxcore/vxundostackhold.h>

#include "testing/vxmousedriver.h"
#include "vxtimeline/keys/vxkeycommunication.h"
#include "vxtimeline/time/timelineplayback.h"

using Times = QVector<VxTime>;

namespace {

Times keyTimes(const VxProperty *property)
{
    return property->getNumKeys() == 0
               ? Times()
               : Times(property->getKeyTimes(), property->getKeyTimes() + property->getNumKeys());
}

} // namespace

// The mouse over the dope sheet, with real events: hip's X has keys on the frames 0, 10, 20 and 59
// of 60, its Y on 10, ball's X on 10. All rows are open; a frame takes ten pixels.
class TestDopeSheetMouse : public QObject, private DopeSheetTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void clickSelectsOneKey();
    void reportsOfAClick_data();
    void reportsOfAClick();
    void clickAtTheEdgesOfAMark();
    void clickBesideTheKeysSelectsNone();
    void ctrlClickAdds();
    void altClickTakesAway();
    void altOnASelectedKeyStartsNoDrag();
    void openRowsHaveNoKeysToHit();
    void closedRowsStandForAllBelow();
    void clickSelectsTheNode();
    void ctrlClickAddsTheNode();

    void dragMovesTheSelectedKeys();
    void dragOfAnUnselectedKeyMovesItAlone();
    void dragIsTwoPixelsWide();
    void dragSnapsTheKeyThatWasHit();
    void ctrlDragsToTheTick();
    void dragStopsAtTime0();
    void dragStopsAtTheEnd();
    void dragToWhereItBegan();
    void dragReplacesAtTheDrop();
    void previewsKeepWhatIsInTheWay();
    void previewIsTakenBackByAClick();
    void escapePutsBack();
    void commandsWaitForTheDrop();
    void lockedKeysStay();
    void otherWindowEndsTheDrag();
    void viewThatGoesPutsBack();
    void rowsThatVanishInADrag();

    void bandSelects();
    void bandUpwardsAndBackwards();
    void bandAddsAndTakesAway();
    void bandBelowTheRows();
    void bandPastTheEdges();
    void straightBandMeansOneTime();

    void cursors();
    void doubleClickSetsTheTime();
    void doubleClickOnNamesOpens();
    void namesSelectRows();
    void otherButtonsDoNothing();
    void theGraphHears();

private:
    int keyX(VxTime time) const
    {
        return TimelineMetrics::shared().keyLeft(view->columnWidth(0), time, 0) + 4;
    }
    QPoint at(const QModelIndex &row, VxTime time) const
    {
        return QPoint(keyX(time), view->visualRect(row).center().y());
    }
    QModelIndex hipX() const { return translationOf(hip, 0); }
    VxMouseDriver mouse() const { return VxMouseDriver(view->viewport()); }
    void click(const QModelIndex &row, VxTime time,
               Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        mouse().click(at(row, time), Qt::LeftButton, modifiers);
    }
    // Selects by program, so that drags begin with a known selection.
    void select(const QModelIndex &row, VxTime start, VxTime end)
    {
        view->setKeySelection(true, row, row, start, end);
    }
    void drag(const QPoint &from, int dx, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        VxMouseDriver hand = mouse();
        hand.press(from, Qt::LeftButton, modifiers);
        hand.moveTo(from + QPoint(dx / 2, 0), modifiers);
        hand.moveTo(from + QPoint(dx, 0), modifiers);
        hand.release(from + QPoint(dx, 0), Qt::LeftButton, modifiers);
    }
    // Keeps the mouse at a place, but for the hand's trembling, until what is dragged shows there.
    void waitForPreview(VxMouseDriver &hand, const QPoint &position, const Times &expected)
    {
        int up = 0;
        const auto isShown = [&] {
            up = 1 - up;
            hand.moveTo(position - QPoint(0, up));
            return keyTimes(hip->getXPosControl()) == expected;
        };
        QTRY_VERIFY(isShown());
    }
    static int undoCount() { return vxApp->getUndoStack()->count(); }
};

void TestDopeSheetMouse::init()
{
    setUp();
    addKeys(hip->getXPosControl(), {0, 1600, 3200, 9440});
    addKeys(hip->getYPosControl(), {1600});
    addKeys(ball->getXPosControl(), {1600});
    view->expandAll();
    showView(1000, 700);
}

void TestDopeSheetMouse::cleanup()
{
    TimelinePlayback::setPlaysAllFrames(false);
    tearDown();
}

void TestDopeSheetMouse::clickSelectsOneKey()
{
    select(hipX(), -1, VxTimeMax);
    select(translationOf(ball, 0), -1, VxTimeMax);
    QSignalSpy changes(view.get(), &VxDopeSheetView::keySelectionChanged);
    click(hipX(), 1600);
    QCOMPARE(selected(hipX()), Times({1600}));
    QCOMPARE(selected(translationOf(ball, 0)), Times());
    QVERIFY(changes.count() >= 2);
    click(translationOf(ball, 0), 1600);
    QCOMPARE(selected(hipX()), Times());
    QCOMPARE(selected(translationOf(ball, 0)), Times({1600}));
    QCOMPARE(undoCount(), 0);
}

void TestDopeSheetMouse::reportsOfAClick_data()
{
    QTest::addColumn<VxTime>("time");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<int>("atPress");
    QTest::addColumn<int>("atRelease");

    // Whatever is deselected before is told of on its own.
    QTest::newRow("a selected key") << 3200 << int(Qt::NoModifier) << 1 << 2;
    QTest::newRow("another key") << 1600 << int(Qt::NoModifier) << 2 << 2;
    QTest::newRow("beside the keys") << 2400 << int(Qt::NoModifier) << 0 << 2;
    QTest::newRow("another key with Ctrl") << 1600 << int(Qt::ControlModifier) << 1 << 1;
    QTest::newRow("a selected key with Alt") << 3200 << int(Qt::AltModifier) << 1 << 1;
    QTest::newRow("beside the keys with Ctrl") << 2400 << int(Qt::ControlModifier) << 0 << 1;
}

void TestDopeSheetMouse::reportsOfAClick()
{
    QFETCH(VxTime, time);
    QFETCH(int, modifiers);
    select(hipX(), 3200, 3200);
    const QSignalSpy changes(view.get(), &VxDopeSheetView::keySelectionChanged);
    VxMouseDriver hand = mouse();
    hand.press(at(hipX(), time), Qt::LeftButton, Qt::KeyboardModifiers(modifiers));
    QTEST(changes.count(), "atPress");
    const int before = changes.count();
    hand.release(at(hipX(), time), Qt::LeftButton, Qt::KeyboardModifiers(modifiers));
    QTEST(changes.count() - before, "atRelease");
}

// A mark is ten pixels wide and both its edges count.
void TestDopeSheetMouse::clickAtTheEdgesOfAMark()
{
    const int left = TimelineMetrics::shared().keyLeft(view->columnWidth(0), 1600, 0);
    const int y = view->visualRect(hipX()).center().y();
    for (const int x : {left, left + 10}) {
        mouse().click(QPoint(x, y));
        QCOMPARE(selected(hipX()), Times({1600}));
    }
    for (const int x : {left - 1, left + 11}) {
        mouse().click(QPoint(x, y));
        QCOMPARE(selected(hipX()), Times());
    }
}

void TestDopeSheetMouse::clickBesideTheKeysSelectsNone()
{
    click(hipX(), 1600);
    click(hipX(), 2400);
    QVERIFY(!view->hasSelectedKeys());
    click(hipX(), 1600);
    mouse().click(QPoint(500, view->viewport()->height() - 3));
    QVERIFY(!view->hasSelectedKeys());
}

void TestDopeSheetMouse::ctrlClickAdds()
{
    click(hipX(), 1600);
    click(hipX(), 3200, Qt::ControlModifier);
    click(translationOf(hip, 1), 1600, Qt::ControlModifier);
    QCOMPARE(selected(hipX()), Times({1600, 3200}));
    QCOMPARE(selected(translationOf(hip, 1)), Times({1600}));
    click(hipX(), 2400, Qt::ControlModifier);
    QCOMPARE(selected(hipX()), Times({1600, 3200}));
}

void TestDopeSheetMouse::altClickTakesAway()
{
    select(hipX(), -1, VxTimeMax);
    click(hipX(), 1600, Qt::AltModifier);
    QCOMPARE(selected(hipX()), Times({0, 3200, 9440}));
    click(hipX(), 1600, Qt::AltModifier);
    QCOMPARE(selected(hipX()), Times({0, 3200, 9440}));
}

void TestDopeSheetMouse::altOnASelectedKeyStartsNoDrag()
{
    select(hipX(), 1600, 3201);
    drag(at(hipX(), 1600), 50, Qt::AltModifier);
    QCOMPARE(keyTimes(hip->getXPosControl()), Times({0, 1600, 3200, 9440}));
    QCOMPARE(selected(hipX()), Times({3200}));
    QCOMPARE(undoCount(), 0);
}

void TestDopeSheetMouse::openRowsHaveNoKeysToHit()
{
    click(rowOf(hip), 1600);
    QVERIFY(!view->hasSelectedKeys());
}

void TestDopeSheetMouse::closedRowsStandForAllBelow()
{
    view->collapse(rowOf(hip));
    click(rowOf(hip), 1600);
    QCOMPARE(selected(hipX()), Times({1600}));
    QCOMPARE(selected(translationOf(hip, 1)), Times({1600}));
    QCOMPARE(selected(translationOf(ball, 0)), Times());
    drag(at(rowOf(hip), 1600), 50);
    QCOMPARE(keyTimes(hip->getXPosControl()), Times({0, 2400, 3200, 9440}));
    QCOMPARE(keyTimes(hip->getYPosControl()), Times({2400}));
    QCOMPARE(undoCount(), 1);
}

void TestDopeSheetMouse::clickSelectsTheNode()
{
    ball->select(true);
    click(hipX(), 1600);
    QVERIFY(hip->isSelected());
    QVERIFY(!ball->isSelected());
    click(translationOf(ball, 2), 500);
    QVERIFY(!hip->isSelected());
    QVERIFY(ball->isSelected());
    // Neither a band nor a click below the rows does.
    drag(at(hipX(), 500), 20);
    mouse().click(QPoint(500, view->viewport()->height() - 3));
    QVERIFY(ball->isSelected());
    QVERIFY(!hip->isSelected());
}

void TestDopeSheetMouse::ctrlClickAddsTheNode()
{
    ball->select(true);
    click(hipX(), 1600, Qt::ControlModifier);
    QVERIFY(hip->isSelected());
    QVERIFY(ball->isSelected());
}

void TestDopeSheetMouse::dragMovesTheSelectedKeys()
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

void TestDopeSheetMouse::dragOfAnUnselectedKeyMovesItAlone()
{
    select(translationOf(ball, 0), -1, VxTimeMax);
    drag(at(hipX(), 1600), 30);
    QCOMPARE(keyTimes(hip->getXPosControl()), Times({0, 2080, 3200, 9440}));
    QCOMPARE(keyTimes(ball->getXPosControl()), Times({1600}));
}

void TestDopeSheetMouse::dragIsTwoPixelsWide()
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

void TestDopeSheetMouse::dragSnapsTheKeyThatWasHit()
{
    addKeys(hip->getXPosControl(), {5000, 5100});
    select(hipX(), 5000, 5101);
    drag(at(hipX(), 5000), 10);
    const Times now = keyTimes(hip->getXPosControl());
    QCOMPARE(now.at(3) % 160, 0);
    QCOMPARE(now.at(4) - now.at(3), 100);
}

void TestDopeSheetMouse::ctrlDragsToTheTick()
{
    select(hipX(), 3200, 3200);
    drag(at(hipX(), 3200), 7, Qt::ControlModifier);
    QCOMPARE(keyTimes(hip->getXPosControl()), Times({0, 1600, 3200 + 7 * 16, 9440}));
}

void TestDopeSheetMouse::dragStopsAtTime0()
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

void TestDopeSheetMouse::dragStopsAtTheEnd()
{
    select(hipX(), 3200, VxTimeMax);
    drag(at(hipX(), 3200), 200);
    QCOMPARE(keyTimes(hip->getXPosControl()), Times({0, 1600, 3360, 9600}));
    drag(at(hipX(), 3360), 100);
    QCOMPARE(keyTimes(hip->getXPosControl()), Times({0, 1600, 3360, 9600}));
    QCOMPARE(undoCount(), 1);
}

void TestDopeSheetMouse::dragToWhereItBegan()
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

void TestDopeSheetMouse::dragReplacesAtTheDrop()
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

void TestDopeSheetMouse::previewsKeepWhatIsInTheWay()
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
void TestDopeSheetMouse::previewIsTakenBackByAClick()
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

void TestDopeSheetMouse::escapePutsBack()
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

void TestDopeSheetMouse::commandsWaitForTheDrop()
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

void TestDopeSheetMouse::lockedKeysStay()
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

void TestDopeSheetMouse::otherWindowEndsTheDrag()
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

void TestDopeSheetMouse::viewThatGoesPutsBack()
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

void TestDopeSheetMouse::rowsThatVanishInADrag()
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

void TestDopeSheetMouse::bandSelects()
{
    select(translationOf(ball, 0), -1, VxTimeMax);
    VxMouseDriver hand = mouse();
    hand.press(at(hipX(), 1400));
    hand.moveTo(at(translationOf(hip, 1), 3000));
    hand.release(at(translationOf(hip, 1), 3300));
    QCOMPARE(selected(hipX()), Times({1600, 3200}));
    QCOMPARE(selected(translationOf(hip, 1)), Times({1600}));
    QCOMPARE(selected(translationOf(ball, 0)), Times());
    QCOMPARE(undoCount(), 0);
}

void TestDopeSheetMouse::bandUpwardsAndBackwards()
{
    VxMouseDriver hand = mouse();
    hand.press(at(translationOf(hip, 1), 2000));
    hand.release(at(hipX(), 1400));
    QCOMPARE(selected(hipX()), Times({1600}));
    QCOMPARE(selected(translationOf(hip, 1)), Times({1600}));
}

void TestDopeSheetMouse::bandAddsAndTakesAway()
{
    select(translationOf(ball, 0), -1, VxTimeMax);
    VxMouseDriver hand = mouse();
    hand.press(at(hipX(), 1400), Qt::LeftButton, Qt::ControlModifier);
    hand.release(at(hipX(), 5000), Qt::LeftButton, Qt::ControlModifier);
    QCOMPARE(selected(hipX()), Times({1600, 3200}));
    QCOMPARE(selected(translationOf(ball, 0)), Times({1600}));
    hand.press(at(hipX(), 3000), Qt::LeftButton, Qt::AltModifier);
    hand.release(at(hipX(), 5000), Qt::LeftButton, Qt::AltModifier);
    QCOMPARE(selected(hipX()), Times({1600}));
    QCOMPARE(selected(translationOf(ball, 0)), Times({1600}));
}

void TestDopeSheetMouse::bandBelowTheRows()
{
    select(hipX(), -1, VxTimeMax);
    view->collapseAll();
    VxMouseDriver hand = mouse();
    hand.press(QPoint(300, 300));
    hand.release(QPoint(700, 400));
    QVERIFY(!view->hasSelectedKeys());
    // One that ends there takes all rows down to the last one.
    hand.press(at(rowOf(ball), 1000));
    hand.release(QPoint(keyX(3000), 400));
    QCOMPARE(selected(translationOf(ball, 0)), Times({1600}));
    QCOMPARE(selected(hipX()), Times());
}

void TestDopeSheetMouse::bandPastTheEdges()
{
    VxMouseDriver hand = mouse();
    hand.press(at(translationOf(hip, 1), 2000));
    hand.release(QPoint(-40, -60));
    QCOMPARE(selected(hipX()), Times({0, 1600}));
    QCOMPARE(selected(translationOf(hip, 1)), Times({1600}));
    QCOMPARE(selected(translationOf(ball, 0)), Times());
}

void TestDopeSheetMouse::straightBandMeansOneTime()
{
    const int x = TimelineMetrics::shared().keyLeft(view->columnWidth(0), 1600, 0);
    VxMouseDriver hand = mouse();
    // From above the key, as a press on it would drag it.
    hand.press(QPoint(x, view->visualRect(groupOf(hip)).center().y()));
    hand.release(QPoint(x, view->visualRect(translationOf(hip, 1)).center().y()));
    QCOMPARE(selected(hipX()), Times({1600}));
    QCOMPARE(selected(translationOf(hip, 1)), Times({1600}));
}

void TestDopeSheetMouse::cursors()
{
    const auto shape = [this] { return view->viewport()->cursor().shape(); };
    VxMouseDriver hand = mouse();
    hand.moveTo(at(hipX(), 1600));
    QCOMPARE(shape(), Qt::PointingHandCursor);
    hand.moveTo(at(hipX(), 2400));
    QCOMPARE(shape(), Qt::ArrowCursor);
    hand.moveTo(QPoint(60, view->visualRect(hipX()).center().y()));
    QCOMPARE(shape(), Qt::PointingHandCursor);
    hand.moveTo(QPoint(60, view->viewport()->height() - 3));
    QCOMPARE(shape(), Qt::ArrowCursor);
    // While keys are dragged, wherever the mouse goes; never while a band is drawn.
    hand.press(at(hipX(), 1600));
    hand.moveTo(at(hipX(), 2400));
    QCOMPARE(shape(), Qt::PointingHandCursor);
    QTest::keyClick(view.get(), Qt::Key_Escape);
    QCOMPARE(shape(), Qt::ArrowCursor);
    hand.release(at(hipX(), 2400));
    hand.press(at(hipX(), 2400));
    hand.moveTo(at(hipX(), 1600));
    QCOMPARE(shape(), Qt::ArrowCursor);
    hand.release(at(hipX(), 2400));
    // Nothing lies right of the columns.
    header->setStretchLastSection(false);
    view->setColumnWidth(VxDopeSheetView::KeysColumn, 400);
    hand.moveTo(at(hipX(), 1600));
    QCOMPARE(shape(), Qt::PointingHandCursor);
    hand.moveTo(QPoint(700, view->visualRect(hipX()).center().y()));
    QCOMPARE(shape(), Qt::ArrowCursor);
}

void TestDopeSheetMouse::doubleClickSetsTheTime()
{
    vxScene->setPlayRange(VxTimeRange(0, 4800));
    mouse().doubleClick(at(translationOf(hip, 2), 2400));
    QCOMPARE(vxScene->getTime(), 2400);
    mouse().doubleClick(at(translationOf(hip, 2), 2500), Qt::LeftButton, Qt::ControlModifier);
    QCOMPARE(vxScene->getTime() % 160, 0);
    mouse().doubleClick(QPoint(view->viewport()->width() - 3, 300));
    QCOMPARE(vxScene->getTime(), 4800);
    vxScene->setTime(0);
    mouse().doubleClick(at(hipX(), 2400), Qt::MiddleButton);
    QCOMPARE(vxScene->getTime(), 0);
}

void TestDopeSheetMouse::doubleClickOnNamesOpens()
{
    const QModelIndex row = rowOf(ball);
    view->collapse(row);
    const QPoint name(100, view->visualRect(row).center().y());
    mouse().doubleClick(name);
    QVERIFY(view->isExpanded(row));
    QCOMPARE(vxScene->getTime(), 0);
}

void TestDopeSheetMouse::namesSelectRows()
{
    mouse().click(QPoint(100, view->visualRect(rowOf(ball)).center().y()));
    QVERIFY(view->selectionModel()->isSelected(rowOf(ball)));
    QVERIFY(ball->isSelected());
    // In the keys column it is the scene's selection that changes, not the row's.
    click(hipX(), 1600);
    QVERIFY(!view->selectionModel()->isSelected(hipX()));
    QVERIFY(hip->isSelected());
}

void TestDopeSheetMouse::otherButtonsDoNothing()
{
    VxMouseDriver hand = mouse();
    hand.press(at(hipX(), 1600), Qt::MiddleButton);
    hand.moveTo(at(hipX(), 3000));
    hand.release(at(hipX(), 3000), Qt::MiddleButton);
    QVERIFY(!view->hasSelectedKeys());
    QCOMPARE(keyTimes(hip->getXPosControl()), Times({0, 1600, 3200, 9440}));
}

// Whatever the mouse does, the other side ends up with the same keys selected.
void TestDopeSheetMouse::theGraphHears()
{
    VxKeyCommunication ours;
    VxKeyCommunication theirs;
    VxKeyCommunication::connectEnds(&ours, &theirs);
    view->setKeyCommunication(&ours);
    QMap<VxProperty *, QSet<int>> heard;
    QObject::connect(
        &theirs, &VxKeyCommunication::received, &theirs, [&heard](const VxKeyMessage &message) {
            if (message.clearSelection)
                heard.clear();
            for (auto it = message.selectedKeys.cbegin(); it != message.selectedKeys.cend(); ++it)
                heard[it.key()] += QSet<int>(it->cbegin(), it->cend());
            for (auto it = message.deselectedKeys.cbegin(); it != message.deselectedKeys.cend();
                 ++it)
                heard[it.key()] -= QSet<int>(it->cbegin(), it->cend());
        });
    const auto indexes = [&heard](VxProperty *property) { return heard.value(property); };
    click(hipX(), 1600);
    QCOMPARE(indexes(hip->getXPosControl()), QSet<int>({1}));
    click(translationOf(ball, 0), 1600, Qt::ControlModifier);
    QCOMPARE(indexes(hip->getXPosControl()), QSet<int>({1}));
    QCOMPARE(indexes(ball->getXPosControl()), QSet<int>({0}));
    drag(at(hipX(), 1600), 150); // beyond the key at 3200
    QCOMPARE(indexes(hip->getXPosControl()), QSet<int>({2}));
    QCOMPARE(indexes(ball->getXPosControl()), QSet<int>({0}));
    click(hipX(), 0);
    QCOMPARE(indexes(hip->getXPosControl()), QSet<int>({0}));
    QCOMPARE(indexes(ball->getXPosControl()), QSet<int>());
    drag(at(translationOf(hip, 1), 1600), 30);
    QCOMPARE(indexes(hip->getYPosControl()), QSet<int>({0}));
    QCOMPARE(indexes(hip->getXPosControl()), QSet<int>());
    QVERIFY(!ours.isMuted());
    view->setKeyCommunication(nullptr);
}

QTEST_MAIN(TestDopeSheetMouse)
#include "tst_dopesheetmouse.moc"
