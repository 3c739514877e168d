#include "keygraphviewtestbase.h"
#include "testing/vxtestmain.h"

using namespace KeyDrawing;

// Keys dragged with the mouse.
class TestKeyGraphDrag : public QObject, private KeyGraphViewTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void dragMovesTheSelection();
    void dragSnapsToFrames();
    void controlDragDoesNotSnap();
    void shiftDragKeepsOneAxis_data();
    void shiftDragKeepsOneAxis();
    void keysBesideFrames_data();
    void keysBesideFrames();
    void dragOntoAnotherKey();
    void dragPastAnotherKey();
    void dragOfNeighbours();
    void dragBackRestoresEverything();
    void dragOfSeveralChannels();
    void dragOfAPropertyAndItsAlias_data();
    void dragOfAPropertyAndItsAlias();
    void dragOfAPercentage();
    void altDragMovesTheRest();
    void undoAndRedo();
    void lockedKeysStay();
    void dragSendsMessages();
    void aSecondButtonDoesNotInterrupt();
    void nodesDeletedInMidDrag();
    void droppedDrag_data();
    void droppedDrag();
    void droppedRubberBand();
    void droppedTimeDrag();
    void pressTakesTheFocus();
    void destroyedInMidDrag();

private:
    QVector<int> selected(int index) const { return selectedOf(channel(index)); }
    QVector<int> frames(const VxProperty *property) const;

    std::unique_ptr<VxMouseDriver> m_mouse;
};

void TestKeyGraphDrag::init()
{
    setUpView();
    showView();
    m_mouse = std::make_unique<VxMouseDriver>(view.get());
    m_mouse->moveTo(QPoint(790, 290));
}

void TestKeyGraphDrag::cleanup()
{
    m_mouse.reset();
    tearDownView();
}

QVector<int> TestKeyGraphDrag::frames(const VxProperty *property) const
{
    QVector<int> result = timesOf(property);
    for (int &time : result)
        time /= 160;
    return result;
}

void TestKeyGraphDrag::dragMovesTheSelection()
{
    showProperties({makeKeys(x(), "..a..b..c......d")});
    select(channel(0), {0, 1});
    m_mouse->drag(placeOfKey(x(), 1), placeOfKey(x(), 1) + QPoint(10, -20));
    QCOMPARE(frames(x()), QVector<int>({3, 6, 8, 15}));
    QCOMPARE(x()->getKeyValue(0), 4.0f);
    QCOMPARE(x()->getKeyValue(1), 7.0f);
    QCOMPARE(x()->getKeyValue(2), 8.0f);
    QCOMPARE(selected(0), QVector<int>({0, 1}));
    QCOMPARE(undoTexts(), QStringList{"Move Keys"});
}

void TestKeyGraphDrag::dragSnapsToFrames()
{
    showProperties({makeKeys(x(), "..a..b..c")});
    m_mouse->drag(placeOfKey(x(), 1), placeOfKey(x(), 1) + QPoint(14, 0));
    QCOMPARE(timesOf(x()), QVector<int>({320, 960, 1280}));
    m_mouse->drag(placeOfKey(x(), 1), placeOfKey(x(), 1) + QPoint(-14, 0));
    QCOMPARE(timesOf(x()), QVector<int>({320, 800, 1280}));
}

void TestKeyGraphDrag::controlDragDoesNotSnap()
{
    showProperties({makeKeys(x(), "..a..b..c")});
    m_mouse->drag(placeOfKey(x(), 1), placeOfKey(x(), 1) + QPoint(3, 0), Qt::LeftButton,
                  Qt::ControlModifier);
    QCOMPARE(timesOf(x()), QVector<int>({320, 848, 1280}));
}

void TestKeyGraphDrag::shiftDragKeepsOneAxis_data()
{
    QTest::addColumn<QPoint>("way");
    QTest::addColumn<int>("frame");
    QTest::addColumn<float>("value");
    QTest::newRow("further in time") << QPoint(20, 10) << 7 << 5.0f;
    QTest::newRow("further in value") << QPoint(-20, 30) << 5 << 2.0f;
    QTest::newRow("equally far") << QPoint(20, -20) << 7 << 5.0f;
}

