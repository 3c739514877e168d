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
// The list follows what is selected in the dope sheet and, when wanted, in the Parameters pane;
// only float properties are taken, each once. Channels have no hold on their properties, so the
// whole list goes as soon as one of the properties, or an element that owns one, is about to go.
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

    // Whether what is selected in the Parameters pane is shown, too. When that pane does not exist
    // yet it is looked for again once the application starts.
    void setMonitorParametersPane(bool onOff);
    bool isMonitoringParametersPane() const;

    // Begins and ends to follow the dope sheet of the pane "VxTimePane". The first happens by
    // itself when the application starts; until then lists from the dope sheet are ignored.
    void connectDopesheet();
    void disconnectDopesheet();

    // The channels in their order; owned by the graph.
    QVector<VxKeyGraphChannel *> getChannels() const;
    // Those that show the keys of a holder: its own, and those of its aliases.
    QVector<VxKeyGraphChannel *> getChannelsOf(const VxProperty *holder) const;

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
