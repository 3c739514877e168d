#include "plugin/vxhostclassfactory.h"

#include <QtScript/QScriptContext>
#include <QtScript/QScriptEngine>

namespace {

QScriptValue construct(QScriptContext *context, QScriptEngine *engine, void *argument)
{
    const auto *factory = static_cast<const VxHostClassFactoryBase *>(argument);
    QObject *object = factory->createInstance(context);
    if (!object)
        return context->throwError(
            QStringLiteral("%1 cannot be constructed").arg(factory->className()));
    // Into the object that "new" has made, where there is one: only that is an instance of the
    // constructor.
    QScriptValue wrapper =
        context->isCalledAsConstructor()
            ? engine->newQObject(context->thisObject(), object, QScriptEngine::QtOwnership)
            : engine->newQObject(object, QScriptEngine::QtOwnership);
    VxClassFactory::registerEnumsOnClass(engine, factory->metaObject(), wrapper);
    return wrapper;
}

} // namespace

void VxHostClassFactoryBase::registerClass(QScriptEngine *engine) const
{
    VxClassFactory::registerClass(engine);
    if (!engine)
        return;
    // The engine hands the pointer back as it is; nothing is changed through it.
    void *self = const_cast<VxHostClassFactoryBase *>(this);
    const QScriptValue constructor = engine->newFunction(construct, self);
    engine->globalObject().setProperty(className(),
                                       engine->newQMetaObject(metaObject(), constructor));
}
