#include "dopesheettestbase.h"
#include "testing/keytimes.h"
#include "testing/vxmousedriver.h"
#include "testing/vxtestmain.h"
#include "vxtimeline/keys/vxkeycommunication.h"
#include "vxtimeline/rows/dopesheetwalk.h"
#include "vxtimeline/rows/vxdopesheetfiltermodel.h"

#include <QtGui/QScreen>
#include <QtWidgets/QScrollBar>

using Indexes = QVector<qint32>;

// The dope sheet view: the walk over its rows, key selection by program, and what is painted.
class TestVxDopeSheetView : public QObject, private DopeSheetTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void construction();

    void walkVisitsRowsInOrder();
    void walkStopsAtTheEnd();
    void closedEndIncludesAllBelow();
    void walkPastTheEnd();
    void walkFromNowhere();

    void spans_data();
    void spans();
    void deselect();
    void closedNodeSelectsAllBelow();
    void openNodeExcludesRowsBelow();
    void rangeOfRows();
    void oneRowSelectsInNoOther();
    void noRowSelectsInTheContextRow();
    void noRowAndNoContextRow();
    void clearSelectedKeys();
    void clearReportsEachRowOnce();

    void commonTcb();
    void commonTcbOfThree();
    void commonTcbOfNothing();

    void paintsBehindRows();
    void timeLineFollows();
    void timeLineLeavesNoTrace_data();
    void timeLineLeavesNoTrace();
    void keysWidthIncludesThePendingResize();
    void changesOfKeysAreRepainted();

private:
    // The labels of the rows that a walk visits, "Properties" and groups left out.
    QStringList walked(const QModelIndex &start, const QModelIndex &end) const;
    void select(const QModelIndex &row, VxTime start = -1, VxTime end = VxTimeMax)
    {
        view->setKeySelection(true, row, row, start, end);
    }
    QColor pixel(int x, int y) const { return view->viewport()->grab().toImage().pixelColor(x, y); }
};

void TestVxDopeSheetView::construction()
{
    QCOMPARE(view->objectName(), QStringLiteral("DopeSheetView"));
    QVERIFY(view->hasMouseTracking());
    QVERIFY(!view->isAnimated());
    QVERIFY(view->uniformRowHeights());
    QCOMPARE(view->selectionMode(), QAbstractItemView::ExtendedSelection);
    QCOMPARE(view->selectionBehavior(), QAbstractItemView::SelectRows);
    QCOMPARE(view->indentation(), vxApp->getStyle()->metric(VxStyle::PM_VxTreeIndentation));
    QVERIFY(!view->searchNext());
    QVERIFY(!view->searchPrevious());
    QVERIFY(!view->getKeyCommunication());
}

QStringList TestVxDopeSheetView::walked(const QModelIndex &start, const QModelIndex &end) const
{
    QStringList names;
    DopeSheetWalk::between(
        start, end, [this](const QModelIndex &row) { return view->isExpanded(row); },
        [this, &names](const QModelIndex &row) {
            const VxDopeSheetItem *item = model->getItem(row);
            if (item->node() || item->property())
                names += item->label().left(4);
        });
    return names;
}

void TestVxDopeSheetView::walkVisitsRowsInOrder()
{
    QCOMPARE(walked(rowOf(hip), QModelIndex()),
             (QStringList{"hip", "X Tr", "Y Tr", "Z Tr", "leg", "X Tr", "Y Tr", "Z Tr", "arm",
                          "X Tr", "Y Tr", "Z Tr", "ball", "X Tr", "Y Tr", "Z Tr"}));
    QStringList all;
    DopeSheetWalk::all(model.get(), [this, &all](const QModelIndex &row) {
        QCOMPARE(row.column(), 0);
        all += model->getItem(row)->label();
    });
    QCOMPARE(all.size(), 4 * 6);
}

void TestVxDopeSheetView::walkStopsAtTheEnd()
{
    QCOMPARE(walked(translationOf(hip, 1), translationOf(leg, 0)),
             (QStringList{"Y Tr", "Z Tr", "leg", "X Tr"}));
    view->expand(rowOf(arm));
    QCOMPARE(walked(rowOf(leg), rowOf(arm)), (QStringList{"leg", "X Tr", "Y Tr", "Z Tr", "arm"}));
    QCOMPARE(walked(rowOf(arm), rowOf(arm)), (QStringList{"arm"}));
}

