#ifndef VXSCRIPTABLEFACTORY_H
#define VXSCRIPTABLEFACTORY_H

#include <QtScript/QScriptEngine>
#include <vxcore/vxclassfactory.h>

/// A factory whose class scripts construct by name: `new ClassName()`, with the keys of the class's
/// enumerations on the class and on each object. Use VxScriptableFactoryOf, which adds the parts
/// that depend on the C++ type.
class VXCORE_EXPORT VxScriptableFactory : public VxClassFactory
{
public:
    VxScriptableFactory(const QMetaObject *metaObject, const VxGuid &guid);
    ~VxScriptableFactory() override;

    /// The owner of objects that scripts create, as a QScriptEngine::ValueOwnership: 0, the
    /// default, is the host and never the script engine.
    int getOwnership() const;
    void setOwnership(int ownership);

    void registerClass(QScriptEngine *engine) const override;

    /// The native function behind `new ClassName()`; factory is the VxScriptableFactory. Null gives
    /// undefined; a class that cannot be created throws.
    static QScriptValue constructor(QScriptContext *context, QScriptEngine *engine, void *factory);

private:
    /// Registers the conversions of the class's pointer type.
    virtual void registerPointerType(QScriptEngine *engine) const = 0;
    QScriptValue construct(QScriptContext *context, QScriptEngine *engine) const;

    int m_ownership = 0;
};

/// The factory of one class with a default constructor. The first factory of a class registers the
/// class's pointer type under its name in the meta-type system.
template <class Class> class VxScriptableFactoryOf : public VxScriptableFactory
{
public:
    /// guid: 8-4-4-4-12 hexadecimal digits, never to be changed: hosts store it.
    explicit VxScriptableFactoryOf(const char *guid)
        : VxScriptableFactory(&Class::staticMetaObject,
                              VxGuid::fromString(QString::fromLatin1(guid)))
    {
        qRegisterMetaType<Class *>();
    }

    using VxClassFactory::createInstance;
    QObject *createInstance() const override { return new Class; }

private:
    void registerPointerType(QScriptEngine *engine) const override
    {
        qScriptRegisterMetaType<Class *>(engine, &toScript, &fromScript, QScriptValue());
    }

    static QScriptValue toScript(QScriptEngine *engine, Class *const &object)
    {
        return engine->newQObject(object);
    }

    /// A value that holds no object of the class gives null.
    static void fromScript(const QScriptValue &value, Class *&object)
    {
        object = qobject_cast<Class *>(value.toQObject());
    }
};

#endif
