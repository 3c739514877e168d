#ifndef VXCBORINPUT_H
#define VXCBORINPUT_H

#include "io/vxfileerror.h"

#include <QByteArray>
#include <QCborStreamReader>
#include <QSet>
#include <QStringList>
#include <array>
#include <functional>
#include <string>

class QTextCodec;

/// Reads a CBOR stream member by member and stores the first error with its offset. After a failure
/// every further read fails at once, so callers check where it suits them. Declared sizes are
/// checked against the available bytes before anything is allocated.
class VxCborInput
{
public:
    /// The size up to which unknown members are kept.
    static constexpr qint64 MaxKeptBytes = 16 << 20;

    /// The bytes are borrowed.
    explicit VxCborInput(const QByteArray &bytes);

    bool failed() const { return !m_error.message.isEmpty(); }
    const VxFileError &error() const { return m_error; }
    /// Stores a failure at the present offset; the first one counts. Returns false.
    bool fail(const QString &message) { return failAt(m_reader.currentOffset(), message); }
    /// The same at another offset.
    bool failAt(qint64 offset, const QString &message);

    /// Reads the map at the present offset and calls `member` for each of its members. The callback
    /// reads the value and returns true, or returns false without reading for an unknown name: the
    /// value is then skipped, and the name added to unknownMembers(). Names and values of unknown
    /// members are appended to `kept` as they are in the stream, up to MaxKeptBytes in all; without
    /// `kept`, and beyond, the name is added to droppedMembers(). A duplicate name in one map is a
    /// failure.
    void map(const std::function<bool(const QString &)> &member, QByteArray *kept = nullptr);
    /// A member of a map, and what reads its value.
    struct Member
    {
        template <int Size, class Read>
        Member(const char (&text)[Size], const Read &reader)
            : name(text, Size - 1)
            , read(reader)
        {
        }
        QLatin1String name;
        std::function<void()> read;
    };
    using Members = std::initializer_list<Member>;
    /// Reads the map at the present offset, whose members are these.
    void map(Members members, QByteArray *kept = nullptr);
    /// Reads the value of one of the members; false without reading for an unknown name.
    static bool read(const QString &name, Members members);
    /// Calls `element` for each element of the array at the present offset; it must read it.
    void array(const std::function<void()> &element);

    QString text();
    bool boolean();
    qint64 integer(qint64 lowest, qint64 highest);
    int int32();
    /// A floating-point number of any width, or an integer.
    double number();
    /// A number within the range of single precision, rounded to it.
    float singleNumber();
    /// An array of exactly `count` numbers, as read by number().
    void numbers(double *values, int count);
    /// The same, as read by singleNumber().
    void numbers(float *values, int count);
    /// A byte string under a tag, whose size is a multiple of `unit` bytes.
    QByteArray bytes(quint64 tag, int unit);

    /// Names that were skipped, each once, in the order of the file.
    const QStringList &unknownMembers() const { return m_unknown.names; }
    /// Those that were skipped at least once without being kept.
    const QStringList &droppedMembers() const { return m_dropped.names; }
    qint64 offset() const { return m_reader.currentOffset(); }
    qint64 size() const { return m_size; }

private:
    /// Names, each once.
    struct Names
    {
        QStringList names;
        QSet<QString> seen;

        void add(const QString &name);
    };

    /// Texts of at most this many bytes are looked up among those that were read before.
    static constexpr std::size_t MaxSharedText = 48;
    struct ReadText
    {
        std::string bytes; // UTF-8
        QString text;
    };

    QString decoded(const std::string &bytes);
    bool expect(bool matches, const char *what);
    void skip();
    void skipUnknown(const QString &name, qint64 begin, QByteArray *kept);
    template <class Step> void container(const Step &step);
    template <class Step> void fixedArray(int count, const Step &step);

    const QByteArray m_bytes;
    QCborStreamReader m_reader;
    qint64 m_size;
    int m_depth = 0;
    VxFileError m_error;
    Names m_unknown;
    Names m_dropped;
    QTextCodec *const m_utf8;
    std::string m_text; // being read
    std::array<ReadText, 512>
        m_readTexts; // by a hash of their bytes; a newer one replaces an older
    qint64 m_keptBytes = 0;
};

#endif
