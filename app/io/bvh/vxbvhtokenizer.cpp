#include "io/bvh/vxbvhtokenizer.h"

#include "io/vxfiletext.h"
#include "io/vxtextbytes.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace {

bool isDelimiter(char c)
{
    return vxIsSpace(c) || c == '{' || c == '}' || c == ':';
}

char lowered(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// Whether the absolute value of a decimal number that does not fit a double is below 1.
bool isTiny(const char *from, const char *to)
{
    const char *mark = std::find_if(from, to, [](char c) { return c == 'e' || c == 'E'; });
    qint64 exponent = 0;
    if (mark != to) {
        const char *digits = mark + 1 + (mark + 1 != to && mark[1] == '+');
        if (std::from_chars(digits, to, exponent).ec == std::errc::result_out_of_range)
            return *digits == '-';
    }
    const char *point = std::find(from, mark, '.');
    const char *first = std::find_if(from, mark, [](char c) { return c >= '1' && c <= '9'; });
    const qint64 place = first < point ? point - first - 1 : point - first;
    return first == mark || place + exponent < 0;
}

// For numbers that do not fit T. A double decides whether the number is too small, which becomes
// zero or denormal, or too large.
template <typename T>
VxBvhTokenizer::NumberResult narrowed(const char *from, const char *to, T *out)
{
    double wide = 0.0;
    const std::from_chars_result result = std::from_chars(from, to, wide);
    // Out of range in double precision is either far too large or rounds to zero.
    if (result.ec == std::errc::result_out_of_range && isTiny(from, to))
        wide = 0.0;
    else if (result.ec != std::errc() || std::abs(wide) > 1.0)
        return VxBvhTokenizer::NumberResult::OutOfRange;
    *out = static_cast<T>(wide);
    return VxBvhTokenizer::NumberResult::Ok;
}

} // namespace

bool VxBvhTokenizer::Word::is(const char *lower) const
{
    int i = 0;
    for (; i < size && lower[i]; ++i) {
        if (lowered(data[i]) != lower[i])
            return false;
    }
    return i == size && !lower[i];
}

QString VxBvhTokenizer::Word::shown() const
{
    return VxFileText::shown({data, std::size_t(size)});
}

VxBvhTokenizer::VxBvhTokenizer(const QByteArray &bytes)
    : m_begin(bytes.constData())
    , m_at(m_begin)
    , m_end(m_begin + bytes.size())
{
    if (bytes.startsWith("\xEF\xBB\xBF"))
        m_at += 3;
}

void VxBvhTokenizer::skipBlanks()
{
    for (; m_at < m_end && vxIsSpace(*m_at); ++m_at)
        m_line += vxEndsLine(m_at, m_end);
}

VxBvhTokenizer::Word VxBvhTokenizer::next()
{
    skipBlanks();
    const char *start = m_at;
    while (m_at < m_end && !isDelimiter(*m_at))
        ++m_at;
    if (m_at == start && m_at < m_end)
        ++m_at; // a brace or a colon
    return {start, static_cast<int>(m_at - start), m_line};
}

VxBvhTokenizer::Word VxBvhTokenizer::peek()
{
    skipBlanks();
    const char *start = m_at;
    const Word word = next();
    m_at = start;
    return word;
}

VxBvhTokenizer::Word VxBvhTokenizer::restOfLine()
{
    while (m_at < m_end && vxIsSpace(*m_at) && *m_at != '\n' && *m_at != '\r')
        ++m_at;
    const char *start = m_at;
    while (m_at < m_end && *m_at != '\n' && *m_at != '\r')
        ++m_at;
    const auto trim = [this, start] {
        while (m_at > start && vxIsSpace(m_at[-1]))
            --m_at;
    };
    trim();
    const char *brace = m_at > start && m_at[-1] == '{' ? --m_at : nullptr;
    trim();
    const Word word{start, static_cast<int>(m_at - start), m_line};
    if (brace)
        m_at = brace;
    return word;
}

template <typename T> VxBvhTokenizer::NumberResult VxBvhTokenizer::readNumber(T *value)
{
    skipBlanks();
    if (m_at == m_end)
        return NumberResult::EndOfFile;
    const char *from = m_at;
    if (*from == '+' && m_end - from > 1 && from[1] != '-')
        ++from;
    const std::from_chars_result result = std::from_chars(from, m_end, *value);
    if (result.ptr == from || (result.ptr < m_end && !isDelimiter(*result.ptr)))
        return NumberResult::NotANumber;
    if (result.ec == std::errc::result_out_of_range) {
        const NumberResult outcome = narrowed(from, result.ptr, value);
        if (outcome != NumberResult::Ok)
            return outcome;
    }
    if (!std::isfinite(*value))
        return NumberResult::NotFinite;
    m_at = result.ptr;
    return NumberResult::Ok;
}

template VxBvhTokenizer::NumberResult VxBvhTokenizer::readNumber(float *value);
template VxBvhTokenizer::NumberResult VxBvhTokenizer::readNumber(double *value);

qint64 VxBvhTokenizer::lastLine() const
{
    return m_begin == m_end ? 1 : 1 + vxLinesBefore(m_begin, m_end - 1, m_end);
}

bool VxBvhTokenizer::isAtEnd()
{
    skipBlanks();
    return m_at == m_end;
}

qint64 VxBvhTokenizer::firstBinaryLine() const
{
    for (const char *at = m_begin; at < m_end; ++at) {
        const auto code = static_cast<unsigned char>(*at);
        if ((code < 0x20 && !vxIsSpace(*at)) || code == 0x7F)
            return 1 + vxLinesBefore(m_begin, at, m_end);
    }
    return -1;
}
