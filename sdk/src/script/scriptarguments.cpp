#include "script/scriptarguments.h"

#include <cmath>
#include <limits>

namespace {

bool isWhole(const QScriptValue &value)
{
    const double number = value.toNumber();
    return value.isNumber() && number == std::floor(number) &&
           number >= std::numeric_limits<int>::min() && number <= std::numeric_limits<int>::max();
}

QScriptValue call(QScriptContext *context, QScriptEngine *, void *function)
{
    const auto *entry = static_cast<const ScriptFunction *>(function);
    try {
        ScriptArguments arguments(context, entry->name);
        return entry->function(arguments);
    } catch (const ScriptFailure &failure) {
        return context->throwError(QScriptContext::TypeError, failure.message);
    }
}

} // namespace

ScriptArguments::ScriptArguments(QScriptContext *context, const char *function)
    : m_context(context)
    , m_function(QLatin1String(function))
{
}

int ScriptArguments::count() const
{
    return m_context->argumentCount();
}

bool ScriptArguments::has(int index) const
{
    return index < count() && !m_context->argument(index).isUndefined();
}

int ScriptArguments::integer(int index, const char *name)
{
    return toInteger(m_context->argument(index), index, name);
}

int ScriptArguments::integer(int index, const char *name, int defaultValue)
{
    return has(index) ? integer(index, name) : defaultValue;
}

double ScriptArguments::number(int index, const char *name)
{
    return toNumber(m_context->argument(index), index, name);
}

double ScriptArguments::number(int index, const char *name, double defaultValue)
{
    return has(index) ? number(index, name) : defaultValue;
}

bool ScriptArguments::boolean(int index, const char *name)
{
    const QScriptValue value = m_context->argument(index);
    if (!value.isBool())
        failArgument(index, name, ScriptText::tr("true or false"));
    return value.toBool();
}

bool ScriptArguments::boolean(int index, const char *name, bool defaultValue)
{
    return has(index) ? boolean(index, name) : defaultValue;
}

QString ScriptArguments::text(int index, const char *name)
{
    const QScriptValue value = m_context->argument(index);
    if (!value.isString())
        failArgument(index, name, ScriptText::tr("a string"));
    return value.toString();
}

QScriptValue ScriptArguments::array(int index, const char *name)
{
    const QScriptValue value = m_context->argument(index);
    if (!value.isArray())
        failArgument(index, name, ScriptText::tr("an array"));
    return value;
}

QVector<int> ScriptArguments::integers(int index, const char *name)
{
    const QScriptValue values = array(index, name);
    QVector<int> list;
    const quint32 length = values.property(QStringLiteral("length")).toUInt32();
    for (quint32 i = 0; i < length; ++i)
        list.append(toInteger(values.property(i), index, name));
    return list;
}

VxTimeRange ScriptArguments::range(int index, const char *name)
{
    const QScriptValue value = m_context->argument(index);
    VxTime ends[2] = {0, 0};
    const QString names[2] = {QStringLiteral("start"), QStringLiteral("end")};
    for (int i = 0; i < 2; ++i) {
        const QScriptValue end = value.property(names[i]);
        if (!value.isObject() || !isWhole(end))
            failArgument(index, name,
                         ScriptText::tr("an object with whole numbers as start and end"));
        ends[i] = VxTime(end.toNumber());
    }
    return {ends[0], ends[1]};
}

void ScriptArguments::fail(const QString &message) const
{
    throw ScriptFailure{m_function + QLatin1Char(' ') + message};
}

void ScriptArguments::failArgument(int index, const char *name, const QString &expected) const
{
    const QScriptValue value = m_context->argument(index);
    const QString given = index < count() ? value.toString() : ScriptText::tr("nothing");
    fail(ScriptText::tr("expects %1 as argument %2 (%3), not %4")
             .arg(expected)
             .arg(index + 1)
             .arg(QLatin1String(name), given));
}

int ScriptArguments::toInteger(const QScriptValue &value, int index, const char *name)
{
    if (!isWhole(value))
        failArgument(index, name, ScriptText::tr("a whole number"));
    return static_cast<int>(value.toNumber());
}

double ScriptArguments::toNumber(const QScriptValue &value, int index, const char *name)
{
    const double number = value.toNumber();
    if (!value.isNumber() || !std::isfinite(number))
        failArgument(index, name, ScriptText::tr("a finite number"));
    return number;
}

QScriptValue toScript(QScriptEngine *engine, QObject *object)
{
    if (!object)
        return engine->nullValue();
    return engine->newQObject(object, QScriptEngine::QtOwnership,
                              QScriptEngine::PreferExistingWrapperObject |
                                  QScriptEngine::ExcludeDeleteLater |
                                  QScriptEngine::ExcludeChildObjects);
}

QScriptValue toScript(QScriptEngine *engine, const ScriptFunction &function)
{
    // Not as the function's data, which scripts can replace.
    void *entry = const_cast<ScriptFunction *>(&function); // call() only reads
    QScriptValue value = engine->newFunction(call, entry);
    value.setProperty(QStringLiteral("length"), function.length,
                      QScriptValue::ReadOnly | QScriptValue::Undeletable |
                          QScriptValue::SkipInEnumeration);
    return value;
}
