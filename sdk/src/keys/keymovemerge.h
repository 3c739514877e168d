#ifndef KEYMOVEMERGE_H
#define KEYMOVEMERGE_H

#include <vector>
#include <vxcore/vxtime.h>

/// The moved keys in order of their new times. Lists nearly always have that order and are only
/// borrowed; others are sorted, and of several keys with one time the one listed last is kept.
struct MovedKeys
{
    const int *source = nullptr; ///< index before the move
    const VxTime *times = nullptr;
    int count = 0;

    MovedKeys() = default;
    Q_DISABLE_COPY(MovedKeys)

    void setKeys(const int *indexes, const VxTime *newTimes, int indexCount);
    /// Position of moved key i in the original list.
    int listedAt(int i) const { return m_listed.empty() ? i : m_listed[i]; }

private:
    void sortKeys(const int *indexes, const VxTime *newTimes, int indexCount);

    std::vector<int> m_source;
    std::vector<VxTime> m_times;
    std::vector<int> m_listed;
};

/// The unmoved keys: indexes first to last (excluded) without those of an ascending list.
struct StayingKeys
{
    std::vector<int> source; ///< index
    std::vector<VxTime> times;

    StayingKeys(const VxTime *trackTimes, int first, int last, const int *indexes, int indexCount);
};

/// Moved and unmoved keys merged in time order; a moved key replaces an unmoved one at its time.
struct MoveMerge
{
    std::vector<VxTime> times;
    std::vector<int> source; ///< index before the move, by index in the sequence
    std::vector<int> landed; ///< index in the sequence, by moved key

    MoveMerge(const StayingKeys &staying, const MovedKeys &moved);
};

#endif
