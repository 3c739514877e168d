#include "recovery/recoverystore.h"

#include "io/vxscenewriter.h"
#include "widgets/studiotext.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLockFile>
#include <QUuid>
#include <algorithm>
#include <cerrno>
#include <csignal>
#include <map>
#include <vxcore/vxsettings.h>

Q_LOGGING_CATEGORY(recoveryLog, "vx.recovery", QtWarningMsg)

namespace {

constexpr char ScenePrefix[] = "copy-";
constexpr char BrokenPrefix[] = "broken-";
const QLatin1String FileKey("File");
const QLatin1String TitleKey("Title");

using Lock = std::unique_ptr<QLockFile>;

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

class RecoveryStore::Private
{
public:
    QString path(const QString &id, const char *suffix) const
    {
        return QDir(folder).filePath(QLatin1String(ScenePrefix) + id + QLatin1String(suffix));
    }
    QString scene(const QString &id) const { return path(id, ".vxscene"); }
    QString record(const QString &id) const { return path(id, ".ini"); }
    QString journal(const QString &id) const { return path(id, ".journal"); }
    Lock makeLock(const QString &id) const;
    Lock tryLock(const QString &id) const;

    bool begin(VxFileError *error);
    bool serialize(const VxScene &scene, QByteArray *bytes, VxFileError *error);
    bool writeRecord(const QString &documentFile, const QString &title, VxFileError *error);
    QStringList ids() const;
    RecoveryCopy read(const QString &id) const;
    void remove(const QString &id) const;

