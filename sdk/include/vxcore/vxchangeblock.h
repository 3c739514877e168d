#ifndef VXCHANGEBLOCK_H
#define VXCHANGEBLOCK_H

#include <vxcore/vxcoreglobal.h>

/// Holds back change reports while it lives: each property that changed reports once, with the
/// union of the changed times, when the outermost block ends, in the order of their first changes.
///
/// The changes themselves take effect at once. A property destroyed within the block reports
/// nothing. Changes made by a report's receiver are reported at once.
class VXCORE_EXPORT VxChangeBlock
{
public:
    VxChangeBlock();
    ~VxChangeBlock();

    /// True while any block exists.
    static bool isActive();
    /// True while a report is pending: within a block after the first change, and at its end until
    /// the last report is sent. Meanwhile, caches that reports invalidate must not be trusted;
    /// compare VxProperty::keyRevision().
    static bool hasUnsentReports();

private:
    VxChangeBlock(const VxChangeBlock &) = delete;
    VxChangeBlock &operator=(const VxChangeBlock &) = delete;
};

#endif
