#ifndef KEYS_KEYMOVEMERGE_H
#define KEYS_KEYMOVEMERGE_H

#include <vector>
#include <vxcore/vxtime.h>

/// The keys that move, in the order of their new times. Nearly always they come in that order and
/// are only borrowed; otherwise they are sorted, and of several keys with one time the one listed
/// last is kept.
struct MovedKeys
{
    const int *source = nullptr; ///< index before the move
    const VxTime *times = nullptr;
    int count = 0;

    MovedKeys() = default;
    Q_DISABLE_COPY(MovedKeys)

    void setKeys(const int *indexes, const VxTime *newTimes, int indexCount);
    /// Position of moved key i in the list it was given in.
    int listedAt(int i) const { return m_listed.empty() ? i : m_listed[i]; }

private:
    void sortKeys(const int *indexes, const VxTime *newTimes, int indexCount);

    std::vector<int> m_source;
    std::vector<VxTime> m_times;
    std::vector<int> m_listed;
};

/// The keys that stay while others move: those from index first to last (excluded) that are not in
/// the ascending list of indexes.
struct StayingKeys
{
    std::vector<int> source; ///< index
    std::vector<VxTime> times;

    StayingKeys(const VxTime *trackTimes, int first, int last, const int *indexes, int indexCount);
};

/// Both in one ascending sequence; of two keys at one time the moved one stays.
struct MoveMerge
{
    std::vector<VxTime> times;
    std::vector<int> source; ///< index before the move, by index in the sequence
    std::vector<int> landed; ///< index in the sequence, by moved key

    MoveMerge(const StayingKeys &staying, const MovedKeys &moved);
};

#endif
