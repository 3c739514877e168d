#include "vxtimeline/keygraph/vxkeygraph.h"

#include <vxcore/vxapp.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxstyle.h>

#include "vxtimeline/keys/vxkeycommunication.h"

class VxKeyGraph::Private
{
public:
    QVector<VxKeyGraphChannel *> channels;
    VxKeyCommunication *keyBus = nullptr;
};

VxKeyGraph::VxKeyGraph(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<Private>())
{
    connect(vxScene, &VxScene::primarySelectionChanged, this,
            &VxKeyGraph::handlePrimarySelectionChanged);
    connect(vxApp, &VxApp::starting, this, &VxKeyGraph::handleAppStarting);
}

VxKeyGraph::~VxKeyGraph() = default;

void VxKeyGraph::setKeyCommunication(VxKeyCommunication *peer)
{
    delete d->keyBus;
    d->keyBus = new VxKeyCommunication(this);
    if (peer)
        VxKeyCommunication::connectEnds(peer, d->keyBus);
    connect(d->keyBus, &VxKeyCommunication::received, this, &VxKeyGraph::handleKeyMessage);
}

VxKeyCommunication *VxKeyGraph::getKeyCommunication() const
{
    return d->keyBus;
}

void VxKeyGraph::setMonitorParametersPane(bool onOff)
{
    Q_UNUSED(onOff)
}

QVector<VxKeyGraphChannel *> VxKeyGraph::getChannels() const
{
    return d->channels;
}

void VxKeyGraph::handlePrimarySelectionChanged(VxNode *node)
{
    Q_UNUSED(node)
}

void VxKeyGraph::handleValueChanged(const VxTimeRange &range)
{
    Q_UNUSED(range)
    Q_EMIT channelsChanged();
}

void VxKeyGraph::handleAppStarting() {}

void VxKeyGraph::handleCurrentRowChanged(const QModelIndex &current, const QModelIndex &previous)
{
    Q_UNUSED(current)
    Q_UNUSED(previous)
}

void VxKeyGraph::handleSelectionChanged() {}

void VxKeyGraph::handleDopesheetPropertyListChanged(QVector<VxProperty *> propList, bool add)
{
    Q_UNUSED(propList)
    Q_UNUSED(add)
}

void VxKeyGraph::handlePropertyDeleted(VxProperty *prop)
{
    Q_UNUSED(prop)
}

void VxKeyGraph::handlePropertyAboutToBeRemoved() {}

void VxKeyGraph::handleKeyMessage(const VxKeyMessage &message)
{
    Q_EMIT receivedKeyMessage(message);
}
