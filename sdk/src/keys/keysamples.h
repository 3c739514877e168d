#ifndef KEYSAMPLES_H
#define KEYSAMPLES_H

#include "keys/tcbchain.h"

/// Dense samples as the target of a fit: of one property, whose error is the difference of values,
/// or of the three angles of a rotation, whose error is the angle between the rotations in degrees.
/// The arrays are borrowed.
class KeySamples : public FitTarget
{
public:
    KeySamples(const VxTime *times, const float *values, int count);
    explicit KeySamples(const VxRotationSamples &rotation);

    int channels() const { return m_channels; }
    int count() const { return m_count; }
    const VxTime *times() const { return m_times; }
    double value(std::size_t channel, int k) const { return double(m_values[channel][k]); }
    /// Value and slope at sample k; the slope is that of the parabola through its neighbours.
    Point point(int k) const;
    double errorOf(int k, const std::array<double, MaxChannels> &values) const;
    /// The same as errorOf() <= error, mostly without computing the angle.
    bool isWithin(int k, const std::array<double, MaxChannels> &values, double error) const;
    /// `error`, at least the rounding error of the values in single precision.
    double effectiveError(double error) const;

    /// `time` must be that of a sample.
    Point at(VxTime time) const override { return point(indexOf(time)); }
    double error(VxTime time, const std::array<double, MaxChannels> &values) const override
    {
        return errorOf(indexOf(time), values);
    }
    void places(VxTime from, VxTime to, std::vector<VxTime> *times) const override;

private:
    int indexOf(VxTime time) const;

    const VxTime *m_times;
    std::array<const float *, MaxChannels> m_values = {};
    int m_count;
    int m_channels;
    VxRotationOrder m_order = VxRotationOrder::XYZ;
    mutable int m_lastIndex = 0; ///< times are requested in ascending order
};

#endif
