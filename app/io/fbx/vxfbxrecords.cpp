#include "io/fbx/vxfbxrecords.h"

#include "io/vxtextbytes.h"

#include <QtEndian>
#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace {

QString withoutEntities(QString text)
{
    if (!text.contains(u'&'))
        return text;
    text.replace(QLatin1String("&quot;"), QLatin1String("\""));
    text.replace(QLatin1String("&cr;"), QLatin1String("\r"));
    return text.replace(QLatin1String("&lf;"), QLatin1String("\n"));
}

} // namespace

bool VxFbxValue::isArray() const
{
    return std::string_view("fdilbcA").find(code) != std::string_view::npos;
}

bool vxFbxTextNumber(std::string_view token, double *out)
{
    if (!token.empty() && token.front() == '+')
        token.remove_prefix(1);
    const char *end = token.data() + token.size();
    const std::from_chars_result result = std::from_chars(token.data(), end, *out);
    const auto rest = std::string_view(result.ptr, static_cast<std::size_t>(end - result.ptr));
    if (result.ptr == token.data())
        return false;
    if (rest.empty()) {
        if (result.ec == std::errc::result_out_of_range) {
            // Underflow becomes zero; overflow has a positive exponent or many digits.
            const bool tiny = token.find("e-") != std::string_view::npos ||
                              token.find("E-") != std::string_view::npos;
            *out = tiny ? 0.0 : std::numeric_limits<double>::infinity();
        }
        return true;
    }
    const double limit = std::numeric_limits<double>::infinity();
    if (rest.substr(0, 4) == "#INF")
        *out = token.front() == '-' ? -limit : limit;
    else if (rest.front() == '#')
        *out = std::numeric_limits<double>::quiet_NaN();
    else
        return std::isnan(*out) && rest.front() == '('; // "nan(ind)" and its like
    return true;
}

VxFbxRecords::VxFbxRecords(const QByteArray &bytes, bool isText)
    : m_bytes(bytes)
    , m_isText(isText)
    , m_records{{0, 0, None, None, None, 0, 0}}
{
}

VxFbxRecords::Index VxFbxRecords::addRecord(Index parent, qint32 nameOffset, qint32 nameSize)
{
    if (m_records.size() >= MaxRecords)
        return None;
    const auto index = static_cast<Index>(m_records.size());
    const auto firstValue = static_cast<Index>(m_values.size());
    m_records.push_back({nameOffset, nameSize, None, None, None, firstValue, 0});
    Record &owner = m_records[parent];
    if (owner.lastChild == None)
        owner.firstChild = index;
    else
        m_records[owner.lastChild].nextSibling = index;
    owner.lastChild = index;
    return index;
}

bool VxFbxRecords::addValue(const VxFbxValue &value)
{
    if (m_values.size() >= MaxValues)
        return false;
    m_values.push_back(value);
    ++m_records.back().valueCount;
    return true;
}

VxFbxRecords::Index VxFbxRecords::child(Index record, std::string_view requested) const
{
    if (record == None)
        return None;
    Index at = firstChild(record);
    while (at != None && name(at) != requested)
        at = nextSibling(at);
    return at;
}

VxFbxRecords::Index VxFbxRecords::find(std::initializer_list<std::string_view> path) const
{
    Index at = m_records.empty() ? None : 0;
    for (const std::string_view part : path)
        at = child(at, part);
    return at;
}

std::string_view VxFbxRecords::name(Index record) const
{
    const Record &it = m_records[record];
    return {m_bytes.constData() + it.name, static_cast<std::size_t>(it.nameSize)};
}

const VxFbxValue *VxFbxRecords::value(Index record, int index) const
{
    if (record == None || index < 0 || index >= valueCount(record))
        return nullptr;
    return &m_values[m_records[record].firstValue + static_cast<Index>(index)];
}

std::string_view VxFbxRecords::characters(const VxFbxValue *value) const
{
    if (!value || (value->code != VxFbxValue::String && value->code != VxFbxValue::Word))
        return {};
    return {m_bytes.constData() + value->offset, static_cast<std::size_t>(value->size)};
}

QString VxFbxRecords::text(const VxFbxValue *value) const
{
    const std::string_view bytes = characters(value);
    const QString text = QString::fromUtf8(bytes.data(), static_cast<int>(bytes.size()));
    return m_isText ? withoutEntities(text) : text;
}

// Whole numbers keep all their 64 bits.
std::optional<std::variant<qint64, double>> VxFbxRecords::scalar(const VxFbxValue *value) const
{
    if (!value)
        return std::nullopt;
    const char *at = m_bytes.constData() + value->offset;
    switch (value->code) {
    case 'C':
    case 'B':
    case 'Z':
        return qint64(static_cast<quint8>(*at));
    case 'Y':
        return qint64(qFromLittleEndian<qint16>(at));
    case 'I':
        return qint64(qFromLittleEndian<qint32>(at));
    case 'L':
        return qFromLittleEndian<qint64>(at);
    case 'F':
        return static_cast<double>(qFromLittleEndian<float>(at));
    case 'D':
        return qFromLittleEndian<double>(at);
    case VxFbxValue::Number: {
        qint64 whole = 0;
        double real = 0.0;
        const std::from_chars_result result = std::from_chars(at, at + value->size, whole);
        if (result.ec == std::errc() && result.ptr == at + value->size)
            return whole;
        if (vxFbxTextNumber({at, static_cast<std::size_t>(value->size)}, &real))
            return real;
        return std::nullopt;
    }
    default:
        return std::nullopt;
    }
}

bool VxFbxRecords::number(const VxFbxValue *value, double *out) const
{
    const auto any = scalar(value);
    if (any)
        *out = std::visit([](auto number) { return static_cast<double>(number); }, *any);
    return any.has_value();
}

double VxFbxRecords::finite(const VxFbxValue *value, double fallback) const
{
    double result = 0.0;
    return number(value, &result) && std::isfinite(result) ? result : fallback;
}

bool VxFbxRecords::integer(const VxFbxValue *value, qint64 *out) const
{
    const auto any = scalar(value);
    if (!any)
        return false;
    if (const qint64 *whole = std::get_if<qint64>(&*any)) {
        *out = *whole;
        return true;
    }
    const double real = std::get<double>(*any);
    if (!(std::abs(real) < 9.0e18) || std::floor(real) != real)
        return false;
    *out = static_cast<qint64>(real);
    return true;
}

bool VxFbxRecords::fail(VxFileError *error, qint32 offset, const QString &message) const
{
    vxFail(error, message);
    if (!m_isText) {
        error->offset = offset;
        return false;
    }
    const char *begin = m_bytes.constData();
    error->line =
        1 + vxLinesBefore(begin, begin + std::min(offset, m_bytes.size()), begin + m_bytes.size());
    return false;
}
