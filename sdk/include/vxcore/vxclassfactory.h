#ifndef VXCLASSFACTORY_H
#define VXCLASSFACTORY_H

#include <QtCore/QObject>
#include <QtCore/QStringList>
#include <memory>
#include <vxcore/vxcoreglobal.h>
#include <vxcore/vxguid.h>

class QScriptContext;
class QScriptEngine;
class QScriptValue;

/// Makes instances of one class that a plug-in offers, for the host and for scripts.
///
/// A factory is a static object of the plug-in, one a class. The plug-in's record refers to it and
/// the host calls it; whatever it creates belongs to the host.
class VXCORE_EXPORT VxClassFactory
{
public:
    /// The factory of the class that metaObject describes, under its fixed identifier. metaObject
    /// is borrowed and must outlive the factory (static meta-objects do).
    VxClassFactory(const QMetaObject *metaObject, const VxGuid &guid);
    virtual ~VxClassFactory();

    /// Creates an instance for a script. context holds the script's arguments; the base
    /// implementation ignores them and forwards to createInstance() without arguments.
    virtual QObject *createInstance(QScriptContext *context) const;

    /// Creates an instance with the default constructor. The caller owns it. Null when the class
    /// cannot be created.
    virtual QObject *createInstance() const = 0;

    /// An alias for scripts' use: forwards to createInstance() unless overridden.
    virtual QObject *createDefaultInstance() const;

    /// Registers the class with a script engine. The base implementation adds it to the engine's
    /// list of host classes; subclasses add the constructor.
    virtual void registerClass(QScriptEngine *engine) const;

    /// The class name from the meta-object, such as "VxTimePane".
    QString className() const;
    const QMetaObject *metaObject() const;
    VxGuid guid() const;

    /// Sets every key of the enumerations and flag sets of a class (and of its bases up to
    /// QObject, which is left out) as a read-only number on a script object, under the key's name.
    /// A key of the class hides the same key of a base. A key that is also the name of a property
    /// of the class is left out.
    static void registerEnumsOnClass(QScriptEngine *engine, const QMetaObject *metaObject,
                                     QScriptValue &object);

    /// The names of the classes whose factories have registered with an engine, in that order.
    static QStringList registeredClasses(const QScriptEngine *engine);

private:
    Q_DISABLE_COPY(VxClassFactory)
    class Private;
    std::unique_ptr<Private> d;
};

/// The factory of one class with a default constructor, which scripts do not construct.
template <class Class> class VxClassFactoryOf : public VxClassFactory
{
public:
    /// guid: 8-4-4-4-12 hexadecimal digits, never to be changed: hosts store it.
    explicit VxClassFactoryOf(const char *guid)
        : VxClassFactory(&Class::staticMetaObject, VxGuid::fromString(QString::fromLatin1(guid)))
    {
    }

    using VxClassFactory::createInstance;
    QObject *createInstance() const override { return new Class; }
};

#endif
