#include "io/fbx/vxfbxarrays.h"
#include "io/fbx/vxfbxparsers.h"
#include "io/vxfiletext.h"

#include <QtEndian>
#include <algorithm>
#include <cstring>

namespace {

constexpr char magic[] = "Kaydara FBX Binary  ";
constexpr qint64 headerSize = 27;

class BinaryParser
{
public:
    /// All are borrowed; the records are of the file and empty.
    BinaryParser(const VxFileProgress &progress, VxFbxRecords *records, qint64 *version,
                 VxFileError *error);

    bool parse();

private:
    // A record whose children are being read.
    struct Open
    {
        VxFbxRecords::Index index;
        qint64 end;
    };
    struct Head
    {
        quint64 end;
        quint64 valueCount;
        quint64 valueBytes;
        qint64 nameSize;
    };

    bool fail(qint64 offset, const QString &message);
    bool parseHeader();
    bool parseNext();
    bool parseHead(Head *head, qint64 limit);
    bool parseRecord(const Head &head, qint64 start, qint64 limit);
    bool parseValues(const Head &head);
    bool parseValue(qint64 limit);
    bool valueSize(char code, qint64 limit, qint64 *size);
    quint64 readCount();
    bool report();

    VxFbxRecords &m_records;
    VxFileError &m_error;
    VxReadProgress m_progress;
    std::vector<Open> m_open;
    const char *m_bytes;
    qint64 m_size;
    qint64 m_at = 0;
    qint64 &m_version;
    qint64 m_wordSize = 4; // of the numbers in a record's head
};

BinaryParser::BinaryParser(const VxFileProgress &progress, VxFbxRecords *records, qint64 *version,
                           VxFileError *error)
    : m_records(*records)
    , m_error(*error)
    , m_progress(progress, records->bytes().size())
    , m_bytes(records->bytes().constData())
    , m_size(records->bytes().size())
    , m_version(*version)
{
}

bool BinaryParser::fail(qint64 offset, const QString &message)
{
    return m_records.fail(&m_error, static_cast<qint32>(std::min(offset, m_size)), message);
}

bool BinaryParser::report()
{
    m_error.cancelled = !m_progress.report(m_at);
    return !m_error.cancelled;
}

bool BinaryParser::parse()
{
    if (!parseHeader())
        return false;
    m_open.push_back({0, m_size});
    while (!m_open.empty()) {
        if (!report() || !parseNext())
            return false;
    }
    return true;
}

bool BinaryParser::parseHeader()
{
    if (m_size < headerSize)
        return fail(m_size, VxFileText::tr("The file ends within its header."));
    if (m_bytes[20] != 0 || m_bytes[21] != 0x1A || (m_bytes[22] != 0 && m_bytes[22] != 1))
        return fail(20, VxFileText::tr("The header is damaged."));
    if (m_bytes[22] == 1)
        return fail(22, VxFileText::tr("Big-endian files are not supported."));
    m_version = qFromLittleEndian<quint32>(m_bytes + 23);
    m_wordSize = m_version >= 7500 ? 8 : 4;
    m_at = headerSize;
    return true;
}

quint64 BinaryParser::readCount()
{
    const char *at = m_bytes + m_at;
    m_at += m_wordSize;
    return m_wordSize == 8 ? qFromLittleEndian<quint64>(at) : qFromLittleEndian<quint32>(at);
}

// Reads one record at the present position, or closes those that end here.
bool BinaryParser::parseNext()
{
    const Open open = m_open.back();
    if (m_at == open.end && m_open.size() > 1) {
        m_open.pop_back();
        return true;
    }
    const qint64 start = m_at;
    Head head{};
    if (!parseHead(&head, open.end))
        return false;
    if (head.end != 0)
        return parseRecord(head, start, open.end);
    // A null record closes the children of the record around it.
    if (head.valueCount != 0 || head.valueBytes != 0 || head.nameSize != 0)
        return fail(start, VxFileText::tr("The end of a record is missing."));
    if (m_open.size() > 1 && m_at != open.end)
        return fail(
            m_at, VxFileText::tr("Unexpected bytes after the last record of \"%1\".")
                      .arg(QString::fromUtf8(m_records.name(open.index).data(),
                                             static_cast<int>(m_records.name(open.index).size()))));
    m_open.pop_back();
    return true;
}

bool BinaryParser::parseHead(Head *head, qint64 limit)
{
    if (limit - m_at < 3 * m_wordSize + 1)
        return fail(limit, limit == m_size
                               ? VxFileText::tr("The file ends within a record.")
                               : VxFileText::tr("A record ends before its nested records."));
    head->end = readCount();
    head->valueCount = readCount();
    head->valueBytes = readCount();
    head->nameSize = static_cast<quint8>(m_bytes[m_at++]);
    return true;
}

bool BinaryParser::parseRecord(const Head &head, qint64 start, qint64 limit)
{
    if (head.end > static_cast<quint64>(limit))
        return fail(start, limit == m_size
                               ? VxFileText::tr("A record extends beyond the end of the file.")
                               : VxFileText::tr("A record extends beyond its parent record."));
    const auto end = static_cast<qint64>(head.end);
    if (end < m_at + head.nameSize)
        return fail(start, VxFileText::tr("A record ends before it begins."));
    const qint64 left = end - m_at - head.nameSize;
    if (head.valueBytes > static_cast<quint64>(left))
        return fail(start, VxFileText::tr("The values of a record are larger than the record."));
    if (head.valueCount > head.valueBytes / 2)
        return fail(start, VxFileText::tr("A record declares more values than it has bytes for."));
    if (m_open.size() > VxFbxRecords::MaxDepth)
        return fail(start, VxFileText::tr("Records are nested more than %1 levels deep.")
                               .arg(VxFbxRecords::MaxDepth));
    const VxFbxRecords::Index index = m_records.addRecord(
        m_open.back().index, static_cast<qint32>(m_at), static_cast<qint32>(head.nameSize));
    if (index == VxFbxRecords::None)
        return fail(
            start,
            VxFileText::tr("The file has more than %1 records.").arg(VxFbxRecords::MaxRecords));
    m_at += head.nameSize;
    if (!parseValues(head))
        return false;
    if (m_at < end)
        m_open.push_back({index, end});
    return true;
}

bool BinaryParser::parseValues(const Head &head)
{
    const qint64 limit = m_at + static_cast<qint64>(head.valueBytes);
    for (quint64 i = 0; i < head.valueCount; ++i) {
        if (!parseValue(limit))
            return false;
    }
    if (m_at != limit)
        return fail(m_at, VxFileText::tr("The values of a record are shorter than declared."));
    return true;
}

bool BinaryParser::parseValue(qint64 limit)
{
    const qint64 start = m_at;
    if (m_at >= limit)
        return fail(start, VxFileText::tr("A value extends beyond the values of its record."));
    const char code = m_bytes[m_at++];
    qint64 size = 0;
    if (!valueSize(code, limit, &size))
        return false;
    if (size > limit - m_at)
        return fail(start, VxFileText::tr("A value extends beyond the values of its record."));
    if (!m_records.addValue({code, static_cast<qint32>(m_at), static_cast<qint32>(size)}))
        return fail(
            start,
            VxFileText::tr("The file has more than %1 values.").arg(VxFbxRecords::MaxValues));
    m_at += size;
    return true;
}

// The size of a value's bytes after the type letter; of a string, skips the count itself.
bool BinaryParser::valueSize(char code, qint64 limit, qint64 *size)
{
    switch (code) {
    case 'C':
    case 'B':
    case 'Z':
        *size = 1;
        return true;
    case 'Y':
        *size = 2;
        return true;
    case 'I':
    case 'F':
        *size = 4;
        return true;
    case 'L':
    case 'D':
        *size = 8;
        return true;
    case 'S':
    case 'R':
        if (limit - m_at < 4)
            return fail(m_at, VxFileText::tr("A value extends beyond the values of its record."));
        *size = qFromLittleEndian<quint32>(m_bytes + m_at);
        m_at += 4;
        return true;
    case 'f':
    case 'd':
    case 'i':
    case 'l':
    case 'b':
    case 'c':
        if (limit - m_at < VxFbxArrays::HeadSize)
            return fail(m_at, VxFileText::tr("A value extends beyond the values of its record."));
        *size = VxFbxArrays::HeadSize + qFromLittleEndian<quint32>(m_bytes + m_at + 8);
        return true;
    default:
        return fail(m_at - 1, VxFileText::tr("Unknown value type %1.")
                                  .arg(static_cast<int>(static_cast<quint8>(code))));
    }
}

} // namespace

bool vxIsFbxBinary(const QByteArray &bytes)
{
    return bytes.startsWith(magic);
}

bool vxParseFbxBinary(const QByteArray &bytes, const VxFileProgress &progress,
                      VxFbxRecords *records, qint64 *version, VxFileError *error)
{
    *records = VxFbxRecords(bytes, false);
    *version = 0;
    return BinaryParser(progress, records, version, error).parse();
}
