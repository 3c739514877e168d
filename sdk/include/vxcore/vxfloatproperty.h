#ifndef VXFLOATPROPERTY_H
#define VXFLOATPROPERTY_H

#include <vxcore/vxkey.h>
#include <vxcore/vxnumericproperty.h>

/// A number in single precision with keys of every interpolation type.
///
/// Numbers that are not finite are refused, as are unknown interpolation types.
class VXCORE_EXPORT VxFloatProperty : public VxNumericProperty
{
    Q_OBJECT
    Q_PROPERTY(double defaultValue READ getDefaultValue)
    Q_PROPERTY(double min READ getMin)
    Q_PROPERTY(double max READ getMax)
public:
    /// The axis that a transform channel acts on; NoAxis for any other property.
    enum Axis { NoAxis = 0, XAxis = 1, YAxis = 2, ZAxis = 3, AllAxes = 4 };
    Q_ENUM(Axis)

    explicit VxFloatProperty(const QString &name, float defaultValue = 0.0f);
    ~VxFloatProperty() override;

    Axis getAxis() const;
    void setAxis(Axis axis);

    float getDefaultValue() const;
    /// Limits for editors; values set outside are limited only when clamped is true.
    float getMin() const;
    float getMax() const;
    bool isClamped() const;
    void setMinMax(float minimum, float maximum, bool clamped = false);
    /// The step of editors, in the value's unit.
    float getSensitivity() const;
    void setSensitivity(float step);
    /// The type of the first key; initially Linear.
    int getDefaultInterpolation() const;
    void setDefaultInterpolation(int type);

    float getValue() const;
    float getValue(VxTime time) const;
    /// The values at many ascending times, with a moving cursor.
    void getValues(const VxTime *times, int count, float *values) const;
    /// See setDoubleValue().
    bool setValue(float value);
    bool setValue(VxTime time, float value);
    /// Sets the value at the scene's time without a key, whether or not the scene animates: where
    /// there are keys, a transient value that replaces theirs at that time only, until the scene's
    /// time or the keys change; without keys the stored value. Limits apply. False when refused:
    /// not finite, locked, or driven by a link. Recorded for undo, which has no effect once the
    /// transient value is dropped. Files do not contain transient values.
    bool setTransientValue(float value);
    /// True while a transient value of this property or its key holder is in effect.
    bool hasTransientValue() const;
    void dropTransientValue();
    /// Drops those of all properties; done whenever the scene's time changes.
    static void dropTransientValues();

    /// The value of a property without keys; kept beside keys.
    float getStoredValue() const;
    bool setStoredValue(float value);

    /// 0 when there is no such key.
    float getKeyValue(int index) const;
    bool setKeyValue(int index, float value);
    int getKeyInterpolationType(int index, float *tension = nullptr, float *continuity = nullptr,
                                float *bias = nullptr) const override;
    bool setKeyInterpolation(int index, int type, float tension = 0.0f, float continuity = 0.0f,
                             float bias = 0.0f);
    /// Makes or replaces the key at time.
    bool setKey(VxTime time, float value, int type, float tension = 0.0f, float continuity = 0.0f,
                float bias = 0.0f);

    /// All keys as borrowed arrays, valid until the next change of the property's keys.
    VxKeyColumns<float> getKeys() const;
    /// Makes or replaces many keys in one merge; times strictly ascending. Values are not limited.
    bool setKeys(const VxKeyColumns<float> &keys);
    /// Replaces all keys within range (ends included) by the given ones; given keys outside of it
    /// merge with the existing ones.
    bool replaceKeys(const VxTimeRange &range, const VxKeyColumns<float> &keys);
    /// Sets one interpolation for the keys at the given indexes (ascending), in one pass.
    bool setKeyInterpolations(const QVector<int> &indexes, const VxKeyShape &shape);
    /// Sets one type for them; each keeps its tension, continuity and bias.
    bool setKeyTypes(const QVector<int> &indexes, int type);
    /// values[i] is for the key at indexes[i] (ascending, no duplicates).
    bool setKeyValues(const QVector<int> &indexes, const QVector<float> &values);

    using VxNumericProperty::getDoubleValue;
    using VxNumericProperty::setDoubleValue;
    double getDoubleValue(VxTime time) const override;
    bool setDoubleValue(VxTime time, double value) override;

private:
    class Private;
    Private *priv() const;
};

#endif
