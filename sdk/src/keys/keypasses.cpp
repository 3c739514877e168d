#include "keys/keypasses.h"

#include "keys/keytrack.h"

#include <algorithm>

namespace {

constexpr int BlockSize = 256;

} // namespace

bool isStrictlyAscending(const VxTime *times, int count)
{
    for (int first = 1; first < count; first += BlockSize) {
        const int last = first + std::min(count - first, BlockSize);
        int wrong = 0;
        for (int i = first; i < last; ++i)
            wrong |= int(times[i - 1] >= times[i]);
        if (wrong)
            return false;
        if (last == count)
            break;
    }
    return true;
}

// Differences of ascending times fit 32 bits unsigned.
VxTime evenSpacing(const VxTime *times, int count)
{
    if (count < 2)
        return 0;
    const quint32 distance = quint32(times[1]) - quint32(times[0]);
    for (int first = 2; first < count; first += BlockSize) {
        const int last = first + std::min(count - first, BlockSize);
        quint32 differing = 0;
        for (int i = first; i < last; ++i)
            differing |= (quint32(times[i]) - quint32(times[i - 1])) ^ distance;
        if (differing)
            return 0;
        if (last == count)
            break;
    }
    return distance > quint32(VxTimeMax) ? 0 : VxTime(distance);
}

bool keepsOrder(const VxTime *times, int count, const int *indexes, const VxTime *newTimes,
                int indexCount)
{
    if (!isStrictlyAscending(newTimes, indexCount))
        return false;
    const auto followsOthers = [=](int k) {
        const int i = indexes[k];
        return i == 0 || times[i - 1] < newTimes[k];
    };
    const auto leadsOthers = [=](int k) {
        const int i = indexes[k];
        return i + 1 == count || newTimes[k] < times[i + 1];
    };
    if (areContiguous(indexes, indexCount))
        return followsOthers(0) && leadsOthers(indexCount - 1);
    for (int k = 0; k < indexCount; ++k) {
        const bool previousMoves = k > 0 && indexes[k - 1] + 1 == indexes[k];
        const bool nextMoves = k + 1 < indexCount && indexes[k] + 1 == indexes[k + 1];
        if ((!previousMoves && !followsOthers(k)) || (!nextMoves && !leadsOthers(k)))
            return false;
    }
    return true;
}
