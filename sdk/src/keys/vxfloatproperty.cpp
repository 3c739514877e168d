#include <vxcore/vxfloatproperty.h>

#include "keys/keytrackwriter.h"
#include "keys/numericrecord.h"
#include "undo/vxundovalueitem.h"

#include <QtCore/QPointer>
#include <cmath>
#include <optional>
#include <utility>
#include <vxcore/vxchangeblock.h>
#include <vxcore/vxowncontents.h>
#include <vxcore/vxscene.h>

namespace {

bool isShape(int type, float tension, float continuity, float bias)
{
    return type >= VxKeyInterp::Linear && type <= VxKeyInterp::Tcb &&
           isFiniteTcb({tension, continuity, bias});
}

VxKeyShape makeShape(int type, float tension, float continuity, float bias)
{
    return {static_cast<quint8>(type), {tension, continuity, bias}};
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
    return !keys.tcb || std::all_of(keys.tcb, keys.tcb + keys.count, isFiniteTcb);
}

/// A value without a key, at one time.
struct TransientValue
{
    VxTime time = 0;
    float value = 0;
    quint64 revision = 0; ///< of the keys that it replaces

    bool isAt(VxTime other, quint64 keyRevision) const
    {
        return time == other && revision == keyRevision;
    }
    bool operator==(const TransientValue &other) const
    {
        return time == other.time && value == other.value && revision == other.revision;
    }
};

/** Not part of the document: the journal writes the item without its values. */
bool journalPut(VxJournalWriter &, const std::optional<TransientValue> &)
{
    return true;
}

/// The properties with a transient value.
QVector<QPointer<VxFloatProperty>> &transientProperties()
{
    static QVector<QPointer<VxFloatProperty>> list;
    return list;
}

} // namespace

class VxFloatProperty::Private : public NumericRecord<float>
{
public:
    Private(VxProperty *property, float value)
        : NumericRecord(property, value, VxKeyInterp::Linear)
    {
    }

    /// The own value: the transient one where it is in effect, else that of the keys.
    float ownValue(VxTime time) const
    {
        return hasTransient && transient.isAt(time, keyRevision) ? transient.value
                                                                 : keys.value(time);
    }
    /// Sets or (none) drops the transient value, without a record for undo.
    void applyTransient(const std::optional<TransientValue> &next);

    TransientValue transient;
    float sensitivity = 1.0f;
    Axis axis = NoAxis;
};

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
    priv()->noteUnrecordable();
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
    priv()->setLimits(minimum, maximum, clamped);
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
    priv()->noteUnrecordable();
}

int VxFloatProperty::getDefaultInterpolation() const
{
    return priv()->defaultType;
}

void VxFloatProperty::setDefaultInterpolation(int type)
{
    if (!isShape(type, 0, 0, 0))
        return;
    priv()->defaultType = type;
    priv()->noteUnrecordable();
}

float VxFloatProperty::getValue() const
{
    return getValue(vxScene ? vxScene->getTime() : 0);
}

float VxFloatProperty::getValue(VxTime time) const
{
    const Private *record = priv();
    return record->isPlain
               ? record->keys.value(time)
               : Private::narrowed(record->dependentValue(time, double(record->ownValue(time))));
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
    return std::isfinite(value) && priv()->setValue(time, value);
}

void VxFloatProperty::Private::applyTransient(const std::optional<TransientValue> &next)
{
    auto *property = static_cast<VxFloatProperty *>(q);
    const VxTime before = transient.time;
    const bool had = std::exchange(hasTransient, next.has_value());
    updatePlain();
    if (next) {
        transient = *next;
        if (!had)
            transientProperties().append(property);
        reportChange({transient.time, transient.time});
    } else if (had) {
        transientProperties().removeOne(property);
        reportChange({before, before});
    }
}

bool VxFloatProperty::setTransientValue(float value)
{
    if (!std::isfinite(value) || !priv()->isEditable())
        return false;
    VxProperty *holder = getKeyHolder();
    if (holder != this)
        return static_cast<VxFloatProperty *>(holder)->setTransientValue(value);
    if (priv()->isDriven())
        return false;
    value = priv()->limited(value);
    if (getNumKeys() == 0)
        return priv()->keys.setStored(value);
    using State = std::optional<TransientValue>;
    const State next = TransientValue{vxScene ? vxScene->getTime() : 0, value, priv()->keyRevision};
    const auto state = [](const VxFloatProperty *property) {
        const Private *record = property->priv();
        return record->hasTransient ? State(record->transient) : State();
    };
    if (state(this) == next)
        return true;
    vxRecordValue<VxFloatProperty, State>(
        this, VxUndoTransientValue, state, [](VxFloatProperty *property, const State &other) {
            // A value of another time or of other keys is out of date.
            const bool current = other && other->isAt(vxScene ? vxScene->getTime() : 0,
                                                      property->priv()->keyRevision);
            property->priv()->applyTransient(current ? other : State());
        });
    priv()->applyTransient(next);
    return true;
}

bool VxFloatProperty::hasTransientValue() const
{
    const Private *holder = static_cast<const VxFloatProperty *>(getKeyHolder())->priv();
    return holder->hasTransient &&
           holder->transient.isAt(vxScene ? vxScene->getTime() : 0, holder->keyRevision);
}

void VxFloatProperty::dropTransientValue()
{
    Private *holder = static_cast<VxFloatProperty *>(getKeyHolder())->priv();
    if (holder->hasTransient)
        holder->applyTransient(std::nullopt);
}

void VxFloatProperty::dropTransientValues()
{
    const QVector<QPointer<VxFloatProperty>> list = std::exchange(transientProperties(), {});
    if (list.isEmpty())
        return;
    const VxChangeBlock block;
    for (const QPointer<VxFloatProperty> &property : list) {
        if (property)
            property->dropTransientValue();
    }
}

float VxFloatProperty::getStoredValue() const
{
    return priv()->held().stored();
}

bool VxFloatProperty::setStoredValue(float value)
{
    return std::isfinite(value) && priv()->setStored(value);
}

float VxFloatProperty::getKeyValue(int index) const
{
    return static_cast<float>(getKeyDoubleValue(index));
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
    return std::isfinite(value) && isShape(type, tension, continuity, bias) &&
           priv()->setKey(time, value, makeShape(type, tension, continuity, bias));
}

VxKeyColumns<float> VxFloatProperty::getKeys() const
{
    return priv()->held().track().columns();
}

bool VxFloatProperty::setKeys(const VxKeyColumns<float> &keys)
{
    return areKeys(keys) && priv()->acceptsKeys() && priv()->held().insertMany(keys);
}

bool VxFloatProperty::replaceKeys(const VxTimeRange &range, const VxKeyColumns<float> &keys)
{
    return areKeys(keys) && priv()->acceptsKeys() && priv()->held().replace(range, keys);
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
    return indexes.size() == values.size() && areFinite(values.constData(), values.size()) &&
           priv()->setKeyValues(indexes, values.constData());
}

double VxFloatProperty::getDoubleValue(VxTime time) const
{
    return double(getValue(time));
}

bool VxFloatProperty::setDoubleValue(VxTime time, double value)
{
    return setValue(time, static_cast<float>(value));
}

VxOwnContents<float> vxOwnContents(const VxFloatProperty *property)
{
    const auto *record =
        static_cast<const NumericRecord<float> *>(VxProperty::Private::of(property));
    return {record->keys.stored(), record->keys.track().columns()};
}
