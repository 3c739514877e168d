#include "keygraphtestbase.h"
#include "testing/vxtestmain.h"
#include "vxtimeline/keygraph/vxkeygraph.h"
#include "vxtimeline/pane/vxtimepane.h"

#include <QtCore/QMetaMethod>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxobject.h>
#include <vxcore/vxpanemgr.h>
#include <vxcore/vxparameterspane.h>
#include <vxcore/vxpropertylistitemmodel.h>
#include <vxcore/vxsidenavpropertylistview.h>
#include <vxcore/vxundostackhold.h>

using namespace KeyDrawing;

class TestKeyGraph : public QObject, private KeyGraphTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void signalsAndSlotsInOrder();
    void listsBeforeTheStartAreIgnored();
    void aGraphMadeLateListens();
    void startingTwiceConnectsOnce();
    void listsReplaceOrAdd();
    void noChannelTwice();
    void selectionOutlivesARebuild();
    void othersThanFloatsAreIgnored();
    void changesInvalidateAllChannels();
    void changesOfTheKeyHolderArrive();
    void removedPropertyLeavesTheGraph_data();
    void removedPropertyLeavesTheGraph();
    void connectionsAreUndone();
    void messagesReachEveryChannel();
    void messagesForOthersChangeNothing();
    void aNewPeerReplacesTheFormer();
    void noEcho();

    void followsTheParametersPane();
    void followsTheCurrentRow();
    void monitoringEnds();
    void monitoringStartsWhenThePaneAppears();

private:
    QVector<VxProperty *> shown() const;
    VxFloatProperty *x() const { return node->getXPosControl(); }
    VxFloatProperty *y() const { return node->getYPosControl(); }

    std::unique_ptr<VxMainWindow> m_window;
    VxTimePane *m_pane = nullptr;
    std::unique_ptr<VxKeyGraph> m_graph;
};

void TestKeyGraph::init()
{
    setUp();
    m_window = std::make_unique<VxMainWindow>();
    m_pane = new VxTimePane;
    m_window->getPaneMgr()->addPane(m_pane);
    m_graph = std::make_unique<VxKeyGraph>();
}

void TestKeyGraph::cleanup()
{
    m_graph.reset();
    m_window.reset();
    tearDown();
}

QVector<VxProperty *> TestKeyGraph::shown() const
{
    QVector<VxProperty *> properties;
    for (const VxKeyGraphChannel *channel : m_graph->getChannels())
        properties += channel->getProperty();
    return properties;
}

void TestKeyGraph::signalsAndSlotsInOrder()
{
    const QMetaObject &meta = VxKeyGraph::staticMetaObject;
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        methods += QString::fromLatin1(meta.method(i).methodSignature());
    QCOMPARE(
        methods,
        QStringList({"channelsChanged()", "channelListChanged(QVector<VxProperty*>)",
                     "receivedKeyMessage(VxKeyMessage)", "handlePrimarySelectionChanged(VxNode*)",
                     "handleValueChanged(VxTimeRange)", "handleAppStarting()",
                     "handleCurrentRowChanged(QModelIndex,QModelIndex)", "handleSelectionChanged()",
                     "handleDopesheetPropertyListChanged(QVector<VxProperty*>,bool)",
                     "handlePropertyDeleted(VxProperty*)", "handlePropertyAboutToBeRemoved()",
                     "handleKeyMessage(VxKeyMessage)"}));
}

void TestKeyGraph::listsBeforeTheStartAreIgnored()
{
    QSignalSpy changed(m_graph.get(), &VxKeyGraph::channelsChanged);
    m_graph->handleDopesheetPropertyListChanged({x()}, false);
    Q_EMIT m_pane->dopesheetPropertyListChanged({x()}, false);
    QVERIFY(shown().isEmpty());
    QCOMPARE(changed.size(), 0);
    vxApp->start();
    Q_EMIT m_pane->dopesheetPropertyListChanged({x()}, false);
    QCOMPARE(shown(), QVector<VxProperty *>{x()});
}

void TestKeyGraph::aGraphMadeLateListens()
{
    vxApp->start();
    VxKeyGraph late;
    QCoreApplication::processEvents();
    Q_EMIT m_pane->dopesheetPropertyListChanged({x()}, false);
    QCOMPARE(late.getChannels().size(), 1);
}

void TestKeyGraph::startingTwiceConnectsOnce()
{
    vxApp->start();
    m_graph->handleAppStarting();
    QSignalSpy changed(m_graph.get(), &VxKeyGraph::channelsChanged);
    Q_EMIT m_pane->dopesheetPropertyListChanged({x()}, false);
    QCOMPARE(changed.size(), 1);
}

