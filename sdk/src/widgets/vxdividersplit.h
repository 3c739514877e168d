#ifndef VXDIVIDERSPLIT_H
#define VXDIVIDERSPLIT_H

/// The smallest and the largest length of a widget along the split, in pixels, both included.
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

/// Divides `length` pixels (0 or more) between two widgets, `ratio` (0 to 1) of them to the first,
/// within the limits of both. A `length` below the sum of both minima is divided in their
/// proportion. Above the sum of both maxima the second one gets the rest.
VxDividerSplit vxSplitLength(int length, double ratio, const VxLengthLimits &first,
                             const VxLengthLimits &second);

/// The ratio that gives the first widget `first` of `length` pixels, clamped to 0 and 1; one half
/// when `length` is 0 or less. vxSplitLength() gives the same `first` back within its limits.
double vxSplitRatio(int first, int length);

#endif
