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
        return QRegExp(rest, Qt::CaseInsensitive, QRegExp::Wildcard);
    return QRegExp(QLatin1Char('*') + rest + QLatin1Char('*'), Qt::CaseInsensitive,
                   QRegExp::Wildcard);
}
