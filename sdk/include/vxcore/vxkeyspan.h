#ifndef VXKEYSPAN_H
#define VXKEYSPAN_H

/// Contiguous keys of a property by index, the end excluded: [first, last).
struct VxKeySpan
{
    int first = 0;
    int last = 0;

    friend constexpr bool operator==(const VxKeySpan &a, const VxKeySpan &b)
    {
        return a.first == b.first && a.last == b.last;
    }
    friend constexpr bool operator!=(const VxKeySpan &a, const VxKeySpan &b) { return !(a == b); }
};

#endif
