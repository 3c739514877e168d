#include "create/namenumbers.h"

#include <QStringList>
#include <algorithm>
#include <vxcore/vxmirrornames.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>

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

QString keyOf(const QString &stem, const QString &side)
{
    return stem + QChar(QChar::LineFeed) + side;
}

} // namespace

NameNumbers::NameNumbers(const VxScene *scene)
{
    for (const VxNode *node : scene->getNodes())
        add(node->getName());
}

NameNumbers::Parts NameNumbers::split(const QString &name)
{
    const int side = sideStart(name);
    Parts parts{name.left(side), name.mid(side), 1};
    int digits = parts.stem.size();
    while (digits > 0 && parts.stem.at(digits - 1).unicode() >= '0' &&
           parts.stem.at(digits - 1).unicode() <= '9')
        --digits;
    const int count = parts.stem.size() - digits;
    if (count == 0 || count > MaxDigits || digits < 2 ||
        parts.stem.at(digits - 1) != QLatin1Char('_'))
        return parts;
    const int number = parts.stem.mid(digits).toInt();
    // "Spine_01" and "Spine_1" are names of their own, not copies.
    if (number < 2 || parts.stem.at(digits) == QLatin1Char('0'))
        return parts;
    parts.number = number;
    parts.stem.truncate(digits - 1);
    return parts;
}

QString NameNumbers::join(const Parts &parts)
{
    return parts.number < 2
               ? parts.stem + parts.side
               : QStringLiteral("%1_%2%3").arg(parts.stem).arg(parts.number).arg(parts.side);
}

QString NameNumbers::withoutNumber(const QString &name)
{
    const Parts parts = split(name);
    return parts.stem + parts.side;
}

void NameNumbers::add(const QString &name)
{
    const Parts parts = split(name);
    int &highest = m_highest[keyOf(parts.stem, parts.side)];
    highest = std::max(highest, parts.number);
}

int NameNumbers::nextNumber(const Parts &parts) const
{
    return m_highest.value(keyOf(parts.stem, parts.side), 0) + 1;
}

QString NameNumbers::take(Parts parts, int number)
{
    parts.number = number;
    QString name = join(parts);
    int &highest = m_highest[keyOf(parts.stem, parts.side)];
    highest = std::max(highest, number);
    return name;
}

QString NameNumbers::unique(const QString &name)
{
    const Parts parts = split(name);
    return take(parts, nextNumber(parts));
}

QStringList NameNumbers::copies(const QVector<VxNode *> &nodes)
{
    int number = 2;
    for (const VxNode *node : nodes)
        number = std::max(number, nextNumber(split(node->getName())));
    QStringList names;
    for (const VxNode *node : nodes) {
        const Parts parts = split(node->getName());
        names.append(take(parts, std::max(number, nextNumber(parts))));
    }
    return names;
}