void TestKeyGraphDrag::shiftDragKeepsOneAxis()
{
    QFETCH(QPoint, way);
    QFETCH(int, frame);
    QFETCH(float, value);
    showProperties({makeKeys(x(), "..a..b......c")});
    m_mouse->drag(placeOfKey(x(), 1), placeOfKey(x(), 1) + way, Qt::LeftButton, Qt::ShiftModifier);
    QCOMPARE(frames(x()), QVector<int>({2, frame, 12}));
    QCOMPARE(x()->getKeyValue(1), value);
}

void TestKeyGraphDrag::keysBesideFrames_data()
{
    QTest::addColumn<QPoint>("way");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<int>("time");
    const Qt::KeyboardModifiers none;
    QTest::newRow("sideways") << QPoint(10, 0) << none << 1120;
    QTest::newRow("up, without being bound to it") << QPoint(0, -20) << none << 960;
    QTest::newRow("with Ctrl") << QPoint(0, -20) << Qt::KeyboardModifiers(Qt::ControlModifier)
                               << 900;
    QTest::newRow("bound to the values")
        << QPoint(3, -20) << Qt::KeyboardModifiers(Qt::ShiftModifier) << 900;
    QTest::newRow("bound to the times")
        << QPoint(10, -3) << Qt::KeyboardModifiers(Qt::ShiftModifier) << 1120;
}

// A drag over the values alone does not touch the times, on frames or not.
void TestKeyGraphDrag::keysBesideFrames()
{
    QFETCH(QPoint, way);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    x()->setKey(900, 5.0f, VxKeyInterp::Linear);
    showProperties({x()});
    const QPoint start = placeOfKey(x(), 0);
    m_mouse->press(start);
    m_mouse->moveTo(start + way, modifiers);
    m_mouse->release(start + way);
    QTEST(int(x()->getKeyTime(0)), "time");
}

void TestKeyGraphDrag::dragOntoAnotherKey()
{
    showProperties({makeKeys(x(), "..a..b..c")});
    m_mouse->drag(placeOfKey(x(), 1), placeOfKey(x(), 1) + QPoint(30, 0));
    QCOMPARE(timesOf(x()), QVector<int>({320, 1279, 1280}));
    QCOMPARE(x()->getKeyValue(1), 5.0f);
    m_mouse->drag(placeOfKey(x(), 1) + QPoint(0, 2), QPoint(placeOfKey(x(), 0).x(), 200));
    QCOMPARE(timesOf(x()), QVector<int>({320, 321, 1280}));
    QCOMPARE(x()->getKeyValue(0), 2.0f);
}

void TestKeyGraphDrag::dragPastAnotherKey()
{
    showProperties({makeKeys(x(), "..a..b..c")});
    m_mouse->drag(placeOfKey(x(), 0), placeOfKey(x(), 0) + QPoint(90, 0));
    QCOMPARE(frames(x()), QVector<int>({5, 8, 11}));
    QCOMPARE(x()->getKeyValue(2), 2.0f);
    QCOMPARE(selected(0), QVector<int>{2});
}

void TestKeyGraphDrag::dragOfNeighbours()
{
    showProperties({makeKeys(x(), "..abcde")});
    select(channel(0), {0, 1, 2, 3, 4});
    m_mouse->drag(placeOfKey(x(), 2), placeOfKey(x(), 2) + QPoint(10, 0));
    QCOMPARE(frames(x()), QVector<int>({3, 4, 5, 6, 7}));
    m_mouse->drag(placeOfKey(x(), 2), placeOfKey(x(), 2) + QPoint(-20, 0));
    QCOMPARE(frames(x()), QVector<int>({1, 2, 3, 4, 5}));
    QCOMPARE(x()->getKeyValue(0), 2.0f);
    QCOMPARE(x()->getKeyValue(4), 6.0f);
}

