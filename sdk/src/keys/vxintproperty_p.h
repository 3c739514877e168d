#ifndef VXINTPROPERTY_P_H
#define VXINTPROPERTY_P_H

#include "keys/keystore.h"
#include "keys/vxnumericproperty_p.h"

#include <limits>
#include <vxcore/vxintproperty.h>

class VxIntProperty::Private : public VxNumericProperty::Private
{
public:
    Private(VxProperty *property, int value)
        : VxNumericProperty::Private(property)
        , keys(property, value)
        , defaultValue(value)
    {
    }

    /// The record of the key holder, which is of the same class: the property shows its keys and
    /// respects its limits. An alias's own limits apply to its editors only.
    Private *holder();
    KeyStore<qint32> &held();
    int limited(int value) const;
    bool setValue(VxTime time, int value);

    KeyStore<qint32> keys;
    int defaultValue;
    int minimum = std::numeric_limits<int>::min();
    int maximum = std::numeric_limits<int>::max();
    bool clamped = false;
};

#endif