void TestVxDopeSheetView::closedEndIncludesAllBelow()
{
    QCOMPARE(walked(rowOf(leg), rowOf(leg)), (QStringList{"leg", "X Tr", "Y Tr", "Z Tr"}));
    QCOMPARE(walked(rowOf(hip), rowOf(hip)).size(), 12);
    // Whatever is open below a closed row is hidden with it.
    view->expand(rowOf(leg));
    QCOMPARE(walked(rowOf(hip), rowOf(hip)).size(), 12);
    // The column does not matter.
    QCOMPARE(walked(rowOf(leg).sibling(rowOf(leg).row(), 1), rowOf(leg)), (QStringList{"leg"}));
}

void TestVxDopeSheetView::walkPastTheEnd()
{
    QCOMPARE(walked(rowOf(ball), rowOf(leg)), (QStringList{"ball", "X Tr", "Y Tr", "Z Tr"}));
}

void TestVxDopeSheetView::walkFromNowhere()
{
    QCOMPARE(walked(QModelIndex(), QModelIndex()), QStringList());
    QCOMPARE(walked(QModelIndex(), rowOf(leg)), QStringList());
}

void TestVxDopeSheetView::spans_data()
{
    QTest::addColumn<VxTime>("start");
    QTest::addColumn<VxTime>("end");
    QTest::addColumn<Times>("times");

    QTest::newRow("one point in time") << 4800 << 4800 << Times{4800};
    QTest::newRow("the end is left out") << 0 << 4800 << Times{0, 4799};
    QTest::newRow("the start is included") << 4799 << 4801 << Times{4799, 4800};
    QTest::newRow("no key at the point") << 4798 << 4798 << Times{};
    QTest::newRow("everything from 0 on") << -1 << VxTimeMax << Times{0, 4799, 4800, 9600};
    QTest::newRow("backwards") << 4800 << 0 << Times{};
}

void TestVxDopeSheetView::spans()
{
    QFETCH(VxTime, start);
    QFETCH(VxTime, end);
    addKeys(hip->getXPosControl(), {-160, 0, 4799, 4800, 9600});
    QSignalSpy reported(view.get(), &VxDopeSheetView::keySelectionChanged);
    const QModelIndex row = translationOf(hip, 0);
    view->setKeySelection(true, row, row, start, end);
    QTEST(selected(row), "times");
    QCOMPARE(reported.count(), 1);
}

void TestVxDopeSheetView::deselect()
{
    addKeys(hip->getXPosControl(), {0, 160, 320});
    const QModelIndex row = translationOf(hip, 0);
    view->setKeySelection(true, row);
    QCOMPARE(selected(row), (Times{0, 160, 320}));
    QVERIFY(view->hasSelectedKeys());
    view->setKeySelection(false, row, row, 160);
    QCOMPARE(selected(row), (Times{0}));
    view->setKeySelection(false, row, row);
    QCOMPARE(selected(row), Times{});
    QVERIFY(!view->hasSelectedKeys());
}

void TestVxDopeSheetView::closedNodeSelectsAllBelow()
{
    addKeys(hip->getXPosControl(), {0, 160});
    addKeys(leg->getZPosControl(), {320});
    addKeys(ball->getXPosControl(), {320});
    select(rowOf(hip));
    QCOMPARE(selected(translationOf(hip, 0)), (Times{0, 160}));
    QCOMPARE(selected(translationOf(leg, 2)), (Times{320}));
    QCOMPARE(selected(rowOf(hip)), (Times{0, 160, 320}));
    QCOMPARE(selected(translationOf(ball, 0)), Times{});
}

void TestVxDopeSheetView::openNodeExcludesRowsBelow()
{
    addKeys(hip->getXPosControl(), {0, 160});
    addKeys(leg->getZPosControl(), {320});
    view->expand(rowOf(hip));
    select(rowOf(hip));
    QCOMPARE(selected(translationOf(hip, 0)), Times{});
    QCOMPARE(selected(translationOf(leg, 2)), Times{});
    QVERIFY(!view->hasSelectedKeys());
}

void TestVxDopeSheetView::rangeOfRows()
{
    for (VxNode *node : {hip, leg, arm, ball})
        addKeys(node->getXPosControl(), {160});
    view->expand(rowOf(hip));
    view->setKeySelection(true, rowOf(leg), rowOf(arm));
    QCOMPARE(selected(translationOf(hip, 0)), Times{});
    QCOMPARE(selected(translationOf(leg, 0)), Times{160});
    QCOMPARE(selected(translationOf(arm, 0)), Times{160});
    QCOMPARE(selected(translationOf(ball, 0)), Times{});
}

