#include "vxtimeline/keygraph/paint/keygraphruns.h"

#include <algorithm>

namespace {

constexpr int LargestGap = int(KeyGraphScale::MarkSide) - 1; // pixels from mark to mark of a run
constexpr int SmallestWidth = 2 * int(KeyGraphScale::MarkSide);
constexpr int HalfMark = int(KeyGraphScale::MarkSide) / 2; // from a mark's corner to its key

} // namespace

std::vector<KeyGraphRun> keyGraphHiddenRuns(const std::vector<KeyGraphMark> &marks,
                                            const QVector<QPointF> &points)
{
    std::vector<KeyGraphRun> runs;
    const auto isLeftOf = [](const QPointF &point, double x) { return point.x() < x; };
    for (std::size_t i = 0; i < marks.size();) {
        const int left = marks[i].corner.x();
        int right = left;
        for (++i; i < marks.size() && marks[i].corner.x() - right <= LargestGap; ++i)
            right = marks[i].corner.x();
        if (right - left < SmallestWidth)
            continue;
        const auto first =
            std::lower_bound(points.cbegin(), points.cend(), double(left + HalfMark), isLeftOf);
        const auto end =
            std::lower_bound(first, points.cend(), double(right + HalfMark) + 0.5, isLeftOf);
        if (end - first > 1)
            runs.push_back({static_cast<int>(first - points.cbegin()),
                            static_cast<int>(end - points.cbegin()) - 1});
    }
    return runs;
}
