#include "io/fbx/vxfbxarrays.h"

#include "io/vxfiletext.h"
#include "io/vxtextbytes.h"

#include <QtEndian>
#include <charconv>
#include <cmath>
#include <cstring>
#include <libdeflate.h>
#include <limits>
#include <memory>
#include <type_traits>

namespace {

constexpr qint64 maxInflation = 1032; // output bytes per input byte; a limit of the format
constexpr qint64 maxArraySize = 1024 * 1024 * 1024;

qint64 elementSize(char code)
{
    switch (code) {
    case 'b':
    case 'c':
        return 1;
    case 'f':
    case 'i':
        return 4;
    default:
        return 8;
    }
}

template <class Number, class Source> Number converted(Source value)
{
    if constexpr (std::is_same_v<Number, qint64> && std::is_floating_point_v<Source>) {
        if (std::isnan(value))
            return 0;
        constexpr auto limit = static_cast<Source>(9.2e18);
        if (value > limit || value < -limit)
            return value > 0 ? std::numeric_limits<qint64>::max()
                             : std::numeric_limits<qint64>::min();
    }
    if constexpr (std::is_same_v<Number, float> && std::is_same_v<Source, double>) {
        if (std::abs(value) > static_cast<double>(std::numeric_limits<float>::max()))
            return std::copysign(std::numeric_limits<float>::infinity(),
                                 static_cast<float>(value > 0 ? 1 : -1));
    }
    return static_cast<Number>(value);
}

template <class Number, class Source>
void convertAll(const char *from, std::size_t count, std::vector<Number> *out)
{
    for (std::size_t i = 0; i < count; ++i)
        (*out)[i] = converted<Number>(qFromLittleEndian<Source>(from + i * sizeof(Source)));
}

} // namespace

VxFbxArrays::VxFbxArrays(const VxFbxRecords &records)
    : m_records(records)
    , m_budget(24 * 1024 * 1024 + 20 * static_cast<qint64>(records.bytes().size()))
{
}

bool VxFbxArrays::integers(VxFbxRecords::Index record, std::vector<qint64> *out)
{
    m_areBits = false;
    return decode(record, out);
}

bool VxFbxArrays::floats(VxFbxRecords::Index record, std::vector<float> *out, bool areBits)
{
    m_areBits = areBits;
    return decode(record, out);
}

bool VxFbxArrays::fail(qint32 offset, const QString &message)
{
    return m_records.fail(&m_error, offset, message);
}

bool VxFbxArrays::spend(qint64 bytes, const VxFbxValue &value)
{
    m_budget -= bytes;
    return m_budget >= 0 ||
           fail(value.offset,
                VxFileText::tr("The arrays of this file are too large for its size."));
}

template <class Number>
bool VxFbxArrays::decode(VxFbxRecords::Index record, std::vector<Number> *out)
{
    out->clear();
    const VxFbxValue *value = m_records.value(record, 0);
    if (!value)
        return true;
    if (value->code == VxFbxValue::NumberList)
        return decodeText(*value, out);
    return value->isArray() ? decodeBinary(*value, out) : decodeScalars(record, out);
}

template <class Number>
bool VxFbxArrays::decodeScalars(VxFbxRecords::Index record, std::vector<Number> *out)
{
    const int count = m_records.valueCount(record);
    if (!spend(count * qint64(sizeof(Number)), *m_records.value(record, 0)))
        return false;
    out->reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        const VxFbxValue *value = m_records.value(record, i);
        qint64 whole = 0;
        double real = 0.0;
        if (std::is_same_v<Number, qint64> && m_records.integer(value, &whole))
            out->push_back(static_cast<Number>(whole));
        else if (m_records.number(value, &real))
            out->push_back(converted<Number>(real));
        else
            return fail(value->offset, VxFileText::tr("A value of an array is not a number."));
    }
    return true;
}