void TestVxDopeSheetView::oneRowSelectsInNoOther()
{
    for (VxNode *node : {hip, leg, ball})
        addKeys(node->getXPosControl(), {160});
    addKeys(hip->getYPosControl(), {160});
    view->setKeySelection(true, translationOf(hip, 0));
    QCOMPARE(selected(translationOf(hip, 0)), Times{160});
    QCOMPARE(selected(translationOf(hip, 1)), Times{});
    QCOMPARE(selected(translationOf(leg, 0)), Times{});
    QCOMPARE(selected(translationOf(ball, 0)), Times{});
}

void TestVxDopeSheetView::noRowSelectsInTheContextRow()
{
    addKeys(hip->getXPosControl(), {160});
    view->setContextIndex(translationOf(hip, 0));
    view->setKeySelection(true);
    QCOMPARE(selected(translationOf(hip, 0)), Times{160});
    // It is used up.
    QVERIFY(!view->hasContextItem());
    view->setKeySelection(false);
    QCOMPARE(selected(translationOf(hip, 0)), Times{160});
}

void TestVxDopeSheetView::noRowAndNoContextRow()
{
    addKeys(hip->getXPosControl(), {160});
    QSignalSpy reported(view.get(), &VxDopeSheetView::keySelectionChanged);
    view->setKeySelection(true);
    QCOMPARE(reported.count(), 1);
    QVERIFY(!view->hasSelectedKeys());
}

void TestVxDopeSheetView::clearSelectedKeys()
{
    addKeys(hip->getXPosControl(), {0, 160});
    addKeys(leg->getZPosControl(), {320});
    addKeys(ball->getYPosControl(), {480});
    for (VxNode *node : {hip, ball})
        select(rowOf(node));
    view->expand(rowOf(ball));
    view->expand(groupOf(ball));
    view->clearSelectedKeys();
    QVERIFY(!view->hasSelectedKeys());
    for (VxNode *node : {hip, leg, ball})
        QCOMPARE(selected(rowOf(node)), Times{});
}

void TestVxDopeSheetView::clearReportsEachRowOnce()
{
    addKeys(hip->getXPosControl(), {0, 160});
    for (const bool open : {false, true}) {
        if (open)
            view->expandAll();
        select(translationOf(hip, 0));
        VxKeyCommunication bus;
        view->setKeyCommunication(&bus);
        QSignalSpy sent(&bus, &VxKeyCommunication::sent);
        QSignalSpy reported(view.get(), &VxDopeSheetView::keySelectionChanged);
        view->clearSelectedKeys();
        QCOMPARE(reported.count(), 4 * 6);
        QCOMPARE(sent.count(), 4 * 3);
        view->setKeyCommunication(nullptr);
    }
}

void TestVxDopeSheetView::commonTcb()
{
    VxFloatProperty *x = hip->getXPosControl();
    x->setKey(0, 1, VxKeyInterp::Tcb, 0.25f, 0.5f, 0.75f);
    x->setKey(160, 1, VxKeyInterp::Linear);
    x->setKey(320, 1, VxKeyInterp::Tcb, 0.25f, -0.5f, 0.75f);
    leg->getYPosControl()->setKey(0, 1, VxKeyInterp::Tcb, 0.25f, 0.5f, 0);
    const QModelIndex row = translationOf(hip, 0);

    select(row, 160, 160);
    float value = 9;
    QVERIFY(!view->getCommonTension(&value));
    QCOMPARE(value, 9.0f);

    select(row, 0, 0);
    QVERIFY(view->getCommonTension(&value));
    QCOMPARE(value, 0.25f);
    QVERIFY(view->getCommonContinuity(&value));
    QCOMPARE(value, 0.5f);
    QVERIFY(view->getCommonBias(&value));
    QCOMPARE(value, 0.75f);

    select(row, 0, 321);
    QVERIFY(view->getCommonTension(&value));
    QVERIFY(!view->getCommonContinuity(&value));
    QVERIFY(view->getCommonBias(&value));
    select(translationOf(leg, 1));
    QVERIFY(view->getCommonTension(&value));
    QVERIFY(!view->getCommonBias(nullptr));

    // From nothing on it begins anew.
    view->clearSelectedKeys();
    select(translationOf(leg, 1));
    QVERIFY(view->getCommonBias(&value));
    QCOMPARE(value, 0.0f);
}

// Two that agree again do not make up for one between them that differs.
void TestVxDopeSheetView::commonTcbOfThree()
{
    VxFloatProperty *x = hip->getXPosControl();
    x->setKey(0, 1, VxKeyInterp::Tcb, 0.25f, 0.5f, 0.75f);
    x->setKey(160, 1, VxKeyInterp::Tcb, -0.25f, -0.5f, -0.75f);
    x->setKey(320, 1, VxKeyInterp::Tcb, 0.25f, 0.5f, 0.75f);
    select(translationOf(hip, 0));
    QVERIFY(!view->getCommonTension(nullptr));
    QVERIFY(!view->getCommonContinuity(nullptr));
    QVERIFY(!view->getCommonBias(nullptr));
}

