#ifndef VXJOURNALREADER_H
#define VXJOURNALREADER_H

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <memory>
#include <type_traits>
#include <vxcore/vxcoreglobal.h>

class VxElement;
class VxNode;
class VxProperty;
class VxScene;

/// Reads the items of a record that VxJournalWriter wrote, and applies them to a scene.
///
/// Every read is checked against the bytes that are left. After a failure all further reads fail
/// and return zeros, so callers check where it suits them.
class VXCORE_EXPORT VxJournalReader
{
public:
    /// Forward applies an entry, Backward reverts it.
    enum Direction { Forward, Backward };

    /// The bytes, which are borrowed, and the scene that nodes and properties are found in.
    VxJournalReader(const QByteArray &bytes, VxScene *scene);
    virtual ~VxJournalReader();

    /// Applies all items to the scene: in their order, or from the last to the first. False when
    /// the record is damaged, or does not fit the scene; some items may have been applied then.
    /// The caller rolls back an undo hold, or discards the scene. The removal of nodes whose
    /// contents() could not be written cannot be reverted.
    bool apply(Direction direction);

    bool failed() const { return m_failed; }
    bool atEnd() const { return m_offset >= m_end; }
    VxScene *scene() const { return m_scene; }
    /// Marks the record as damaged: all further reads fail. Returns false.
    bool fail();

    template <class Number> Number number()
    {
        static_assert(std::is_arithmetic_v<Number> || std::is_enum_v<Number>);
        std::conditional_t<std::is_same_v<Number, bool>, quint8, Number> value{};
        copy(&value, qint64(sizeof value));
        return static_cast<Number>(value);
    }
    QString text();
    /// A block of bytes, borrowed; null after a failure.
    const char *block(qint64 bytes);
    /// Null where none was written, and after a failure; a node or property that the scene does not
    /// have is a failure.
    VxNode *node();
    VxProperty *property();
    /// What VxJournalWriter::contents() wrote: a node in no scene. Null, and a failure, when that
    /// cannot be read. The base always fails, since this library has no format for nodes.
    virtual std::unique_ptr<VxNode> contents();

private:
    Q_DISABLE_COPY(VxJournalReader)
    void copy(void *to, qint64 bytes);
    VxElement *elementOf(VxNode *node, int place);

    QByteArray m_bytes;
    VxScene *m_scene;
    qint64 m_offset = 0;
    qint64 m_end; // of the readable bytes
    bool m_failed = false;
};

#endif
