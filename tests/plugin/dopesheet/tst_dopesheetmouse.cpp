#include "dopesheetmousetestbase.h"
#include "testing/vxtestmain.h"
#include "vxtimeline/keys/vxkeycommunication.h"

#include <QtTest/QSignalSpy>

// The mouse over the dope sheet, with real events: presses, bands, cursors and double clicks.
class TestDopeSheetMouse : public QObject, private DopeSheetMouseTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUpMouse(); }
    void cleanup() { tearDownMouse(); }

    void clickSelectsOneKey();
    void reportsOfAClick_data();
    void reportsOfAClick();
    void clickAtTheEdgesOfAMark();
    void clickBesideTheKeysSelectsNone();
    void ctrlClickAdds();
    void altClickDeselects();
    void altOnASelectedKeyStartsNoDrag();
    void openRowsHaveNoKeysToHit();
    void closedRowsSelectAllKeysBelow();
    void clickSelectsTheNode();
    void ctrlClickAddsTheNode();

    void bandSelects();
    void bandUpwardsAndBackwards();
    void bandAddsAndRemoves();
    void bandBelowTheRows();
    void bandPastTheEdges();
    void bandWithoutWidthSelectsOneTime();

    void cursors();
    void doubleClickSetsTheTime();
    void doubleClickOnNamesOpens();
    void namesSelectRows();
    void otherButtonsDoNothing();
    void selectionIsSentToTheGraph();
};

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

    // An earlier deselection is reported separately.
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

void TestDopeSheetMouse::altClickDeselects()
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

void TestDopeSheetMouse::closedRowsSelectAllKeysBelow()
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

void TestDopeSheetMouse::bandAddsAndRemoves()
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

void TestDopeSheetMouse::bandWithoutWidthSelectsOneTime()
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
    // While keys are dragged, wherever the mouse is; never while a band is drawn.
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
    // There is nothing to the right of the columns.
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
void TestDopeSheetMouse::selectionIsSentToTheGraph()
{
    VxKeyCommunication ours;
    VxKeyCommunication theirs;
    VxKeyCommunication::connectEnds(&ours, &theirs);
    view->setKeyCommunication(&ours);
    QMap<VxProperty *, QSet<int>> reports;
    QObject::connect(
        &theirs, &VxKeyCommunication::received, &theirs, [&reports](const VxKeyMessage &message) {
            if (message.clearSelection)
                reports.clear();
            for (auto it = message.selectedKeys.cbegin(); it != message.selectedKeys.cend(); ++it)
                reports[it.key()] += QSet<int>(it->cbegin(), it->cend());
            for (auto it = message.deselectedKeys.cbegin(); it != message.deselectedKeys.cend();
                 ++it)
                reports[it.key()] -= QSet<int>(it->cbegin(), it->cend());
        });
    const auto indexes = [&reports](VxProperty *property) { return reports.value(property); };
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

VX_TEST_MAIN(TestDopeSheetMouse)
#include "tst_dopesheetmouse.moc"
