#include "vxtimeline/keys/keyspans.h"

#include <algorithm>

std::vector<VxKeySpan> KeySpans::united(const std::vector<VxKeySpan> &one,
                                        const std::vector<VxKeySpan> &other)
{
    std::vector<VxKeySpan> sorted(one.size() + other.size());
    std::merge(one.begin(), one.end(), other.begin(), other.end(), sorted.begin(),
               [](const VxKeySpan &a, const VxKeySpan &b) { return a.first < b.first; });
    std::vector<VxKeySpan> result;
    for (const VxKeySpan &span : sorted) {
        if (!result.empty() && span.first <= result.back().last)
            result.back().last = std::max(result.back().last, span.last);
        else
            result.push_back(span);
    }
    return result;
}
