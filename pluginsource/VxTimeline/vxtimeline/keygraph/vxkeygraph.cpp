#include "vxtimeline/keygraph/vxkeygraph.h"

#include "vxtimeline/keygraph/vxfloatchannel.h"
#include "vxtimeline/keys/vxkeycommunication.h"

#include <QtCore/QHash>
#include <QtCore/QItemSelectionModel>
#include <QtCore/QPointer>
#include <QtCore/QSet>
#include <utility>
#include <vxcore/vxapp.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxpane.h>
#include <vxcore/vxparameterspane.h>
#include <vxcore/vxpropertyhelper.h>
#include <vxcore/vxpropertylistitemmodel.h>
#include <vxcore/vxpropertylistnode.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxsidenavpropertylistview.h>

class VxKeyGraph::Private
{
public:
    explicit Private(VxKeyGraph *graph)
        : q(graph)
    {
    }

    void addChannel(VxProperty *property);
    void addNode(const VxPropertyListNode *node);
    void readKeysOf(const VxProperty *property);
    void clearChannels();
    void clearAndAnnounce();
    void beginRebuild();
    void endRebuild();
    void announce();
    void connectParametersPane();
    void disconnectParametersPane();

    VxKeyGraph *const q;
    QVector<VxKeyGraphChannel *> channels;
    QHash<const VxProperty *, QVector<VxKeyGraphChannel *>> channelsByHolder;
    quint64 indexedHolders = 0;     // see VxProperty::latestHolderRevision(); 0: to be indexed
    QSet<const VxProperty *> shown; // the channels' properties
    QVector<QMetaObject::Connection> connections; // those of all channels
    // During a rebuild: the keys of the former channels, with their selection.
    QHash<const VxProperty *, QVector<VxKeyGraphKey>> formerKeys;
    QPointer<VxSideNavPropertyListView> parametersView;
    bool dopesheetConnected = false;
    bool monitoring = false;
    VxKeyCommunication *keyBus = nullptr;
};

void VxKeyGraph::Private::addChannel(VxProperty *property)
{
    auto *floatProperty = qobject_cast<VxFloatProperty *>(property);
    if (!floatProperty || shown.contains(property))
        return;
    shown.insert(property);
    connections +=
        connect(property, &VxProperty::propertyDeleted, q, &VxKeyGraph::handlePropertyDeleted);
    // Not by QObject::sender(), which searches all connections of the graph at every report.
    const auto follow = [this](const VxProperty *changed) {
        connections += connect(changed, &VxProperty::valueChanged, q,
                               [this, changed] { readKeysOf(changed); });
    };
    follow(property);
    VxProperty *holder = property->getKeyHolder();
    if (holder != property)
        follow(holder);
    if (VxElement *owner = property->getOwner()) {
        connections +=
            connect(owner, &VxElement::propertyRemoved, q, &VxKeyGraph::handlePropertyDeleted);
        if (VxPropertyHelper::getNode(property))
            connections += connect(owner, &VxElement::aboutToBeRemoved, q,
                                   &VxKeyGraph::handlePropertyAboutToBeRemoved);
    }
    indexedHolders = 0;
    channels.append(new VxFloatChannel(floatProperty, keyBus));
    channels.last()->restoreKeyCache(formerKeys.value(property));
}

void VxKeyGraph::Private::addNode(const VxPropertyListNode *node)
{
    if (!node)
        return;
    for (VxProperty *property : node->getProperties())
        addChannel(property);
}

// The list is emptied first: slots that run while channels are deleted do not find them.
void VxKeyGraph::Private::clearChannels()
{
    const QVector<VxKeyGraphChannel *> former = std::exchange(channels, {});
    shown.clear();
    channelsByHolder.clear();
    indexedHolders = 0;
    for (const QMetaObject::Connection &connection : std::exchange(connections, {}))
        QObject::disconnect(connection);
    qDeleteAll(former);
}

void VxKeyGraph::Private::clearAndAnnounce()
{
    clearChannels();
    announce();
}

// A property shown before and after keeps its selection: the dope sheet keeps it, too.
void VxKeyGraph::Private::beginRebuild()
{
    for (const VxKeyGraphChannel *channel : qAsConst(channels))
        formerKeys.insert(channel->getProperty(), channel->getKeyCache());
    clearChannels();
}

void VxKeyGraph::Private::endRebuild()
{
    formerKeys.clear();
    announce();
}

void VxKeyGraph::Private::announce()
{
    Q_EMIT q->channelsChanged();
    QVector<VxProperty *> properties;
    properties.reserve(channels.size());
    for (const VxKeyGraphChannel *channel : qAsConst(channels))
        properties.append(channel->getProperty());
    Q_EMIT q->channelListChanged(properties);
}

void VxKeyGraph::Private::connectParametersPane()
{
    if (!parametersView) {
        const auto *pane =
            qobject_cast<VxParametersPane *>(vxFindPane(QStringLiteral("VxParametersPane")));
        parametersView = pane ? pane->getPropertyListView() : nullptr;
    }
    if (parametersView && parametersView->selectionModel())
        connect(parametersView->selectionModel(), &QItemSelectionModel::selectionChanged, q,
                &VxKeyGraph::handleSelectionChanged, Qt::UniqueConnection);
}

void VxKeyGraph::Private::disconnectParametersPane()
{
    if (parametersView && parametersView->selectionModel())
        disconnect(parametersView->selectionModel(), &QItemSelectionModel::selectionChanged, q,
                   &VxKeyGraph::handleSelectionChanged);
    parametersView = nullptr;
}

