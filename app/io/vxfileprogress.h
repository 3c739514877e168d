#ifndef VXFILEPROGRESS_H
#define VXFILEPROGRESS_H

#include <QtGlobal>
#include <functional>

/// Called periodically by a long file operation with 0 to 100 percent, ascending; returning false
/// cancels the operation, which then fails with VxFileError::cancelled. May be empty.
using VxFileProgress = std::function<bool(int percent)>;

/// Reports how much of a file was read, each percent once.
class VxReadProgress
{
public:
    /// size: bytes of the file.
    VxReadProgress(const VxFileProgress &progress, qint64 size)
        : m_progress(progress)
        , m_size(size > 0 ? size : 1)
    {
    }
    /// position: bytes that were read. False when cancelled.
    bool report(qint64 position)
    {
        const int percent = static_cast<int>(position * 100 / m_size);
        if (!m_progress || percent == m_percent)
            return true;
        m_percent = percent;
        return m_progress(percent);
    }

private:
    const VxFileProgress m_progress;
    const qint64 m_size;
    int m_percent = -1;
};

/// The progress of one step of a whole, from percent first to percent last.
inline VxFileProgress partOfProgress(const VxFileProgress &whole, int first, int last)
{
    if (!whole)
        return {};
    return
        [whole, first, last](int percent) { return whole(first + percent * (last - first) / 100); };
}

#endif
