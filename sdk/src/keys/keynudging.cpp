// Nudge rule: keys move one after the other and stop a tick before an obstructing key.

#include "keys/keycollision.h"

#include <algorithm>
#include <iterator>

namespace {

// The occupied times while keys move in ascending order: keys not yet moved, and moved ones.
// Queries nearly always ascend, so the position among the unmoved keys is kept between queries, and
// moved keys are appended.
class TakenTimes
{
public:
    TakenTimes(std::vector<VxTime> times, int moveCount)
        : m_times(std::move(times))
        , m_removed(m_times.size(), 0)
    {
        m_placed.reserve(std::size_t(moveCount));
    }

    // Moves key `index` to the target, or to the free tick nearest to it on the way back.
    VxTime move(int index, VxTime target)
    {
        const VxTime own = m_times[std::size_t(index)];
        if (target == own)
            return own;
        m_removed[std::size_t(index)] = 1;
        const VxTime time = target > own ? free<-1>(target, own) : free<1>(target, own);
        add(time);
        if (time != own && m_runLow <= own && own <= m_runHigh)
            clearRun();
        return time;
    }

private:
    // Skips the run of occupied ticks found by the last search: many keys with one target queue up
    // in linear time.
    template <int Back> VxTime free(VxTime target, VxTime own)
    {
        if (m_runLow <= target && target <= m_runHigh) {
            if (m_runLow <= own && own <= m_runHigh)
                return own;
            target = Back < 0 ? m_runLow : m_runHigh;
        } else {
            m_runLow = m_runHigh = target;
            if (!contains(target)) {
                return target;
            }
        }
        do
            target += Back;
        while (target != own && contains(target));
        (Back < 0 ? m_runLow : m_runHigh) = target;
        return target;
    }

    bool contains(VxTime time)
    {
        seek(time);
        if (m_place < m_times.size() && m_times[m_place] == time && !m_removed[m_place])
            return true;
        return !m_placed.empty() && time <= m_placed.back() &&
               std::binary_search(m_placed.begin(), m_placed.end(), time);
    }

    void add(VxTime time)
    {
        if (m_placed.empty() || time > m_placed.back())
            m_placed.push_back(time);
        else
            m_placed.insert(std::lower_bound(m_placed.begin(), m_placed.end(), time), time);
    }

    // Seeks the first unmoved key at or after time.
    void seek(VxTime time)
    {
        for (int steps = 0; steps < 16; ++steps) {
            if (m_place > 0 && m_times[m_place - 1] >= time)
                --m_place;
            else if (m_place < m_times.size() && m_times[m_place] < time)
                ++m_place;
            else
                return;
        }
        const auto found = std::lower_bound(m_times.begin(), m_times.end(), time);
        m_place = std::size_t(found - m_times.begin());
    }

    void clearRun()
    {
        m_runLow = VxTimeMax;
        m_runHigh = VxTimeMin;
    }

    std::vector<VxTime> m_times;
    std::vector<unsigned char> m_removed;
    std::vector<VxTime> m_placed;
    std::size_t m_place = 0;
    VxTime m_runLow = VxTimeMax; // both included; empty while low is above high
    VxTime m_runHigh = VxTimeMin;
};

// Mirrors time, to move keys the other way: ~t descends where t ascends and cannot overflow.
std::vector<VxTime> mirrored(const VxTime *times, int count)
{
    std::vector<VxTime> result(static_cast<std::size_t>(count));
    std::transform(std::make_reverse_iterator(times + count), std::make_reverse_iterator(times),
                   result.begin(), [](VxTime time) { return ~time; });
    return result;
}

// True when every key moves in the direction of the list and all targets differ: moved keys then
// never collide with each other.
bool runAhead(const VxTime *times, const VxKeyMoves &moves, bool descending)
{
    bool ahead = true;
    for (int k = 0; k < moves.count; ++k) {
        const VxTime own = times[moves.source[k]];
        const VxTime time = moves.targets[k];
        ahead &= descending ? time >= own : time <= own;
        if (k > 0)
            ahead &= descending ? time < moves.targets[k - 1] : time > moves.targets[k - 1];
    }
    return ahead;
}

// True when a target is the time of a key that is not moved. The targets ascend or descend with
// the list.
bool collidesWithUnmoved(const VxTime *times, int count, const VxKeyMoves &moves, bool descending)
{
    if (moves.count == count)
        return false;
    int reached = 0; // moves whose own key was passed
    int behind = 0;  // moves whose target was passed
    for (int i = 0; i < count; ++i) {
        const int index = descending ? count - 1 - i : i;
        if (reached < moves.count && moves.source[reached] == index) {
            ++reached;
            continue;
        }
        const VxTime time = times[index];
        while (behind < moves.count &&
               (descending ? moves.targets[behind] > time : moves.targets[behind] < time))
            ++behind;
        if (behind < moves.count && moves.targets[behind] == time)
            return true;
    }
    return false;
}

} // namespace

std::vector<VxTime> planNudgedTimes(const VxTime *times, int count, const VxKeyMoves &moves)
{
    std::vector<VxTime> planned(moves.targets, moves.targets + moves.count);
    const bool descending = moves.count > 1 && moves.source[0] > moves.source[moves.count - 1];
    if (runAhead(times, moves, descending) && !collidesWithUnmoved(times, count, moves, descending))
        return planned;
    TakenTimes taken(descending ? mirrored(times, count)
                                : std::vector<VxTime>(times, times + count),
                     moves.count);
    for (int k = 0; k < moves.count; ++k) {
        VxTime &time = planned[std::size_t(k)];
        if (descending)
            time = ~taken.move(count - 1 - moves.source[k], ~time);
        else
            time = taken.move(moves.source[k], time);
    }
    return planned;
}