    QString folder;
    QString ownId;
    Lock ownLock;
    QString recordedFile;
    QString recordedTitle;
    RecoveryWriter writer;
    bool hasBegun = false;
    int lastSize = 0; // bytes
    std::map<QString, Lock> claims;
};

Lock RecoveryStore::Private::makeLock(const QString &id) const
{
    Lock lock = std::make_unique<QLockFile>(path(id, ".lock"));
    lock->setStaleLockTime(0); // a program may run for days
    return lock;
}

/** Null when another program has it. */
Lock RecoveryStore::Private::tryLock(const QString &id) const
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

bool RecoveryStore::Private::begin(VxFileError *error)
{
    if (ownLock)
        return true;
    const QString id = QUuid::createUuid().toString(QUuid::Id128);
    Lock lock = makeLock(id);
    if (!makePrivateFolder(folder) || !lock->tryLock(0)) {
        *error = VxFileError();
        error->file = folder;
        error->message = StudioText::tr("Cannot write to the folder.");
        return false;
    }
    ownId = id;
    ownLock = std::move(lock);
    recordedFile = recordedTitle = QString();
    return true;
}

bool RecoveryStore::Private::writeRecord(const QString &documentFile, const QString &title,
                                         VxFileError *error)
{
    if (!recordedTitle.isNull() && documentFile == recordedFile && title == recordedTitle)
        return true;
    VxSettings record;
    record.setStringValue(FileKey, documentFile);
    record.setStringValue(TitleKey, title);
    *error = VxFileError();
    if (!record.save(this->record(ownId), &error->message))
        return false;
    recordedFile = documentFile;
    recordedTitle = title;
    return true;
}

bool RecoveryStore::Private::serialize(const VxScene &scene, QByteArray *bytes, VxFileError *error)
{
    *error = VxFileError();
    bytes->reserve(lastSize + lastSize / 8);
    QBuffer buffer(bytes);
    buffer.open(QIODevice::WriteOnly);
    const bool done = VxSceneWriter(&scene).write(&buffer, error);
    lastSize = bytes->size();
    return done;
}

/** The ids of all files, complete or not. */
QStringList RecoveryStore::Private::ids() const
{
    QStringList list;
    const QStringList pattern{QLatin1String(ScenePrefix) + QLatin1Char('*')};
    const auto files = QDir(folder).entryInfoList(pattern, QDir::Files | QDir::Hidden);
    for (const QFileInfo &file : files)
        list.append(file.baseName().mid(int(sizeof(ScenePrefix)) - 1));
    list.removeDuplicates();
    return list;
}

RecoveryCopy RecoveryStore::Private::read(const QString &id) const
{
    RecoveryCopy copy;
    copy.id = id;
    copy.sceneFile = QFileInfo(scene(id)).absoluteFilePath();
    copy.time = qMax(QFileInfo(scene(id)).lastModified(), QFileInfo(journal(id)).lastModified());
    VxSettings record;
    // A missing record is that of a document that was never saved.
    record.load(this->record(id));
    copy.documentFile = record.getStringValue(FileKey);
    copy.title = record.getStringValue(TitleKey, StudioText::tr("Untitled"));
    return copy;
}

/** The scene first: a later run removes the rest of a copy without it. Everything but the lock,
 *  including a partial scene whose writer was interrupted. */
void RecoveryStore::Private::remove(const QString &id) const
{
    QFile::remove(scene(id));
    const QStringList pattern{QLatin1String(ScenePrefix) + id + QStringLiteral(".*")};
    const auto files = QDir(folder).entryInfoList(pattern, QDir::Files | QDir::Hidden);
    for (const QFileInfo &file : files) {
        if (file.suffix() != QLatin1String("lock"))
            QFile::remove(file.filePath());
    }
}

RecoveryStore::RecoveryStore(const QString &folder)
    : d(std::make_unique<Private>())
{
    d->folder = folder;
}

RecoveryStore::~RecoveryStore()
{
    d->writer.finish();
}

bool RecoveryStore::isEnabled() const
{
    return !d->folder.isEmpty();
}

QString RecoveryStore::folder() const
{
    return d->folder;
}

bool RecoveryStore::beginWrite(const VxScene &scene, const QString &documentFile,
                               const QString &title, VxFileError *error,
                               const RecoveryHistory *history)
{
    d->writer.finish();
    QByteArray bytes;
    if (!isEnabled() || !d->begin(error) || !d->writeRecord(documentFile, title, error) ||
        !d->serialize(scene, &bytes, error))
        return false;
    d->writer.start(d->scene(d->ownId), bytes, history ? d->journal(d->ownId) : QString(),
                    history ? *history : RecoveryHistory());
    d->hasBegun = true;
    return true;
}

bool RecoveryStore::isWriting() const
{
    return d->writer.isWriting();
}

bool RecoveryStore::endWrite(VxFileError *error)
{
    *error = VxFileError();
    error->file = d->ownId.isEmpty() ? d->folder : d->scene(d->ownId);
    error->message =
        d->hasBegun ? d->writer.finish() : StudioText::tr("No recovery copy has been started.");
    return error->message.isEmpty();
}

bool RecoveryStore::write(const VxScene &scene, const QString &documentFile, const QString &title,
                          VxFileError *error)
{
    return beginWrite(scene, documentFile, title, error) && endWrite(error);
}

RecoveryWriter &RecoveryStore::writer()
{
    return d->writer;
}

int RecoveryStore::size() const
{
    return d->lastSize;
}

bool RecoveryStore::hasOwn() const
{
    return d->ownLock && QFile::exists(d->scene(d->ownId));
}

void RecoveryStore::removeOwn()
{
    d->writer.finish();
    d->writer.close();
    d->hasBegun = false;
    if (!d->ownLock)
        return;
    d->remove(d->ownId);
    d->ownLock.reset();
    d->ownId.clear();
}

QVector<RecoveryCopy> RecoveryStore::claim()
{
    QVector<RecoveryCopy> copies;
    if (!isEnabled())
        return copies;
    for (const QString &id : d->ids()) {
        if (id == d->ownId)
            continue;
        Lock &lock = d->claims[id];
        if (!lock)
            lock = d->tryLock(id);
        if (lock && QFile::exists(d->scene(id)))
            copies.append(d->read(id));
        else if (lock)
            discard(id);
    }
    std::sort(copies.begin(), copies.end(),
              [](const RecoveryCopy &a, const RecoveryCopy &b) { return a.time > b.time; });
    return copies;
}

void RecoveryStore::release()
{
    d->claims.clear();
}

bool RecoveryStore::readJournal(const QString &id, VxJournalContents *contents) const
{
    const auto bytesOf = [](const QString &name) {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    };
    const QByteArray digest = VxJournalFile::digestOf(bytesOf(d->scene(id)));
    const QString journal = d->journal(id);
    // The program may have ended between the replacement of the scene and that of the journal.
    return VxJournalFile::read(bytesOf(journal), digest, contents) ||
           VxJournalFile::read(bytesOf(JournalFileWriter::newFileName(journal)), digest, contents);
}

void RecoveryStore::adopt(const QString &id)
{
    const auto claim = d->claims.find(id);
    if (claim == d->claims.end() || !claim->second)
        return;
    removeOwn();
    d->ownId = id;
    d->ownLock = std::move(claim->second);
    d->claims.erase(claim);
    const RecoveryCopy copy = d->read(id);
    d->recordedFile = copy.documentFile;
    d->recordedTitle = copy.title;
}

void RecoveryStore::discard(const QString &id)
{
    const auto claim = d->claims.find(id);
    if (claim == d->claims.end() || !claim->second)
        return;
    d->remove(id);
    d->claims.erase(claim);
}

QString RecoveryStore::setAside(const QString &id)
{
    const auto claim = d->claims.find(id);
    const QString former = d->scene(id);
    if (claim == d->claims.end() || !claim->second)
        return former;
    const QString name =
        QDir(d->folder).filePath(QLatin1String(BrokenPrefix) + id + QStringLiteral(".vxscene"));
    if (!QFile::rename(former, name))
        return former;
    discard(id);
    return name;
}
