#ifndef VXSIGNALGUARD_H
#define VXSIGNALGUARD_H

#include <QtCore/QObject>
#include <vxcore/vxcoreglobal.h>

/// True for the index of a signal in the object's meta-object. Reports an error to the calling
/// script, or to the log without one.
VXCORE_EXPORT bool vxRefuseSignalCall(const QObject *object, int methodIndex);

/// Base of the host classes that scripts can reach: Base with signals that can be connected by name
/// but not called by name. A signal announces an action of the host; receivers rely on arguments
/// that only the host can supply. Emitting signals in C++ is not affected.
///
/// A class derives from VxSignalGuard<QObject> instead of QObject; the meta-objects are the same.
template <class Base> class VxSignalGuard : public Base
{
public:
    using Base::Base;

    /// Called first for each invocation by name; a negative result stops it.
    int qt_metacall(QMetaObject::Call call, int index, void **arguments) override
    {
        if (call == QMetaObject::InvokeMetaMethod && vxRefuseSignalCall(this, index))
            return -1;
        return Base::qt_metacall(call, index, arguments);
    }
};

#endif
