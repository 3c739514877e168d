#include <vxcore/vxfloatproperty.h>

#include "keys/keystore.h"
#include "keys/vxnumericproperty_p.h"

#include <cmath>
#include <limits>
#include <vxcore/vxscene.h>

namespace {

bool isShape(int type, float tension, float continuity, float bias)
{
    return type >= VxKeyInterp::Linear && type <= VxKeyInterp::Tcb && std::isfinite(tension) &&
           std::isfinite(continuity) && std::isfinite(bias);
}

VxKeyShape makeShape(int type, float tension, float continuity, float bias)
{
    return {static_cast<quint8>(type), {tension, continuity, bias}};
}

/// Saturates to single precision, whose range a product of links can exceed.
float saturated(double value)
{
    constexpr double Highest = double(std::numeric_limits<float>::max());
    return static_cast<float>(qBound(-Highest, value, Highest));
}

bool areFinite(const float *values, int count)
{
    return std::all_of(values, values + count, [](float value) { return std::isfinite(value); });
}

bool areKeys(const VxKeyColumns<float> &keys)
{
    if (!areFinite(keys.values, keys.count))
        return false;
    if (keys.types && std::any_of(keys.types, keys.types + keys.count,
                                  [](quint8 type) { return type > VxKeyInterp::Tcb; }))
        return false;
    return !keys.tcb || std::all_of(keys.tcb, keys.tcb + keys.count, [](const VxTcb &tcb) {
        return std::isfinite(tcb.tension) && std::isfinite(tcb.continuity) &&
               std::isfinite(tcb.bias);
    });
}

} // namespace

class VxFloatProperty::Private : public VxNumericProperty::Private
{
public:
    Private(VxProperty *property, float value)
        : VxNumericProperty::Private(property)
        , keys(property, value)
        , defaultValue(value)
    {
    }

    /// The record of the key holder, which is of the same class: the property shows its keys and
    /// respects its limits. An alias's own limits apply to its editors only.
    Private *holder()
    {
        return isPlain ? this : static_cast<VxFloatProperty *>(q->getKeyHolder())->priv();
    }
    KeyStore<float> &held() { return holder()->keys; }

    float limited(float value) const { return clamped ? qBound(minimum, value, maximum) : value; }

    /// The shape of a new key at a time without one.
    VxKeyShape newShape(VxTime time) const
    {
        const int before = keys.track().lowerBound(time) - 1;
        return before >= 0 ? keys.track().shape(before) : makeShape(defaultType, 0, 0, 0);
    }

    bool setValue(VxTime time, float value);

    KeyStore<float> keys;
    float defaultValue;
    float minimum = -std::numeric_limits<float>::max();
    float maximum = std::numeric_limits<float>::max();
    float sensitivity = 1.0f;
    bool clamped = false;
    Axis axis = NoAxis;
    int defaultType = VxKeyInterp::Linear;
};

bool VxFloatProperty::Private::setValue(VxTime time, float value)
{
    value = limited(value);
    const int index = keys.track().find(time);
    if (index >= 0) {
        keys.set(time, value, keys.track().shape(index));
        return true;
    }
    if (makesKeys()) {
        keys.set(time, value, newShape(time));
        return true;
    }
    return keys.track().isEmpty() && keys.setStored(value);
}

VxFloatProperty::VxFloatProperty(const QString &name, float defaultValue)
    : VxNumericProperty(name, new Private(this, std::isfinite(defaultValue) ? defaultValue : 0.0f))
{
    if (!std::isfinite(defaultValue))
        qWarning("VxFloatProperty: the default value of \"%s\" is not finite; it is 0 instead",
                 qUtf8Printable(name));
}

VxFloatProperty::~VxFloatProperty() = default;

VxFloatProperty::Private *VxFloatProperty::priv() const
{
    return static_cast<Private *>(VxProperty::priv());
}

VxFloatProperty::Axis VxFloatProperty::getAxis() const
{
    return priv()->axis;
}

void VxFloatProperty::setAxis(Axis axis)
{
    priv()->axis = axis;
}

float VxFloatProperty::getDefaultValue() const
{
    return priv()->defaultValue;
}

float VxFloatProperty::getMin() const
{
    return priv()->minimum;
}

float VxFloatProperty::getMax() const
{
    return priv()->maximum;
}

bool VxFloatProperty::isClamped() const
{
    return priv()->clamped;
}

void VxFloatProperty::setMinMax(float minimum, float maximum, bool clamped)
{
    if (!std::isfinite(minimum) || !std::isfinite(maximum)) {
        qWarning("VxFloatProperty::setMinMax(): the limits of \"%s\" are not finite",
                 qUtf8Printable(getName()));
        return;
    }
    priv()->minimum = qMin(minimum, maximum);
    priv()->maximum = qMax(minimum, maximum);
    priv()->clamped = clamped;
    priv()->emitTraits();
}

float VxFloatProperty::getSensitivity() const
{
    return priv()->sensitivity;
}

void VxFloatProperty::setSensitivity(float step)
{
    if (!std::isfinite(step)) {
        qWarning("VxFloatProperty::setSensitivity(): the sensitivity of \"%s\" is not finite",
                 qUtf8Printable(getName()));
        return;
    }
    priv()->sensitivity = step;
}

int VxFloatProperty::getDefaultInterpolation() const
{
    return priv()->defaultType;
}

void VxFloatProperty::setDefaultInterpolation(int type)
{
    if (isShape(type, 0, 0, 0))
        priv()->defaultType = type;
}

float VxFloatProperty::getValue() const
{
    return getValue(vxScene ? vxScene->getTime() : 0);
}

