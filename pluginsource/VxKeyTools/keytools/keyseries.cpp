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

void moveTimes(std::vector<VxTime> *times, double offset)
{
    for (VxTime &time : *times)
        time = wholeTick(time + offset);
}

void scaleTimes(std::vector<VxTime> *times, double factor, double pivot)
{
    for (VxTime &time : *times)
        time = wholeTick(pivot + (time - pivot) * factor);
}

void snapTimes(std::vector<VxTime> *times, VxTime step)
{
    for (VxTime &time : *times) {
        const VxTime rest = time % step;
        const qint64 below = qint64(time) - (rest < 0 ? rest + step : rest);
        const qint64 nearest = below + (2 * (time - below) >= step ? step : 0);
        time = VxTime(std::clamp(nearest, qint64(VxTimeMin), qint64(VxTimeMax)));
    }
}

void spaceTimes(std::vector<VxTime> *times)
{
    const int last = int(times->size()) - 1;
    for (int i = 1; i < last; ++i) {
        const double first = times->front();
        (*times)[std::size_t(i)] = wholeTick(first + (times->back() - first) * i / last);
    }
}

void insertTime(std::vector<VxTime> *times, VxTime time, VxTime count)
{
    for (VxTime &key : *times) {
        if (key >= time)
            key = wholeTick(double(key) + count);
    }
}

void removeTime(std::vector<VxTime> *times, VxTime time, VxTime count)
{
    for (VxTime &key : *times) {
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
    const std::vector<VxTime> &times = keys->times;
    const auto indexFrom = [&times](auto place) { return std::size_t(place - times.begin()); };
    const std::size_t first = indexFrom(std::lower_bound(times.begin(), times.end(), start));
    const std::size_t last =
        std::max(first, indexFrom(std::upper_bound(times.begin(), times.end(), end)));
    const auto addWeighted = [&](std::size_t from, std::size_t to) {
        for (std::size_t i = from; i < to; ++i)
            keys->values[i] += amount * falloffWeight(times[i], start, end, falloff);
    };
    addWeighted(0, first);
    for (std::size_t i = first; i < last; ++i)
        keys->values[i] += amount;
    addWeighted(last, times.size());
}

double meanValue(const KeySeries &keys)
{
    if (keys.values.empty())
        return 0;
    return std::accumulate(keys.values.begin(), keys.values.end(), 0.0) / keys.count();
}
