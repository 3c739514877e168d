#include "io/vxcborinput.h"

#include "io/vxfiletext.h"

#include <QTextCodec>
#include <QVarLengthArray>
#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>

namespace {

/// Maps and arrays nested deeper than this are refused: the format needs far less.
constexpr int MaxDepth = 32;

/// The number of UTF-8 in the register of character sets.
constexpr int Utf8Mib = 106;

/// The length to which a name from the file is cut in messages.
constexpr int MaxShownName = 60;

/// The names of one map. The first ones are compared one by one: most maps have few members.
class UniqueNames
{
public:
    /// False for a name that was added before.
    bool add(const QString &name)
    {
        if (std::find(m_first.cbegin(), m_first.cend(), name) != m_first.cend())
            return false;
        if (m_first.size() < MaxFirst) {
            m_first.append(name);
            return true;
        }
        const int count = m_further.size();
        m_further.insert(name);
        return m_further.size() > count;
    }

private:
    static constexpr int MaxFirst = 24;

    QVarLengthArray<QString, MaxFirst> m_first;
    QSet<QString> m_further;
};

} // namespace

VxCborInput::VxCborInput(const QByteArray &bytes)
    : m_bytes(bytes)
    , m_reader(bytes)
    , m_size(bytes.size())
    , m_utf8(QTextCodec::codecForMib(Utf8Mib))
{
}

bool VxCborInput::failAt(qint64 offset, const QString &message)
{
    if (!failed()) {
        m_error.message = message;
        m_error.offset = offset;
    }
    return false;
}

void VxCborInput::Names::add(const QString &name)
{
    const int count = seen.size();
    seen.insert(name);
    if (seen.size() > count)
        names.append(name);
}

bool VxCborInput::expect(bool matches, const char *what)
{
    if (failed())
        return false;
    if (m_reader.lastError() != QCborError::NoError)
        return fail(VxFileText::tr("The file is damaged or truncated: %1.")
                        .arg(m_reader.lastError().toString()));
    return matches || fail(VxFileText::tr("Expected %1.").arg(VxFileText::tr(what)));
}

/** The stream reader counts a tag as an element of its own. */
void VxCborInput::skip()
{
    bool isTag = true;
    while (isTag && !failed()) {
        isTag = m_reader.isTag();
        if (!m_reader.next(MaxDepth))
            fail(VxFileText::tr("The file is damaged or truncated: %1.")
                     .arg(m_reader.lastError().toString()));
    }
}

template <class Step> void VxCborInput::container(const Step &step)
{
    if (++m_depth > MaxDepth)
        fail(VxFileText::tr("The file is nested too deeply."));
    else if (expect(m_reader.enterContainer(),
                    QT_TRANSLATE_NOOP("VxFileText", "a readable container"))) {
        while (!failed() && m_reader.hasNext())
            step();
        if (expect(m_reader.lastError() == QCborError::NoError,
                   QT_TRANSLATE_NOOP("VxFileText", "a complete container")))
            m_reader.leaveContainer();
    }
    --m_depth;
}

void VxCborInput::skipUnknown(const QString &name, qint64 begin, QByteArray *kept)
{
    skip();
    m_unknown.add(name);
    const qint64 size = m_reader.currentOffset() - begin;
    if (kept && m_keptBytes + size <= MaxKeptBytes) {
        kept->append(m_bytes.constData() + begin, int(size));
        m_keptBytes += size;
    } else {
        m_dropped.add(name);
    }
}

void VxCborInput::map(const std::function<bool(const QString &)> &member, QByteArray *kept)
{
    if (!expect(m_reader.isMap(), QT_TRANSLATE_NOOP("VxFileText", "a map")))
        return;
    UniqueNames names;
    container([&] {
        const qint64 begin = offset();
        const QString name = text();
        if (failed())
            return;
        if (!names.add(name)) {
            fail(VxFileText::tr("The member \"%1\" occurs twice.").arg(name.left(MaxShownName)));
            return;
        }
        if (!member(name))
            skipUnknown(name, begin, kept);
    });
}

bool VxCborInput::read(const QString &name, Members members)
{
    const auto *found = std::find_if(members.begin(), members.end(),
                                     [&name](const Member &member) { return name == member.name; });
    if (found == members.end())
        return false;
    found->read();
    return true;
}

void VxCborInput::map(Members members, QByteArray *kept)
{
    map([members](const QString &name) { return read(name, members); }, kept);
}

void VxCborInput::array(const std::function<void()> &element)
{
    if (expect(m_reader.isArray(), QT_TRANSLATE_NOOP("VxFileText", "an array")))
        container(element);
}

