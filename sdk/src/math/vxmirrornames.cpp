#include <vxcore/vxmirrornames.h>

#include <QtCore/QStringList>

namespace {

/// The part of a name that matches a pattern's star; null when the pattern does not match.
QString sharedPart(const QString &name, const QString &pattern)
{
    const int star = pattern.indexOf(QLatin1Char('*'));
    const QString before = pattern.left(star);
    const QString after = pattern.mid(star + 1);
    if (name.size() <= before.size() + after.size() || !name.startsWith(before) ||
        !name.endsWith(after))
        return QString();
    QString shared = name.mid(before.size(), name.size() - before.size() - after.size());
    if (!before.isEmpty() && before.back().isLower() && shared.front().isLower())
        return QString();
    if (!after.isEmpty() && after.front().isUpper() && shared.back().isUpper())
        return QString();
    return shared;
}

QString applied(const QString &pattern, const QString &shared)
{
    QString name = pattern;
    return name.replace(name.indexOf(QLatin1Char('*')), 1, shared);
}

bool isPattern(const QString &text)
{
    return text.count(QLatin1Char('*')) == 1 && text.size() > 1;
}

} // namespace

QVector<VxMirrorNames::Pair> VxMirrorNames::defaultPairs()
{
    static const char text[] = "Left*/Right*, left*/right*, *Left/*Right, *_left/*_right, L_*/R_*, "
                               "l_*/r_*, *_L/*_R, *_l/*_r, *.L/*.R, *.l/*.r, l*/r*";
    return pairsFromText(QString::fromLatin1(text));
}

VxMirrorNames::VxMirrorNames(const QVector<Pair> &pairs)
    : m_pairs(pairs)
{
}

QString VxMirrorNames::mirrored(const QString &name) const
{
    const int start = name.lastIndexOf(QLatin1Char(':')) + 1;
    const QString own = name.mid(start);
    for (const Pair &pair : m_pairs) {
        const QString left = sharedPart(own, pair.first);
        if (!left.isEmpty())
            return name.left(start) + applied(pair.second, left);
        const QString right = sharedPart(own, pair.second);
        if (!right.isEmpty())
            return name.left(start) + applied(pair.first, right);
    }
    return QString();
}

QVector<VxMirrorNames::Pair> VxMirrorNames::pairsFromText(const QString &text, QString *error)
{
    QVector<Pair> pairs;
    for (const QString &part : text.split(QLatin1Char(','))) {
        const QStringList patterns = part.trimmed().split(QLatin1Char('/'));
        if (patterns.size() != 2 || !isPattern(patterns[0]) || !isPattern(patterns[1]) ||
            patterns[0] == patterns[1]) {
            if (error)
                *error = part.trimmed();
            return {};
        }
        pairs.append({patterns[0], patterns[1]});
    }
    return pairs;
}
