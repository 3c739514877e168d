#include "io/fbx/vxfbxparsers.h"
#include "io/vxfiletext.h"
#include "io/vxtextbytes.h"

#include <algorithm>
#include <cstring>

namespace {

bool isWordByte(char c)
{
    return static_cast<unsigned char>(c) > ' ' && !std::strchr(",{}\";:", c) && c != '\x7F';
}

bool beginsNumber(const char *at, const char *end)
{
    if (end - at > 1 && (*at == '-' || *at == '+'))
        ++at;
    return (*at >= '0' && *at <= '9') || *at == '.' ||
           (end - at >= 3 && (std::equal(at, at + 3, "inf") || std::equal(at, at + 3, "nan")));
}

const char *find(const char *from, const char *end, char requested)
{
    const void *found = std::memchr(from, requested, static_cast<std::size_t>(end - from));
    return found ? static_cast<const char *>(found) : end;
}

class TextParser
{
public:
    /// All are borrowed; the records are of the file and empty.
    TextParser(const VxFileProgress &progress, VxFbxRecords *records, VxFileError *error);

    bool parse();

private:
    bool fail(const char *place, const QString &message);
    void skipBlanks();
    bool parseNext();
    bool openRecord(const char *name, qint64 size);
    bool closeRecord();
    bool parseString();
    bool parseArray(const char *star);
    bool addValue(char code, const char *from, const char *to);
    bool report();

    VxFbxRecords &m_records;
    VxFileError &m_error;
    VxReadProgress m_progress;
    std::vector<VxFbxRecords::Index> m_open{0};
    VxFbxRecords::Index m_last = VxFbxRecords::None; // gets the values and the next brace
    const char *m_begin;
    const char *m_at;
    const char *m_end;
};

TextParser::TextParser(const VxFileProgress &progress, VxFbxRecords *records, VxFileError *error)
    : m_records(*records)
    , m_error(*error)
    , m_progress(progress, records->bytes().size())
    , m_begin(records->bytes().constData())
    , m_at(m_begin)
    , m_end(m_begin + records->bytes().size())
{
    if (records->bytes().startsWith("\xEF\xBB\xBF"))
        m_at += 3;
}

bool TextParser::fail(const char *place, const QString &message)
{
    return m_records.fail(&m_error, static_cast<qint32>(place - m_begin), message);
}

bool TextParser::report()
{
    m_error.cancelled = !m_progress.report(m_at - m_begin);
    return !m_error.cancelled;
}

void TextParser::skipBlanks()
{
    while (m_at < m_end) {
        if (*m_at == ';')
            m_at = std::find_if(m_at, m_end, [](char c) { return c == '\n' || c == '\r'; });
        else if (vxIsSpace(*m_at))
            ++m_at;
        else
            return;
    }
}

bool TextParser::parse()
{
    for (skipBlanks(); m_at < m_end; skipBlanks()) {
        if (!report() || !parseNext())
            return false;
    }
    if (m_open.size() == 1)
        return true;
    const std::string_view name = m_records.name(m_open.back());
    return fail(m_end, VxFileText::tr("The file ends inside the record \"%1\".")
                           .arg(QString::fromUtf8(name.data(), static_cast<int>(name.size()))));
}

bool TextParser::parseNext()
{
    const char *start = m_at;
    switch (*m_at) {
    case '{':
        if (m_last == VxFbxRecords::None)
            return fail(start, VxFileText::tr("Unexpected \"{\": no record precedes it."));
        if (m_open.size() > VxFbxRecords::MaxDepth)
            return fail(start, VxFileText::tr("Records are nested more than %1 levels deep.")
                                   .arg(VxFbxRecords::MaxDepth));
        m_open.push_back(m_last);
        m_last = VxFbxRecords::None;
        ++m_at;
        return true;
    case '}':
        return closeRecord();
    case ',':
        ++m_at;
        return m_last != VxFbxRecords::None ||
               fail(start, VxFileText::tr("Unexpected \",\": no value precedes it."));
    case '"':
        return parseString();
    case '*':
        return parseArray(start);
    default:
        break;
    }
    while (m_at < m_end && isWordByte(*m_at))
        ++m_at;
    if (m_at < m_end && *m_at == ':' && m_at > start)
        return openRecord(start, m_at++ - start);
    if (m_at == start)
        return fail(start, VxFileText::tr("Not an FBX text file."));
    return addValue(beginsNumber(start, m_at) ? VxFbxValue::Number : VxFbxValue::Word, start, m_at);
}

bool TextParser::openRecord(const char *name, qint64 size)
{
    m_last = m_records.addRecord(m_open.back(), static_cast<qint32>(name - m_begin),
                                 static_cast<qint32>(size));
    return m_last != VxFbxRecords::None ||
           fail(name,
                VxFileText::tr("The file has more than %1 records.").arg(VxFbxRecords::MaxRecords));
}

bool TextParser::closeRecord()
{
    if (m_open.size() == 1)
        return fail(m_at, VxFileText::tr("Unmatched \"}\"."));
    m_open.pop_back();
    m_last = VxFbxRecords::None;
    ++m_at;
    return true;
}

bool TextParser::parseString()
{
    const char *from = m_at + 1;
    const char *to = find(from, m_end, '"');
    if (to == m_end)
        return fail(m_at, VxFileText::tr("A string is not closed."));
    m_at = to + 1;
    return addValue(VxFbxValue::String, from, to);
}

// "*3 { a: 1,2,3 }", from the star to the brace.
bool TextParser::parseArray(const char *star)
{
    const char *open = star + 1;
    while (open < m_end && (vxIsSpace(*open) || (*open >= '0' && *open <= '9')))
        ++open;
    if (open == m_end || *open != '{')
        return fail(star, VxFileText::tr("\"{\" expected after the size of an array."));
    const char *close = find(open, m_end, '}');
    if (close == m_end)
        return fail(star, VxFileText::tr("An array is not closed."));
    m_at = close + 1;
    return addValue(VxFbxValue::NumberList, star + 1, close);
}

bool TextParser::addValue(char code, const char *from, const char *to)
{
    if (m_last == VxFbxRecords::None)
        return fail(from, VxFileText::tr("A value is outside of all records."));
    return m_records.addValue(
               {code, static_cast<qint32>(from - m_begin), static_cast<qint32>(to - from)}) ||
           fail(from,
                VxFileText::tr("The file has more than %1 values.").arg(VxFbxRecords::MaxValues));
}

} // namespace

bool vxParseFbxText(const QByteArray &bytes, const VxFileProgress &progress, VxFbxRecords *records,
                    VxFileError *error)
{
    *records = VxFbxRecords(bytes, true);
    return TextParser(progress, records, error).parse();
}
