#include "widgets/vxdividersplit.h"

#include <algorithm>
#include <cmath>

VxDividerSplit vxSplitLength(int length, double ratio, const VxLengthLimits &first,
                             const VxLengthLimits &second)
{
    length = std::max(0, length);
    const int needed = first.minimum + second.minimum;
    if (length < needed) {
        const int part = static_cast<int>(static_cast<long long>(length) * first.minimum / needed);
        return {part, length - part};
    }
    const int most = std::max(first.minimum, std::min(first.maximum, length - second.minimum));
    const int least = std::min(most, std::max(first.minimum, length - second.maximum));
    const int desired = static_cast<int>(std::lround(length * std::clamp(ratio, 0.0, 1.0)));
    const int part = std::clamp(desired, least, most);
    return {part, length - part};
}

double vxSplitRatio(int first, int length)
{
    if (length <= 0)
        return 0.5;
    return std::clamp(static_cast<double>(first) / length, 0.0, 1.0);
}
