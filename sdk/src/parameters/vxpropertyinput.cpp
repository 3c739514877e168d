#include "parameters/vxpropertyinput.h"

#include <QtCore/QByteArray>
#include <charconv>
#include <cmath>

namespace {

constexpr int MostNested = 50;

/// Goes through a text without blanks once, one function a rank of operators. A text that does not
/// fit makes the result no number, which stays so whatever is done with it.
class Arithmetic
{
public:
    explicit Arithmetic(const QByteArray &text)
        : m_at(text.constData())
        , m_end(text.constData() + text.size())
    {
    }

    double result()
    {
        const double value = sum();
        return m_at == m_end ? value : std::nan("");
    }

private:
    bool take(char sign)
    {
        const bool here = m_at != m_end && *m_at == sign;
        m_at += here;
        return here;
    }

    double sum()
    {
        double value = product();
        for (;;) {
            if (take('+'))
                value += product();
            else if (take('-'))
                value -= product();
            else
                return value;
        }
    }

    double product()
    {
        double value = factor();
        for (;;) {
            if (take('*'))
                value *= factor();
            else if (take('/'))
                value /= factor();
            else
                return value;
        }
    }

    double factor()
    {
        bool negative = false;
        while (m_at != m_end && (*m_at == '+' || *m_at == '-'))
            negative ^= *m_at++ == '-';
        const double value = take('(') ? nested() : number();
        return negative ? -value : value;
    }

    double nested()
    {
        if (++m_depth > MostNested)
            return std::nan("");
        const double value = sum();
        --m_depth;
        return take(')') ? value : std::nan("");
    }

    double number()
    {
        // A letter would be a word such as "inf".
        if (m_at == m_end || !(*m_at == '.' || (*m_at >= '0' && *m_at <= '9')))
            return std::nan("");
        double value = 0;
        const auto read = std::from_chars(m_at, m_end, value);
        if (read.ec != std::errc())
            return std::nan("");
        m_at = read.ptr;
        return value;
    }

    const char *m_at;
    const char *m_end;
    int m_depth = 0;
};

QByteArray plain(const QString &text)
{
    QByteArray bytes;
    for (const QChar letter : text) {
        if (letter == QLatin1Char(','))
            bytes.append('.');
        else if (!letter.isSpace())
            bytes.append(letter.unicode() < 128 ? letter.toLatin1() : '?');
    }
    return bytes;
}

} // namespace

VxPropertyInput VxPropertyInput::read(const QString &text)
{
    QByteArray bytes = plain(text);
    if (bytes.isEmpty())
        return {};
    VxPropertyInput input = {Value, 0};
    const char sign = bytes.size() > 1 && bytes.at(1) == '=' ? bytes.at(0) : '\0';
    if (sign != '\0')
        bytes.remove(0, 2);
    if (sign == '+' || sign == '-')
        input.kind = Offset;
    else if (sign == '*' || sign == '/')
        input.kind = Factor;
    if (bytes.endsWith('%'))
        bytes.chop(1);
    input.amount = Arithmetic(bytes).result();
    if (sign == '-')
        input.amount = -input.amount;
    else if (sign == '/')
        input.amount = 1 / input.amount;
    if (!std::isfinite(input.amount))
        return {Unreadable, 0};
    return input;
}

double VxPropertyInput::appliedTo(double present) const
{
    switch (kind) {
    case Value:
        return amount;
    case Offset:
        return present + amount;
    case Factor:
        return present * amount;
    default:
        return present;
    }
}
