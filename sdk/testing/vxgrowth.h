#ifndef VXGROWTH_H
#define VXGROWTH_H

#include <algorithm>
#include <ctime>
#include <limits>

/// The processor time of this process, in milliseconds: what other programs do does not count.
inline double vxProcessorMilliseconds()
{
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return double(now.tv_sec) * 1e3 + double(now.tv_nsec) / 1e6;
}

/// How many times as long as for `size` something takes for `factor * size`: `factor` for linear
/// work, its square for quadratic work. `milliseconds(size)` does it and returns its time. The
/// least of each time counts, of ten at most; the measurement ends as soon as the ratio is below
/// `limit`.
template <class Work> double vxGrowth(int size, int factor, double limit, const Work &milliseconds)
{
    double few = std::numeric_limits<double>::max();
    double many = few;
    for (int i = 0; i < 10 && !(many < limit * few); ++i) {
        few = std::min(few, std::max(milliseconds(size), 0.01));
        many = std::min(many, milliseconds(factor * size));
    }
    return many / few;
}

#endif
