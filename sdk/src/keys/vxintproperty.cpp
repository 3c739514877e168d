#include <vxcore/vxintproperty.h>

#include "keys/vxintproperty_p.h"

#include <cmath>
#include <vxcore/vxowncontents.h>
#include <vxcore/vxscene.h>

VxIntProperty::VxIntProperty(const QString &name, int defaultValue)
    : VxIntProperty(name, new Private(this, defaultValue))
{
}

VxIntProperty::VxIntProperty(const QString &name, Private *priv)
    : VxNumericProperty(name, priv)
{
}

VxIntProperty::~VxIntProperty() = default;

VxIntProperty::Private *VxIntProperty::priv() const
{
    return static_cast<Private *>(VxProperty::priv());
}

int VxIntProperty::getDefaultValue() const
{
    return priv()->defaultValue;
}

int VxIntProperty::getMin() const
{
    return priv()->minimum;
}

int VxIntProperty::getMax() const
{
    return priv()->maximum;
}

bool VxIntProperty::isClamped() const
{
    return priv()->clamped;
}

void VxIntProperty::setMinMax(int minimum, int maximum, bool clamped)
{
    priv()->setLimits(minimum, maximum, clamped);
}

int VxIntProperty::getValue() const
{
    return getValue(vxScene ? vxScene->getTime() : 0);
}

int VxIntProperty::getValue(VxTime time) const
{
    return priv()->value(time);
}

bool VxIntProperty::setValue(int value)
{
    return setValue(vxScene ? vxScene->getTime() : 0, value);
}

bool VxIntProperty::setValue(VxTime time, int value)
{
    return priv()->setValue(time, value);
}

int VxIntProperty::getStoredValue() const
{
    return priv()->held().stored();
}

bool VxIntProperty::setStoredValue(int value)
{
    return priv()->setStored(value);
}

int VxIntProperty::getKeyValue(int index) const
{
    return static_cast<int>(getKeyDoubleValue(index));
}

bool VxIntProperty::setKeyValue(int index, int value)
{
    return priv()->setKeyValues({index}, &value);
}

int VxIntProperty::getKeyInterpolationType(int index, float *tension, float *continuity,
                                           float *bias) const
{
    VxNumericProperty::getKeyInterpolationType(index, tension, continuity, bias);
    return index >= 0 && index < getNumKeys() ? VxKeyInterp::Constant : VxKeyInterp::Linear;
}

bool VxIntProperty::setKey(VxTime time, int value)
{
    return priv()->setKey(time, value, {VxKeyInterp::Constant, {}});
}

VxKeyColumns<qint32> VxIntProperty::getKeys() const
{
    VxKeyColumns<qint32> keys = priv()->held().track().columns();
    keys.types = nullptr;
    keys.tcb = nullptr;
    return keys;
}

bool VxIntProperty::setKeys(const VxKeyColumns<qint32> &keys)
{
    return priv()->acceptsKeys() &&
           priv()->held().insertMany({keys.times, keys.values, nullptr, nullptr, keys.count});
}

bool VxIntProperty::replaceKeys(const VxTimeRange &range, const VxKeyColumns<qint32> &keys)
{
    return priv()->acceptsKeys() &&
           priv()->held().replace(range, {keys.times, keys.values, nullptr, nullptr, keys.count});
}

double VxIntProperty::getDoubleValue(VxTime time) const
{
    return getValue(time);
}

bool VxIntProperty::setDoubleValue(VxTime time, double value)
{
    return std::isfinite(value) && setValue(time, Private::narrowed(value));
}

VxOwnContents<qint32> vxOwnContents(const VxIntProperty *property)
{
    const auto *record =
        static_cast<const NumericRecord<qint32> *>(VxProperty::Private::of(property));
    VxOwnContents<qint32> own{record->keys.stored(), record->keys.track().columns()};
    own.keys.types = nullptr;
    own.keys.tcb = nullptr;
    return own;
}
