#ifndef SCRIPTARGUMENTS_H
#define SCRIPTARGUMENTS_H

#include "scene/deferreddeletion.h"
#include "script/scripttext.h"

#include <QtCore/QVector>
#include <QtScript/QScriptContext>
#include <QtScript/QScriptEngine>
#include <QtScript/QScriptValue>
#include <vxcore/vxtimerange.h>

/// The exception of a call with an unusable argument; it is thrown in the script.
struct ScriptFailure
{
    QString message;
};

/// Reads and checks the arguments of one call of a native function.
///
/// Scripts can pass anything; a value of the wrong type must end in a message that names the
/// function and the argument, not in a silent zero: reading it throws a ScriptFailure, so that all
/// arguments are read before anything is changed.
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
    bool boolean(int index, const char *name, bool defaultValue);
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

    /// The same; null gives null.
    template <class Class> Class *objectOrNull(int index, const char *name)
    {
        return m_context->argument(index).isNull() ? nullptr : object<Class>(index, name);
    }

    [[noreturn]] void fail(const QString &message) const;

    QScriptContext *context() const { return m_context; }
    QScriptEngine *engine() const { return m_context->engine(); }

private:
    [[noreturn]] void failArgument(int index, const char *name, const QString &expected) const;
    int toInteger(const QScriptValue &value, int index, const char *name);
    double toNumber(const QScriptValue &value, int index, const char *name);

    /// Listeners may remove objects of the call.
    DeferredDeletion m_hold;
    QScriptContext *m_context;
    QString m_function;
};

/// A native function of a script object. An invalid result is undefined for the script.
struct ScriptFunction
{
    const char *name; ///< for messages, such as "App.findPane()"; its last part is the member's
    QScriptValue (*function)(ScriptArguments &arguments);
    int length; ///< the number of arguments it expects
};

/// The script value of a function, which must outlive the engine.
QScriptValue toScript(QScriptEngine *engine, const ScriptFunction &function);

/// Installs functions on a script object; scripts can neither replace nor list them.
template <int Count>
void installFunctions(QScriptEngine *engine, QScriptValue &object,
                      const ScriptFunction (&functions)[Count])
{
    for (const ScriptFunction &entry : functions) {
        const QString name = QString::fromLatin1(entry.name).section(QLatin1Char('.'), -1);
        object.setProperty(name.chopped(2), toScript(engine, entry),
                           QScriptValue::SkipInEnumeration | QScriptValue::ReadOnly);
    }
}

/// The script value of a host object: one wrapper an object, owned by the host. Null gives null.
QScriptValue toScript(QScriptEngine *engine, QObject *object);

/// A script array of item(0), item(1) and so on.
template <class Item> QScriptValue makeArray(QScriptEngine *engine, int count, const Item &item)
{
    QScriptValue array = engine->newArray(uint(count));
    for (int i = 0; i < count; ++i)
        array.setProperty(quint32(i), item(i));
    return array;
}

/// A script array of host objects.
template <class Objects> QScriptValue toScriptArray(QScriptEngine *engine, const Objects &objects)
{
    return makeArray(engine, objects.size(),
                     [&](int i) { return toScript(engine, objects.at(i)); });
}

#endif
