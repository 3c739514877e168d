#ifndef VXINTPROPERTY_P_H
#define VXINTPROPERTY_P_H

#include "keys/numericrecord.h"

#include <vxcore/vxintproperty.h>

class VxIntProperty::Private : public NumericRecord<qint32>
{
public:
    Private(VxProperty *property, int value)
        : NumericRecord(property, value, VxKeyInterp::Constant)
    {
    }
};

#endif
