#ifndef KEYSPANS_H
#define KEYSPANS_H

#include <vector>
#include <vxcore/vxkeyspan.h>

/// Selected keys as spans of indexes.
namespace KeySpans {

/// The spans of the keys whose flag is set. flagOf(index) is 0 or 1. Changes of the flag are stored
/// consecutively without a branch: the next store overwrites one that was no change.
template <typename FlagOf> std::vector<VxKeySpan> ofFlags(int count, const FlagOf &flagOf)
{
    std::size_t changes = 0;
    int former = 0;
    for (int i = 0; i < count; ++i) {
        changes += static_cast<std::size_t>(flagOf(i) ^ former);
        former = flagOf(i);
    }
    std::vector<VxKeySpan> spans((changes + 1) / 2);
    if (spans.empty())
        return spans;
    std::vector<int> bounds(2 * spans.size() + 1);
    int *bound = bounds.data();
    former = 0;
    for (int i = 0; i < count; ++i) {
        *bound = i;
        bound += flagOf(i) ^ former;
        former = flagOf(i);
    }
    if (former)
        *bound = count;
    for (std::size_t i = 0; i < spans.size(); ++i)
        spans[i] = {bounds[2 * i], bounds[2 * i + 1]};
    return spans;
}

/// The keys in either list.
std::vector<VxKeySpan> united(const std::vector<VxKeySpan> &one,
                              const std::vector<VxKeySpan> &other);

} // namespace KeySpans

#endif
