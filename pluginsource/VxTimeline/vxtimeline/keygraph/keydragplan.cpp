#include "vxtimeline/keygraph/keydragplan.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "vxtimeline/time/timelinesnap.h"

namespace KeyDragPlan {

namespace {

// The times that are taken while keys are moved in ascending order: keys that were not moved yet,
// and those that have been. Questions come with rising times, nearly always, so the place in the
// unmoved keys is kept from one to the next, and moved keys are added at the end.
class TakenTimes
{
public:
    TakenTimes(std::vector<VxTime> times, std::size_t moveCount)
        : m_times(std::move(times))
        , m_gone(m_times.size(), 0)
    {
        m_placed.reserve(moveCount);
    }

    VxTime time(std::size_t index) const { return m_times[index]; }
    void remove(std::size_t index) { m_gone[index] = 1; }

    bool contains(VxTime time)
    {
        seek(time);
        if (m_place < m_times.size() && m_times[m_place] == time && !m_gone[m_place])
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

private:
    // To the first of the unmoved keys at or after time.
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
        m_place = static_cast<std::size_t>(found - m_times.begin());
    }

    std::vector<VxTime> m_times;
    std::vector<unsigned char> m_gone;
    std::vector<VxTime> m_placed;
    std::size_t m_place = 0;
};

// The same times seen from the other end: ~t falls where t rises and cannot overflow.
std::vector<VxTime> mirrored(const VxTime *times, int count)
{
    std::vector<VxTime> result(static_cast<std::size_t>(count));
    std::transform(std::make_reverse_iterator(times + count), std::make_reverse_iterator(times),
                   result.begin(), [](VxTime time) { return ~time; });
    return result;
}

VxTime place(TakenTimes &taken, std::size_t index, VxTime target)
{
    const VxTime own = taken.time(index);
    if (target == own)
        return own;
    taken.remove(index);
    const VxTime back = target > own ? -1 : 1;
    while (target != own && taken.contains(target))
        target += back;
    taken.add(target);
    return target;
}

// True when every key moves the way that the order of moves goes, and no two want one time: none
// can then meet another moved key.
bool runAhead(const VxTime *times, const Move *moves, int moveCount, bool descending)
{
    bool ahead = true;
    for (int i = 0; i < moveCount; ++i) {
        const VxTime own = times[moves[i].index];
        const VxTime time = moves[i].time;
        ahead &= descending ? time >= own : time <= own;
        if (i > 0)
            ahead &= descending ? time < moves[i - 1].time : time > moves[i - 1].time;
    }
    return ahead;
}

// True when a move leads to the time of a key that is not moved. The moves' times rise or fall
// with their order.
bool meetUnmoved(const VxTime *times, int count, const Move *moves, int moveCount, bool descending)
{
    if (moveCount == count)
        return false;
    int reached = 0; // moves whose own key was passed
    int behind = 0;  // moves whose target was passed
    for (int i = 0; i < count; ++i) {
        const int index = descending ? count - 1 - i : i;
        if (reached < moveCount && moves[reached].index == index) {
            ++reached;
            continue;
        }
        const VxTime time = times[index];
        while (behind < moveCount &&
               (descending ? moves[behind].time > time : moves[behind].time < time))
            ++behind;
        if (behind < moveCount && moves[behind].time == time)
            return true;
    }
    return false;
}

} // namespace

QPointF oneAxis(const QPointF &delta)
{
    if (std::abs(delta.y()) > std::abs(delta.x()))
        return QPointF(0.0, delta.y());
    return QPointF(delta.x(), 0.0);
}

VxTime draggedTime(VxTime start, VxTime delta, VxTime timeStep)
{
    const VxTime time = TimelineSnap::limited(qint64(start) + delta);
    return timeStep > 0 ? TimelineSnap::toFrame(time, timeStep) : time;
}

VxTime freeTime(const VxTime *times, int count, int index, VxTime target)
{
    const VxTime own = times[index];
    const VxTime *place = std::lower_bound(times, times + count, target);
    if (target > own) {
        for (; target != own && place != times + count && *place == target; --place)
            --target;
        return target;
    }
    for (; target != own && place != times + count && *place == target; ++place)
        ++target;
    return target;
}

void placeKeys(const VxTime *times, int count, Move *moves, int moveCount)
{
    const bool descending = moveCount > 1 && moves[0].index > moves[moveCount - 1].index;
    if (runAhead(times, moves, moveCount, descending) &&
        !meetUnmoved(times, count, moves, moveCount, descending))
        return;
    TakenTimes taken(descending ? mirrored(times, count)
                                : std::vector<VxTime>(times, times + count),
                     static_cast<std::size_t>(moveCount));
    for (int i = 0; i < moveCount; ++i) {
        const int index = descending ? count - 1 - moves[i].index : moves[i].index;
        const VxTime target = descending ? ~moves[i].time : moves[i].time;
        const VxTime time = place(taken, static_cast<std::size_t>(index), target);
        moves[i].time = descending ? ~time : time;
    }
}

} // namespace KeyDragPlan
