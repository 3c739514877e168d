#ifndef VXGROWTH_H
#define VXGROWTH_H

#include <algorithm>
#include <ctime>
#include <functional>
#include <limits>
#include <vector>

/// The processor time of this process, in milliseconds: what other programs do does not count.
inline double vxProcessorMilliseconds()
{
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return double(now.tv_sec) * 1e3 + double(now.tv_nsec) / 1e6;
}

/// How many times as long as for `size` each step of some work takes for `factor * size`: `factor`
/// for linear work, its square for quadratic work. `milliseconds(size)` does the work and returns
/// the time of each step. The least of each time counts, of ten at most; the measurement ends as
/// soon as all ratios are below `limit`.
template <class Work>
std::vector<double> vxGrowthOfSteps(int size, int factor, double limit, const Work &milliseconds)
{
    std::vector<double> few;
    std::vector<double> many;
    const auto measure = [&milliseconds](std::vector<double> *least, int count) {
        const std::vector<double> times = milliseconds(count);
        least->resize(times.size(), std::numeric_limits<double>::max());
        for (std::size_t i = 0; i < times.size(); ++i)
            (*least)[i] = std::min((*least)[i], std::max(times[i], 0.01));
    };
    std::vector<double> ratios;
    for (int i = 0; i < 10; ++i) {
        measure(&few, size);
        measure(&many, factor * size);
        ratios.resize(few.size());
        std::transform(many.begin(), many.end(), few.begin(), ratios.begin(), std::divides<>());
        if (std::all_of(ratios.begin(), ratios.end(), [limit](double r) { return r < limit; }))
            break;
    }
    return ratios;
}

/// The same for work of a single step, whose time `milliseconds(size)` returns.
template <class Work> double vxGrowth(int size, int factor, double limit, const Work &milliseconds)
{
    return vxGrowthOfSteps(size, factor, limit, [&milliseconds](int count) {
        return std::vector<double>{milliseconds(count)};
    })[0];
}

#endif