// Over and past other keys and back again: nothing is left of it, in the scene or in the history.
void TestKeyGraphDrag::dragBackRestoresEverything()
{
    showProperties({makeKeys(x(), "..a..b..c.d")});
    select(channel(0), {0, 2});
    const QPoint start = placeOfKey(x(), 0);
    m_mouse->press(start);
    for (const int dx : {25, 60, 95, 200, -40, 30, 31, 0})
        m_mouse->moveTo(start + QPoint(dx, dx / 3));
    m_mouse->release(start);
    QCOMPARE(frames(x()), QVector<int>({2, 5, 8, 10}));
    for (int i = 0; i < 4; ++i)
        QCOMPARE(x()->getKeyValue(i), float(x()->getKeyTime(i) / 160));
    QCOMPARE(selected(0), QVector<int>({0, 2}));
    QCOMPARE(undoTexts(), QStringList());
}

void TestKeyGraphDrag::dragOfSeveralChannels()
{
    showProperties({makeKeys(x(), "..a..b"), makeKeys(y(), ".......c..d")});
    select(channel(0), {0, 1});
    select(channel(1), {0});
    QSignalSpy changes(x(), &VxProperty::valueChanged);
    m_mouse->press(placeOfKey(x(), 1));
    m_mouse->moveTo(placeOfKey(x(), 1) + QPoint(10, 0));
    QCOMPARE(changes.size(), 1);
    m_mouse->release(placeOfKey(x(), 1));
    QCOMPARE(frames(x()), QVector<int>({3, 6}));
    QCOMPARE(frames(y()), QVector<int>({8, 10}));
    QCOMPARE(undoTexts(), QStringList{"Move Keys"});
}

void TestKeyGraphDrag::dragOfAPropertyAndItsAlias_data()
{
    QTest::addColumn<bool>("overridden"); // else an alias
    QTest::addColumn<bool>("aliasFirst");
    for (const bool overridden : {false, true}) {
        for (const bool first : {false, true})
            QTest::addRow("%s %s", overridden ? "overridden by a control," : "an alias,",
                          first ? "the dependent one first" : "the holder first")
                << overridden << first;
    }
}

// Both show the same keys, both have the key selected: it moves once, and no other key moves.
void TestKeyGraphDrag::dragOfAPropertyAndItsAlias()
{
    QFETCH(bool, overridden);
    QFETCH(bool, aliasFirst);
    for (const VxTime time : {1600, 3200, 8000})
        x()->setKey(time, 5.0f, VxKeyInterp::Linear);
    VxFloatProperty *other = addProperty(QStringLiteral("Other"));
    QVERIFY(overridden ? other->setOverridingControl(x()) : other->setAliasedProperty(x()));
    showProperties(aliasFirst ? QVector<VxProperty *>{other, x()}
                              : QVector<VxProperty *>{x(), other});
    const QPoint start = placeOfKey(x(), 0);
    m_mouse->drag(start - QPoint(12, 12), start + QPoint(12, 12));
    QCOMPARE(selected(0), QVector<int>{0});
    QCOMPARE(selected(1), QVector<int>{0});
    m_mouse->press(start);
    m_mouse->moveTo(start + QPoint(200, 0));
    m_mouse->release(start + QPoint(200, 0));
    QCOMPARE(timesOf(x()), QVector<int>({3200, 4800, 8000}));
    QCOMPARE(selected(0), QVector<int>{1});
    QCOMPARE(selected(1), QVector<int>{1});
    vxApp->getUndoStack()->undo();
    QCOMPARE(timesOf(x()), QVector<int>({1600, 3200, 8000}));
}

void TestKeyGraphDrag::dragOfAPercentage()
{
    VxFloatProperty *smile = addProperty(QStringLiteral("Smile"));
    smile->setPercentage(true);
    smile->setKey(1600, 0.125f, VxKeyInterp::Linear);
    showProperties({smile});
    m_mouse->drag(placeOf(10, 12.5), placeOf(10, 12.5) + QPoint(0, -50));
    QCOMPARE(smile->getKeyValue(0), 0.175f);
    QCOMPARE(smile->getKeyTime(0), 1600);
}

