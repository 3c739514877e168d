#include "keys/keysmoothfit.h"

#include <algorithm>

namespace {

// A scan past the last reachable sample ends after this many times the samples reached, which
// keeps the whole linear.
constexpr int ScanFactor = 4;
constexpr int ScanLeast = 256;

/// The farthest sample whose line from sample i passes all samples between within the error.
int reachOfLine(const VxTime *times, const float *values, int count, int i, double error)
{
    const double t0 = times[i];
    const double v0 = double(values[i]);
    double low = -HUGE_VAL;
    double high = HUGE_VAL;
    int reach = i + 1;
    for (int j = i + 1; j < count && low <= high; ++j) {
        const double run = 1 / (times[j] - t0);
        const double rise = double(values[j]) - v0;
        const double slope = rise * run;
        if (slope >= low && slope <= high)
            reach = j;
        else if (j - reach > ScanLeast + ScanFactor * (reach - i))
            break;
        low = std::max(low, (rise - error) * run);
        high = std::min(high, (rise + error) * run);
    }
    return reach;
}

std::vector<int> linearKeys(const VxTime *times, const float *values, int count, double error)
{
    std::vector<int> kept;
    for (int i = 0; i < count - 1; i = reachOfLine(times, values, count, i, error))
        kept.push_back(i);
    if (count > 0)
        kept.push_back(count - 1);
    return kept;
}

/// The farthest sample that one segment reaches, by a doubling then halving search.
template <class Fits> int reachBySteps(int i, int count, const Fits &fits)
{
    int good = i + 1;
    int step = 1;
    while (good + step < count && fits(i, good + step)) {
        good += step;
        step *= 2;
    }
    for (step /= 2; step > 0; step /= 2) {
        if (good + step < count && fits(i, good + step))
            good += step;
    }
    return good;
}

template <class Fits> std::vector<int> keysBySteps(int count, const Fits &fits)
{
    std::vector<int> kept;
    for (int i = 0; i < count - 1; i = reachBySteps(i, count, fits))
        kept.push_back(i);
    if (count > 0)
        kept.push_back(count - 1);
    return kept;
}

TcbChain smoothChain(const KeySamples &samples, double error)
{
    const KeySmoothFit fit(samples, error);
    return fit.chain(
        keysBySteps(samples.count(), [&fit](int from, int to) { return fit.reaches(from, to); }));
}

TcbChain linearChain(const KeySamples &samples, const std::vector<int> &kept)
{
    std::vector<TcbChain::Knot> knots;
    knots.reserve(kept.size());
    for (const int i : kept)
        knots.push_back({samples.times()[i], VxKeyInterp::Linear, samples.point(i).value});
    return TcbChain(samples.channels(), std::move(knots));
}

std::vector<int> linearKeys(const KeySamples &samples, double error)
{
    return keysBySteps(samples.count(), [&samples, error](int i, int j) {
        const double start = samples.times()[i];
        const double perTick = 1 / (samples.times()[j] - start);
        std::array<double, FitTarget::MaxChannels> values = {};
        for (int k = i + 1; k < j; ++k) {
            const double s = (samples.times()[k] - start) * perTick;
            for (std::size_t c = 0; c < std::size_t(samples.channels()); ++c)
                values[c] = samples.value(c, i) + s * (samples.value(c, j) - samples.value(c, i));
            if (!samples.isWithin(k, values, error))
                return false;
        }
        return true;
    });
}

} // namespace

VxFittedKeys vxReduceKeys(const VxTime *times, const float *values, int count,
                          VxKeyInterp::Type type, double error)
{
    const KeySamples samples(times, values, count);
    error = samples.effectiveError(error);
    TcbChain chain = type == VxKeyInterp::Tcb
                         ? smoothChain(samples, error)
                         : linearChain(samples, linearKeys(times, values, count, error));
    const double largest = chain.refine(samples, error);
    VxFittedKeys keys = chain.keys(0);
    keys.error = largest;
    return keys;
}

std::array<VxFittedKeys, 3> vxReduceRotation(const VxRotationSamples &rotation,
                                             VxKeyInterp::Type type, double error)
{
    const KeySamples samples(rotation);
    error = samples.effectiveError(error);
    TcbChain chain = type == VxKeyInterp::Tcb ? smoothChain(samples, error)
                                              : linearChain(samples, linearKeys(samples, error));
    const double largest = chain.refine(samples, error);
    std::array<VxFittedKeys, 3> keys = {chain.keys(0), chain.keys(1), chain.keys(2)};
    for (VxFittedKeys &channel : keys)
        channel.error = largest;
    return keys;
}
