#include <vxcore/vxcopyname.h>

#include <algorithm>
#include <vxcore/vxmirrornames.h>

namespace {

constexpr int MaxDigits = 6; // longer ones are part of the name

bool isSeparator(QChar c)
{
    return c == QLatin1Char('_') || c == QLatin1Char('.');
}

/** Where the side at the end of a name begins, with its separator; the length for other names. */
int sideStart(const QString &name)
{
    static const VxMirrorNames names;
    const QString other = names.mirrored(name);
    const int shorter = std::min(name.size(), other.size());
    int start = 0;
    while (start < shorter && name.at(start) == other.at(start))
        ++start;
    // A difference at the beginning, or after a name space, is a prefix such as Left.
    if (other.isEmpty() || start == 0 || name.at(start - 1) == QLatin1Char(':'))
        return name.size();
    while (start > 0 && isSeparator(name.at(start - 1)))
        --start;
    return start == 0 ? name.size() : start;
}

} // namespace

VxCopyName VxCopyName::read(const QString &name)
{
    const int side = sideStart(name);
    VxCopyName parts{name.left(side), name.mid(side), 1};
    int digits = parts.stem.size();
    while (digits > 0 && parts.stem.at(digits - 1).unicode() >= '0' &&
           parts.stem.at(digits - 1).unicode() <= '9')
        --digits;
    const int count = parts.stem.size() - digits;
    if (count == 0 || count > MaxDigits || digits < 2 ||
        parts.stem.at(digits - 1) != QLatin1Char('_'))
        return parts;
    const int found = parts.stem.mid(digits).toInt();
    // "Spine_01" and "Spine_1" are names of their own, not copies.
    if (found < 2 || parts.stem.at(digits) == QLatin1Char('0'))
        return parts;
    parts.number = found;
    parts.stem.truncate(digits - 1);
    return parts;
}

QString VxCopyName::text() const
{
    return number < 2 ? original()
                      : QStringLiteral("%1_%2%3").arg(stem, QString::number(number), side);
}
