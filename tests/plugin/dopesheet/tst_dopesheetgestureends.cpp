#include "dopesheettestbase.h"
#include "testing/keytimes.h"
#include "testing/vxmousedriver.h"
#include "testing/vxpaintwatch.h"
#include "testing/vxtestmain.h"
#include "vxtimeline/keys/vxkeycommunication.h"

#include <QtGui/QPaintEvent>
#include <vxcore/vxundostack.h>

namespace {

// The other side of the bus: what it would show as selected.
class Listener : public VxKeyCommunication
{
public:
    explicit Listener(VxDopeSheetView *view)
    {
        connectEnds(&m_ours, this);
        view->setKeyCommunication(&m_ours);
        connect(this, &VxKeyCommunication::received, this, &Listener::apply);
    }
    QSet<int> selected(VxProperty *property) const { return m_selected.value(property); }

private:
    void apply(const VxKeyMessage &message)
    {
        if (message.clearSelection)
            m_selected.clear();
        for (auto it = message.selectedKeys.cbegin(); it != message.selectedKeys.cend(); ++it)
            m_selected[it.key()] += QSet<int>(it->cbegin(), it->cend());
        for (auto it = message.deselectedKeys.cbegin(); it != message.deselectedKeys.cend(); ++it)
            m_selected[it.key()] -= QSet<int>(it->cbegin(), it->cend());
    }

    VxKeyCommunication m_ours;
    QMap<VxProperty *, QSet<int>> m_selected;
};

} // namespace

// What is left when a gesture of the mouse in the dope sheet ends, however it ends, and what the
// key graph receives during it. Hip's X has keys on the frames 0, 10, 20 and 30 of 60, ball's X on
// 10. All rows are open; a frame takes ten pixels.
class TestDopeSheetGestureEnds : public QObject, private DopeSheetTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { tearDown(); }

    void pressOnASelectedKeyReportsTheWholeSelection();
    void clickBesideTheKeysReportsAnEmptySelection();
    void escapeReportsTheStartIndexes();
    void dragBackReportsTheStartIndexes_data();
    void dragBackReportsTheStartIndexes();
    void lostReleaseEndsAtTheNextPress();
    void lostReleaseRestoresKeys_data();
    void lostReleaseRestoresKeys();
    void unrestorableKeysCanBeUndone();
    void modifiersEndWithTheGesture();
    void shrinkingBandLeavesNothing();
    void bandHidesTheHandCursor();
    void escapeDropsABand();
    void dragShowsTheHandUnasked();

private:
    VxFloatProperty *x() const { return hip->getXPosControl(); }
    VxFloatProperty *ballX() const { return ball->getXPosControl(); }
    QModelIndex hipX() const { return translationOf(hip, 0); }
    QPoint at(const QModelIndex &row, VxTime time) const
    {
        const int left = TimelineMetrics::shared().keyLeft(view->columnWidth(0), time, 0);
        return QPoint(left + 4, view->visualRect(row).center().y());
    }
    VxMouseDriver mouse() const { return VxMouseDriver(view->viewport()); }
    void selectBoth() const
    {
        view->setKeySelection(true, hipX(), hipX(), 1600, 1600);
        const QModelIndex row = translationOf(ball, 0);
        view->setKeySelection(true, row, row, 1600, 1600);
    }
    // Moves by small steps about a position until the dragged keys are shown there.
    void waitForPreview(VxMouseDriver &hand, const QPoint &position, const Times &expected) const
    {
        int up = 0;
        const auto isShown = [&] {
            up = 1 - up;
            hand.moveTo(position - QPoint(0, up));
            return keyTimes(x()) == expected;
        };
        QTRY_VERIFY(isShown());
    }
    // An event sent to the view alone: the window system's state of the mouse does not change.
    void send(QEvent::Type type, const QPoint &position, Qt::MouseButtons held) const
    {
        const bool moves = type == QEvent::MouseMove;
        QMouseEvent event(type, position, view->viewport()->mapToGlobal(position),
                          moves ? Qt::NoButton : Qt::LeftButton, held, Qt::NoModifier);
        QCoreApplication::sendEvent(view->viewport(), &event);
    }
    Qt::CursorShape cursor() const { return view->viewport()->cursor().shape(); }
};

void TestDopeSheetGestureEnds::init()
{
    setUp();
    addKeys(x(), {0, 1600, 3200, 4800});
    addKeys(ballX(), {1600});
    view->expandAll();
    showView(1000, 700);
}

