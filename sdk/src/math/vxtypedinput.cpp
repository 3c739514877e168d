#include <vxcore/vxtypedinput.h>

#include <QtCore/QByteArray>
#include <charconv>
#include <cmath>
#include <limits>
#include <vxcore/vxtimedisplay.h>

namespace {

constexpr int MaxNesting = 50;
constexpr double NoNumber = std::numeric_limits<double>::quiet_NaN();

/// A number and whether it has a unit of time. NaN for invalid text.
struct Amount
{
    double number = NoNumber;
    bool isTime = false;
};

/// The units of numbers. Without frames there are no units at all.
struct Units
{
    double ticksPerFrame = 0;
    int timecodeFrames = 1;     ///< a second
    bool canDropFrames = false; ///< timecodes with ";"
    bool dropsFrames = false;   ///< timecodes with ":" too

    bool allowed() const { return ticksPerFrame > 0; }
};

/// Parses a text without blanks in one pass, with a function for each operator precedence.
class Arithmetic
{
public:
    Arithmetic(const QByteArray &text, Units units)
        : m_at(text.constData())
        , m_end(text.constData() + text.size())
        , m_units(units)
    {
    }

    /// In ticks where units are allowed: a number without one counts frames.
    double result()
    {
        const Amount amount = sum();
        return m_at == m_end ? inTicks(amount) : NoNumber;
    }
    /// A plain number, for factors.
    double plainResult()
    {
        const Amount amount = sum();
        return m_at == m_end && !amount.isTime ? amount.number : NoNumber;
    }

private:
    bool take(char sign)
    {
        const bool here = m_at != m_end && *m_at == sign;
        m_at += here;
        return here;
    }

    double inTicks(const Amount &amount) const
    {
        return m_units.allowed() && !amount.isTime ? amount.number * m_units.ticksPerFrame
                                                   : amount.number;
    }

    Amount added(const Amount &a, const Amount &b, double sign) const
    {
        if (a.isTime == b.isTime)
            return {a.number + sign * b.number, a.isTime};
        return {inTicks(a) + sign * inTicks(b), true};
    }

    Amount sum()
    {
        Amount amount = product();
        for (;;) {
            if (take('+'))
                amount = added(amount, product(), 1);
            else if (take('-'))
                amount = added(amount, product(), -1);
            else
                return amount;
        }
    }

    Amount product()
    {
        Amount amount = factor();
        for (;;) {
            const bool divides = m_at != m_end && *m_at == '/';
            if (!take('*') && !take('/'))
                return amount;
            const Amount next = factor();
            if (divides) {
                const bool isTime = amount.isTime && !next.isTime;
                amount = {!amount.isTime && next.isTime ? NoNumber : amount.number / next.number,
                          isTime};
            } else {
                const bool isSquare = amount.isTime && next.isTime;
                amount = {isSquare ? NoNumber : amount.number * next.number,
                          amount.isTime || next.isTime};
            }
        }
    }

    Amount factor()
    {
        bool negative = false;
        while (m_at != m_end && (*m_at == '+' || *m_at == '-'))
            negative ^= *m_at++ == '-';
        Amount amount = take('(') ? nested() : number();
        if (negative)
            amount.number = -amount.number;
        return amount;
    }

    Amount nested()
    {
        if (++m_depth > MaxNesting)
            return {};
        const Amount amount = sum();
        --m_depth;
        return take(')') ? amount : Amount();
    }

    double digits()
    {
        // Letters would be parsed as words such as "inf".
        if (m_at == m_end || !(*m_at == '.' || (*m_at >= '0' && *m_at <= '9')))
            return NoNumber;
        double value = 0;
        const auto read = std::from_chars(m_at, m_end, value);
        if (read.ec != std::errc())
            return NoNumber;
        m_at = read.ptr;
        return value;
    }

    Amount number()
    {
        const double value = digits();
        if (!m_units.allowed())
            return {value, false};
        if (m_at != m_end && (*m_at == ':' || *m_at == ';'))
            return timecode(value);
        if (take('s'))
            return {value * VxTicksPerSecond, true};
        if (take('f'))
            return {value * m_units.ticksPerFrame, true};
        if (take('t'))
            return {value, true};
        if (take('m'))
            return {take('s') ? value * VxTicksPerSecond / 1000 : NoNumber, true};
        return {value, false};
    }

