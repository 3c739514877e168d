#ifndef VXNUMERICPROPERTY_P_H
#define VXNUMERICPROPERTY_P_H

#include "keys/vxproperty_p.h"

#include <vxcore/vxnumericproperty.h>

class KeyStoreBase;

class VxNumericProperty::Private : public VxProperty::Private
{
public:
    using VxProperty::Private::Private;

    VxProperty *linkedProperty() const override { return link.get(); }
    virtual KeyStoreBase &ownKeys() = 0;
    /// The keys of the key holder, which the property shows.
    KeyStoreBase &shownKeys();
    /// True when an open link gives the value, so that the property cannot set one itself.
    bool isDriven() const { return link && !terminal; }
    /// The value through override, alias or link; ownValue is the property's own one.
    double dependentValue(VxTime time, double ownValue) const;
    /// False when the property or its key holder is locked.
    bool isEditable() const;
    /// True when keys can be made here: neither this property nor its key holder refuses changes
    /// or keys.
    bool acceptsKeys() const;
    /// True when setting a value at a time should make a key there.
    bool makesKeys() const;

    VxPropertyDependency link;
    bool terminal = false;
    double factor = 1.0;
    double offset = 0.0;
    bool percentage = false;
};

#endif