void TestDopeSheetGestureEnds::pressOnASelectedKeyReportsTheWholeSelection()
{
    const Listener graph(view.get());
    selectBoth();
    VxMouseDriver hand = mouse();
    hand.press(at(hipX(), 1600));
    QCOMPARE(graph.selected(x()), QSet<int>({1}));
    QCOMPARE(graph.selected(ballX()), QSet<int>({0}));
    hand.release(at(hipX(), 1600));
    QCOMPARE(graph.selected(x()), QSet<int>({1}));
    QCOMPARE(graph.selected(ballX()), QSet<int>());
    view->setKeyCommunication(nullptr);
}

void TestDopeSheetGestureEnds::clickBesideTheKeysReportsAnEmptySelection()
{
    const Listener graph(view.get());
    selectBoth();
    mouse().click(at(hipX(), 2400));
    QVERIFY(!view->hasSelectedKeys());
    QCOMPARE(graph.selected(x()), QSet<int>());
    QCOMPARE(graph.selected(ballX()), QSet<int>());
    view->setKeyCommunication(nullptr);
}

// On its way the key was the third one.
void TestDopeSheetGestureEnds::escapeReportsTheStartIndexes()
{
    const Listener graph(view.get());
    view->setKeySelection(true, hipX(), hipX(), 1600, 1600);
    VxMouseDriver hand = mouse();
    const QPoint from = at(hipX(), 1600);
    hand.press(from);
    waitForPreview(hand, from + QPoint(150, 0), Times({0, 3200, 4000, 4800}));
    QCOMPARE(graph.selected(x()), QSet<int>({2}));
    QTest::keyClick(view.get(), Qt::Key_Escape);
    QCOMPARE(keyTimes(x()), Times({0, 1600, 3200, 4800}));
    QCOMPARE(graph.selected(x()), QSet<int>({1}));
    hand.release(from);
    view->setKeyCommunication(nullptr);
}

void TestDopeSheetGestureEnds::dragBackReportsTheStartIndexes_data()
{
    QTest::addColumn<int>("pixels");
    QTest::newRow("to the press") << 0;
    QTest::newRow("left of it, within the frame") << -3;
}

// The other side identifies keys by their times, which change during the drag.
void TestDopeSheetGestureEnds::dragBackReportsTheStartIndexes()
{
    QFETCH(int, pixels);
    const Listener graph(view.get());
    view->setKeySelection(true, hipX(), hipX(), 1600, 1600);
    VxMouseDriver hand = mouse();
    const QPoint from = at(hipX(), 1600);
    hand.press(from);
    waitForPreview(hand, from + QPoint(150, 0), Times({0, 3200, 4000, 4800}));
    QCOMPARE(graph.selected(x()), QSet<int>({2}));
    hand.moveTo(from + QPoint(pixels, 0));
    hand.release(from + QPoint(pixels, 0));
    QCOMPARE(keyTimes(x()), Times({0, 1600, 3200, 4800}));
    QCOMPARE(selected(hipX()), Times({1600}));
    QCOMPARE(graph.selected(x()), QSet<int>({1}));
    view->setKeyCommunication(nullptr);
}

void TestDopeSheetGestureEnds::lostReleaseRestoresKeys_data()
{
    QTest::addColumn<QString>("how");
    for (const char *how : {"escape in another widget", "hidden", "focus", "window"})
        QTest::newRow(how) << QString::fromLatin1(how);
}

void TestDopeSheetGestureEnds::lostReleaseRestoresKeys()
{
    QFETCH(QString, how);
    VxMouseDriver hand = mouse();
    hand.press(at(hipX(), 1600));
    const QPoint there = at(hipX(), 2400);
    hand.moveTo(there);
    waitForPreview(hand, there, {0, 2400, 3200, 4800});
    QWidget other;
    if (how == QLatin1String("hidden")) {
        view->hide();
        view->show();
    } else if (how == QLatin1String("focus")) {
        view->clearFocus();
    } else if (how == QLatin1String("window")) {
        other.show();
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
    } else {
        QTest::keyClick(header, Qt::Key_Escape);
    }
    QCOMPARE(keyTimes(x()), Times({0, 1600, 3200, 4800}));
    hand.moveTo(at(hipX(), 2720));
    hand.release(at(hipX(), 2720));
    QCOMPARE(keyTimes(x()), Times({0, 1600, 3200, 4800}));
    QCOMPARE(vxApp->getUndoStack()->count(), 0);
    QVERIFY(!vxApp->getUndoStack()->isRecording());
}

