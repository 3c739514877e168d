#include <vxcore/vxfileexchange.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vxcore/vxsafefile.h>

namespace {

constexpr int MaxLinks = 40;

bool fail(QString *reason, const QString &text)
{
    *reason = text;
    return false;
}

/// The number of the system's error, or 0. Unlike QFile::rename() it replaces an existing target,
/// in one step, and never falls back to a copy.
int renameFile(const QString &from, const QString &to)
{
    return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0
               ? 0
               : errno;
}

/** Copies everything to an open device. */
bool pour(const QString &from, QIODevice *to, QString *reason)
{
    QFile source(from);
    if (!source.open(QIODevice::ReadOnly))
        return fail(reason, source.errorString());
    constexpr int BlockBytes = 1 << 20;
    while (!source.atEnd()) {
        const QByteArray block = source.read(BlockBytes);
        if (block.isEmpty())
            return fail(reason, source.errorString());
        if (to->write(block) != block.size())
            return fail(reason, to->errorString());
    }
    return true;
}

/** The file itself gets the contents of another one; its node in the file system stays. */
bool overwrite(const QString &from, const QString &to, QString *reason)
{
    QFile target(to);
    if (!target.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered |
                     QIODevice::ExistingOnly))
        return fail(reason, target.errorString());
    if (!pour(from, &target, reason))
        return false;
    return ::fsync(target.handle()) == 0 || fail(reason, qt_error_string(errno));
}

/// Creates a file that only its owner can read. Fails where a file or a link of that name exists.
bool createPrivate(QFile *file, QString *reason)
{
    const int handle = ::open(QFile::encodeName(file->fileName()).constData(),
                              O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (handle < 0)
        return fail(reason, QStringLiteral("%1: %2").arg(file->fileName(), qt_error_string(errno)));
    return file->open(handle, QIODevice::WriteOnly | QIODevice::Unbuffered,
                      QFileDevice::AutoCloseHandle) ||
           fail(reason, file->errorString());
}

/// The path in a link, which may be relative to the link's folder; empty when it cannot be read.
QString pathInLink(const QFileInfo &link)
{
    char path[PATH_MAX];
    const ssize_t size =
        ::readlink(QFile::encodeName(link.filePath()).constData(), path, sizeof path);
    if (size <= 0)
        return {};
    const QString target = QFile::decodeName(QByteArray(path, int(size)));
    return target.startsWith(QLatin1Char('/')) ? target : link.path() + QLatin1Char('/') + target;
}

/// With a folder in which no link is; empty when the folder is missing.
QString nameInRealFolder(const QFileInfo &file)
{
    const QString folder = QFileInfo(file.path()).canonicalFilePath();
    return folder.isEmpty() ? QString() : QDir(folder).filePath(file.fileName());
}

/// Nothing can be renamed: the former contents are copied beside the file, then it is overwritten.
bool replaceContents(const QString &complete, const QString &fileName, QString *reason)
{
    const QString old = VxFileExchange::oldName(fileName);
    QFile::remove(old);
    QFile copy(old);
    bool isKept = createPrivate(&copy, reason) &&
                  VxFileExchange::applyPermissions(copy.handle(), fileName, reason) &&
                  pour(fileName, &copy, reason);
    if (isKept && ::fsync(copy.handle()) != 0)
        isKept = fail(reason, qt_error_string(errno));
    copy.close();
    if (!isKept) {
        QFile::remove(old);
        return false;
    }
    if (overwrite(complete, fileName, reason)) {
        QFile::remove(complete);
        QFile::remove(old);
        return true;
    }
    QString second;
    if (overwrite(old, fileName, &second))
        QFile::remove(old);
    else
        *reason = VxSafeFile::tr("%1. The former file is %2").arg(*reason, old);
    return false;
}

/// The former file is moved aside before the new one gets its name.
bool replaceInSteps(const QString &complete, const QString &fileName, QString *reason)
{
    const QString next = VxFileExchange::newName(fileName);
    const QString old = VxFileExchange::oldName(fileName);
    QFile::remove(next);
    QFile::remove(old);
    if (renameFile(complete, next) != 0)
        return replaceContents(complete, fileName, reason);
    if (renameFile(fileName, old) != 0) {
        const bool isDone = replaceContents(next, fileName, reason);
        QFile::remove(next);
        return isDone;
    }
    const int error = renameFile(next, fileName);
    if (error == 0) {
        QFile::remove(old);
        return true;
    }
    *reason = qt_error_string(error);
    if (renameFile(old, fileName) != 0)
        return fail(reason, VxSafeFile::tr("%1. The former file is %2").arg(*reason, old));
    QFile::remove(next);
    return false;
}

} // namespace

