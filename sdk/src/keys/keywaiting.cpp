// Wait rule: moved keys queue up beside keys that are not edited.

#include "keys/keycollision.h"
#include "keys/keypasses.h"
#include "keys/keytrack.h"

#include <algorithm>

namespace {

// Occupied times: ascending, without the lifted keys (ascending indexes).
struct OccupiedTimes
{
    const VxTime *times = nullptr;
    int count = 0;
    const int *lifted = nullptr;
    int liftedCount = 0;
};

// Finds the free ticks for queued keys in a single pass over the occupied times.
class WaitingPlaces
{
public:
    // back: -1 where keys queue at earlier times, 1 at later ones; `farthest` is the target of the
    // first key.
    WaitingPlaces(const OccupiedTimes &taken, int back, VxTime farthest)
        : m_taken(taken)
        , m_back(back)
    {
        const VxTime *end = taken.times + taken.count;
        const int *liftedEnd = taken.lifted + taken.liftedCount;
        if (back < 0) {
            m_key = int(std::upper_bound(taken.times, end, farthest) - taken.times) - 1;
            m_lifted = int(std::upper_bound(taken.lifted, liftedEnd, m_key) - taken.lifted) - 1;
        } else {
            m_key = int(std::lower_bound(taken.times, end, farthest) - taken.times);
            m_lifted = int(std::lower_bound(taken.lifted, liftedEnd, m_key) - taken.lifted);
        }
    }

    // The free tick nearest to `target` in the `back` direction.
    qint64 place(qint64 target)
    {
        while (m_key >= 0 && m_key < m_taken.count) {
            const qint64 time = m_taken.times[m_key];
            const qint64 ahead = (target - time) * m_back; // above 0: the key is not reached yet
            const bool lifted = isLifted();
            if (!lifted && ahead < 0)
                break;
            if (!lifted && ahead == 0)
                target += m_back;
            m_key += m_back;
        }
        return target;
    }

private:
    // Advances through the lifted indexes along with the keys.
    bool isLifted()
    {
        if (m_lifted < 0 || m_lifted >= m_taken.liftedCount || m_taken.lifted[m_lifted] != m_key)
            return false;
        m_lifted += m_back;
        return true;
    }

    const OccupiedTimes &m_taken;
    const int m_back;
    int m_key = 0;
    int m_lifted = 0;
};

// Places the keys that queue in one direction, by their positions in the list: the key with the
// farthest target first, so that none meets a key not yet placed.
bool placeGroup(const OccupiedTimes &taken, const VxTime *targets, const std::vector<int> &group,
                int back, std::vector<VxTime> *planned)
{
    if (group.empty())
        return true;
    WaitingPlaces places(taken, back, targets[group.front()]);
    qint64 beside = targets[group.front()];
    for (const int k : group) {
        const qint64 target =
            back < 0 ? std::min<qint64>(targets[k], beside) : std::max<qint64>(targets[k], beside);
        const qint64 time = places.place(target);
        if (time < VxTimeMin || time > VxTimeMax)
            return false;
        (*planned)[std::size_t(k)] = VxTime(time);
        beside = time + back;
    }
    return true;
}

// Times of unmoved and of placed keys, ascending.
std::vector<VxTime> takenBy(const OccupiedTimes &taken, const std::vector<int> &group,
                            const std::vector<VxTime> &planned)
{
    std::vector<VxTime> times;
    times.reserve(std::size_t(taken.count));
    for (int i = 0, next = 0; i < taken.count; ++i) {
        if (next < taken.liftedCount && taken.lifted[next] == i)
            ++next;
        else
            times.push_back(taken.times[i]);
    }
    const auto middle = std::ptrdiff_t(times.size());
    for (const int k : group)
        times.push_back(planned[std::size_t(k)]);
    std::sort(times.begin() + middle, times.end());
    std::inplace_merge(times.begin(), times.begin() + middle, times.end());
    return times;
}

// True when no key has to wait: contiguous keys move, and no other key is at their targets.
bool hasNoCollisions(const VxTime *times, int count, const VxKeyMoves &moves)
{
    if (!areContiguous(moves.source, moves.count) ||
        !isStrictlyAscending(moves.targets, moves.count))
        return false;
    const int before = moves.source[0] - 1;
    const int after = moves.source[moves.count - 1] + 1;
    return (before < 0 || times[before] < moves.targets[0]) &&
           (after >= count || times[after] > moves.targets[moves.count - 1]);
}

} // namespace

std::vector<VxTime> planWaitingTimes(const VxTime *times, int count, const VxKeyMoves &moves)
{
    std::vector<VxTime> planned(moves.targets, moves.targets + moves.count);
    if (hasNoCollisions(times, count, moves))
        return planned;
    std::vector<int> forward;
    std::vector<int> backward;
    for (int k = 0; k < moves.count; ++k) {
        const VxTime origin = moves.origins ? moves.origins[k] : times[moves.source[k]];
        (moves.targets[k] < origin ? backward : forward).push_back(k);
    }
    const auto byTarget = [&moves](int a, int b) { return moves.targets[a] < moves.targets[b]; };
    for (std::vector<int> *group : {&forward, &backward}) {
        if (!std::is_sorted(group->begin(), group->end(), byTarget))
            std::stable_sort(group->begin(), group->end(), byTarget);
    }
    std::reverse(forward.begin(), forward.end());

    const OccupiedTimes taken{times, count, moves.source, moves.count};
    if (!placeGroup(taken, moves.targets, forward, -1, &planned))
        return {};
    if (backward.empty())
        return planned;
    if (forward.empty())
        return placeGroup(taken, moves.targets, backward, 1, &planned) ? planned
                                                                       : std::vector<VxTime>();
    const std::vector<VxTime> both = takenBy(taken, forward, planned);
    const OccupiedTimes rest{both.data(), int(both.size()), nullptr, 0};
    return placeGroup(rest, moves.targets, backward, 1, &planned) ? planned : std::vector<VxTime>();
}
