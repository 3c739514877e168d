#include "vxtimeline/rows/dopesheetfiltertext.h"

namespace {

// Removes a prefix from the text, ignoring case. False when the text begins otherwise.
bool removePrefix(QString &text, const QString &prefix)
{
    if (!text.startsWith(prefix, Qt::CaseInsensitive))
        return false;
    text.remove(0, prefix.size());
    return true;
}

// The end of the character set that begins at an opening bracket; -1 when the bracket is never
// closed. A closing bracket in first position belongs to the set.
int endOfSet(const QString &wildcard, int begin)
{
    const bool isInverted = wildcard.midRef(begin + 1).startsWith(QLatin1Char('^'));
    return wildcard.indexOf(QLatin1Char(']'), begin + (isInverted ? 3 : 2));
}

// A wildcard pattern as an expression for the whole name, because the filter model also accepts a
// partial match. An opening bracket without a closing one is literal.
QString wholeNameExpression(const QString &wildcard)
{
    QString expression;
    for (int i = 0; i < wildcard.size(); ++i) {
        const QChar c = wildcard.at(i);
        const int setEnd = c == QLatin1Char('[') ? endOfSet(wildcard, i) : -1;
        if (setEnd >= 0) {
            QString set = wildcard.mid(i, setEnd - i + 1);
            expression += set.replace(QLatin1Char('\\'), QLatin1String("\\\\"));
            i = setEnd;
        } else if (c == QLatin1Char('*')) {
            expression += QLatin1String(".*");
        } else if (c == QLatin1Char('?')) {
            expression += QLatin1Char('.');
        } else {
            expression += QRegExp::escape(QString(c));
        }
    }
    return QLatin1Char('^') + expression + QLatin1Char('$');
}

} // namespace

QRegExp dopeSheetFilterPattern(const QString &text)
{
    QString rest = text;
    if (rest.isEmpty())
        return QRegExp(QString(), Qt::CaseInsensitive);
    if (removePrefix(rest, QStringLiteral("rx::"))) {
        const bool ignoresCase = removePrefix(rest, QStringLiteral("ci::"));
        return QRegExp(rest, ignoresCase ? Qt::CaseInsensitive : Qt::CaseSensitive);
    }
    if (removePrefix(rest, QStringLiteral("wc::")))
        return QRegExp(wholeNameExpression(rest), Qt::CaseInsensitive);
    const QString anywhere = QLatin1Char('*') + rest + QLatin1Char('*');
    const QRegExp pattern(anywhere, Qt::CaseInsensitive, QRegExp::Wildcard);
    // A bracket that is not closed, or not yet, would match no name.
    return pattern.isValid() ? pattern
                             : QRegExp(wholeNameExpression(anywhere), Qt::CaseInsensitive);
}