void TestDopeSheetGestureEnds::lostReleaseEndsAtTheNextPress()
{
    view->setKeySelection(true, hipX(), hipX(), 1600, 1600);
    VxMouseDriver hand = mouse();
    const QPoint from = at(hipX(), 1600);
    hand.press(from);
    waitForPreview(hand, from + QPoint(50, 0), Times({0, 2400, 3200, 4800}));
    const QPoint beside = at(hipX(), 4000);
    send(QEvent::MouseButtonPress, beside, Qt::LeftButton);
    QCOMPARE(keyTimes(x()), Times({0, 1600, 3200, 4800}));
    QVERIFY(!vxApp->getUndoStack()->isRecording());
    hand.release(beside);
    QCOMPARE(vxApp->getUndoStack()->count(), 0);
}

// A property that is locked in the middle of a drag keeps the keys where they are by then.
void TestDopeSheetGestureEnds::unrestorableKeysCanBeUndone()
{
    view->setKeySelection(true, hipX(), hipX(), 1600, 1600);
    VxMouseDriver hand = mouse();
    const QPoint from = at(hipX(), 1600);
    hand.press(from);
    const Times moved({0, 2400, 3200, 4800});
    waitForPreview(hand, from + QPoint(50, 0), moved);
    x()->setLocked(true);
    QTest::keyClick(view.get(), Qt::Key_Escape);
    hand.release(from);
    QCOMPARE(keyTimes(x()), moved);
    QCOMPARE(vxApp->getUndoStack()->undoText(), QStringLiteral("Move Keys"));
    vxApp->getUndoStack()->undo();
    QCOMPARE(keyTimes(x()), Times({0, 1600, 3200, 4800}));
    QVERIFY(!x()->isLocked());
}

// Ctrl counts while the mouse selects rows. Later the scene's selection is cleared first again,
// with the node of the current row as the last one.
void TestDopeSheetGestureEnds::modifiersEndWithTheGesture()
{
    const QPoint name = view->visualRect(rowOf(ball)).center();
    mouse().click(name, Qt::LeftButton, Qt::ControlModifier);
    QVERIFY(ball->isSelected());
    view->selectionModel()->select(rowOf(leg),
                                   QItemSelectionModel::Select | QItemSelectionModel::Rows);
    QCOMPARE(vxScene->getSelectedNodes(), (QVector<VxNode *>{leg, ball}));
}

void TestDopeSheetGestureEnds::shrinkingBandLeavesNothing()
{
    VxMouseDriver hand = mouse();
    const QPoint from(950, 650);
    hand.press(from);
    hand.moveTo(QPoint(400, 300));
    QTRY_VERIFY(!view->viewport()->testAttribute(Qt::WA_PendingUpdate));
    QCoreApplication::processEvents();
    const VxPaintWatch painted(view->viewport());
    hand.moveTo(QPoint(900, 600));
    QTRY_VERIFY(painted.region.contains(QPoint(401, 301)));
    QVERIFY(painted.region.contains(QRect(QPoint(400, 300), from)));
    hand.release(QPoint(900, 600));
}

// Alt deselects the key, and the gesture is a band although it began on a key.
void TestDopeSheetGestureEnds::bandHidesTheHandCursor()
{
    selectBoth();
    VxMouseDriver hand = mouse();
    const QPoint from = at(hipX(), 1600);
    hand.press(from, Qt::LeftButton, Qt::AltModifier);
    QCOMPARE(cursor(), Qt::PointingHandCursor);
    hand.moveTo(from + QPoint(30, 30), Qt::AltModifier);
    QCOMPARE(cursor(), Qt::ArrowCursor);
    hand.release(from + QPoint(30, 30), Qt::LeftButton, Qt::AltModifier);
}

// The keys that were selected before still are, those in the band are not.
void TestDopeSheetGestureEnds::escapeDropsABand()
{
    view->setKeySelection(true, hipX(), hipX(), 1600, 1600);
    VxMouseDriver hand = mouse();
    hand.press(at(hipX(), 2400));
    hand.moveTo(at(hipX(), 4000));
    QTest::keyClick(view.get(), Qt::Key_Escape);
    hand.moveTo(at(hipX(), 4100));
    hand.release(at(hipX(), 4100));
    QCOMPARE(selected(hipX()), Times({1600}));
    QVERIFY(!hip->isSelected());
}

void TestDopeSheetGestureEnds::dragShowsTheHandUnasked()
{
    const QPoint from = at(hipX(), 1600);
    QCOMPARE(cursor(), Qt::ArrowCursor);
    send(QEvent::MouseButtonPress, from, Qt::LeftButton);
    send(QEvent::MouseMove, from + QPoint(30, 0), Qt::LeftButton);
    QCOMPARE(cursor(), Qt::PointingHandCursor);
    send(QEvent::MouseButtonRelease, from, Qt::NoButton);
    QCOMPARE(keyTimes(x()), Times({0, 1600, 3200, 4800}));
}

VX_TEST_MAIN(TestDopeSheetGestureEnds)
#include "tst_dopesheetgestureends.moc"
