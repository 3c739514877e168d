#ifndef VXIO_VXCBORINPUT_H
#define VXIO_VXCBORINPUT_H

#include "io/vxfileerror.h"

#include <QByteArray>
#include <QCborStreamReader>
#include <QStringList>
#include <functional>

/// Reads a CBOR stream member by member and remembers the first thing that is wrong with it,
/// with its offset. After a failure every further read fails at once, so callers check where it
/// suits them. Claimed sizes are held against the bytes that are there before anything is
/// allocated.
class VxCborInput
{
public:
    /// The bytes are borrowed.
    explicit VxCborInput(const QByteArray &bytes);

    bool failed() const { return !m_error.message.isEmpty(); }
    const VxFileError &error() const { return m_error; }
    /// Remembers a failure at the present place; the first one counts. Returns false.
    bool fail(const QString &message);

    /// Calls `member` for each member of the map that stands here. It reads the value and returns
    /// true, or returns false without reading for a name it does not know: the value is passed
    /// over then, and the name goes into unknownMembers().
    void map(const std::function<bool(const QString &)> &member);
    /// Calls `element` for each element of the array that stands here; it must read it.
    void array(const std::function<void()> &element);

    QString text();
    bool boolean();
    qint64 integer(qint64 lowest, qint64 highest);
    int int32();
    /// A floating-point number of any width, or an integer.
    double number();
    /// An array of exactly `count` numbers.
    void numbers(double *values, int count);
    /// A byte string under a tag, whose size is a multiple of `unit` bytes.
    QByteArray bytes(quint64 tag, int unit);

    /// Names that were passed over, each once.
    const QStringList &unknownMembers() const { return m_unknown; }
    qint64 offset() const { return m_reader.currentOffset(); }
    qint64 size() const { return m_size; }
    bool atEnd() const { return !m_reader.isValid(); }

private:
    bool expect(bool matches, const char *what);
    void passOver();
    template <class Step> void container(const Step &step);

    QCborStreamReader m_reader;
    qint64 m_size;
    int m_depth = 0;
    VxFileError m_error;
    QStringList m_unknown;
};

#endif
