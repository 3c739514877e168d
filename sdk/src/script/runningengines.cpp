#include "script/runningengines.h"

#include "scene/signalcalls.h"

#include <QtCore/QVector>
#include <QtScript/QScriptContext>
#include <QtScript/QScriptEngine>

namespace {

QVector<QScriptEngine *> &engines()
{
    static QVector<QScriptEngine *> list;
    return list;
}

bool throwInScript(const QString &message)
{
    QScriptContext *context = RunningEngines::callingContext();
    if (context)
        context->throwError(QScriptContext::TypeError, message);
    return context != nullptr;
}

} // namespace

void RunningEngines::add(QScriptEngine *engine)
{
    SignalCalls::throwInScript = throwInScript;
    engines().append(engine);
}

void RunningEngines::remove(QScriptEngine *engine)
{
    engines().removeAll(engine);
}

QScriptContext *RunningEngines::callingContext()
{
    const QVector<QScriptEngine *> &list = engines();
    for (int i = list.size() - 1; i >= 0; --i) {
        QScriptContext *context = list.at(i)->currentContext();
        if (context && context->callee().isFunction())
            return context;
    }
    return nullptr;
}
