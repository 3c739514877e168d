#include <QtTest>

#include <vxcore/vxapp.h>
#include <vxcore/vxfloatproperty.h>

#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"
#include "vxtimeline/keygraph/vxkeygraph.h"
#include "vxtimeline/keys/vxkeycommunication.h"

#include <memory>

namespace {

// One side of the line: an end, and what its owner heard.
struct Side
{
    Side()
    {
        QObject::connect(&bus, &VxKeyCommunication::received, &bus,
                         [this](const VxKeyMessage &message) { heard.append(message); });
    }

    VxKeyCommunication bus;
    QVector<VxKeyMessage> heard;
};

} // namespace

class TestKeyCommunication : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_guard = std::make_unique<VxWarningGuard>(); }
    void cleanup() { m_guard.reset(); }

    void aNewMessageIsEmpty();
    void metaMethodsInOrder();
    void aMessageArrivesWhole();
    void aSenderDoesNotHearItself();
    void aReplyDuringSendingIsDropped();
    void sendingPutsTheMutingBack();
    void mutedEndDropsMessages();
    void connectingTwiceDeliversOnce();
    void aNewPeerReplacesTheGraphsEnd();

private:
    std::unique_ptr<VxWarningGuard> m_guard;
};

void TestKeyCommunication::aNewMessageIsEmpty()
{
    const VxKeyMessage message;
    QVERIFY(!message.clearSelection);
    QVERIFY(message.selectedTimes.isEmpty());
    QVERIFY(message.deselectedTimes.isEmpty());
    QVERIFY(message.selectedKeys.isEmpty());
    QVERIFY(message.deselectedKeys.isEmpty());
    QVERIFY(!VxKeyCommunication().isMuted());
}

void TestKeyCommunication::metaMethodsInOrder()
{
    const QMetaObject &meta = VxKeyCommunication::staticMetaObject;
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        methods += QString::fromLatin1(meta.method(i).methodSignature());
        QCOMPARE(meta.method(i).parameterNames(), QList<QByteArray>{"message"});
    }
    QCOMPARE(methods, QStringList({QStringLiteral("received(VxKeyMessage)"),
                                   QStringLiteral("sent(VxKeyMessage)"),
                                   QStringLiteral("private_received(VxKeyMessage)")}));
}

void TestKeyCommunication::aMessageArrivesWhole()
{
    Side sheet;
    Side graph;
    VxKeyCommunication::connectEnds(&sheet.bus, &graph.bus);
    VxFloatProperty property(QStringLiteral("x"));
    VxKeyMessage message;
    message.clearSelection = true;
    message.selectedKeys[&property] = {1, 4, 9};
    message.deselectedKeys[&property] = {2};
    sheet.bus.send(message);

    QCOMPARE(graph.heard.size(), 1);
    QVERIFY(graph.heard.first().clearSelection);
    QCOMPARE(graph.heard.first().selectedKeys, message.selectedKeys);
    QCOMPARE(graph.heard.first().deselectedKeys, message.deselectedKeys);
}

void TestKeyCommunication::aSenderDoesNotHearItself()
{
    Side sheet;
    Side graph;
    VxKeyCommunication::connectEnds(&sheet.bus, &graph.bus);
    graph.bus.send(VxKeyMessage());
    QCOMPARE(sheet.heard.size(), 1);
    QVERIFY(graph.heard.isEmpty());
}

void TestKeyCommunication::aReplyDuringSendingIsDropped()
{
    Side sheet;
    Side graph;
    VxKeyCommunication::connectEnds(&sheet.bus, &graph.bus);
    int replies = 0;
    connect(&graph.bus, &VxKeyCommunication::received, &graph.bus, [&graph, &replies] {
        ++replies;
        graph.bus.send(VxKeyMessage());
    });
    sheet.bus.send(VxKeyMessage());
    QCOMPARE(replies, 1);
    QCOMPARE(graph.heard.size(), 1);
    QVERIFY(sheet.heard.isEmpty());
}

void TestKeyCommunication::sendingPutsTheMutingBack()
{
    VxKeyCommunication bus;
    bool mutedWhileSending = false;
    connect(&bus, &VxKeyCommunication::sent, &bus,
            [&bus, &mutedWhileSending] { mutedWhileSending = bus.isMuted(); });
    bus.send(VxKeyMessage());
    QVERIFY(mutedWhileSending);
    QVERIFY(!bus.isMuted());

    QVERIFY(!bus.setMuted(true));
    bus.send(VxKeyMessage());
    QVERIFY(bus.isMuted());
    QVERIFY(bus.setMuted(false));
}

void TestKeyCommunication::mutedEndDropsMessages()
{
    Side side;
    side.bus.setMuted(true);
    side.bus.private_received(VxKeyMessage());
    QVERIFY(side.heard.isEmpty());
    side.bus.setMuted(false);
    side.bus.private_received(VxKeyMessage());
    QCOMPARE(side.heard.size(), 1);
}

void TestKeyCommunication::connectingTwiceDeliversOnce()
{
    Side sheet;
    Side graph;
    VxKeyCommunication::connectEnds(&sheet.bus, &graph.bus);
    VxKeyCommunication::connectEnds(&graph.bus, &sheet.bus);
    sheet.bus.send(VxKeyMessage());
    graph.bus.send(VxKeyMessage());
    QCOMPARE(graph.heard.size(), 1);
    QCOMPARE(sheet.heard.size(), 1);
}

void TestKeyCommunication::aNewPeerReplacesTheGraphsEnd()
{
    const VxApp app;
    VxKeyGraph graph;
    Side first;
    Side second;
    int heardByGraph = 0;
    connect(&graph, &VxKeyGraph::receivedKeyMessage, &graph, [&heardByGraph] { ++heardByGraph; });

    graph.setKeyCommunication(&first.bus);
    graph.setKeyCommunication(&second.bus);
    graph.setKeyCommunication(&second.bus);
    first.bus.send(VxKeyMessage());
    QCOMPARE(heardByGraph, 0);
    second.bus.send(VxKeyMessage());
    QCOMPARE(heardByGraph, 1);
    graph.getKeyCommunication()->send(VxKeyMessage());
    QCOMPARE(second.heard.size(), 1);
    QVERIFY(first.heard.isEmpty());
    QCOMPARE(graph.getKeyCommunication()->parent(), &graph);
    QCOMPARE(graph.findChildren<VxKeyCommunication *>().size(), 1);
}

VX_TEST_MAIN(TestKeyCommunication)
#include "tst_vxkeycommunication.moc"
