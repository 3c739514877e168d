#ifndef RECOVERYSTORE_H
#define RECOVERYSTORE_H

#include "io/vxfileerror.h"

#include <QDateTime>
#include <QVector>
#include <memory>

class VxScene;

/// A copy of a document that a run of the program has left behind.
struct RecoveryCopy
{
    QString id;           ///< names the copy in its store
    QString sceneFile;    ///< the copy itself, absolute
    QString documentFile; ///< where the document was kept; empty when it was never saved
    QString title;        ///< what the document was called
    QDateTime time;       ///< when the copy was made
};

/// The folder in which running programs keep copies of documents whose changes are not saved.
///
/// A copy is three files: the scene, a small record of the document it is a copy of, and a lock
/// that lives as long as the program that made it. The lock comes first and the scene last, so a
/// scene always has both; a copy whose lock is held by nobody is one that can be recovered. Looking
/// for those takes their locks, too, so that two programs never offer the same one.
class RecoveryStore
{
public:
    /// An empty folder name: nothing is kept and nothing is found.
    explicit RecoveryStore(const QString &folder);
    /// Gives up all locks; what is there stays, to be found again.
    ~RecoveryStore();
    RecoveryStore(const RecoveryStore &) = delete;
    RecoveryStore &operator=(const RecoveryStore &) = delete;

    bool isEnabled() const;
    QString folder() const;

    /// Begins to put a copy of the document in the place of this program's own. The scene is taken
    /// as it is now; the disk is another thread's business, so that nobody waits for it. False
    /// with the reason in `error`, which must not be null.
    bool beginWrite(const VxScene &scene, const QString &documentFile, const QString &title,
                    VxFileError *error);
    /// True from beginWrite() until the copy is on the disk or has failed.
    bool isWriting() const;
    /// Waits for the end of what was begun. False with the reason when it failed; the former copy
    /// is as it was then.
    bool endWrite(VxFileError *error);
    /// Both in one.
    bool write(const VxScene &scene, const QString &documentFile, const QString &title,
               VxFileError *error);
    /// True when this program has a copy of its document.
    bool hasOwn() const;
    void removeOwn();

    /// The copies that no living program holds, the latest first; they are this program's until
    /// release(). What dead programs have left without a scene is swept away.
    QVector<RecoveryCopy> claim();
    void release();

    /// Makes a claimed copy this program's own, in place of the one it may have.
    void adopt(const QString &id);
    /// Removes a claimed copy.
    void discard(const QString &id);
    /// Keeps a claimed copy that cannot be read under another name, as which it is not found
    /// again; returns its path, or the old one when it cannot be renamed.
    QString setAside(const QString &id);

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
