#include "keys/keymovemerge.h"

#include "keys/keytrack.h"

#include <algorithm>
#include <numeric>

void MovedKeys::setKeys(const int *indexes, const VxTime *newTimes, int indexCount)
{
    if (!isStrictlyAscending(newTimes, indexCount)) {
        sortKeys(indexes, newTimes, indexCount);
        return;
    }
    source = indexes;
    times = newTimes;
    count = indexCount;
}

void MovedKeys::sortKeys(const int *indexes, const VxTime *newTimes, int indexCount)
{
    std::vector<int> order(indexCount);
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(),
                     [newTimes](int a, int b) { return newTimes[a] < newTimes[b]; });
    for (int k = 0; k < indexCount; ++k) {
        if (k + 1 < indexCount && newTimes[order[k]] == newTimes[order[k + 1]])
            continue;
        m_source.push_back(indexes[order[k]]);
        m_times.push_back(newTimes[order[k]]);
        m_listed.push_back(order[k]);
    }
    source = m_source.data();
    times = m_times.data();
    count = int(m_source.size());
}

// Branchless: the listed indexes are unpredictable.
StayingKeys::StayingKeys(const VxTime *trackTimes, int first, int last, const int *indexes,
                         int indexCount)
    : source(last - first)
    , times(last - first)
{
    std::vector<quint8> listed(last - first);
    for (int k = 0; k < indexCount; ++k)
        listed[indexes[k] - first] = 1;
    int *indexOut = source.data();
    VxTime *timeOut = times.data();
    int n = 0;
    for (int i = first; i < last; ++i) {
        indexOut[n] = i;
        timeOut[n] = trackTimes[i];
        n += !listed[i - first];
    }
    source.resize(n);
    times.resize(n);
}

MoveMerge::MoveMerge(const StayingKeys &staying, const MovedKeys &moved)
    : times(staying.times.size() + moved.count)
    , source(times.size())
    , landed(moved.count)
{
    const int stayingCount = int(staying.times.size());
    VxTime *timeOut = times.data();
    int *indexOut = source.data();
    int a = 0;
    int b = 0;
    int n = 0;
    while (a < stayingCount && b < moved.count) { // no branch to guess within
        const VxTime keptTime = staying.times[a];
        const VxTime movedTime = moved.times[b];
        timeOut[n] = std::min(movedTime, keptTime);
        indexOut[n] = movedTime <= keptTime ? moved.source[b] : staying.source[a];
        landed[b] = n;
        a += keptTime <= movedTime;
        b += movedTime <= keptTime;
        ++n;
    }
    for (; b < moved.count; ++b, ++n) {
        timeOut[n] = moved.times[b];
        indexOut[n] = moved.source[b];
        landed[b] = n;
    }
    std::copy(staying.times.begin() + a, staying.times.end(), timeOut + n);
    std::copy(staying.source.begin() + a, staying.source.end(), indexOut + n);
    times.resize(n + stayingCount - a);
    source.resize(times.size());
}
