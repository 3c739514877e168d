#include "keys/keysamples.h"

#include <algorithm>
#include <cmath>

KeySamples::KeySamples(const VxTime *times, const float *values, int count)
    : m_times(times)
    , m_values{values}
    , m_count(count)
    , m_channels(1)
{
}

KeySamples::KeySamples(const VxRotationSamples &rotation)
    : m_times(rotation.times)
    , m_values(rotation.angles)
    , m_count(rotation.count)
    , m_channels(3)
    , m_order(rotation.order)
{
}

FitTarget::Point KeySamples::point(int k) const
{
    Point point = {};
    const int before = std::max(k - 1, 0);
    const int after = std::min(k + 1, m_count - 1);
    const double left = double(m_times[k]) - m_times[before];
    const double right = double(m_times[after]) - m_times[k];
    for (std::size_t c = 0; c < std::size_t(m_channels); ++c) {
        point.value[c] = value(c, k);
        const double leftSlope = left > 0 ? (value(c, k) - value(c, before)) / left : 0;
        const double rightSlope = right > 0 ? (value(c, after) - value(c, k)) / right : 0;
        if (left > 0 && right > 0)
            point.slope[c] = (leftSlope * right + rightSlope * left) / (left + right);
        else
            point.slope[c] = left > 0 ? leftSlope : rightSlope;
    }
    return point;
}

double KeySamples::errorOf(int k, const std::array<double, MaxChannels> &values) const
{
    if (m_channels == 1)
        return std::abs(values[0] - value(0, k));
    const VxEuler own = {value(0, k), value(1, k), value(2, k)};
    if (own == values)
        return 0;
    return vxAngleBetween(vxQuaternion(own, m_order), vxQuaternion(values, m_order));
}

/* Rotations about three successive axes differ by at most the sum of the angle differences. */
bool KeySamples::isWithin(int k, const std::array<double, MaxChannels> &values, double error) const
{
    double sum = 0;
    for (std::size_t c = 0; c < std::size_t(m_channels); ++c)
        sum += std::abs(values[c] - value(c, k));
    return sum <= error || (m_channels > 1 && errorOf(k, values) <= error);
}

double KeySamples::effectiveError(double error) const
{
    float largest = 0;
    for (std::size_t c = 0; c < std::size_t(m_channels); ++c) {
        for (int k = 0; k < m_count; ++k)
            largest = std::max(largest, std::abs(m_values[c][k]));
    }
    return std::max(error > 0 ? error : 0, SinglePrecision * double(largest));
}

void KeySamples::places(VxTime from, VxTime to, std::vector<VxTime> *times) const
{
    for (int k = indexOf(from) + 1; k < m_count && m_times[k] < to; ++k)
        times->push_back(m_times[k]);
}

int KeySamples::indexOf(VxTime time) const
{
    int k = m_lastIndex;
    for (int steps = 0; steps < 2 && k < m_count; ++steps, ++k) {
        if (m_times[k] == time)
            return m_lastIndex = k;
    }
    return m_lastIndex = int(std::lower_bound(m_times, m_times + m_count, time) - m_times);
}
