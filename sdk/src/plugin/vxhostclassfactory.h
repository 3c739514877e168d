#ifndef VXHOSTCLASSFACTORY_H
#define VXHOSTCLASSFACTORY_H

#include <vxcore/vxclassfactory.h>

/// Base of the factories of the host's own classes: it gives scripts a constructor of the class's
/// name. What a script constructs belongs to the host.
class VXCORE_EXPORT VxHostClassFactoryBase : public VxClassFactory
{
public:
    using VxClassFactory::VxClassFactory;
    void registerClass(QScriptEngine *engine) const override;
};

/// The factory of one class with a default constructor.
template <class T> class VxHostClassFactory : public VxHostClassFactoryBase
{
public:
    /// guid: the 8-4-4-4-12 text, fixed for good.
    explicit VxHostClassFactory(const char *guid)
        : VxHostClassFactoryBase(&T::staticMetaObject, VxGuid::fromString(QLatin1String(guid)))
    {
    }

    using VxClassFactory::createInstance;
    QObject *createInstance() const override { return new T; }
};

#endif
