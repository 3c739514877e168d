#include <vxcore/vxsafefile.h>

#include <QtCore/QFileInfo>
#include <QtCore/QRandomGenerator>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vxcore/vxfileexchange.h>

namespace {

constexpr int BufferBytes = 256 * 1024;
constexpr int MaxAttempts = 100;

/// "walk.vxscene.k3x9aq" beside "walk.vxscene".
QString randomNameBeside(const QString &fileName)
{
    constexpr char Letters[] = "abcdefghijklmnopqrstuvwxyz0123456789";
    QString name = fileName + QLatin1Char('.');
    for (int i = 0; i < 6; ++i)
        name += QLatin1Char(Letters[QRandomGenerator::global()->bounded(int(sizeof Letters) - 1)]);
    return name;
}

/// Empty when the file may be replaced. The system lets an administrator write everything: a file
/// without any permission to write is refused all the same.
QString obstacle(const QString &fileName)
{
    struct stat status = {};
    const QByteArray name = QFile::encodeName(fileName);
    if (::stat(name.constData(), &status) != 0)
        return {};
    if (S_ISDIR(status.st_mode))
        return VxSafeFile::tr("the name refers to a directory");
    if (!S_ISREG(status.st_mode))
        return VxSafeFile::tr("the name refers to a device or pipe");
    constexpr auto AnyWrite = S_IWUSR | S_IWGRP | S_IWOTH;
    return (status.st_mode & AnyWrite) == 0 || ::access(name.constData(), W_OK) != 0
               ? VxSafeFile::tr("it is read-only")
               : QString();
}

} // namespace

VxSafeFile::VxSafeFile(const QString &fileName)
    : m_name(VxFileExchange::targetOf(fileName))
    , m_model(m_name)
{
}

VxSafeFile::~VxSafeFile()
{
    if (m_file.isOpen())
        m_file.remove();
}

bool VxSafeFile::start()
{
    if (m_name.isEmpty())
        return fail(qt_error_string(ELOOP));
    const QString reason = obstacle(m_name);
    if (!reason.isEmpty())
        return fail(reason);
    if (!openBeside())
        return false;
    m_buffer.reserve(BufferBytes);
    return open(QIODevice::WriteOnly | QIODevice::Unbuffered);
}

bool VxSafeFile::startLike(const QString &model)
{
    m_model = model;
    return start();
}

/** Others cannot read it before it has its permissions. */
bool VxSafeFile::openBeside()
{
    const bool isNew = m_model == m_name && !QFileInfo::exists(m_name);
    int handle = -1;
    for (int i = 0; i < MaxAttempts && handle < 0; ++i) {
        m_file.setFileName(randomNameBeside(m_name));
        handle = ::open(QFile::encodeName(m_file.fileName()).constData(),
                        O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, isNew ? 0666 : 0600);
        if (handle < 0 && errno != EEXIST)
            break;
    }
    if (handle < 0)
        return fail(qt_error_string(errno));
    // The toolkit cannot create a file with permissions.
    ::close(handle);
    return m_file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) || fail(m_file.errorString());
}

bool VxSafeFile::applyPermissions()
{
    QString reason;
    return m_model.isEmpty() ||
           VxFileExchange::applyPermissions(m_file.handle(), m_model, &reason) || fail(reason);
}

bool VxSafeFile::commit()
{
    const bool complete = passOnBuffer() && applyPermissions() && synchronize();
    close();
    if (!complete) {
        m_file.remove();
        return false;
    }
    m_file.close();
    QString reason;
    return VxFileExchange::replace(m_file.fileName(), m_name, &reason) || fail(reason);
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
    // Some kinds of files do not support it; that is no failure.
    if (::fsync(m_file.handle()) != 0 && errno != EINVAL && errno != ENOTSUP && errno != EROFS)
        return fail(qt_error_string(errno));
    return true;
}

bool VxSafeFile::fail(const QString &reason)
{
    m_failure = reason;
    setErrorString(reason);
    return false;
}
