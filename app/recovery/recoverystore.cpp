#include "recovery/recoverystore.h"

#include "io/vxscenewriter.h"
#include "widgets/studiotext.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QUuid>
#include <algorithm>
#include <cerrno>
#include <csignal>
#include <vxcore/vxsettings.h>

Q_LOGGING_CATEGORY(recoveryLog, "vx.recovery", QtWarningMsg)

namespace {

constexpr char ScenePrefix[] = "copy-";
constexpr char BrokenPrefix[] = "broken-";
const QLatin1String FileKey("File");
const QLatin1String TitleKey("Title");

/// True for a lock file without a process: one whose process died before it was written, or one
/// with this process's id, from before the machine or its container restarted.
bool isOrphaned(const QLockFile &lock)
{
    qint64 pid = 0;
    QString host;
    QString program;
    if (!lock.getLockInfo(&pid, &host, &program))
        return true;
    return pid == QCoreApplication::applicationPid() && host == QSysInfo::machineHostName();
}

/// True for the lock of a process of this machine that has ended.
bool isOfEndedProcess(const QLockFile &lock)
{
    qint64 pid = 0;
    QString host;
    QString program;
    return lock.getLockInfo(&pid, &host, &program) && host == QSysInfo::machineHostName() &&
           ::kill(pid_t(pid), 0) != 0 && errno == ESRCH;
}

/// A folder that only its owner can enter, since copies can hold confidential documents. An
/// existing folder loses its permissions for others.
bool makePrivateFolder(const QString &folder)
{
    const QFileDevice::Permissions owner =
        QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner;
    return QDir().mkpath(folder) &&
           QFile::setPermissions(folder, QFile::permissions(folder) & owner);
}

} // namespace

RecoveryStore::Lock RecoveryStore::makeLock(const QString &id) const
{
    Lock lock = std::make_unique<QLockFile>(path(id, ".lock"));
    lock->setStaleLockTime(0); // a program may run for days
    return lock;
}

/** Null when another program has it. */
RecoveryStore::Lock RecoveryStore::tryLock(const QString &id) const
{
    Lock lock = makeLock(id);
    if (lock->tryLock(0))
        return lock;
    // Removal is verified by the system, which detects a program that still has the lock.
    if (lock->error() == QLockFile::LockFailedError && isOrphaned(*lock) &&
        lock->removeStaleLockFile() && lock->tryLock(0))
        return lock;
    // A network folder without locks: the toolkit cannot lock the file in order to remove it.
    if (lock->error() == QLockFile::LockFailedError && isOfEndedProcess(*lock) &&
        QFile::remove(path(id, ".lock")) && lock->tryLock(0))
        return lock;
    return nullptr;
}

bool RecoveryStore::begin(VxFileError *error)
{
    if (m_ownLock)
        return true;
    const QString id = QUuid::createUuid().toString(QUuid::Id128);
    Lock lock = makeLock(id);
    if (!makePrivateFolder(m_folder) || !lock->tryLock(0))
        return vxFail(error, StudioText::tr("Cannot write to the folder."), m_folder);
    m_ownId = id;
    m_ownLock = std::move(lock);
    m_recordedFile = m_recordedTitle = QString();
    return true;
}

bool RecoveryStore::writeRecord(const QString &documentFile, const QString &title,
                                VxFileError *error)
{
    if (!m_recordedTitle.isNull() && documentFile == m_recordedFile && title == m_recordedTitle)
        return true;
    VxSettings record;
    record.setStringValue(FileKey, documentFile);
    record.setStringValue(TitleKey, title);
    *error = VxFileError();
    if (!record.save(recordFile(m_ownId), &error->message))
        return false;
    m_recordedFile = documentFile;
    m_recordedTitle = title;
    return true;
}

bool RecoveryStore::serialize(const VxScene &scene, QByteArray *bytes, VxFileError *error)
{
    *error = VxFileError();
    bytes->reserve(m_size + m_size / 8);
    QBuffer buffer(bytes);
    buffer.open(QIODevice::WriteOnly);
    const bool done = VxSceneWriter(&scene).write(&buffer, error);
    m_size = bytes->size();
    return done;
}

/** The ids of all files, complete or not. */
QStringList RecoveryStore::ids() const
{
    QStringList list;
    const QStringList pattern{QLatin1String(ScenePrefix) + QLatin1Char('*')};
    const auto files = QDir(m_folder).entryInfoList(pattern, QDir::Files | QDir::Hidden);
    for (const QFileInfo &file : files)
        list.append(file.baseName().mid(int(sizeof(ScenePrefix)) - 1));
    list.removeDuplicates();
    return list;
}

