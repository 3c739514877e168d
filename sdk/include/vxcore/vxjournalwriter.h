#ifndef VXJOURNALWRITER_H
#define VXJOURNALWRITER_H

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QVector>
#include <type_traits>
#include <vxcore/vxcoreglobal.h>

class VxNode;
class VxProperty;

/// Collects the bytes of one record of the journal: what the items of an undo entry changed.
///
/// A record is read by VxJournalReader on the same kind of machine. Nodes are written by their
/// identifier, properties by their node, their element and their name.
class VXCORE_EXPORT VxJournalWriter
{
public:
    VxJournalWriter();
    virtual ~VxJournalWriter();

    const QByteArray &bytes() const { return m_bytes; }
    /// Starts anew with a buffer, whose capacity is kept; returns the present bytes.
    QByteArray exchange(QByteArray buffer);

    /// Brackets an item.
    void beginItem();
    void endItem();

    /// A plain number or an enumerator, as it lies in memory.
    template <class Number> void number(Number value)
    {
        static_assert(std::is_arithmetic_v<Number> || std::is_enum_v<Number>);
        m_bytes.append(reinterpret_cast<const char *>(&value), int(sizeof value));
    }
    void text(const QString &value);
    /// Bytes without their number.
    void block(const void *data, qint64 bytes);
    /// Makes room for further bytes, so that large blocks are copied once.
    void reserve(qint64 bytes);
    /// False, and nothing is written, for a node outside of a scene. Null is written as none.
    bool node(const VxNode *node);
    /// False, and nothing is written, for a property outside of a scene. Null is written as none.
    bool property(const VxProperty *property);
    /// Everything that nodes have: a top node, and nodes below it, parents first. False when that
    /// cannot be written. The base returns false, since this library has no format for nodes.
    virtual bool contents(const QVector<VxNode *> &nodes);

private:
    Q_DISABLE_COPY(VxJournalWriter)
    QByteArray m_bytes;
    int m_item = 0; // where the open item begins
};

#endif
