#include "io/vxfileexchange.h"

#include "io/vxfiletext.h"
#include "io/vxsafefile.h"

#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr int MaxLinks = 40;

/// The number of the system's error, or 0. Unlike the toolkit's function it copies nothing and
/// never gives up the target.
int renameFile(const QString &from, const QString &to)
{
    return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0
               ? 0
               : errno;
}

bool fail(QString *reason, const QString &text)
{
    *reason = text;
    return false;
}

/** After a loss of power the folder has the new names. Not every file system supports it. */
void synchronizeFolder(const QString &fileName)
{
    const QByteArray folder = QFile::encodeName(QFileInfo(fileName).absolutePath());
    const int handle = ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0)
        return;
    ::fsync(handle);
    ::close(handle);
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
    if (!target.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered))
        return fail(reason, target.errorString());
    if (!pour(from, &target, reason))
        return false;
    return ::fsync(target.handle()) == 0 || fail(reason, qt_error_string(errno));
}

/// Nothing can be renamed: the former contents are copied beside the file, then it is overwritten.
bool replaceContents(const QString &complete, const QString &fileName, QString *reason)
{
    const QString old = VxFileExchange::oldName(fileName);
    QFile::remove(old);
    QFile copy(old);
    bool isKept = copy.open(QIODevice::WriteOnly | QIODevice::Unbuffered) &&
                  copy.setPermissions(QFile::permissions(fileName));
    if (!isKept)
        fail(reason, copy.errorString());
    isKept = isKept && pour(fileName, &copy, reason);
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
        *reason = VxFileText::tr("%1. The former file is %2").arg(*reason, old);
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
    if (renameFile(old, fileName) != 0) {
        *reason = VxFileText::tr("%1. The former file is %2").arg(*reason, old);
        return false;
    }
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
        file.setFile(file.symLinkTarget());
    return links < MaxLinks ? file.absoluteFilePath() : QString();
}

bool VxFileExchange::copy(const QString &from, const QString &to, QString *reason)
{
    VxSafeFile file(to);
    if (!file.startPrivate() || !pour(from, &file, reason) || !file.commit())
        return fail(reason, file.failure().isEmpty() ? *reason : file.failure());
    return QFile::setPermissions(to, QFile::permissions(from)) ||
           fail(reason, VxFileText::tr("The permissions cannot be copied"));
}
