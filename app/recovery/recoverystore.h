#ifndef RECOVERYSTORE_H
#define RECOVERYSTORE_H

#include "io/vxfileerror.h"
#include "recovery/recoverywriter.h"

#include <QDateTime>
#include <QLockFile>
#include <QLoggingCategory>
#include <QVector>
#include <map>
#include <memory>

class VxScene;

/// Copies that were written, found and recovered, "vx.recovery".
Q_DECLARE_LOGGING_CATEGORY(recoveryLog)

/// A copy of a document, left by an earlier run of the program.
struct RecoveryCopy
{
    QString id;           ///< identifies the copy in its store
    QString sceneFile;    ///< the copy itself, absolute
    QString documentFile; ///< the document's file; empty when it was never saved
    QString title;        ///< the document's displayed name
    QDateTime time;       ///< when the copy was made
};

/// The folder in which running programs keep copies of documents with unsaved changes.
///
/// A copy is four files: the scene, the journal of changes since then, a small record of its
/// document, and a lock that its program holds as long as it runs. The lock is created first and
/// the scene last, so a scene always has both; a copy whose lock is not held can be recovered. The
/// search takes those locks, too, so that two programs never offer the same one.
class RecoveryStore
{
public:
    /// An empty folder name: copies are neither kept nor found.
    explicit RecoveryStore(const QString &folder);
    /// Releases all locks; the files stay, to be found again.
    ~RecoveryStore();
    RecoveryStore(const RecoveryStore &) = delete;
    RecoveryStore &operator=(const RecoveryStore &) = delete;

    bool isEnabled() const { return !m_folder.isEmpty(); }
    QString folder() const { return m_folder; }

    /// Starts replacing this program's copy of the document. The scene is serialised at once;
    /// another thread writes to the disk, without blocking. False with the reason in `error`, which
    /// must not be null.
    /// With a history the copy gets a journal, see append(); without, a former journal ends.
    bool beginWrite(const VxScene &scene, const QString &documentFile, const QString &title,
                    VxFileError *error, const RecoveryHistory *history = nullptr);
    /// True from beginWrite() until the copy is on the disk or has failed.
    bool isWriting() const { return m_writer.isWriting(); }
    /// Waits for the end of writing. False with the reason when it failed; the former copy is then
    /// unchanged. The answer stays the same until the next copy.
    bool endWrite(VxFileError *error);
    /// beginWrite() and endWrite().
    bool write(const VxScene &scene, const QString &documentFile, const QString &title,
               VxFileError *error);
    /// Appends changes to the journal of this program's copy and reports their state.
    RecoveryWriter &writer() { return m_writer; }
    /// The size of the latest copy, in bytes.
    int size() const { return m_size; }
    /// True when this program has a copy of its document.
    bool hasOwn() const;
    void removeOwn();

    /// The copies that no running program holds, the latest first; they are this program's until
    /// release(). Removes files that earlier programs have left without a scene.
    QVector<RecoveryCopy> claim();
    void release() { m_claims.clear(); }

    /// Reads the journal of a claimed copy. False when it has none that fits the scene.
    bool readJournal(const QString &id, VxJournalContents *contents) const;
    /// Makes a claimed copy this program's own, replacing an existing one.
    void adopt(const QString &id);
    /// Removes a claimed copy.
    void discard(const QString &id);
    /// Renames a claimed copy that cannot be read, so that it is not found again; returns its path,
    /// or the old one when it cannot be renamed.
    QString setAside(const QString &id);

private:
    using Lock = std::unique_ptr<QLockFile>;

    QString path(const QString &id, const char *suffix) const;
    QString sceneFile(const QString &id) const { return path(id, ".vxscene"); }
    /// With the suffix of former versions, so that their copies are found.
    QString recordFile(const QString &id) const { return path(id, ".ini"); }
    QString journalFile(const QString &id) const { return path(id, ".journal"); }

    Lock makeLock(const QString &id) const;
    Lock tryLock(const QString &id) const;
    bool begin(VxFileError *error);
    bool serialize(const VxScene &scene, QByteArray *bytes, VxFileError *error);
    bool writeRecord(const QString &documentFile, const QString &title, VxFileError *error);
    QStringList ids() const;
    RecoveryCopy read(const QString &id) const;
    void remove(const QString &id) const;

    QString m_folder;
    QString m_ownId;
    Lock m_ownLock;
    QString m_recordedFile;
    QString m_recordedTitle;
    RecoveryWriter m_writer;
    bool m_hasBegun = false;
    int m_size = 0; // of the latest copy, in bytes
    std::map<QString, Lock> m_claims;
};

#endif
