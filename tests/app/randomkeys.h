#ifndef RANDOMKEYS_H
#define RANDOMKEYS_H

#include <random>
#include <vxcore/vxtime.h>

using Random = std::mt19937;

constexpr VxTime Step = 160;      // ticks a frame
constexpr VxTime End = 60 * Step; // of the play range

inline float number(Random &random, float low, float high)
{
    return std::uniform_real_distribution<float>(low, high)(random);
}

#endif