float VxFloatProperty::getValue(VxTime time) const
{
    const Private *record = priv();
    const float own = record->keys.value(time);
    return record->isPlain ? own : saturated(record->dependentValue(time, double(own)));
}

void VxFloatProperty::getValues(const VxTime *times, int count, float *values) const
{
    const Private *record = priv();
    if (record->isPlain) {
        KeyEvaluator<float>(record->keys.track())
            .values(times, count, values, record->keys.stored());
        return;
    }
    for (int i = 0; i < count; ++i)
        values[i] = getValue(times[i]);
}

bool VxFloatProperty::setValue(float value)
{
    return setValue(vxScene ? vxScene->getTime() : 0, value);
}

bool VxFloatProperty::setValue(VxTime time, float value)
{
    if (!std::isfinite(value) || !priv()->isEditable())
        return false;
    VxProperty *holder = getKeyHolder();
    if (holder != this)
        return static_cast<VxFloatProperty *>(holder)->setValue(time, value);
    return !priv()->isDriven() && priv()->setValue(time, value);
}

float VxFloatProperty::getStoredValue() const
{
    return priv()->held().stored();
}

bool VxFloatProperty::setStoredValue(float value)
{
    return std::isfinite(value) && priv()->isEditable() &&
           priv()->held().setStored(priv()->holder()->limited(value));
}

float VxFloatProperty::getKeyValue(int index) const
{
    const KeyTrack<float> &track = priv()->held().track();
    return index >= 0 && index < track.count() ? track.value(index) : 0.0f;
}

bool VxFloatProperty::setKeyValue(int index, float value)
{
    return setKeyValues({index}, {value});
}

int VxFloatProperty::getKeyInterpolationType(int index, float *tension, float *continuity,
                                             float *bias) const
{
    const KeyTrack<float> &track = priv()->held().track();
    const bool known = index >= 0 && index < track.count();
    const VxKeyShape shape = known ? track.shape(index) : VxKeyShape();
    if (tension)
        *tension = shape.tcb.tension;
    if (continuity)
        *continuity = shape.tcb.continuity;
    if (bias)
        *bias = shape.tcb.bias;
    return shape.type;
}

bool VxFloatProperty::setKeyInterpolation(int index, int type, float tension, float continuity,
                                          float bias)
{
    return isShape(type, tension, continuity, bias) &&
           setKeyInterpolations({index}, makeShape(type, tension, continuity, bias));
}

bool VxFloatProperty::setKey(VxTime time, float value, int type, float tension, float continuity,
                             float bias)
{
    if (!std::isfinite(value) || !isShape(type, tension, continuity, bias) || !priv()->takesKeys())
        return false;
    priv()->held().set(time, priv()->holder()->limited(value),
                       makeShape(type, tension, continuity, bias));
    return true;
}

VxKeyColumns<float> VxFloatProperty::getKeys() const
{
    return priv()->held().track().columns();
}

bool VxFloatProperty::setKeys(const VxKeyColumns<float> &keys)
{
    return areKeys(keys) && priv()->takesKeys() && priv()->held().insertMany(keys);
}

bool VxFloatProperty::replaceKeys(const VxTimeRange &range, const VxKeyColumns<float> &keys)
{
    return areKeys(keys) && priv()->takesKeys() && priv()->held().replace(range, keys);
}

bool VxFloatProperty::setKeyInterpolations(const QVector<int> &indexes, const VxKeyShape &shape)
{
    return isShape(shape.type, shape.tcb.tension, shape.tcb.continuity, shape.tcb.bias) &&
           priv()->isEditable() && priv()->held().setShape(indexes, shape);
}

bool VxFloatProperty::setKeyTypes(const QVector<int> &indexes, int type)
{
    return isShape(type, 0.0f, 0.0f, 0.0f) && priv()->isEditable() &&
           priv()->held().setType(indexes, static_cast<quint8>(type));
}

bool VxFloatProperty::setKeyValues(const QVector<int> &indexes, const QVector<float> &values)
{
    if (indexes.size() != values.size() || !areFinite(values.constData(), values.size()) ||
        !priv()->isEditable())
        return false;
    const Private *holder = priv()->holder();
    QVector<float> limited = values;
    for (float &value : limited)
        value = holder->limited(value);
    return priv()->held().setValues(indexes, limited.constData());
}

int VxFloatProperty::getNumKeys() const
{
    return priv()->held().track().count();
}

const VxTime *VxFloatProperty::getKeyTimes() const
{
    return priv()->held().track().columns().times;
}

int VxFloatProperty::deleteKeys(const VxTimeRange &range)
{
    return priv()->isEditable() ? priv()->held().removeRange(range) : 0;
}

int VxFloatProperty::deleteKeys(int first, int last)
{
    if (last == std::numeric_limits<int>::max())
        --last;
    return priv()->isEditable() ? priv()->held().removeIndexRange(first, last + 1) : 0;
}

int VxFloatProperty::deleteKeys(const QVector<int> &indexes)
{
    return priv()->isEditable() ? priv()->held().removeIndexes(indexes) : 0;
}

double VxFloatProperty::getDoubleValue(VxTime time) const
{
    return double(getValue(time));
}

double VxFloatProperty::getKeyDoubleValue(int index) const
{
    return double(getKeyValue(index));
}

bool VxFloatProperty::setDoubleValue(VxTime time, double value)
{
    return setValue(time, static_cast<float>(value));
}

bool VxFloatProperty::moveKeys(const QVector<int> &indexes, const QVector<VxTime> &newTimes)
{
    return priv()->isEditable() && priv()->held().move(indexes, newTimes);
}

qint64 VxFloatProperty::getKeyMemory() const
{
    return qint64(priv()->held().track().memoryBytes());
}
