#include <vxcore/vxintproperty.h>

#include "keys/keystore.h"
#include "keys/vxintproperty_p.h"

#include <cmath>
#include <limits>
#include <vxcore/vxscene.h>

namespace {

constexpr VxKeyShape StepShape{VxKeyInterp::Constant, {}};

/// Rounded and saturated to 32 bits.
int toInt(double value)
{
    constexpr double lowest = std::numeric_limits<int>::min();
    constexpr double highest = std::numeric_limits<int>::max();
    return static_cast<int>(std::lround(qBound(lowest, value, highest)));
}

} // namespace

VxIntProperty::Private *VxIntProperty::Private::holder()
{
    return isPlain ? this : static_cast<VxIntProperty *>(q->getKeyHolder())->priv();
}

KeyStore<qint32> &VxIntProperty::Private::held()
{
    return holder()->keys;
}

int VxIntProperty::Private::limited(int value) const
{
    return clamped ? qBound(minimum, value, maximum) : value;
}

bool VxIntProperty::Private::setValue(VxTime time, int value)
{
    value = limited(value);
    if (keys.track().find(time) >= 0 || makesKeys()) {
        keys.set(time, value, StepShape);
        return true;
    }
    return keys.track().isEmpty() && keys.setStored(value);
}

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
    priv()->minimum = qMin(minimum, maximum);
    priv()->maximum = qMax(minimum, maximum);
    priv()->clamped = clamped;
    priv()->emitTraits();
}

int VxIntProperty::getValue() const
{
    return getValue(vxScene ? vxScene->getTime() : 0);
}

int VxIntProperty::getValue(VxTime time) const
{
    const Private *record = priv();
    const int own = record->keys.value(time);
    return record->isPlain ? own : toInt(record->dependentValue(time, own));
}

bool VxIntProperty::setValue(int value)
{
    return setValue(vxScene ? vxScene->getTime() : 0, value);
}

bool VxIntProperty::setValue(VxTime time, int value)
{
    if (!priv()->isEditable())
        return false;
    VxProperty *holder = getKeyHolder();
    if (holder != this)
        return static_cast<VxIntProperty *>(holder)->setValue(time, value);
    return !priv()->isDriven() && priv()->setValue(time, value);
}

int VxIntProperty::getStoredValue() const
{
    return priv()->held().stored();
}

bool VxIntProperty::setStoredValue(int value)
{
    return priv()->isEditable() && priv()->held().setStored(priv()->holder()->limited(value));
}

int VxIntProperty::getKeyValue(int index) const
{
    const KeyTrack<qint32> &track = priv()->held().track();
    return index >= 0 && index < track.count() ? track.value(index) : 0;
}

bool VxIntProperty::setKeyValue(int index, int value)
{
    const qint32 limited = priv()->holder()->limited(value);
    return priv()->isEditable() && priv()->held().setValues({index}, &limited);
}

int VxIntProperty::getKeyInterpolationType(int index, float *tension, float *continuity,
                                           float *bias) const
{
    VxNumericProperty::getKeyInterpolationType(index, tension, continuity, bias);
    return index >= 0 && index < getNumKeys() ? VxKeyInterp::Constant : VxKeyInterp::Linear;
}

bool VxIntProperty::setKey(VxTime time, int value)
{
    if (!priv()->takesKeys())
        return false;
    priv()->held().set(time, priv()->holder()->limited(value), StepShape);
    return true;
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
    return priv()->takesKeys() &&
           priv()->held().insertMany({keys.times, keys.values, nullptr, nullptr, keys.count});
}

bool VxIntProperty::replaceKeys(const VxTimeRange &range, const VxKeyColumns<qint32> &keys)
{
    return priv()->takesKeys() &&
           priv()->held().replace(range, {keys.times, keys.values, nullptr, nullptr, keys.count});
}

int VxIntProperty::getNumKeys() const
{
    return priv()->held().track().count();
}

const VxTime *VxIntProperty::getKeyTimes() const
{
    return priv()->held().track().columns().times;
}

int VxIntProperty::deleteKeys(const VxTimeRange &range)
{
    return priv()->isEditable() ? priv()->held().removeRange(range) : 0;
}

int VxIntProperty::deleteKeys(int first, int last)
{
    if (last == std::numeric_limits<int>::max())
        --last;
    return priv()->isEditable() ? priv()->held().removeIndexRange(first, last + 1) : 0;
}

int VxIntProperty::deleteKeys(const QVector<int> &indexes)
{
    return priv()->isEditable() ? priv()->held().removeIndexes(indexes) : 0;
}

double VxIntProperty::getDoubleValue(VxTime time) const
{
    return getValue(time);
}

double VxIntProperty::getKeyDoubleValue(int index) const
{
    return getKeyValue(index);
}

bool VxIntProperty::setDoubleValue(VxTime time, double value)
{
    return std::isfinite(value) && setValue(time, toInt(value));
}

bool VxIntProperty::moveKeys(const QVector<int> &indexes, const QVector<VxTime> &newTimes)
{
    return priv()->isEditable() && priv()->held().move(indexes, newTimes);
}

qint64 VxIntProperty::getKeyMemory() const
{
    return qint64(priv()->held().track().memoryBytes());
}
