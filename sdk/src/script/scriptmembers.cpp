#include "script/scriptmembers.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QSet>
#include <QtScript/QScriptValue>
#include <QtScript/QScriptValueIterator>
#include <algorithm>

namespace {

// A chain of prototypes is short; a longer one is cyclic.
constexpr int LongestChain = 32;

bool isName(const QString &text)
{
    static const QRegularExpression form(QStringLiteral("\\A[A-Za-z_$][A-Za-z0-9_$]*\\z"));
    return form.match(text).hasMatch();
}

} // namespace

QStringList ScriptMembers::steps(const QString &expression)
{
    static const QRegularExpression form(QStringLiteral(
        "\\G(?:(?<dot>\\.)?(?<name>[A-Za-z_$][A-Za-z0-9_$]*)|\\[(?<index>\\d+)\\])"));
    QStringList list;
    int at = 0;
    while (at < expression.size()) {
        const QRegularExpressionMatch match = form.match(expression, at);
        const bool isFirst = list.isEmpty();
        const bool hasDot = match.capturedLength(QStringLiteral("dot")) > 0;
        const QString index = match.captured(QStringLiteral("index"));
        // The first step is a name without a dot, each further one has a dot or brackets.
        if (!match.hasMatch() || (isFirst && (hasDot || !index.isEmpty())) ||
            (!isFirst && !hasDot && index.isEmpty()))
            return {};
        list.append(index.isEmpty() ? match.captured(QStringLiteral("name")) : index);
        at = match.capturedEnd();
    }
    return list;
}

QScriptValue ScriptMembers::resolve(const QScriptValue &global, const QString &expression)
{
    const QStringList path = steps(expression);
    QScriptValue value = path.isEmpty() ? QScriptValue() : global;
    for (const QString &step : path) {
        value = value.property(step);
        if (!value.isObject())
            break;
    }
    return value;
}

QStringList ScriptMembers::names(const QScriptValue &value)
{
    QSet<QString> found;
    QScriptValue object = value;
    for (int i = 0; i < LongestChain && object.isObject(); ++i) {
        QScriptValueIterator it(object);
        while (it.hasNext()) {
            it.next();
            // Functions of a host object are listed with their argument types.
            const QString name = it.name().section(QLatin1Char('('), 0, 0);
            if (isName(name))
                found.insert(name);
        }
        object = object.prototype();
    }
    QStringList list = found.values();
    std::sort(list.begin(), list.end());
    return list;
}
