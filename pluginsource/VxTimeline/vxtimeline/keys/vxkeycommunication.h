#ifndef VXKEYCOMMUNICATION_H
#define VXKEYCOMMUNICATION_H

#include "vxtimeline/keys/vxkeymessage.h"

#include <QtCore/QObject>

/// One end of the message bus over which the dope sheet and the key graph exchange key selections.
///
/// Each side owns an end; an end's `sent` is connected to the other's `private_received`. Delivery
/// is direct, so replies of the other side arrive while the sender is still sending: the sender
/// mutes its end for that time, so that its own message is never echoed.
class VxKeyCommunication : public QObject
{
    Q_OBJECT
public:
    explicit VxKeyCommunication(QObject *parent = nullptr);

    bool isMuted() const;
    /// Returns the previous value, for senders that restore it.
    bool setMuted(bool muted);

    /// True when the end is connected: otherwise the sender can save building an expensive message.
    bool isConnected() const;
    /// Sends a message with this end muted, and restores the muting afterwards.
    void send(const VxKeyMessage &message);

    /// Connects two ends both ways. Repeating it for the same pair makes no second connection.
    static void connectEnds(VxKeyCommunication *one, VxKeyCommunication *other);

Q_SIGNALS:
    /// A message from the other side, for this side's listeners.
    void received(const VxKeyMessage &message);
    /// A message from this side, for the other side.
    void sent(const VxKeyMessage &message);

public Q_SLOTS:
    /// Passes a message on to this side's listeners; drops it while muted.
    void private_received(const VxKeyMessage &message);

private:
    bool m_muted = false;
};

#endif