void TestKeyGraphDrag::altDragMovesTheRest()
{
    showProperties({makeKeys(x(), "..a..b....c")});
    select(channel(0), {0, 1});
    m_mouse->drag(placeOfKey(x(), 1), placeOfKey(x(), 1) + QPoint(10, 0), Qt::LeftButton,
                  Qt::AltModifier);
    QCOMPARE(frames(x()), QVector<int>({3, 5, 10}));
    QCOMPARE(selected(0), QVector<int>{0});
}

void TestKeyGraphDrag::undoAndRedo()
{
    showProperties({makeKeys(x(), "..a..b..c")});
    select(channel(0), {0, 1});
    m_mouse->drag(placeOfKey(x(), 0), placeOfKey(x(), 0) + QPoint(45, -30));
    const QVector<int> moved = timesOf(x());
    QVERIFY(moved != QVector<int>({320, 800, 1280}));
    vxApp->getUndoStack()->undo();
    QCOMPARE(timesOf(x()), QVector<int>({320, 800, 1280}));
    QCOMPARE(x()->getKeyValue(0), 2.0f);
    vxApp->getUndoStack()->redo();
    QCOMPARE(timesOf(x()), moved);
    QCOMPARE(undoTexts().size(), 1);
}

void TestKeyGraphDrag::lockedKeysStay()
{
    showProperties({makeKeys(x(), "..a..b"), makeKeys(y(), ".......c")});
    select(channel(0), {0, 1});
    select(channel(1), {0});
    x()->setLocked(true);
    m_mouse->drag(placeOfKey(x(), 1), placeOfKey(x(), 1) + QPoint(20, 20));
    QCOMPARE(frames(x()), QVector<int>({2, 5}));
    QCOMPARE(frames(y()), QVector<int>{9});
    QCOMPARE(selected(0), QVector<int>({0, 1}));
}

// After each step the other side receives the current indexes of the selected keys.
void TestKeyGraphDrag::dragSendsMessages()
{
    showProperties({makeKeys(x(), "..a..b..c")});
    QVector<VxKeyMessage> reports;
    connect(peer.get(), &VxKeyCommunication::received, peer.get(),
            [&](const VxKeyMessage &message) { reports += message; });
    m_mouse->press(placeOfKey(x(), 0));
    QCOMPARE(reports.size(), 1);
    m_mouse->moveTo(placeOfKey(x(), 0) + QPoint(90, 0));
    QCOMPARE(reports.last().selectedKeys.value(x()), QVector<qint32>{2});
    m_mouse->release(placeOfKey(x(), 0) + QPoint(90, 0));
}

void TestKeyGraphDrag::aSecondButtonDoesNotInterrupt()
{
    showProperties({makeKeys(x(), "..a..b")});
    const QPoint start = placeOfKey(x(), 1);
    m_mouse->press(start);
    m_mouse->moveTo(start + QPoint(10, 0));
    m_mouse->press(start + QPoint(10, 0), Qt::MiddleButton);
    m_mouse->release(start + QPoint(10, 0), Qt::MiddleButton);
    m_mouse->moveTo(start + QPoint(20, 0));
    m_mouse->release(start + QPoint(20, 0));
    QCOMPARE(frames(x()), QVector<int>({2, 7}));
    QCOMPARE(undoTexts(), QStringList{"Move Keys"});
}

void TestKeyGraphDrag::nodesDeletedInMidDrag()
{
    showProperties({makeKeys(x(), "..a..b"), makeKeys(y(), "....c")});
    const QPoint start = placeOfKey(x(), 1);
    m_mouse->press(start);
    m_mouse->moveTo(start + QPoint(10, 0));
    vxScene->removeNode(node);
    QVERIFY(graph->getChannels().isEmpty());
    m_mouse->moveTo(start + QPoint(20, 0));
    m_mouse->release(start + QPoint(20, 0));
    m_mouse->moveTo(start);
    m_mouse->click(start);
    view->grab();
    QVERIFY(!QWidget::mouseGrabber());
}

void TestKeyGraphDrag::droppedDrag_data()
{
    QTest::addColumn<QString>("how");
    for (const char *how : {"escape", "hidden", "focus", "window"})
        QTest::newRow(how) << QString::fromLatin1(how);
}