void TestKeyGraph::listsReplaceOrAdd()
{
    vxApp->start();
    QSignalSpy lists(m_graph.get(), &VxKeyGraph::channelListChanged);
    m_graph->handleDopesheetPropertyListChanged({y()}, false);
    m_graph->handleDopesheetPropertyListChanged({x()}, true);
    QCOMPARE(shown(), QVector<VxProperty *>({y(), x()}));
    QCOMPARE(lists.last().at(0).value<QVector<VxProperty *>>(), shown());
    m_graph->handleDopesheetPropertyListChanged({x()}, false);
    QCOMPARE(shown(), QVector<VxProperty *>{x()});
    QCOMPARE(lists.size(), 3);
}

void TestKeyGraph::noChannelTwice()
{
    vxApp->start();
    m_graph->handleDopesheetPropertyListChanged({x(), x(), y()}, false);
    m_graph->handleDopesheetPropertyListChanged({y()}, true);
    QCOMPARE(shown(), QVector<VxProperty *>({x(), y()}));
}

// Another row selected beside: the keys of the first one stay selected, here as in the dope sheet.
void TestKeyGraph::selectionOutlivesARebuild()
{
    vxApp->start();
    makeKeys(x(), "a.b.c");
    makeKeys(y(), "a.b.c");
    m_graph->handleDopesheetPropertyListChanged({x()}, false);
    select(*m_graph->getChannels().at(0), {0, 2});
    m_graph->handleDopesheetPropertyListChanged({y(), x()}, false);
    QCOMPARE(selectedOf(*m_graph->getChannels().at(0)), QVector<int>());
    QCOMPARE(selectedOf(*m_graph->getChannels().at(1)), QVector<int>({0, 2}));
    m_graph->handleDopesheetPropertyListChanged({y()}, false);
    m_graph->handleDopesheetPropertyListChanged({x()}, false);
    QCOMPARE(selectedOf(*m_graph->getChannels().at(0)), QVector<int>());
}

void TestKeyGraph::othersThanFloatsAreIgnored()
{
    vxApp->start();
    auto *integer = new VxIntProperty(QStringLiteral("Count"));
    node->addProperty(integer, QString());
    m_graph->handleDopesheetPropertyListChanged({x()}, false);
    QSignalSpy changed(m_graph.get(), &VxKeyGraph::channelsChanged);
    QSignalSpy lists(m_graph.get(), &VxKeyGraph::channelListChanged);
    m_graph->handleDopesheetPropertyListChanged({integer, nullptr}, false);
    QVERIFY(shown().isEmpty());
    QCOMPARE(changed.size(), 1);
    QCOMPARE(lists.size(), 1);
}

void TestKeyGraph::changesInvalidateAllChannels()
{
    vxApp->start();
    makeKeys(x(), "a.b");
    m_graph->handleDopesheetPropertyListChanged({x(), y()}, false);
    QCOMPARE(m_graph->getChannels().at(0)->getKeyCache().size(), 2);
    QSignalSpy changed(m_graph.get(), &VxKeyGraph::channelsChanged);
    makeKeys(x(), ".c");
    QVERIFY(changed.size() > 0);
    QCOMPARE(m_graph->getChannels().at(0)->getKeyCache().size(), 3);
    QCOMPARE(m_graph->getChannels().at(0)->getKeyCache().at(1).time, 160);
}

void TestKeyGraph::changesOfTheKeyHolderArrive()
{
    vxApp->start();
    VxFloatProperty *alias = addProperty(QStringLiteral("Alias"));
    VxFloatProperty *second = addProperty(QStringLiteral("Second"));
    QVERIFY(second->setAliasedProperty(x()));
    QVERIFY(alias->setAliasedProperty(second));
    m_graph->handleDopesheetPropertyListChanged({alias}, false);
    QSignalSpy changed(m_graph.get(), &VxKeyGraph::channelsChanged);
    makeKeys(x(), "a.b");
    QVERIFY(changed.size() > 0);
    QCOMPARE(m_graph->getChannels().at(0)->getKeyCache().size(), 2);
}