bool VxFileExchange::replace(const QString &complete, const QString &fileName, QString *reason)
{
    int error = renameFile(complete, fileName);
    bool isDone = error == 0;
    if (!isDone && QFileInfo::exists(fileName))
        isDone = replaceInSteps(complete, fileName, reason);
    else if (!isDone)
        fail(reason, qt_error_string(error));
    if (isDone)
        synchronizeFolder(fileName);
    else
        QFile::remove(complete);
    return isDone;
}

/** Not every file system supports it. */
bool VxFileExchange::synchronizeFolder(const QString &fileName)
{
    const QByteArray folder = QFile::encodeName(QFileInfo(fileName).absolutePath());
    const int handle = ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0)
        return false;
    const bool isDone = ::fsync(handle) == 0 || errno == EINVAL;
    ::close(handle);
    return isDone;
}

bool VxFileExchange::finishInterrupted(const QString &fileName)
{
    const QString target = targetOf(fileName);
    if (target.isEmpty() || QFileInfo::exists(target))
        return false;
    const QString next = newName(target);
    const QString old = oldName(target);
    if (QFileInfo(next).isFile() && renameFile(next, target) == 0) {
        QFile::remove(old);
        return true;
    }
    return QFileInfo(old).isFile() && renameFile(old, target) == 0;
}

QString VxFileExchange::newName(const QString &fileName)
{
    return fileName + QStringLiteral("~new~");
}

QString VxFileExchange::oldName(const QString &fileName)
{
    return fileName + QStringLiteral("~old~");
}

QString VxFileExchange::targetOf(const QString &fileName)
{
    QFileInfo file(fileName);
    int links = 0;
    for (; file.isSymLink() && links < MaxLinks; ++links)
        file.setFile(pathInLink(file));
    if (links == MaxLinks)
        return {};
    const QString name = nameInRealFolder(file);
    return name.isEmpty() ? file.absoluteFilePath() : name;
}

QString VxFileExchange::absoluteName(const QString &fileName)
{
    const QFileInfo file(fileName);
    const QString name =
        fileName.contains(QLatin1String("../")) ? nameInRealFolder(file) : QString();
    return name.isEmpty() ? file.absoluteFilePath() : name;
}

/** The group first: changing it may drop permissions. */
bool VxFileExchange::applyPermissions(int handle, const QString &model, QString *reason)
{
    struct stat former = {};
    if (::stat(QFile::encodeName(model).constData(), &former) != 0)
        return true;
    mode_t mode = former.st_mode & (S_IRWXU | S_IRWXG | S_IRWXO);
    if (::fchown(handle, uid_t(-1), former.st_gid) != 0)
        mode = (mode & ~mode_t(S_IRWXG)) | ((mode & S_IRWXO) << 3);
    // File systems without permissions refuse the change.
    return ::fchmod(handle, mode) == 0 || errno == EPERM || errno == ENOTSUP ||
           fail(reason, qt_error_string(errno));
}

bool VxFileExchange::copy(const QString &from, const QString &to, QString *reason)
{
    VxSafeFile file(to);
    if (file.startLike(from) && pour(from, &file, reason) && file.commit())
        return true;
    return fail(reason, file.failure().isEmpty() ? *reason : file.failure());
}
