#include "vxtimeline/dopesheet/dopesheetfiltertext.h"

namespace {

// Takes a prefix off the text, whatever its case. False when the text begins otherwise.
bool takePrefix(QString &text, const QString &prefix)
{
    if (!text.startsWith(prefix, Qt::CaseInsensitive))
        return false;
    text.remove(0, prefix.size());
    return true;
}

// Where the set of characters that begins at an opening bracket ends; -1 when the bracket is never
// closed. A closing bracket that stands first in a set belongs to it.
int endOfSet(const QString &wildcard, int begin)
{
    const bool isInverted = wildcard.midRef(begin + 1).startsWith(QLatin1Char('^'));
    return wildcard.indexOf(QLatin1Char(']'), begin + (isInverted ? 3 : 2));
}

// A wildcard pattern as an expression for the whole name: the filter model would be content with a
// part of it. An opening bracket without a closing one stands for itself.
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
    if (takePrefix(rest, QStringLiteral("rx::"))) {
        const bool ignoresCase = takePrefix(rest, QStringLiteral("ci::"));
        return QRegExp(rest, ignoresCase ? Qt::CaseInsensitive : Qt::CaseSensitive);
    }
    if (takePrefix(rest, QStringLiteral("wc::")))
        return QRegExp(wholeNameExpression(rest), Qt::CaseInsensitive);
    const QString anywhere = QLatin1Char('*') + rest + QLatin1Char('*');
    const QRegExp pattern(anywhere, Qt::CaseInsensitive, QRegExp::Wildcard);
    // A bracket that is not closed, or not yet, would let no name through.
    return pattern.isValid() ? pattern
                             : QRegExp(wholeNameExpression(anywhere), Qt::CaseInsensitive);
}
