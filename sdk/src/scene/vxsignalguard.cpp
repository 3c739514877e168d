#include <vxcore/vxsignalguard.h>

#include "scene/signalcalls.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QMetaMethod>

bool (*SignalCalls::throwInScript)(const QString &message) = nullptr;

bool vxRefuseSignalCall(const QObject *object, int methodIndex)
{
    const QMetaMethod method = object->metaObject()->method(methodIndex);
    if (method.methodType() != QMetaMethod::Signal)
        return false;
    const QString message =
        QCoreApplication::translate("ScriptText",
                                    "%1.%2 is a signal: it can be connected, but not called")
            .arg(QLatin1String(object->metaObject()->className()),
                 QLatin1String(method.methodSignature()));
    if (!SignalCalls::throwInScript || !SignalCalls::throwInScript(message))
        qWarning("%s", qUtf8Printable(message));
    return true;
}