VxKeyGraph::VxKeyGraph(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<Private>(this))
{
    connect(vxScene, &VxScene::primarySelectionChanged, this,
            &VxKeyGraph::handlePrimarySelectionChanged);
    connect(vxApp, &VxApp::starting, this, &VxKeyGraph::handleAppStarting);
    // The pane around a graph created late is not yet registered at this point.
    if (vxApp->isStarted())
        QMetaObject::invokeMethod(this, &VxKeyGraph::handleAppStarting, Qt::QueuedConnection);
}

VxKeyGraph::~VxKeyGraph()
{
    d->clearChannels();
}

void VxKeyGraph::setKeyCommunication(VxKeyCommunication *peer)
{
    delete d->keyBus;
    d->keyBus = new VxKeyCommunication(this);
    if (peer)
        VxKeyCommunication::connectEnds(peer, d->keyBus);
    connect(d->keyBus, &VxKeyCommunication::received, this, &VxKeyGraph::handleKeyMessage);
    for (VxKeyGraphChannel *channel : qAsConst(d->channels))
        channel->setKeyCommunication(d->keyBus);
}

VxKeyCommunication *VxKeyGraph::getKeyCommunication() const
{
    return d->keyBus;
}

void VxKeyGraph::setMonitorParametersPane(bool onOff)
{
    d->monitoring = onOff;
    if (onOff)
        d->connectParametersPane();
    else
        d->disconnectParametersPane();
}

// By the signal's name: the graph may not include the pane's class.
void VxKeyGraph::connectDopesheet()
{
    if (d->dopesheetConnected)
        return;
    const VxPane *pane = vxFindPane(QStringLiteral("VxTimePane"));
    if (!pane)
        return;
    d->dopesheetConnected =
        connect(pane, SIGNAL(dopesheetPropertyListChanged(QVector<VxProperty *>, bool)), this,
                SLOT(handleDopesheetPropertyListChanged(QVector<VxProperty *>, bool)));
}

QVector<VxKeyGraphChannel *> VxKeyGraph::getChannels() const
{
    return d->channels;
}

QVector<VxKeyGraphChannel *> VxKeyGraph::getChannelsOf(const VxProperty *holder) const
{
    if (d->indexedHolders != VxProperty::latestHolderRevision()) {
        d->channelsByHolder.clear();
        for (VxKeyGraphChannel *channel : qAsConst(d->channels))
            d->channelsByHolder[channel->getProperty()->getKeyHolder()].append(channel);
        d->indexedHolders = VxProperty::latestHolderRevision();
    }
    return d->channelsByHolder.value(holder);
}

void VxKeyGraph::handlePrimarySelectionChanged(VxNode *node)
{
    Q_UNUSED(node)
}

void VxKeyGraph::Private::readKeysOf(const VxProperty *property)
{
    for (const VxKeyGraphChannel *channel : q->getChannelsOf(property->getKeyHolder()))
        channel->getKeyCache();
    Q_EMIT q->channelsChanged();
}

// Selected keys are identified by their times. The channels read them at every report, as the rows
// of the dope sheet do: a key that leaves its time and returns later is deselected in both.
void VxKeyGraph::handleValueChanged(const VxTimeRange &range)
{
    Q_UNUSED(range)
    if (const auto *property = qobject_cast<const VxProperty *>(sender()))
        d->readKeysOf(property);
    else
        Q_EMIT channelsChanged();
}

void VxKeyGraph::handleAppStarting()
{
    connectDopesheet();
    if (d->monitoring)
        d->connectParametersPane();
}

void VxKeyGraph::handleCurrentRowChanged(const QModelIndex &current, const QModelIndex &previous)
{
    Q_UNUSED(previous)
    if (!d->parametersView)
        return;
    d->beginRebuild();
    const VxPropertyListItemModel *model = d->parametersView->getPropertyListModel();
    if (model && current.isValid())
        d->addNode(model->getPropertyListNode(current));
    d->endRebuild();
}

void VxKeyGraph::handleSelectionChanged()
{
    if (!d->parametersView)
        return;
    d->beginRebuild();
    const VxPropertyListItemModel *model = d->parametersView->getPropertyListModel();
    const QItemSelectionModel *selection = d->parametersView->selectionModel();
    for (int row = 0; model && selection && row < model->rowCount(); ++row) {
        if (selection->isRowSelected(row, QModelIndex()))
            d->addNode(model->getPropertyListNode(model->index(row, 0)));
    }
    d->endRebuild();
}

void VxKeyGraph::handleDopesheetPropertyListChanged(QVector<VxProperty *> propList, bool add)
{
    if (!d->dopesheetConnected)
        return;
    if (!add)
        d->beginRebuild();
    for (VxProperty *property : qAsConst(propList))
        d->addChannel(property);
    d->endRebuild();
}

void VxKeyGraph::handlePropertyDeleted(VxProperty *prop)
{
    Q_UNUSED(prop)
    d->clearAndAnnounce();
}

void VxKeyGraph::handlePropertyAboutToBeRemoved()
{
    d->clearAndAnnounce();
}

void VxKeyGraph::handleKeyMessage(const VxKeyMessage &message)
{
    for (VxKeyGraphChannel *channel : qAsConst(d->channels))
        channel->applyKeyMessage(message);
    Q_EMIT receivedKeyMessage(message);
}