RecoveryCopy RecoveryStore::read(const QString &id) const
{
    RecoveryCopy copy;
    copy.id = id;
    copy.sceneFile = QFileInfo(sceneFile(id)).absoluteFilePath();
    copy.time =
        qMax(QFileInfo(sceneFile(id)).lastModified(), QFileInfo(journalFile(id)).lastModified());
    VxSettings record;
    // A missing record is that of a document that was never saved.
    record.load(recordFile(id));
    copy.documentFile = record.getStringValue(FileKey);
    copy.title = record.getStringValue(TitleKey, StudioText::tr("Untitled"));
    return copy;
}

/** The scene first: a later run removes the rest of a copy without it. Everything but the lock,
 *  including a partial scene whose writer was interrupted. */
void RecoveryStore::remove(const QString &id) const
{
    QFile::remove(sceneFile(id));
    const QStringList pattern{QLatin1String(ScenePrefix) + id + QStringLiteral(".*")};
    const auto files = QDir(m_folder).entryInfoList(pattern, QDir::Files | QDir::Hidden);
    for (const QFileInfo &file : files) {
        if (file.suffix() != QLatin1String("lock"))
            QFile::remove(file.filePath());
    }
}

RecoveryStore::RecoveryStore(const QString &folder)
    : m_folder(folder)
{
}

RecoveryStore::~RecoveryStore()
{
    m_writer.finish();
}

bool RecoveryStore::beginWrite(const VxScene &scene, const QString &documentFile,
                               const QString &title, VxFileError *error,
                               const RecoveryHistory *history)
{
    m_writer.finish();
    QByteArray bytes;
    if (!isEnabled() || !begin(error) || !writeRecord(documentFile, title, error) ||
        !serialize(scene, &bytes, error))
        return false;
    m_writer.start(sceneFile(m_ownId), bytes, history ? journalFile(m_ownId) : QString(),
                   history ? *history : RecoveryHistory());
    m_hasBegun = true;
    return true;
}

bool RecoveryStore::endWrite(VxFileError *error)
{
    *error = VxFileError();
    error->file = m_ownId.isEmpty() ? m_folder : sceneFile(m_ownId);
    error->message =
        m_hasBegun ? m_writer.finish() : StudioText::tr("No recovery copy has been started.");
    return error->message.isEmpty();
}

bool RecoveryStore::write(const VxScene &scene, const QString &documentFile, const QString &title,
                          VxFileError *error)
{
    return beginWrite(scene, documentFile, title, error) && endWrite(error);
}

QString RecoveryStore::path(const QString &id, const char *suffix) const
{
    return QDir(m_folder).filePath(QLatin1String(ScenePrefix) + id + QLatin1String(suffix));
}

bool RecoveryStore::hasOwn() const
{
    return m_ownLock && QFile::exists(sceneFile(m_ownId));
}

void RecoveryStore::removeOwn()
{
    m_writer.finish();
    m_writer.close();
    m_hasBegun = false;
    if (!m_ownLock)
        return;
    remove(m_ownId);
    m_ownLock.reset();
    m_ownId.clear();
}

QVector<RecoveryCopy> RecoveryStore::claim()
{
    QVector<RecoveryCopy> copies;
    if (!isEnabled())
        return copies;
    for (const QString &id : ids()) {
        if (id == m_ownId)
            continue;
        Lock &lock = m_claims[id];
        if (!lock)
            lock = tryLock(id);
        if (lock && QFile::exists(sceneFile(id)))
            copies.append(read(id));
        else if (lock)
            discard(id);
    }
    std::sort(copies.begin(), copies.end(),
              [](const RecoveryCopy &a, const RecoveryCopy &b) { return a.time > b.time; });
    return copies;
}

bool RecoveryStore::readJournal(const QString &id, VxJournalContents *contents) const
{
    const auto bytesOf = [](const QString &name) {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    };
    const QByteArray digest = VxJournalFile::digestOf(bytesOf(sceneFile(id)));
    const QString journal = journalFile(id);
    // The program may have ended between the replacement of the scene and that of the journal.
    return VxJournalFile::read(bytesOf(journal), digest, contents) ||
           VxJournalFile::read(bytesOf(JournalFileWriter::newFileName(journal)), digest, contents);
}

void RecoveryStore::adopt(const QString &id)
{
    if (!m_claims[id])
        return;
    removeOwn();
    m_ownId = id;
    m_ownLock = std::move(m_claims[id]);
    const RecoveryCopy copy = read(id);
    m_recordedFile = copy.documentFile;
    m_recordedTitle = copy.title;
}

void RecoveryStore::discard(const QString &id)
{
    Lock &lock = m_claims[id];
    if (!lock)
        return;
    remove(id);
    lock.reset();
}

QString RecoveryStore::setAside(const QString &id)
{
    const QString former = sceneFile(id);
    const QString name =
        QDir(m_folder).filePath(QLatin1String(BrokenPrefix) + id + QStringLiteral(".vxscene"));
    if (!m_claims[id] || !QFile::rename(former, name))
        return former;
    discard(id);
    return name;
}
