#include <vxcore/vxsignalguard.h>

#include "script/runningengines.h"

#include <QtCore/QMetaMethod>
#include <QtScript/QScriptContext>
#include <QtScript/QScriptEngine>

bool vxRefuseSignalCall(const QObject *object, int methodIndex)
{
    const QMetaMethod method = object->metaObject()->method(methodIndex);
    if (method.methodType() != QMetaMethod::Signal)
        return false;
    const QString message = QStringLiteral("%1.%2 is a signal: it can be connected, but not called")
                                .arg(QLatin1String(object->metaObject()->className()),
                                     QLatin1String(method.methodSignature()));
    if (QScriptContext *context = RunningEngines::callingContext())
        context->throwError(QScriptContext::TypeError, message);
    else
        qWarning("%s", qUtf8Printable(message));
    return true;
}
