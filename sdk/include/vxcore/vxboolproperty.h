#ifndef VXBOOLPROPERTY_H
#define VXBOOLPROPERTY_H

#include <vxcore/vxintproperty.h>

/// A switch: an int property limited to 0 and 1.
class VXCORE_EXPORT VxBoolProperty : public VxIntProperty
{
    Q_OBJECT
public:
    explicit VxBoolProperty(const QString &name, bool defaultValue = false);
    ~VxBoolProperty() override;

    bool getBoolValue(VxTime time) const { return getValue(time) != 0; }
};

#endif
