#ifndef VXIMPORTPROTOCOL_H
#define VXIMPORTPROTOCOL_H

#include <QByteArray>
#include <QJsonObject>

/// The messages that the importer process sends to the program over a pipe: a kind (one byte), a
/// length (32 bits, little endian) and that many bytes.
///
///     P  one byte: percent          R  the report, JSON
///     S  the scene, a .vxscene      E  an error, JSON; the last message then
namespace VxImportProtocol {

constexpr char Progress = 'P';
constexpr char Report = 'R';
constexpr char Scene = 'S';
constexpr char Error = 'E';

QByteArray message(char kind, const QByteArray &bytes);
QByteArray message(char kind, const QJsonObject &object);

/// Splits the stream into messages as it arrives.
class Parser
{
public:
    void append(const QByteArray &bytes) { m_bytes += bytes; }
    /// The next complete message. False when there is none yet, or the stream is broken.
    bool next(char *kind, QByteArray *bytes);
    /// True once an invalid message arrived.
    bool isBroken() const { return m_isBroken; }

private:
    QByteArray m_bytes;
    int m_start = 0;
    bool m_isBroken = false;
};

} // namespace VxImportProtocol

#endif
