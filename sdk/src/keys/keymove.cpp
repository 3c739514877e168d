#include <vxcore/vxkeymove.h>

#include "keys/keypasses.h"
#include "keys/keytrack.h"

#include <algorithm>

namespace {

// Walks the keys that are not moved from the far end of the move back to its origin, in step with
// the moved keys: they keep their order, so one walk finds a free tick for all of them.
class WaitingPlaces
{
public:
    // `farthest` is the time wanted by the moved key that is placed first.
    WaitingPlaces(const VxKeyMove &move, int back, VxTime farthest)
        : m_move(move)
        , m_back(back)
    {
        const VxTime *end = move.times + move.count;
        const int *selectedEnd = move.selected + move.selectedCount;
        if (back < 0) {
            m_key = int(std::upper_bound(move.times, end, farthest) - move.times) - 1;
            m_selected =
                int(std::upper_bound(move.selected, selectedEnd, m_key) - move.selected) - 1;
        } else {
            m_key = int(std::lower_bound(move.times, end, farthest) - move.times);
            m_selected = int(std::lower_bound(move.selected, selectedEnd, m_key) - move.selected);
        }
    }

    // The free tick nearest to `wanted` on the way back.
    qint64 place(qint64 wanted)
    {
        while (m_key >= 0 && m_key < m_move.count) {
            const qint64 time = m_move.times[m_key];
            const qint64 ahead = (wanted - time) * m_back; // above 0: the key is still further on
            const bool moved = isMoved();
            if (!moved && ahead < 0)
                break;
            if (!moved && ahead == 0)
                wanted += m_back;
            m_key += m_back;
        }
        return wanted;
    }

private:
    // Selected indexes are walked along with the keys.
    bool isMoved()
    {
        if (m_selected < 0 || m_selected >= m_move.selectedCount ||
            m_move.selected[m_selected] != m_key)
            return false;
        m_selected += m_back;
        return true;
    }

    const VxKeyMove &m_move;
    const int m_back;
    int m_key = 0;
    int m_selected = 0;
};

// True when no key can have to wait: either none ever does, or, where neighbours are moved, no
// other key lies where they go.
bool nobodyWaits(const VxKeyMove &move, qint64 offset)
{
    if (move.rule == VxKeyMoveRule::Replace)
        return true;
    if (!areNeighbours(move.selected, move.selectedCount))
        return false;
    const int before = move.selected[0] - 1;
    const int after = move.selected[move.selectedCount - 1] + 1;
    return (before < 0 || move.times[before] < move.origins[0] + offset) &&
           (after >= move.count ||
            move.times[after] > move.origins[move.selectedCount - 1] + offset);
}

// Unsigned, because the offset may be wider than a time; the sums are within range.
std::vector<VxTime> shifted(const VxTime *origins, int count, qint64 offset)
{
    std::vector<VxTime> times(origins, origins + count);
    for (VxTime &time : times)
        time = VxTime(quint32(time) + quint32(offset));
    return times;
}

} // namespace

std::vector<VxTime> vxPlanKeyMove(const VxKeyMove &move)
{
    const int moved = move.selectedCount;
    if (moved <= 0)
        return {};
    const qint64 offset = limitedOffset(move.origins[0], move.origins[moved - 1], move.offset);
    if (nobodyWaits(move, offset))
        return shifted(move.origins, moved, offset);
    std::vector<VxTime> planned(moved);
    const int back = offset < 0 ? 1 : -1;
    const int first = back < 0 ? moved - 1 : 0;
    WaitingPlaces places(move, back, VxTime(move.origins[first] + offset));
    for (int k = first; k >= 0 && k < moved; k += back) {
        qint64 time = move.origins[k] + offset;
        const qint64 beside = k == first ? time : qint64(planned[k - back]) + back;
        time = places.place(back < 0 ? std::min(time, beside) : std::max(time, beside));
        if (time < VxTimeMin || time > VxTimeMax)
            return {};
        planned[k] = VxTime(time);
    }
    return planned;
}
