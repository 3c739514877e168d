#include <vxcore/vxscriptablefactory.h>

#include <QtCore/QCoreApplication>
#include <QtScript/QScriptContext>

VxScriptableFactory::VxScriptableFactory(const QMetaObject *metaObject, const VxGuid &guid)
    : VxClassFactory(metaObject, guid)
{
}

VxScriptableFactory::~VxScriptableFactory() = default;

int VxScriptableFactory::getOwnership() const
{
    return m_ownership;
}

void VxScriptableFactory::setOwnership(int ownership)
{
    m_ownership = ownership;
}

void VxScriptableFactory::registerClass(QScriptEngine *engine) const
{
    VxClassFactory::registerClass(engine); // warns without an engine
    if (!engine)
        return;
    registerPointerType(engine);
    // The engine passes the pointer to the constructor function, which only reads.
    void *self = const_cast<VxScriptableFactory *>(this);
    const QScriptValue function = engine->newFunction(&VxScriptableFactory::constructor, self);
    const QScriptValue classValue = engine->newQMetaObject(metaObject(), function);
    engine->globalObject().setProperty(className(), classValue, QScriptValue::KeepExistingFlags);
}

QScriptValue VxScriptableFactory::constructor(QScriptContext *context, QScriptEngine *engine,
                                              void *factory)
{
    if (!factory)
        return engine->undefinedValue();
    return static_cast<const VxScriptableFactory *>(factory)->construct(context, engine);
}

QScriptValue VxScriptableFactory::construct(QScriptContext *context, QScriptEngine *engine) const
{
    QObject *object = createInstance(context);
    if (!object)
        return context->throwError(
            QCoreApplication::translate("ScriptText", "%1 cannot be constructed").arg(className()));
    const auto ownership = static_cast<QScriptEngine::ValueOwnership>(m_ownership);
    // With `new` the engine has created the object already, with the class as its prototype:
    // filling that one keeps `instanceof` true.
    QScriptValue wrapper = context->isCalledAsConstructor()
                               ? engine->newQObject(context->thisObject(), object, ownership)
                               : engine->newQObject(object, ownership);
    registerEnumsOnClass(engine, metaObject(), wrapper);
    return wrapper;
}
