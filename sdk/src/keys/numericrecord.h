#ifndef NUMERICRECORD_H
#define NUMERICRECORD_H

#include "keys/keystore.h"
#include "keys/recordmemory.h"
#include "keys/vxnumericproperty_p.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <new>

/// The private record that float and int properties share. V is the type of their values; the
/// limits of a new property are those of V.
template <class V> class NumericRecord : public VxNumericProperty::Private
{
public:
    NumericRecord(VxProperty *property, V value, int type)
        : VxNumericProperty::Private(property)
        , keys(property, value)
        , defaultValue(value)
        , defaultType(type)
    {
    }

    static void *operator new(std::size_t size, std::align_val_t alignment)
    {
        return allocateRecord(size, std::size_t(alignment));
    }
    static void operator delete(void *record, std::size_t size, std::align_val_t alignment)
    {
        freeRecord(record, size, std::size_t(alignment));
    }

    KeyStoreBase &ownKeys() override { return keys; }
    /// The record of the key holder, which is of the same class: the property shows its keys and
    /// respects its limits. An alias's own limits apply to its editors only.
    NumericRecord *holder()
    {
        return isPlain ? this : static_cast<NumericRecord *>(of(q->getKeyHolder()));
    }
    KeyStore<V> &held() { return holder()->keys; }
    V limited(V value) const { return clamped ? qBound(minimum, value, maximum) : value; }

    /// A value from outside in V: rounded for whole numbers, and saturated, since a product of
    /// links can exceed the range.
    static V narrowed(double value)
    {
        const double lowest = double(std::numeric_limits<V>::lowest());
        const double highest = double(std::numeric_limits<V>::max());
        value = qBound(lowest, value, highest);
        if constexpr (std::numeric_limits<V>::is_integer)
            return static_cast<V>(std::lround(value));
        else
            return static_cast<V>(value);
    }

    V value(VxTime time) const
    {
        const V own = keys.value(time);
        return isPlain ? own : narrowed(dependentValue(time, double(own)));
    }

    /// See VxNumericProperty::setDoubleValue().
    bool setValue(VxTime time, V value)
    {
        if (!isEditable())
            return false;
        NumericRecord *record = holder();
        if (record != this)
            return record->setValue(time, value);
        return !isDriven() && setOwnValue(time, limited(value));
    }

    bool setStored(V value) { return isEditable() && held().setStored(holder()->limited(value)); }

    bool setKey(VxTime time, V value, const VxKeyShape &shape)
    {
        if (!acceptsKeys())
            return false;
        held().set(time, holder()->limited(value), shape);
        return true;
    }

    bool setKeyValues(const QVector<int> &indexes, const V *values)
    {
        if (!isEditable())
            return false;
        const NumericRecord *record = holder();
        if (!record->clamped)
            return held().setValues(indexes, values);
        QVector<V> limitedValues(indexes.size());
        std::transform(values, values + indexes.size(), limitedValues.begin(),
                       [record](V value) { return record->limited(value); });
        return held().setValues(indexes, limitedValues.constData());
    }

    void setLimits(V lowest, V highest, bool clamps)
    {
        minimum = qMin(lowest, highest);
        maximum = qMax(lowest, highest);
        clamped = clamps;
        noteUnrecordable();
        emitTraits();
    }

    alignas(CacheLine) KeyStore<V> keys;
    V defaultValue;
    V minimum = std::numeric_limits<V>::lowest();
    V maximum = std::numeric_limits<V>::max();
    bool clamped = false;
    int defaultType; // of the first key

private:
    bool setOwnValue(VxTime time, V value)
    {
        const KeyTrack<V> &track = keys.track();
        const int index = track.find(time);
        if (index < 0 && !makesKeys())
            return track.isEmpty() && keys.setStored(value);
        const int like = index >= 0 ? index : track.lowerBound(time) - 1;
        keys.set(time, value,
                 like >= 0 ? track.shape(like)
                           : VxKeyShape{static_cast<quint8>(defaultType), VxTcb()});
        return true;
    }
};

#endif
