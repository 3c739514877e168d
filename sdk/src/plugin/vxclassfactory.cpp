#include <vxcore/vxclassfactory.h>

#include <QtCore/QMetaEnum>
#include <QtCore/QSet>
#include <QtCore/QStringList>
#include <QtScript/QScriptEngine>
#include <QtScript/QScriptValue>

namespace {

// The list is a property of the engine, so that it is destroyed with it.
constexpr char registeredClassesProperty[] = "vxRegisteredClasses";

void setEnumKeys(const QMetaEnum &metaEnum, const QMetaObject *metaObject, QSet<QByteArray> &done,
                 QScriptValue &object)
{
    for (int i = 0; i < metaEnum.keyCount(); ++i) {
        const QByteArray key = metaEnum.key(i);
        // A flag set and its enumeration share their keys. A property of the same name has
        // priority: setting it would change the object.
        if (done.contains(key) || metaObject->indexOfProperty(key) >= 0)
            continue;
        done.insert(key);
        object.setProperty(QString::fromLatin1(key), QScriptValue(metaEnum.value(i)),
                           QScriptValue::ReadOnly);
    }
}

} // namespace

class VxClassFactory::Private
{
public:
    const QMetaObject *metaObject;
    VxGuid guid;
};

VxClassFactory::VxClassFactory(const QMetaObject *metaObject, const VxGuid &guid)
    : d(new Private{metaObject, guid})
{
}

VxClassFactory::~VxClassFactory() = default;

QObject *VxClassFactory::createInstance(QScriptContext *) const
{
    return createInstance();
}

QObject *VxClassFactory::createDefaultInstance() const
{
    return createInstance();
}

void VxClassFactory::registerClass(QScriptEngine *engine) const
{
    if (!engine) {
        qWarning("VxClassFactory: %s cannot be registered without a script engine",
                 qUtf8Printable(className()));
        return;
    }
    QStringList names = registeredClasses(engine);
    if (names.contains(className()))
        return;
    names.append(className());
    engine->setProperty(registeredClassesProperty, names);
}

QString VxClassFactory::className() const
{
    return d->metaObject ? QString::fromLatin1(d->metaObject->className()) : QString();
}

const QMetaObject *VxClassFactory::metaObject() const
{
    return d->metaObject;
}

VxGuid VxClassFactory::guid() const
{
    return d->guid;
}

void VxClassFactory::registerEnumsOnClass(QScriptEngine *engine, const QMetaObject *metaObject,
                                          QScriptValue &object)
{
    if (!engine || !metaObject || !object.isObject()) {
        qWarning("VxClassFactory: enumerations of %s require a script engine and an object",
                 metaObject ? metaObject->className() : "no class");
        return;
    }
    // From the class itself to its bases, so that a key of the class hides a base's.
    QSet<QByteArray> done;
    const int first = QObject::staticMetaObject.enumeratorCount();
    for (int i = metaObject->enumeratorCount() - 1; i >= first; --i)
        setEnumKeys(metaObject->enumerator(i), metaObject, done, object);
}

QStringList VxClassFactory::registeredClasses(const QScriptEngine *engine)
{
    return engine ? engine->property(registeredClassesProperty).toStringList() : QStringList();
}