/** The same few names and kinds fill a file: what was read before is shared. */
QString VxCborInput::text()
{
    if (!expect(m_reader.isString(), QT_TRANSLATE_NOOP("VxFileText", "a text string")))
        return {};
    m_text.clear();
    QCborStreamReader::StringResult<qsizetype> chunk;
    do {
        const std::size_t size = m_text.size();
        const qint64 next = qBound(qint64(0), qint64(m_reader.currentStringChunkSize()), m_size);
        m_text.resize(size + std::size_t(next));
        chunk = m_reader.readStringChunk(&m_text[size], qsizetype(next));
    } while (chunk.status == QCborStreamReader::Ok);
    if (!expect(chunk.status == QCborStreamReader::EndOfString,
                QT_TRANSLATE_NOOP("VxFileText", "a complete text string")))
        return {};
    if (m_text.size() > MaxSharedText)
        return decoded(m_text);
    ReadText &known = m_readTexts[std::hash<std::string>()(m_text) % m_readTexts.size()];
    if (known.bytes != m_text) {
        known.text = decoded(m_text);
        known.bytes = m_text;
    }
    return known.text;
}

/** Without the state a byte order mark, which may begin the name of a node, would be left out. */
QString VxCborInput::decoded(const std::string &bytes)
{
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    const QString text = m_utf8->toUnicode(bytes.data(), int(bytes.size()), &state);
    if (state.invalidChars > 0 || state.remainingChars > 0)
        fail(VxFileText::tr("The file is damaged or truncated: %1.")
                 .arg(QCborError{QCborError::InvalidUtf8String}.toString()));
    return text;
}

bool VxCborInput::boolean()
{
    if (!expect(m_reader.isBool(), QT_TRANSLATE_NOOP("VxFileText", "true or false")))
        return false;
    const bool value = m_reader.toBool();
    m_reader.next();
    return value;
}

qint64 VxCborInput::integer(qint64 lowest, qint64 highest)
{
    if (!expect(m_reader.isInteger(), QT_TRANSLATE_NOOP("VxFileText", "a whole number")))
        return lowest;
    const qint64 value = m_reader.toInteger();
    if (value < lowest || value > highest) {
        fail(VxFileText::tr("%1 is out of range (%2 to %3).").arg(value).arg(lowest).arg(highest));
        return lowest;
    }
    m_reader.next();
    return value;
}

int VxCborInput::int32()
{
    return static_cast<int>(
        integer(std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

double VxCborInput::number()
{
    double value = 0.0;
    if (m_reader.isInteger())
        value = double(m_reader.toInteger());
    else if (m_reader.isFloat())
        value = double(m_reader.toFloat());
    else if (m_reader.isDouble())
        value = m_reader.toDouble();
    else if (m_reader.isFloat16())
        value = double(float(m_reader.toFloat16()));
    else
        expect(false, QT_TRANSLATE_NOOP("VxFileText", "a number"));
    if (!expect(std::isfinite(value), QT_TRANSLATE_NOOP("VxFileText", "a finite number")))
        return 0.0;
    m_reader.next();
    return value;
}

float VxCborInput::singleNumber()
{
    const double value = number();
    if (expect(std::abs(value) <= double(std::numeric_limits<float>::max()),
               QT_TRANSLATE_NOOP("VxFileText", "a number within single precision")))
        return static_cast<float>(value);
    return 0.0f;
}

template <class Step> void VxCborInput::fixedArray(int count, const Step &step)
{
    int index = 0;
    array([&] {
        if (index < count)
            step(index);
        else
            skip();
        ++index;
    });
    if (index != count)
        fail(VxFileText::tr("Expected %1 numbers.").arg(count));
}

void VxCborInput::numbers(double *values, int count)
{
    fixedArray(count, [&](int index) { values[index] = number(); });
}

void VxCborInput::numbers(float *values, int count)
{
    fixedArray(count, [&](int index) { values[index] = singleNumber(); });
}

QByteArray VxCborInput::bytes(quint64 tag, int unit)
{
    if (!expect(m_reader.isTag() && quint64(m_reader.toTag()) == tag,
                QT_TRANSLATE_NOOP("VxFileText", "a typed array")))
        return {};
    m_reader.next();
    if (!expect(m_reader.isByteArray(), QT_TRANSLATE_NOOP("VxFileText", "a typed array")))
        return {};
    const qint64 claimed = m_reader.isLengthKnown() ? qint64(m_reader.length()) : 0;
    if (claimed < 0 || claimed > m_size - m_reader.currentOffset()) {
        fail(VxFileText::tr("An array declares more bytes than the file contains."));
        return {};
    }
    QByteArray result;
    auto chunk = m_reader.readByteArray();
    while (chunk.status == QCborStreamReader::Ok) {
        // A single chunk is used as it is; further ones are appended in place.
        if (result.isEmpty())
            result = chunk.data;
        else
            result.append(chunk.data);
        chunk = m_reader.readByteArray();
    }
    expect(chunk.status == QCborStreamReader::EndOfString,
           QT_TRANSLATE_NOOP("VxFileText", "a complete array"));
    if (result.size() % unit != 0)
        fail(VxFileText::tr("An array has %1 bytes, which is not a multiple of %2.")
                 .arg(result.size())
                 .arg(unit));
    return result;
}
