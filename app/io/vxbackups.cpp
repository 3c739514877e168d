#include "io/vxbackups.h"

#include "io/vxfiletext.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <cerrno>
#include <cstdio>
#include <sys/stat.h>
#include <unistd.h>
#include <vxcore/vxfileexchange.h>

namespace {

constexpr qint64 BlockSize = 1 << 20; // bytes that are compared at once

bool fail(QString *reason, const QString &fileName, const QString &text)
{
    *reason = QStringLiteral("%1: %2").arg(fileName, text);
    return false;
}

} // namespace

VxBackups::VxBackups(const QString &fileName, int count)
    : m_file(VxFileExchange::targetOf(fileName))
    , m_count(qBound(0, count, MaxCount))
{
}

QString VxBackups::name(int number) const
{
    const QFileInfo file(m_file);
    const QString suffix = file.suffix().isEmpty() ? QString() : QLatin1Char('.') + file.suffix();
    return file.dir().filePath(
        QStringLiteral("%1.bak%2%3").arg(file.completeBaseName(), QString::number(number), suffix));
}

QString VxBackups::originalOf(const QString &fileName)
{
    static const QRegularExpression pattern(QStringLiteral("^(.+)\\.bak[0-9]{1,2}(\\.[^.]+)?$"));
    const QFileInfo file(fileName);
    const QRegularExpressionMatch match = pattern.match(file.fileName());
    if (!match.hasMatch())
        return {};
    const QString original = file.dir().filePath(match.captured(1) + match.captured(2));
    return QFileInfo::exists(original) ? original : QString();
}

bool VxBackups::isPresentFile(const QString &other) const
{
    struct stat a = {};
    struct stat b = {};
    return ::stat(QFile::encodeName(m_file).constData(), &a) == 0 &&
           ::stat(QFile::encodeName(other).constData(), &b) == 0 && a.st_ino == b.st_ino &&
           a.st_dev == b.st_dev;
}

bool VxBackups::isSameAsPresent(const QString &other) const
{
    QFile present(m_file);
    QFile former(other);
    if (!present.open(QIODevice::ReadOnly) || !former.open(QIODevice::ReadOnly) ||
        present.size() != former.size())
        return false;
    QByteArray bytes;
    do {
        bytes = present.read(BlockSize);
        if (former.read(BlockSize) != bytes)
            return false;
    } while (!bytes.isEmpty());
    return present.error() == QFile::NoError;
}

/** False for a file of another user: where a save cannot rename it, the file is overwritten in
 * place, and the contents of its hard links with it. */
bool VxBackups::linkAs(const QString &backup) const
{
    const QByteArray file = QFile::encodeName(m_file);
    const QString next = VxFileExchange::newName(backup);
    const QByteArray nextName = QFile::encodeName(next);
    struct stat status = {};
    const uid_t user = ::geteuid();
    if (::stat(file.constData(), &status) != 0 || (user != 0 && user != status.st_uid))
        return false;
    QFile::remove(next);
    if (::link(file.constData(), nextName.constData()) != 0)
        return false;
    if (std::rename(nextName.constData(), QFile::encodeName(backup).constData()) == 0)
        return true;
    QFile::remove(next);
    return false;
}

bool VxBackups::preserve(QString *reason)
{
    m_hasPreserved = false;
    if (m_count == 0 || !QFileInfo(m_file).isFile())
        return true;
    const QString zero = name(0);
    // What an interrupted save left: the present file itself, or its former version.
    if (isPresentFile(zero) && !QFile::remove(zero))
        return fail(reason, zero, qt_error_string(errno));
    if (QFileInfo::exists(zero) && !rotate(reason))
        return false;
    m_hasPreserved =
        linkAs(zero) || VxFileExchange::copy(m_file, zero, reason) || fail(reason, zero, *reason);
    return m_hasPreserved;
}

bool VxBackups::rotate(QString *reason) const
{
    if (m_count == 0 || !QFileInfo::exists(name(0)))
        return true;
    // A version of the same contents would only push out the oldest one.
    if (isSameAsPresent(name(0)))
        return QFile::remove(name(0)) || fail(reason, name(0), qt_error_string(errno));
    int free = 1;
    while (free < m_count && QFileInfo::exists(name(free)))
        ++free;
    // No file is renamed over another one: some network folders refuse that.
    if (QFileInfo::exists(name(free)) && !QFile::remove(name(free)))
        return fail(reason, name(free), VxFileText::tr("The oldest backup cannot be removed"));
    for (; free > 0; --free) {
        if (std::rename(QFile::encodeName(name(free - 1)).constData(),
                        QFile::encodeName(name(free)).constData()) != 0)
            return fail(reason, name(free), qt_error_string(errno));
    }
    return true;
}

void VxBackups::drop() const
{
    if (m_hasPreserved)
        QFile::remove(name(0));
}
