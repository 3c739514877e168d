#ifndef VXTIMELINEFACTORY_H
#define VXTIMELINEFACTORY_H

#include <QtScript/QScriptEngine>
#include <vxcore/vxclassfactory.h>

class QScriptContext;

// Base of the plug-in's factories: makes a class known to a script engine.
//
// A script sees the class as a global constructor function under the class name, with the
// enumerations on each object it makes. Here is what does not depend on the class as a C++ type;
// the template below adds the little that does.
class VxScriptableFactory : public VxClassFactory
{
public:
    VxScriptableFactory(const QMetaObject *metaObject, const VxGuid &guid);
    ~VxScriptableFactory() override;

    // Who deletes what a script creates, as a QScriptEngine::ValueOwnership: 0, to begin with, is
    // the host and never the script engine.
    int getOwnership() const;
    void setOwnership(int ownership);

    void registerClass(QScriptEngine *engine) const override;

    // What `new Class()` runs; factory is the VxScriptableFactory. Without one it gives undefined.
    static QScriptValue constructor(QScriptContext *context, QScriptEngine *engine, void *factory);

private:
    // Teaches the engine to convert the class's pointer type.
    virtual void registerPointerType(QScriptEngine *engine) const = 0;
    QScriptValue construct(QScriptContext *context, QScriptEngine *engine) const;

    int m_ownership = 0;
};

// The factory of one class. The class's pointer type gets its name in the meta-type system once a
// process, when the first factory of the class is made.
template <class Class> class VxTimelineFactory : public VxScriptableFactory
{
public:
    using VxClassFactory::createInstance;

    QObject *createInstance() const override { return new Class; }

protected:
    // guid: 8-4-4-4-12 hexadecimal digits.
    explicit VxTimelineFactory(const char *guid)
        : VxScriptableFactory(&Class::staticMetaObject,
                              VxGuid::fromString(QString::fromLatin1(guid)))
    {
        qRegisterMetaType<Class *>();
    }

private:
    void registerPointerType(QScriptEngine *engine) const override
    {
        qScriptRegisterMetaType<Class *>(engine, &toScript, &fromScript, QScriptValue());
    }

    static QScriptValue toScript(QScriptEngine *engine, Class *const &object)
    {
        return engine->newQObject(object);
    }

    // A value that holds no object of the class gives null.
    static void fromScript(const QScriptValue &value, Class *&object)
    {
        object = qobject_cast<Class *>(value.toQObject());
    }
};

#endif
