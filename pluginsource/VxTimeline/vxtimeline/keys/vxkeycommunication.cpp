#include "vxtimeline/keys/vxkeycommunication.h"

#include <QtCore/QMetaMethod>
#include <utility>

VxKeyCommunication::VxKeyCommunication(QObject *parent)
    : QObject(parent)
{
    static const int metaType = qRegisterMetaType<VxKeyMessage>();
    Q_UNUSED(metaType)
}

bool VxKeyCommunication::isMuted() const
{
    return m_muted;
}

bool VxKeyCommunication::setMuted(bool muted)
{
    return std::exchange(m_muted, muted);
}

bool VxKeyCommunication::isConnected() const
{
    static const QMetaMethod signal = QMetaMethod::fromSignal(&VxKeyCommunication::sent);
    return isSignalConnected(signal);
}

void VxKeyCommunication::send(const VxKeyMessage &message)
{
    const bool wasMuted = setMuted(true);
    Q_EMIT sent(message);
    setMuted(wasMuted);
}

void VxKeyCommunication::connectEnds(VxKeyCommunication *one, VxKeyCommunication *other)
{
    connect(one, &VxKeyCommunication::sent, other, &VxKeyCommunication::private_received,
            Qt::UniqueConnection);
    connect(other, &VxKeyCommunication::sent, one, &VxKeyCommunication::private_received,
            Qt::UniqueConnection);
}

void VxKeyCommunication::private_received(const VxKeyMessage &message)
{
    if (!m_muted)
        Q_EMIT received(message);
}
