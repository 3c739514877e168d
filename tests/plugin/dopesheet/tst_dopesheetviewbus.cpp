#include "dopesheettestbase.h"
#include "testing/keytimes.h"
#include "testing/vxtestmain.h"
#include "vxtimeline/keys/vxkeycommunication.h"
#include "vxtimeline/rows/vxdopesheetfiltermodel.h"

using Indexes = QVector<qint32>;

// What the dope sheet view sends on the key bus, and how it applies what it receives.
class TestDopeSheetViewBus : public QObject, private DopeSheetTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void selectionIsSent();
    void nodeRowsSendNothing();
    void echoIsDropped();
    void mutedBusStaysMuted();
    void messageSelects();
    void messageClearsFirst();
    void messageOfUnknownPropertyChangesNothing();
    void messageReachesRowsAddedLater();
    void messageDuringOwnSelectionIsIgnored();
    void anotherBus();

private:
    void select(const QModelIndex &row, VxTime start = -1, VxTime end = VxTimeMax)
    {
        view->setKeySelection(true, row, row, start, end);
    }
};

void TestDopeSheetViewBus::selectionIsSent()
{
    addKeys(hip->getXPosControl(), {0, 160, 320});
    VxKeyCommunication bus;
    view->setKeyCommunication(&bus);
    QSignalSpy sent(&bus, &VxKeyCommunication::sent);
    bool wasMuted = false;
    connect(&bus, &VxKeyCommunication::sent, &bus, [&] { wasMuted = bus.isMuted(); });
    select(translationOf(hip, 0), 100, 400);
    QCOMPARE(sent.count(), 1);
    QVERIFY(wasMuted);
    QVERIFY(!bus.isMuted());
    const auto message = sent.at(0).at(0).value<VxKeyMessage>();
    QVERIFY(!message.clearSelection);
    QCOMPARE(message.selectedKeys.value(hip->getXPosControl()), (Indexes{1, 2}));
    QCOMPARE(message.deselectedKeys.value(hip->getXPosControl()), (Indexes{0}));
    QCOMPARE(message.selectedKeys.size(), 1);
    QVERIFY(message.selectedTimes.isEmpty());
    QVERIFY(message.deselectedTimes.isEmpty());
}

void TestDopeSheetViewBus::nodeRowsSendNothing()
{
    addKeys(hip->getXPosControl(), {0});
    VxKeyCommunication bus;
    view->setKeyCommunication(&bus);
    QSignalSpy sent(&bus, &VxKeyCommunication::sent);
    view->expand(rowOf(hip));
    select(rowOf(hip));
    QCOMPARE(sent.count(), 0);
    view->collapse(rowOf(hip));
    select(rowOf(hip));
    QCOMPARE(sent.count(), 3 * 3);
}

// The other side answers every message at once.
void TestDopeSheetViewBus::echoIsDropped()
{
    addKeys(hip->getXPosControl(), {0, 160});
    VxKeyCommunication bus, other;
    VxKeyCommunication::connectEnds(&bus, &other);
    view->setKeyCommunication(&bus);
    connect(&other, &VxKeyCommunication::received, &other, [&] {
        VxKeyMessage answer;
        answer.clearSelection = true;
        other.send(answer);
    });
    QSignalSpy reports(&other, &VxKeyCommunication::received);
    QSignalSpy echoed(&bus, &VxKeyCommunication::received);
    select(translationOf(hip, 0));
    QCOMPARE(reports.count(), 1);
    QCOMPARE(echoed.count(), 0);
    QCOMPARE(selected(translationOf(hip, 0)), (Times{0, 160}));
}

void TestDopeSheetViewBus::mutedBusStaysMuted()
{
    addKeys(hip->getXPosControl(), {0});
    VxKeyCommunication bus;
    view->setKeyCommunication(&bus);
    QSignalSpy sent(&bus, &VxKeyCommunication::sent);
    bus.setMuted(true);
    select(translationOf(hip, 0));
    QCOMPARE(sent.count(), 1);
    QVERIFY(bus.isMuted());
}

