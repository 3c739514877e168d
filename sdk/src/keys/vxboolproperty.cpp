#include <vxcore/vxboolproperty.h>

#include "keys/vxintproperty_p.h"

VxBoolProperty::VxBoolProperty(const QString &name, bool defaultValue)
    : VxIntProperty(name, new Private(this, defaultValue ? 1 : 0))
{
    setMinMax(0, 1, true);
}

VxBoolProperty::~VxBoolProperty() = default;
