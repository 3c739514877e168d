#ifndef VXFLOATCHANNEL_H
#define VXFLOATCHANNEL_H

#include "vxtimeline/keygraph/vxkeygraphchannel.h"

class VxFloatProperty;

/// The curve of a float property.
///
/// Display units are the property's, or hundredths of them where the application shows the property
/// as a percentage. Input is narrowed to single precision first, like the property's values; a
/// value that does not fit is refused, so that no key can be lost in between.
class VxFloatChannel : public VxKeyGraphChannel
{
public:
    /// property: not owned, never null.
    VxFloatChannel(VxFloatProperty *property, VxKeyCommunication *keyBus);
    ~VxFloatChannel() override;

    /// Single precision; not finite when it does not fit.
    static float narrowed(double value);

    VxProperty *getProperty() const override;
    QString getLabel() const override;
    QStringList getPath() const override;
    QColor getColor() const override;
    double getValue(VxTime time) const override;
    void setValue(VxTime time, double value) override;
    int getNumKeys() const override;
    VxTime getKeyTime(int index) const override;
    double getKeyValue(int index) const override;
    void setKeyValue(int index, double value) override;
    void setKey(int index, VxTime time, double value) override;
    int getKeyInterpolation(int index, float *tension = nullptr, float *continuity = nullptr,
                            float *bias = nullptr) const override;
    void setKeyInterpolation(int index, int type) override;
    void setKeyTension(int index, double tension) override;
    void setKeyContinuity(int index, double continuity) override;
    void setKeyBias(int index, double bias) override;
    void removeKey(int index) override;

    KeyGraphKeys getKeys() const override;
    void getValues(const VxTime *times, int count, double *values) const override;
    /// Per cent, or degrees for a node's rotation.
    QString getUnit() const override;

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
