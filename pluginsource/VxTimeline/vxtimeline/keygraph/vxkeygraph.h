#ifndef VXKEYGRAPH_H
#define VXKEYGRAPH_H

#include "vxtimeline/keys/vxkeymessage.h"

#include <QtCore/QModelIndex>
#include <QtCore/QObject>
#include <QtCore/QVector>
#include <memory>
#include <vxcore/vxproperty.h>

class VxKeyCommunication;
class VxKeyGraphChannel;
class VxNode;

/// The list of channels in the key graph, one for each shown property.
///
/// The list follows the selection in the dope sheet and, if enabled, in the Parameters pane; only
/// float properties are included, each once. Channels do not keep their properties alive, so the
/// whole list is cleared as soon as one of the properties, or an element that owns one, is about to
/// be destroyed. The graph has an end of the key message bus and forwards messages to its channels.
///
/// The order and argument names of signals and slots are seen by scripts: keep them.
class VxKeyGraph : public QObject
{
    Q_OBJECT
public:
    explicit VxKeyGraph(QObject *parent = nullptr);
    ~VxKeyGraph() override;

    /// Creates its own end of the bus to the peer, replacing any former one.
    void setKeyCommunication(VxKeyCommunication *peer);
    VxKeyCommunication *getKeyCommunication() const;

    /// Whether the selection of the Parameters pane is shown, too. When that pane does not exist
    /// yet it is looked up again once the application starts.
    void setMonitorParametersPane(bool onOff);

    /// Starts to follow the dope sheet of the pane "VxTimePane": automatic when the application
    /// starts; until then lists from the dope sheet are ignored.
    void connectDopesheet();

    /// The channels in their order; owned by the graph.
    QVector<VxKeyGraphChannel *> getChannels() const;
    /// Those that show the keys of a holder: its own, and those of its aliases.
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
