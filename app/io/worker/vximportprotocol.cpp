#include "io/worker/vximportprotocol.h"

#include <QJsonDocument>
#include <QtEndian>

namespace {

constexpr int HeaderSize = 5;
/// Scenes of more bytes than this are refused.
constexpr quint32 MaxLength = 1024u * 1024u * 1024u;

bool isKind(char kind)
{
    using namespace VxImportProtocol;
    return kind == Progress || kind == Report || kind == Scene || kind == Error;
}

} // namespace

QByteArray VxImportProtocol::message(char kind, const QByteArray &bytes)
{
    QByteArray message(HeaderSize, kind);
    qToLittleEndian(quint32(bytes.size()), message.data() + 1);
    return message + bytes;
}

QByteArray VxImportProtocol::message(char kind, const QJsonObject &object)
{
    return message(kind, QJsonDocument(object).toJson(QJsonDocument::Compact));
}

bool VxImportProtocol::Parser::next(char *kind, QByteArray *bytes)
{
    if (m_isBroken || m_bytes.size() - m_start < HeaderSize)
        return false;
    const quint32 length = qFromLittleEndian<quint32>(m_bytes.constData() + m_start + 1);
    *kind = m_bytes.at(m_start);
    m_isBroken = !isKind(*kind) || length > MaxLength;
    if (m_isBroken || quint32(m_bytes.size() - m_start - HeaderSize) < length)
        return false;
    *bytes = m_bytes.mid(m_start + HeaderSize, int(length));
    m_start += HeaderSize + int(length);
    if (m_start == m_bytes.size()) {
        m_bytes.clear();
        m_start = 0;
    }
    return true;
}