void TestDopeSheetViewBus::messageSelects()
{
    VxFloatProperty *x = hip->getXPosControl();
    VxFloatProperty *y = hip->getYPosControl();
    addKeys(x, {0, 160, 320});
    addKeys(y, {0, 160});
    select(translationOf(hip, 1));
    VxKeyCommunication bus;
    view->setKeyCommunication(&bus);
    QSignalSpy reported(view.get(), &VxDopeSheetView::keySelectionChanged);
    VxKeyMessage message;
    message.selectedKeys.insert(x, {0, 2});
    message.deselectedKeys.insert(x, {1});
    message.deselectedKeys.insert(y, {1, 7});
    bus.private_received(message);
    QCOMPARE(selected(translationOf(hip, 0)), (Times{0, 320}));
    QCOMPARE(selected(translationOf(hip, 1)), (Times{0}));
    QCOMPARE(reported.count(), 0);
}

void TestDopeSheetViewBus::messageClearsFirst()
{
    VxFloatProperty *x = hip->getXPosControl();
    addKeys(x, {-320, 0, 160});
    addKeys(ball->getXPosControl(), {0});
    view->setKeySelection(true, rowOf(hip), rowOf(ball), VxTimeMin, VxTimeMax);
    VxKeyCommunication bus;
    view->setKeyCommunication(&bus);
    VxKeyMessage message;
    message.clearSelection = true;
    message.selectedKeys.insert(x, {2});
    bus.private_received(message);
    QCOMPARE(selected(translationOf(hip, 0)), (Times{160}));
    QCOMPARE(selected(rowOf(ball)), Times{});
    message.selectedKeys.clear();
    bus.private_received(message);
    QVERIFY(!view->hasSelectedKeys());
}

void TestDopeSheetViewBus::messageOfUnknownPropertyChangesNothing()
{
    addKeys(hip->getXPosControl(), {0});
    select(translationOf(hip, 0));
    VxKeyMessage message;
    message.deselectedKeys.insert(hip->getXRotControl(), {0});
    message.selectedKeys.insert(nullptr, {0});
    view->handleKeyMessage(message);
    QCOMPARE(selected(translationOf(hip, 0)), Times{0});
}

void TestDopeSheetViewBus::messageReachesRowsAddedLater()
{
    VxKeyMessage message;
    view->handleKeyMessage(message);
    message.selectedKeys.insert(hip->getXPosControl(), {0});
    view->handleKeyMessage(message);

    VxNode *foot = addNode("foot", leg);
    addKeys(foot->getXPosControl(), {160});
    model->addNode(foot);
    message.selectedKeys.insert(foot->getXPosControl(), {0});
    view->handleKeyMessage(message);
    QCOMPARE(selected(translationOf(foot, 0)), Times{160});

    model->removeNode(foot);
    view->handleKeyMessage(message);
    model->addNode(foot);
    view->handleKeyMessage(message);
    QCOMPARE(selected(translationOf(foot, 0)), Times{160});
}

void TestDopeSheetViewBus::messageDuringOwnSelectionIsIgnored()
{
    addKeys(hip->getXPosControl(), {0, 160});
    VxKeyCommunication bus;
    view->setKeyCommunication(&bus);
    int calls = 0;
    connect(&bus, &VxKeyCommunication::sent, view.get(), [&] {
        ++calls;
        VxKeyMessage message;
        message.clearSelection = true;
        view->handleKeyMessage(message);
    });
    select(translationOf(hip, 0));
    QCOMPARE(calls, 1);
    QCOMPARE(selected(translationOf(hip, 0)), (Times{0, 160}));
}

void TestDopeSheetViewBus::anotherBus()
{
    addKeys(hip->getXPosControl(), {0});
    VxKeyCommunication first, second;
    view->setKeyCommunication(&first);
    view->setKeyCommunication(&second);
    QCOMPARE(view->getKeyCommunication(), &second);
    VxKeyMessage message;
    message.selectedKeys.insert(hip->getXPosControl(), {0});
    first.private_received(message);
    QVERIFY(!view->hasSelectedKeys());
    second.private_received(message);
    QVERIFY(view->hasSelectedKeys());
    view->setKeyCommunication(nullptr);
    message.deselectedKeys = message.selectedKeys;
    message.selectedKeys.clear();
    second.private_received(message);
    QVERIFY(view->hasSelectedKeys());
}

VX_TEST_MAIN(TestDopeSheetViewBus)
#include "tst_dopesheetviewbus.moc"
