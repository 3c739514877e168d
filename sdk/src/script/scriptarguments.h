#ifndef SCRIPT_SCRIPTARGUMENTS_H
#define SCRIPT_SCRIPTARGUMENTS_H

#include "scene/deferreddeletion.h"
#include "script/scripttext.h"

#include <QtCore/QVector>
#include <QtScript/QScriptContext>
#include <QtScript/QScriptEngine>
#include <QtScript/QScriptValue>
#include <vxcore/vxtimerange.h>

/// Reads and checks the arguments of one call of a native function.
///
/// Scripts can pass anything; a value of the wrong type must end in a message that names the
/// function and the argument, not in a silent zero. The first failure is stored: the function
/// continues with harmless values, checks failed(), and returns error(), which throws in the
/// script.
class ScriptArguments
{
public:
    ScriptArguments(QScriptContext *context, const char *function);

    int count() const;
    bool has(int index) const;

    int integer(int index, const char *name);
    int integer(int index, const char *name, int defaultValue);
    double number(int index, const char *name);
    double number(int index, const char *name, double defaultValue);
    bool boolean(int index, const char *name);
    QString text(int index, const char *name);
    QVector<int> integers(int index, const char *name);
    QScriptValue array(int index, const char *name);
    /// An object with whole numbers as start and end.
    VxTimeRange range(int index, const char *name);

    /// The object that the function was called on, or that an argument refers to; a failure when it
    /// is of another class or has been destroyed.
    template <class Class> Class *self()
    {
        auto *object = qobject_cast<Class *>(m_context->thisObject().toQObject());
        if (!object)
            fail(ScriptText::tr("is called on an object that is not a %1 or no longer exists")
                     .arg(QLatin1String(Class::staticMetaObject.className())));
        return object;
    }
    template <class Class> Class *object(int index, const char *name)
    {
        auto *object = qobject_cast<Class *>(m_context->argument(index).toQObject());
        if (!object)
            failArgument(index, name, QLatin1String(Class::staticMetaObject.className()));
        return object;
    }

    bool failed() const { return !m_message.isEmpty(); }
    void fail(const QString &message);
    /// Throws the first failure in the script.
    QScriptValue error() const;

    QScriptContext *context() const { return m_context; }
    QScriptEngine *engine() const { return m_context->engine(); }

private:
    void failArgument(int index, const char *name, const QString &expected);
    int toInteger(const QScriptValue &value, int index, const char *name);
    double toNumber(const QScriptValue &value, int index, const char *name);

    /// Listeners may remove objects of the call.
    DeferredDeletion m_hold;
    QScriptContext *m_context;
    QString m_function;
    QString m_message;
};

/// A native function of a script object.
struct ScriptFunction
{
    const char *name;
    QScriptEngine::FunctionSignature function;
    int length; ///< the number of arguments it expects
};

/// Installs functions on a script object; scripts can neither replace nor list them.
template <int Count>
void installFunctions(QScriptEngine *engine, QScriptValue &object,
                      const ScriptFunction (&functions)[Count])
{
    for (const ScriptFunction &entry : functions) {
        object.setProperty(QLatin1String(entry.name),
                           engine->newFunction(entry.function, entry.length),
                           QScriptValue::SkipInEnumeration | QScriptValue::ReadOnly);
    }
}

/// The script value of a host object: one wrapper an object, owned by the host. Null gives null.
QScriptValue toScript(QScriptEngine *engine, QObject *object);

/// A script array of host objects.
template <class Objects> QScriptValue toScriptArray(QScriptEngine *engine, const Objects &objects)
{
    QScriptValue array = engine->newArray(uint(objects.size()));
    for (int i = 0; i < objects.size(); ++i)
        array.setProperty(quint32(i), toScript(engine, objects.at(i)));
    return array;
}

#endif
