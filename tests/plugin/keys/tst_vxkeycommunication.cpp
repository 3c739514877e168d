#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"
#include "vxtimeline/keygraph/vxkeygraph.h"
#include "vxtimeline/keys/vxkeycommunication.h"

#include <QtTest>
#include <memory>
#include <vxcore/vxapp.h>
#include <vxcore/vxfloatproperty.h>

namespace {

// One end of the connection and the messages that it received.
struct Side
{
    Side()
    {
        QObject::connect(&bus, &VxKeyCommunication::received, &bus,
                         [this](const VxKeyMessage &message) { messages.append(message); });
    }

    VxKeyCommunication bus;
    QVector<VxKeyMessage> messages;
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
    void aSenderReceivesNoMessageOfItsOwn();
    void aReplyDuringSendingIsDropped();
    void sendingRestoresTheMuting();
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

    QCOMPARE(graph.messages.size(), 1);
    QVERIFY(graph.messages.first().clearSelection);
    QCOMPARE(graph.messages.first().selectedKeys, message.selectedKeys);
    QCOMPARE(graph.messages.first().deselectedKeys, message.deselectedKeys);
}

void TestKeyCommunication::aSenderReceivesNoMessageOfItsOwn()
{
    Side sheet;
    Side graph;
    VxKeyCommunication::connectEnds(&sheet.bus, &graph.bus);
    graph.bus.send(VxKeyMessage());
    QCOMPARE(sheet.messages.size(), 1);
    QVERIFY(graph.messages.isEmpty());
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
    QCOMPARE(graph.messages.size(), 1);
    QVERIFY(sheet.messages.isEmpty());
}

void TestKeyCommunication::sendingRestoresTheMuting()
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
    QVERIFY(side.messages.isEmpty());
    side.bus.setMuted(false);
    side.bus.private_received(VxKeyMessage());
    QCOMPARE(side.messages.size(), 1);
}

void TestKeyCommunication::connectingTwiceDeliversOnce()
{
    Side sheet;
    Side graph;
    VxKeyCommunication::connectEnds(&sheet.bus, &graph.bus);
    VxKeyCommunication::connectEnds(&graph.bus, &sheet.bus);
    sheet.bus.send(VxKeyMessage());
    graph.bus.send(VxKeyMessage());
    QCOMPARE(graph.messages.size(), 1);
    QCOMPARE(sheet.messages.size(), 1);
}

void TestKeyCommunication::aNewPeerReplacesTheGraphsEnd()
{
    const VxApp app;
    VxKeyGraph graph;
    Side first;
    Side second;
    int receivedByGraph = 0;
    connect(&graph, &VxKeyGraph::receivedKeyMessage, &graph,
            [&receivedByGraph] { ++receivedByGraph; });

    graph.setKeyCommunication(&first.bus);
    graph.setKeyCommunication(&second.bus);
    graph.setKeyCommunication(&second.bus);
    first.bus.send(VxKeyMessage());
    QCOMPARE(receivedByGraph, 0);
    second.bus.send(VxKeyMessage());
    QCOMPARE(receivedByGraph, 1);
    graph.getKeyCommunication()->send(VxKeyMessage());
    QCOMPARE(second.messages.size(), 1);
    QVERIFY(first.messages.isEmpty());
    QCOMPARE(graph.getKeyCommunication()->parent(), &graph);
    QCOMPARE(graph.findChildren<VxKeyCommunication *>().size(), 1);
}

VX_TEST_MAIN(TestKeyCommunication)
#include "tst_vxkeycommunication.moc"
