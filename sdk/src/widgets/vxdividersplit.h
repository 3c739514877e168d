#ifndef VXDIVIDERSPLIT_H
#define VXDIVIDERSPLIT_H

// The smallest and the largest length of a widget along the split, in pixels, both included.
struct VxLengthLimits
{
    int minimum = 0;
    int maximum = 0;
};

struct VxDividerSplit
{
    int first = 0;
    int second = 0;
};

// Divides `length` pixels (0 or more) between two widgets, `ratio` (0 to 1) of them to the first,
// within the limits of both. Where `length` is too short for both minima it is divided in their
// proportion. Where it is too long for both maxima the rest goes to the second.
VxDividerSplit vxSplitLength(int length, double ratio, const VxLengthLimits &first,
                             const VxLengthLimits &second);

// The ratio that gives the first widget `first` of `length` pixels, clamped to 0 and 1; one half
// when `length` is 0 or less. vxSplitLength() gives the same `first` back within its limits.
double vxSplitRatio(int first, int length);

#endif
