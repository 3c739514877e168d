#include "keytools/keymarkersnap.h"

#include <algorithm>
#include <cmath>

KeyMarkerSnap::KeyMarkerSnap(const VxMarkerList &markers, const VxTimeRange &range)
    : m_range(range)
{
    m_times.reserve(2 * std::size_t(markers.size()));
    for (const VxMarker &marker : markers) {
        m_times.push_back(marker.span.getStart());
        m_times.push_back(marker.span.getEnd());
    }
    std::sort(m_times.begin(), m_times.end());
}

std::optional<VxTime> KeyMarkerSnap::nearest(double time, double reach) const
{
    const auto after = std::lower_bound(m_times.begin(), m_times.end(), time);
    std::optional<VxTime> found;
    const auto offer = [&](VxTime each) {
        const double distance = std::abs(each - time);
        if (distance <= reach && (!found || distance < std::abs(*found - time)))
            found = each;
    };
    if (after != m_times.begin())
        offer(*(after - 1));
    if (after != m_times.end())
        offer(*after);
    return found;
}

std::optional<double> KeyMarkerSnap::offset(double offset, double reach) const
{
    std::optional<double> found;
    for (const VxTime key : {m_range.getStart(), m_range.getEnd()}) {
        const std::optional<VxTime> marker = nearest(key + offset, reach);
        const double exact = marker ? double(*marker) - key : 0;
        if (marker && (!found || std::abs(exact - offset) < std::abs(*found - offset)))
            found = exact;
    }
    return found;
}

std::optional<double> KeyMarkerSnap::factor(double factor, double pivot, double reach) const
{
    std::optional<double> found;
    double least = reach;
    for (const VxTime key : {m_range.getStart(), m_range.getEnd()}) {
        const double arm = key - pivot;
        if (arm == 0)
            continue;
        const double place = pivot + arm * factor;
        const std::optional<VxTime> marker = nearest(place, least);
        if (!marker)
            continue;
        found = (*marker - pivot) / arm;
        least = std::abs(*marker - place);
    }
    return found;
}