void TestKeyGraph::removedPropertyLeavesTheGraph_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("the property is removed from its owner") << 0;
    QTest::newRow("another property of its owner is removed") << 1;
    QTest::newRow("the node leaves the scene") << 2;
    QTest::newRow("an ancestor leaves the scene") << 3;
    QTest::newRow("the object with the property is replaced") << 4;
    QTest::newRow("the scene is cleared") << 5;
    QTest::newRow("a property without owner is destroyed") << 6;
    QTest::newRow("the node is removed and kept for undo") << 7;
}

void TestKeyGraph::removedPropertyLeavesTheGraph()
{
    QFETCH(int, way);
    vxApp->start();
    VxNode *parent = node;
    node = addNode(QStringLiteral("Thigh"), parent);
    auto *object = new VxObject(QStringLiteral("Mesh"));
    node->setObject(object);
    auto *morph = new VxFloatProperty(QStringLiteral("Morph"));
    object->addProperty(morph, QString());
    auto stray = std::make_unique<VxFloatProperty>(QStringLiteral("Stray"));
    VxFloatProperty *shownOne = addProperty(QStringLiteral("Shown"));
    VxFloatProperty *hiddenOne = addProperty(QStringLiteral("Other"));
    m_graph->handleDopesheetPropertyListChanged({shownOne, morph, stray.get()}, false);
    QCOMPARE(shown().size(), 3);
    QSignalSpy lists(m_graph.get(), &VxKeyGraph::channelListChanged);
    switch (way) {
    case 0:
        node->removeProperty(shownOne);
        break;
    case 1:
        node->removeProperty(hiddenOne);
        break;
    case 2:
        vxScene->removeNode(node);
        break;
    case 3:
        vxScene->removeNode(parent);
        break;
    case 4:
        node->setObject(nullptr);
        break;
    case 5:
        vxScene->clear();
        break;
    case 6:
        stray.reset();
        break;
    default: {
        VxUndoStackHold hold;
        vxScene->removeNode(node);
        hold.accept(QStringLiteral("Remove Node"));
    }
    }
    QVERIFY(shown().isEmpty());
    QVERIFY(lists.size() > 0);
    QVERIFY(lists.last().at(0).value<QVector<VxProperty *>>().isEmpty());
}

void TestKeyGraph::connectionsAreUndone()
{
    vxApp->start();
    VxFloatProperty *alias = addProperty(QStringLiteral("Alias"));
    alias->setAliasedProperty(y());
    m_graph->handleDopesheetPropertyListChanged({x(), alias}, false);
    m_graph->handleDopesheetPropertyListChanged({}, false);
    QSignalSpy changed(m_graph.get(), &VxKeyGraph::channelsChanged);
    makeKeys(x(), "a.b");
    makeKeys(y(), "a.b");
    node->removeProperty(alias);
    vxScene->removeNode(node);
    QCOMPARE(changed.size(), 0);
}

void TestKeyGraph::messagesReachEveryChannel()
{
    vxApp->start();
    makeKeys(x(), "a.b");
    makeKeys(y(), "a.b");
    VxKeyCommunication peer;
    m_graph->setKeyCommunication(&peer);
    m_graph->handleDopesheetPropertyListChanged({x(), y()}, false);
    QSignalSpy received(m_graph.get(), &VxKeyGraph::receivedKeyMessage);
    VxKeyMessage message;
    message.selectedKeys[x()] = {0};
    message.selectedKeys[y()] = {1};
    peer.send(message);
    QCOMPARE(selectedOf(*m_graph->getChannels().at(0)), QVector<int>{0});
    QCOMPARE(selectedOf(*m_graph->getChannels().at(1)), QVector<int>{1});
    QCOMPARE(received.size(), 1);
    message = VxKeyMessage();
    message.clearSelection = true;
    peer.send(message);
    QVERIFY(selectedOf(*m_graph->getChannels().at(0)).isEmpty());
    QVERIFY(selectedOf(*m_graph->getChannels().at(1)).isEmpty());
}

void TestKeyGraph::messagesForOthersChangeNothing()
{
    vxApp->start();
    makeKeys(x(), "a.b");
    m_graph->handleDopesheetPropertyListChanged({x()}, false);
    m_graph->getChannels().at(0)->selectKey(1, true);
    VxKeyMessage message;
    message.selectedKeys[y()] = {0};
    message.deselectedKeys[y()] = {1};
    m_graph->handleKeyMessage(message);
    QCOMPARE(selectedOf(*m_graph->getChannels().at(0)), QVector<int>{1});
}

