#ifndef VXKEYGRAPH_H
#define VXKEYGRAPH_H

#include <QtCore/QModelIndex>
#include <QtCore/QObject>
#include <QtCore/QVector>
#include <memory>
#include <vxcore/vxproperty.h>

#include "vxtimeline/keys/vxkeymessage.h"

class VxKeyCommunication;
class VxKeyGraphChannel;
class VxNode;

// Decides which properties the key graph shows: one channel for each.
//
// The list follows what is selected in the dope sheet and, when wanted, in the Parameters pane.
// The graph has an end of the key message bus and hands what it hears to its channels.
//
// The order and argument names of signals and slots are seen by scripts: keep them.
class VxKeyGraph : public QObject
{
    Q_OBJECT
public:
    explicit VxKeyGraph(QObject *parent = nullptr);
    ~VxKeyGraph() override;

    // Makes an end of its own for the line to the peer, in the place of any former one.
    void setKeyCommunication(VxKeyCommunication *peer);
    VxKeyCommunication *getKeyCommunication() const;

    // Whether what is selected in the Parameters pane is shown too.
    void setMonitorParametersPane(bool onOff);

    // The channels in their order; owned by the graph.
    QVector<VxKeyGraphChannel *> getChannels() const;

Q_SIGNALS:
    void channelsChanged();
    void channelListChanged(QVector<VxProperty *> propList);
    void receivedKeyMessage(const VxKeyMessage &message);

public Q_SLOTS:
    void handlePrimarySelectionChanged(VxNode *node);
    void handleValueChanged(const VxTimeRange &range);
    void handleAppStarting();
    void handleCurrentRowChanged(const QModelIndex &current, const QModelIndex &previous);
    void handleSelectionChanged();
    void handleDopesheetPropertyListChanged(QVector<VxProperty *> propList, bool add);
    void handlePropertyDeleted(VxProperty *prop);
    void handlePropertyAboutToBeRemoved();
    void handleKeyMessage(const VxKeyMessage &message);

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
