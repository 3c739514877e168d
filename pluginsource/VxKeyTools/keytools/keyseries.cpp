#include "keytools/keyseries.h"

#include <algorithm>
#include <cmath>
#include <numeric>

VxTime wholeTick(double time)
{
    // Halves away from zero, as std::round(), which costs a call.
    const double limited = std::clamp(time, double(VxTimeMin), double(VxTimeMax));
    return VxTime(limited < 0 ? limited - 0.5 : limited + 0.5);
}

void moveTimes(KeySeries *keys, double offset)
{
    for (VxTime &time : keys->times)
        time = wholeTick(time + offset);
}

void scaleTimes(KeySeries *keys, double factor, double pivot)
{
    for (VxTime &time : keys->times)
        time = wholeTick(pivot + (time - pivot) * factor);
}

void snapTimes(KeySeries *keys, VxTime step)
{
    for (VxTime &time : keys->times) {
        const double steps = double(time) / step + 0.5;
        const auto whole = qint64(steps);
        time = wholeTick(double(whole - (double(whole) > steps ? 1 : 0)) * step);
    }
}

void spaceTimes(KeySeries *keys)
{
    const int last = keys->count() - 1;
    for (int i = 1; i < last; ++i) {
        const double first = keys->times.front();
        keys->times[std::size_t(i)] = wholeTick(first + (keys->times.back() - first) * i / last);
    }
}

void insertTime(KeySeries *keys, VxTime time, VxTime count)
{
    for (VxTime &key : keys->times) {
        if (key >= time)
            key = wholeTick(double(key) + count);
    }
}

void removeTime(KeySeries *keys, VxTime time, VxTime count)
{
    for (VxTime &key : keys->times) {
        if (key >= time)
            key = wholeTick(double(key) - count);
    }
}

void scaleValues(KeySeries *keys, double factor, double pivot)
{
    for (double &value : keys->values)
        value = pivot + (value - pivot) * factor;
}

double falloffWeight(double time, double start, double end, double falloff)
{
    const double outside = std::max({start - time, time - end, 0.0});
    if (outside <= 0)
        return 1;
    if (outside >= falloff)
        return 0;
    constexpr double Pi = 3.14159265358979323846;
    return 0.5 + 0.5 * std::cos(Pi * outside / falloff);
}

void offsetValues(KeySeries *keys, double amount, VxTime start, VxTime end, VxTime falloff)
{
    for (std::size_t i = 0; i < keys->times.size(); ++i)
        keys->values[i] += amount * falloffWeight(keys->times[i], start, end, falloff);
}

double meanValue(const KeySeries &keys)
{
    if (keys.values.empty())
        return 0;
    return std::accumulate(keys.values.begin(), keys.values.end(), 0.0) / keys.count();
}
