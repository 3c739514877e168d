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

// A wildcard pattern as an expression for the whole name: the filter model would be content with a
// part of it. An opening bracket without a closing one stands for itself.
QString wholeNameExpression(const QString &wildcard)
{
    QString expression;
    for (int i = 0; i < wildcard.size(); ++i) {
        const QChar c = wildcard.at(i);
        const int setEnd = c == QLatin1Char('[') ? wildcard.indexOf(QLatin1Char(']'), i + 2) : -1;
        if (setEnd >= 0) {
            expression += wildcard.mid(i, setEnd - i + 1);
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
    return QRegExp(QLatin1Char('*') + rest + QLatin1Char('*'), Qt::CaseInsensitive,
                   QRegExp::Wildcard);
}