template <class Number>
bool VxFbxArrays::decodeBinary(const VxFbxValue &value, std::vector<Number> *out)
{
    const char *head = m_records.bytes().constData() + value.offset;
    const qint64 count = qFromLittleEndian<quint32>(head);
    const quint32 encoding = qFromLittleEndian<quint32>(head + 4);
    const qint64 size = count * elementSize(value.code);
    const qint64 payload = value.size - HeadSize;
    if (encoding > 1)
        return fail(value.offset + 4, VxFileText::tr("Unknown array encoding %1.").arg(encoding));
    if (size > maxArraySize || (encoding == 0 ? size != payload : size > payload * maxInflation))
        return fail(value.offset,
                    VxFileText::tr("An array declares %n values, more than its bytes can hold.",
                                   nullptr, int(count)));
    if (!spend(count * qint64(sizeof(Number)) + (encoding ? size : 0), value))
        return false;
    QByteArray inflated;
    const char *from = head + HeadSize;
    if (encoding == 1) {
        if (!inflate(value, size, &inflated))
            return false;
        from = inflated.constData();
    }
    const auto total = static_cast<std::size_t>(count);
    out->resize(total);
    switch (value.code) {
    case 'f':
        convertAll<Number, float>(from, total, out);
        break;
    case 'd':
        convertAll<Number, double>(from, total, out);
        break;
    case 'i':
        convertAll<Number, qint32>(from, total, out);
        break;
    case 'l':
        convertAll<Number, qint64>(from, total, out);
        break;
    default:
        convertAll<Number, quint8>(from, total, out);
        break;
    }
    return true;
}

bool VxFbxArrays::inflate(const VxFbxValue &value, qint64 size, QByteArray *out)
{
    out->resize(static_cast<int>(size));
    const char *from = m_records.bytes().constData() + value.offset + HeadSize;
    const std::unique_ptr<libdeflate_decompressor, decltype(&libdeflate_free_decompressor)>
        decompressor(libdeflate_alloc_decompressor(), libdeflate_free_decompressor);
    if (!decompressor)
        return fail(value.offset, VxFileText::tr("Not enough memory for an array."));
    const libdeflate_result result = libdeflate_zlib_decompress(
        decompressor.get(), from, static_cast<std::size_t>(value.size - HeadSize), out->data(),
        static_cast<std::size_t>(size), nullptr);
    if (result == LIBDEFLATE_SUCCESS)
        return true;
    if (result == LIBDEFLATE_INSUFFICIENT_SPACE)
        return fail(value.offset, VxFileText::tr("A compressed array is larger than declared."));
    return fail(value.offset, VxFileText::tr("A compressed array is damaged."));
}

template <class Number> bool VxFbxArrays::decodeNumber(std::string_view token, Number *out) const
{
    const char *end = token.data() + token.size();
    qint64 whole = 0;
    const std::from_chars_result result = std::from_chars(token.data(), end, whole);
    const bool isWhole = result.ec == std::errc() && result.ptr == end;
    if constexpr (std::is_same_v<Number, float>) {
        if (isWhole && m_areBits) {
            const auto bits = static_cast<quint32>(whole);
            std::memcpy(out, &bits, sizeof bits);
            return true;
        }
    }
    if (isWhole) {
        *out = static_cast<Number>(whole);
        return true;
    }
    double real = 0.0;
    if (!vxFbxTextNumber(token, &real))
        return false;
    *out = converted<Number>(real);
    return true;
}

// "3 { a: 1,2,3 "
template <class Number>
bool VxFbxArrays::decodeText(const VxFbxValue &value, std::vector<Number> *out)
{
    const char *at = m_records.bytes().constData() + value.offset;
    const char *begin = at;
    const char *end = at + value.size;
    while (at < end && vxIsSpace(*at))
        ++at;
    qint64 count = 0;
    const std::from_chars_result announced = std::from_chars(at, end, count);
    const char *colon = std::find(announced.ptr, end, ':');
    // A number needs a digit and a comma.
    if (announced.ec != std::errc() || count < 0 || count > (end - begin) / 2 + 1)
        return fail(
            value.offset,
            VxFileText::tr("An array declares more values than the rest of the text can hold."));
    if (!spend(count * qint64(sizeof(Number)), value))
        return false;
    out->reserve(static_cast<std::size_t>(count));
    at = colon == end ? end : colon + 1;
    while (at < end) {
        const char *from = at;
        at = std::find(at, end, ',');
        const char *to = at;
        at += at < end;
        while (from < to && vxIsSpace(*from))
            ++from;
        while (to > from && vxIsSpace(to[-1]))
            --to;
        if (from == to && at == end)
            break; // nothing after the last comma, or an array of no values
        Number number = 0;
        if (!decodeNumber({from, static_cast<std::size_t>(to - from)}, &number))
            return fail(static_cast<qint32>(from - m_records.bytes().constData()),
                        VxFileText::tr("A value of an array is not a number."));
        if (static_cast<qint64>(out->size()) == count)
            return fail(value.offset, VxFileText::tr("An array has more values than declared."));
        out->push_back(number);
    }
    return static_cast<qint64>(out->size()) == count ||
           fail(value.offset, VxFileText::tr("An array has fewer values than declared."));
}