void TestVxDopeSheetView::commonTcbOfNothing()
{
    QVERIFY(!view->getCommonTension(nullptr));
    QVERIFY(!view->getCommonContinuity(nullptr));
    QVERIFY(!view->getCommonBias(nullptr));
}

void TestVxDopeSheetView::paintsBehindRows()
{
    showView();
    vxScene->setTime(1600);
    // Below the two rows there is only the background.
    const int y = view->viewport()->height() - 20;
    VxMouseDriver(view->viewport()).moveTo(QPoint(600, y));
    const QPalette palette = view->palette();
    QCOMPARE(pixel(50, y), palette.color(QPalette::AlternateBase));
    QCOMPARE(pixel(198, y), pixel(198, 20));
    QCOMPARE(pixel(199, y), palette.color(QPalette::Base));
    // 200 + 2 + 100 + 5.
    QCOMPARE(pixel(307, y), palette.color(QPalette::Text));
    QCOMPARE(pixel(306, y), palette.color(QPalette::Base));
    QCOMPARE(pixel(308, y), palette.color(QPalette::Base));
    // The rows let it through. (The first one has the frame of the keyboard's row.)
    QCOMPARE(pixel(307, 21), palette.color(QPalette::Text));
    QCOMPARE(pixel(150, 21), palette.color(QPalette::AlternateBase));
}

void TestVxDopeSheetView::timeLineFollows()
{
    showView();
    const int y = view->viewport()->height() - 20;
    vxScene->setPlayRange(VxTimeRange(480, 9600));
    vxScene->setTime(480);
    // Time 0 is at 200 - 27.
    QCOMPARE(pixel(208, y), view->palette().color(QPalette::Text));
    vxScene->setTime(640);
    QCOMPARE(pixel(208, y), view->palette().color(QPalette::Base));
    QCOMPARE(pixel(218, y), view->palette().color(QPalette::Text));
}

void TestVxDopeSheetView::timeLineLeavesNoTrace_data()
{
    QTest::addColumn<bool>("all");
    QTest::newRow("two rows selected") << false;
    QTest::newRow("every row selected") << true;
}

// Moving the line paints only what it must: what is on the screen then is what
// painting everything shows.
void TestVxDopeSheetView::timeLineLeavesNoTrace()
{
    QFETCH(bool, all);
    addKeys(hip->getXPosControl(), {0, 1600, 1760});
    addKeys(leg->getYPosControl(), {800, 1600}, VxKeyInterp::Tcb);
    showView();
    view->expandAll();
    view->collapse(rowOf(arm));
    select(translationOf(leg, 1), 800, 801);
    if (all) {
        view->selectAll();
    } else {
        hip->select(true);
        arm->select(true);
        view->showSceneSelection();
    }
    view->setFocus();
    VxMouseDriver(view->viewport()).moveTo(QPoint(400, 100));
    const auto shown = [this] {
        QCoreApplication::processEvents();
        return view->screen()->grabWindow(view->winId()).toImage();
    };
    for (const VxTime time : {1600, 1601, 0, 9600, 800, 1760, 480}) {
        vxScene->setTime(time);
        const QImage partly = shown();
        view->viewport()->update();
        QCOMPARE(partly, shown());
    }
}

// A scroll bar appears: the width has to be right when the header reports it.
void TestVxDopeSheetView::keysWidthIncludesThePendingResize()
{
    showView(900, 120);
    QVector<int> reported;
    connect(header, &QHeaderView::sectionResized, view.get(),
            [&] { reported += view->getKeysWidth(); });
    view->expandAll();
    QTRY_VERIFY(view->verticalScrollBar()->isVisible());
    QVERIFY(!reported.isEmpty());
    QCOMPARE(reported.last(), view->columnWidth(VxDopeSheetView::KeysColumn));
    QCOMPARE(reported.last(), view->viewport()->width() - 200);
    header->setStretchLastSection(false);
    header->resizeSection(1, 123);
    QCOMPARE(view->getKeysWidth(), 123);
}

void TestVxDopeSheetView::changesOfKeysAreRepainted()
{
    showView();
    const QImage before = view->viewport()->grab().toImage();
    addKeys(leg->getXPosControl(), {1600});
    QTRY_VERIFY(view->viewport()->grab().toImage() != before);
}

VX_TEST_MAIN(TestVxDopeSheetView)
#include "tst_vxdopesheetview.moc"
