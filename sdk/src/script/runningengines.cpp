#include "script/runningengines.h"

#include <QtCore/QVector>
#include <QtScript/QScriptContext>
#include <QtScript/QScriptEngine>

namespace {

QVector<QScriptEngine *> &engines()
{
    static QVector<QScriptEngine *> list;
    return list;
}

} // namespace

void RunningEngines::add(QScriptEngine *engine)
{
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
