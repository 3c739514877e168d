#ifndef VXIO_VXFILEPROGRESS_H
#define VXIO_VXFILEPROGRESS_H

#include <functional>

/// Called periodically by a long file operation with 0 to 100 percent, ascending; returning false
/// cancels the operation, which then fails with VxFileError::cancelled. May be empty.
using VxFileProgress = std::function<bool(int percent)>;

/// The progress of one step of a whole, from percent first to percent last.
inline VxFileProgress partOfProgress(const VxFileProgress &whole, int first, int last)
{
    if (!whole)
        return {};
    return
        [whole, first, last](int percent) { return whole(first + percent * (last - first) / 100); };
}

#endif
