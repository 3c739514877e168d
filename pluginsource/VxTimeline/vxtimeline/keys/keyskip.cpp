#include "vxtimeline/keys/keyskip.h"

#include "vxtimeline/keys/nodeproperties.h"

#include <algorithm>
#include <vxcore/vxproperty.h>

namespace KeySkip {

namespace {

// Splits the keys of one property after another at a time.
//
// The channels of a figure mostly have their keys at the same times, so the index found in one is
// tried first in the next: that reads one or two of its keys, a search many.
class Split
{
public:
    explicit Split(VxTime time)
        : m_time(time)
    {
    }

    void look(const VxProperty *property)
    {
        m_times = property->getKeyTimes();
        m_count = m_times ? property->getNumKeys() : 0;
        if (!fits())
            m_after =
                static_cast<int>(std::upper_bound(m_times, m_times + m_count, m_time) - m_times);
    }

    // The last key at the time or before; null when there is none.
    const VxTime *upTo() const { return m_after > 0 ? m_times + m_after - 1 : nullptr; }
    // The first key after the time; null when there is none.
    const VxTime *after() const { return m_after < m_count ? m_times + m_after : nullptr; }

private:
    bool fits() const
    {
        return m_after <= m_count && (m_after == 0 || m_times[m_after - 1] <= m_time) &&
               (m_after == m_count || m_times[m_after] > m_time);
    }

    const VxTime m_time;
    const VxTime *m_times = nullptr;
    int m_count = 0;
    int m_after = 0;
};

} // namespace

VxTime previousKeyTime(const QVector<VxNode *> &nodes, VxTime now, VxTime limit)
{
    VxTime best = limit;
    if (now == VxTimeMin)
        return best;
    Split split(now - 1);
    for (const VxNode *node : nodes) {
        NodeProperties::visitMade(node, [&best, &split](const VxProperty *property) {
            split.look(property);
            if (const VxTime *key = split.upTo())
                best = std::max(best, *key);
        });
    }
    return best;
}

VxTime nextKeyTime(const QVector<VxNode *> &nodes, VxTime now, VxTime limit)
{
    VxTime best = limit;
    Split split(now);
    for (const VxNode *node : nodes) {
        NodeProperties::visitMade(node, [&best, &split](const VxProperty *property) {
            split.look(property);
            if (const VxTime *key = split.after())
                best = std::min(best, *key);
        });
    }
    return best;
}

} // namespace KeySkip