// Keys, selection and history are those of the press; the mouse may be released afterwards.
void TestKeyGraphDrag::droppedDrag()
{
    QFETCH(QString, how);
    showProperties({makeKeys(x(), "..abcd..e"), makeKeys(y(), "...f")});
    select(channel(0), {1, 2});
    select(channel(1), {0});
    const QVector<VxTime> before = timesOf(x());
    const float value = x()->getKeyValue(1);
    const QPoint start = placeOfKey(x(), 1);
    m_mouse->press(start);
    m_mouse->moveTo(start + QPoint(10, 15));
    m_mouse->moveTo(start + QPoint(40, 15));
    QVERIFY(timesOf(x()) != before);
    messages.clear();
    QWidget other;
    if (how == QLatin1String("escape")) {
        QTest::keyClick(view.get(), Qt::Key_Escape);
    } else if (how == QLatin1String("hidden")) {
        view->hide();
        view->show();
    } else if (how == QLatin1String("focus")) {
        view->clearFocus();
    } else {
        other.show();
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
    }
    QCOMPARE(timesOf(x()), before);
    QCOMPARE(timesOf(y()), QVector<VxTime>{480});
    QCOMPARE(x()->getKeyValue(1), value);
    QCOMPARE(selected(0), QVector<int>({1, 2}));
    QCOMPARE(selected(1), QVector<int>({0}));
    QVERIFY(!messages.isEmpty());
    QCOMPARE(undoTexts(), QStringList());
    QVERIFY(!vxApp->getUndoStack()->isRecording());
    QVERIFY(!QWidget::mouseGrabber());
    m_mouse->moveTo(start + QPoint(80, 15));
    m_mouse->release(start + QPoint(80, 15));
    QCOMPARE(timesOf(x()), before);
    QCOMPARE(undoTexts(), QStringList());
}

void TestKeyGraphDrag::droppedRubberBand()
{
    showProperties({makeKeys(x(), "..a..b..c..d")});
    select(channel(0), {3});
    m_mouse->press(placeOf(4, 3), Qt::LeftButton, Qt::ControlModifier);
    m_mouse->moveTo(placeOf(9, 9));
    QVERIFY(selected(0) != QVector<int>{3});
    QTest::keyClick(view.get(), Qt::Key_Escape);
    QCOMPARE(selected(0), QVector<int>{3});
    m_mouse->release(placeOf(9, 9));
    QCOMPARE(selected(0), QVector<int>{3});
}

void TestKeyGraphDrag::droppedTimeDrag()
{
    showProperties({makeKeys(x(), "..a..b")});
    vxScene->setTime(10 * 160);
    const QPoint line(int(view->getScale().x(1600)), 20);
    m_mouse->moveTo(line);
    m_mouse->press(line);
    m_mouse->moveTo(line + QPoint(30, 0));
    QVERIFY(vxScene->getTime() != 1600);
    QTest::keyClick(view.get(), Qt::Key_Escape);
    QCOMPARE(vxScene->getTime(), 1600);
    m_mouse->release(line + QPoint(30, 0));
    QCOMPARE(vxScene->getTime(), 1600);
}

void TestKeyGraphDrag::pressTakesTheFocus()
{
    view->clearFocus();
    showProperties({makeKeys(x(), "..a..b")});
    m_mouse->click(placeOfKey(x(), 1));
    QVERIFY(view->hasFocus());
}

void TestKeyGraphDrag::destroyedInMidDrag()
{
    showProperties({makeKeys(x(), "..a..b")});
    const QPoint start = placeOfKey(x(), 1);
    m_mouse->press(start);
    m_mouse->moveTo(start + QPoint(10, 0));
    m_mouse.reset();
    view.reset();
    QVERIFY(!QWidget::mouseGrabber());
    QCOMPARE(frames(x()), QVector<int>({2, 5}));
    QVERIFY(!vxApp->getUndoStack()->isRecording());
}

VX_TEST_MAIN(TestKeyGraphDrag)
#include "tst_vxkeygraphdrag.moc"
