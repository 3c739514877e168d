#ifndef VXINTPROPERTY_H
#define VXINTPROPERTY_H

#include <vxcore/vxkey.h>
#include <vxcore/vxnumericproperty.h>

/// A whole number. Its keys hold their value until the next one: their interpolation type is
/// always Constant (1), whichever is set.
class VXCORE_EXPORT VxIntProperty : public VxNumericProperty
{
    Q_OBJECT
    Q_PROPERTY(int defaultValue READ getDefaultValue)
    Q_PROPERTY(int min READ getMin)
    Q_PROPERTY(int max READ getMax)
public:
    explicit VxIntProperty(const QString &name, int defaultValue = 0);
    ~VxIntProperty() override;

    int getDefaultValue() const;
    /// Limits for editors; values set outside are limited only when clamped is true.
    int getMin() const;
    int getMax() const;
    bool isClamped() const;
    void setMinMax(int minimum, int maximum, bool clamped = false);

    int getValue() const;
    int getValue(VxTime time) const;
    /// See setDoubleValue().
    bool setValue(int value);
    bool setValue(VxTime time, int value);
    /// The value of a property without keys; kept beside keys.
    int getStoredValue() const;
    bool setStoredValue(int value);

    /// 0 when there is no such key.
    int getKeyValue(int index) const;
    bool setKeyValue(int index, int value);
    /// 1 (Constant) for every key; the parameters are set to 0.
    int getKeyInterpolationType(int index, float *tension = nullptr, float *continuity = nullptr,
                                float *bias = nullptr) const override;
    /// Makes or replaces the key at time.
    bool setKey(VxTime time, int value);

    /// All keys as borrowed arrays (types and tcb are null), valid until the next change.
    VxKeyColumns<qint32> getKeys() const;
    /// As VxFloatProperty::setKeys() and replaceKeys(); types and tcb are ignored.
    bool setKeys(const VxKeyColumns<qint32> &keys);
    bool replaceKeys(const VxTimeRange &range, const VxKeyColumns<qint32> &keys);

    using VxNumericProperty::getDoubleValue;
    using VxNumericProperty::setDoubleValue;
    double getDoubleValue(VxTime time) const override;
    bool setDoubleValue(VxTime time, double value) override;

protected:
    class Private;
    VxIntProperty(const QString &name, Private *priv);

private:
    Private *priv() const;
};

#endif