void TestKeyGraph::aNewPeerReplacesTheFormer()
{
    vxApp->start();
    makeKeys(x(), "a.b");
    VxKeyCommunication first, second;
    m_graph->setKeyCommunication(&first);
    m_graph->handleDopesheetPropertyListChanged({x()}, false);
    m_graph->setKeyCommunication(&second);
    QSignalSpy received(m_graph.get(), &VxKeyGraph::receivedKeyMessage);
    first.send(VxKeyMessage());
    QCOMPARE(received.size(), 0);
    second.send(VxKeyMessage());
    QCOMPARE(received.size(), 1);
    // A channel from before speaks over the new end.
    QSignalSpy receivedByFirst(&first, &VxKeyCommunication::received);
    QSignalSpy receivedBySecond(&second, &VxKeyCommunication::received);
    m_graph->getChannels().at(0)->setKeySelected(0, true);
    QCOMPARE(receivedByFirst.size(), 0);
    QCOMPARE(receivedBySecond.size(), 1);
}

void TestKeyGraph::noEcho()
{
    vxApp->start();
    makeKeys(x(), "a.b");
    VxKeyCommunication peer;
    m_graph->setKeyCommunication(&peer);
    m_graph->handleDopesheetPropertyListChanged({x()}, false);
    connect(&peer, &VxKeyCommunication::received, &peer,
            [&](const VxKeyMessage &message) { peer.send(message); });
    QSignalSpy received(m_graph.get(), &VxKeyGraph::receivedKeyMessage);
    m_graph->getChannels().at(0)->setKeySelected(0, true);
    QCOMPARE(received.size(), 0);
}

void TestKeyGraph::followsTheParametersPane()
{
    auto *parameters = new VxParametersPane;
    m_window->getPaneMgr()->addPane(parameters);
    vxScene->setPrimarySelection(node);
    m_graph->setMonitorParametersPane(true);
    m_graph->setMonitorParametersPane(true);
    VxSideNavPropertyListView *view = parameters->getPropertyListView();
    const VxPropertyListItemModel *model = view->getPropertyListModel();
    QSignalSpy changed(m_graph.get(), &VxKeyGraph::channelsChanged);
    const auto selectRow = [&](const VxProperty *property) {
        view->selectionModel()->select(model->findProperty(property),
                                       QItemSelectionModel::Select | QItemSelectionModel::Rows);
    };
    selectRow(y());
    selectRow(x());
    QCOMPARE(shown(), QVector<VxProperty *>({x(), y()}));
    QCOMPARE(changed.size(), 2);
    view->clearSelection();
    QVERIFY(shown().isEmpty());
}

void TestKeyGraph::followsTheCurrentRow()
{
    m_graph->handleCurrentRowChanged(QModelIndex(), QModelIndex());
    auto *parameters = new VxParametersPane;
    m_window->getPaneMgr()->addPane(parameters);
    vxScene->setPrimarySelection(node);
    m_graph->setMonitorParametersPane(true);
    const VxPropertyListItemModel *model =
        parameters->getPropertyListView()->getPropertyListModel();
    m_graph->handleCurrentRowChanged(model->findProperty(x()), QModelIndex());
    QCOMPARE(shown(), QVector<VxProperty *>{x()});
    QSignalSpy lists(m_graph.get(), &VxKeyGraph::channelListChanged);
    m_graph->handleCurrentRowChanged(QModelIndex(), QModelIndex());
    QVERIFY(shown().isEmpty());
    QCOMPARE(lists.size(), 1);
}

void TestKeyGraph::monitoringEnds()
{
    auto *parameters = new VxParametersPane;
    m_window->getPaneMgr()->addPane(parameters);
    vxScene->setPrimarySelection(node);
    m_graph->setMonitorParametersPane(true);
    m_graph->setMonitorParametersPane(false);
    parameters->getPropertyListView()->selectAll();
    QVERIFY(shown().isEmpty());
    m_graph->handleSelectionChanged();
    QVERIFY(shown().isEmpty());
    m_graph->setMonitorParametersPane(true);
    delete parameters;
    m_graph->handleSelectionChanged();
    QVERIFY(shown().isEmpty());
}

void TestKeyGraph::monitoringStartsWhenThePaneAppears()
{
    m_graph->setMonitorParametersPane(true);
    auto *parameters = new VxParametersPane;
    m_window->getPaneMgr()->addPane(parameters);
    vxScene->setPrimarySelection(node);
    vxApp->start();
    parameters->getPropertyListView()->selectAll();
    QVERIFY(shown().contains(x()));
}

VX_TEST_MAIN(TestKeyGraph)
#include "tst_vxkeygraph.moc"
