#include "io/vxsafefile.h"

#ifdef Q_OS_UNIX
#include <cerrno>
#include <unistd.h>
#endif

namespace {

constexpr int BufferBytes = 256 * 1024;

} // namespace

VxSafeFile::VxSafeFile(const QString &fileName)
    : m_file(fileName)
{
}

VxSafeFile::~VxSafeFile() = default;

bool VxSafeFile::start()
{
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return fail(m_file.errorString());
    m_buffer.reserve(BufferBytes);
    return open(QIODevice::WriteOnly | QIODevice::Unbuffered);
}

bool VxSafeFile::startPrivate()
{
    if (!start())
        return false;
    return m_file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner) ||
           fail(m_file.errorString());
}

bool VxSafeFile::flush()
{
    return passOnBuffer() && synchronize();
}

bool VxSafeFile::commit()
{
    const bool complete = flush();
    close();
    if (!complete) {
        m_file.cancelWriting();
        return false;
    }
    return m_file.commit() || fail(m_file.errorString());
}

qint64 VxSafeFile::readData(char *, qint64)
{
    return -1;
}

qint64 VxSafeFile::writeData(const char *data, qint64 size)
{
    if (!m_failure.isEmpty())
        return -1;
    if (m_buffer.size() + size > BufferBytes && !passOnBuffer())
        return -1;
    if (size > BufferBytes)
        return passOn(data, size) ? size : -1;
    m_buffer.append(data, int(size));
    return size;
}

bool VxSafeFile::passOnBuffer()
{
    const bool done = passOn(m_buffer.constData(), m_buffer.size());
    m_buffer.resize(0); // keeps its capacity
    return done;
}

/** A partial write is accepted silently; only the next attempt gives the reason. */
bool VxSafeFile::passOn(const char *data, qint64 size)
{
    qint64 done = 0;
    while (m_failure.isEmpty() && done < size) {
        const qint64 taken = m_file.write(data + done, size - done);
        if (taken <= 0)
            return fail(m_file.errorString());
        done += taken;
    }
    return m_failure.isEmpty();
}

/** A network file system may report only now that a write failed. */
bool VxSafeFile::synchronize()
{
#ifdef Q_OS_UNIX
    // Some kinds of files do not support it; that is no failure.
    if (::fsync(m_file.handle()) != 0 && errno != EINVAL && errno != ENOTSUP && errno != EROFS)
        return fail(qt_error_string(errno));
#endif
    return true;
}

bool VxSafeFile::fail(const QString &reason)
{
    m_failure = reason;
    setErrorString(reason);
    return false;
}