    /// The first field has been read; the last one counts frames.
    Amount timecode(double first)
    {
        constexpr int MaxFields = 4;
        double fields[MaxFields] = {0, 0, 0, first};
        int count = 1;
        bool drops = m_units.dropsFrames;
        while (take(':') || isDropSeparator()) {
            if (take(';')) {
                if (!m_units.canDropFrames)
                    return {};
                drops = true;
                count = MaxFields - 1; // frames are last
            }
            if (++count > MaxFields)
                return {};
            std::copy(fields + 1, fields + MaxFields, fields);
            fields[MaxFields - 1] = digits();
        }
        const qint64 frame = VxTimecode::frameOf(fields[0], fields[1], fields[2], fields[3],
                                                 m_units.timecodeFrames, drops);
        return {frame < 0 ? NoNumber : double(frame) * m_units.ticksPerFrame, true};
    }

    bool isDropSeparator() const { return m_at != m_end && *m_at == ';'; }

    const char *m_at;
    const char *m_end;
    Units m_units;
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

/// The operator of a change, such as + for "+=3" and "+3", * for "150%", 0 for none; it is removed.
char takeSign(QByteArray *bytes, VxTypedInput::Signs signs)
{
    if (bytes->size() > 1 && bytes->at(1) == '=') {
        const char sign = bytes->at(0);
        bytes->remove(0, 2);
        return sign;
    }
    if (signs == VxTypedInput::OfValues)
        return '\0';
    const char first = bytes->at(0);
    if (first == '=' || first == '+' || first == '-' || first == '*' || first == '/') {
        bytes->remove(0, 1);
        return first == '=' ? '\0' : first;
    }
    return bytes->endsWith('%') ? '*' : '\0';
}

VxTypedInput readInput(const QString &text, Units units, VxTypedInput::Signs signs)
{
    QByteArray bytes = plain(text);
    if (bytes.isEmpty())
        return {};
    const char sign = takeSign(&bytes, signs);
    VxTypedInput input = {VxTypedInput::Value, 0};
    if (sign == '+' || sign == '-')
        input.kind = VxTypedInput::Offset;
    else if (sign == '*' || sign == '/')
        input.kind = VxTypedInput::Factor;
    else if (sign != '\0')
        return {VxTypedInput::Unreadable, 0};
    const bool isPercent = bytes.endsWith('%');
    if (isPercent)
        bytes.chop(1);
    if (isPercent && units.allowed() && input.kind != VxTypedInput::Factor)
        return {VxTypedInput::Unreadable, 0};
    Arithmetic arithmetic(bytes, units);
    input.amount =
        input.kind == VxTypedInput::Factor ? arithmetic.plainResult() : arithmetic.result();
    if (isPercent && signs == VxTypedInput::OfOffsets)
        input.amount /= 100;
    if (sign == '-')
        input.amount = -input.amount;
    else if (sign == '/')
        input.amount = 1 / input.amount;
    if (!std::isfinite(input.amount))
        return {VxTypedInput::Unreadable, 0};
    return input;
}

} // namespace

VxTypedInput VxTypedInput::read(const QString &text, Signs signs)
{
    return readInput(text, {}, signs);
}

VxTypedInput VxTypedInput::readTime(const QString &text, VxTime ticksPerFrame, Signs signs)
{
    return readTime(text, ticksPerFrame, VxTimeDisplay(), signs);
}

VxTypedInput VxTypedInput::readTime(const QString &text, VxTime ticksPerFrame,
                                    const VxTimeDisplay &display, Signs signs)
{
    if (ticksPerFrame <= 0)
        return {Unreadable, 0};
    const VxFrameRate rate = display.timecodeRate(ticksPerFrame);
    const bool canDrop = rate.canDropFrames();
    return readInput(
        text, {double(ticksPerFrame), rate.nominal(), canDrop, canDrop && display.dropsFrames},
        signs);
}

double VxTypedInput::appliedTo(double present) const
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
