#ifndef VXSAFEFILE_H
#define VXSAFEFILE_H

#include <QtCore/QByteArray>
#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QIODevice>
#include <vxcore/vxcoreglobal.h>

/// A file that replaces another one atomically: it is written beside it and put into its place when
/// it is complete, see VxFileExchange. The first failure is stored with its reason and prevents the
/// replacement.
///
/// The file keeps the permissions of the former one, and its group where the user may give it that
/// one. A symbolic link stays, and the file that it leads to is replaced. A file that is read-only
/// for the user, or that nobody may write, is refused.
class VXCORE_EXPORT VxSafeFile : public QIODevice
{
    Q_DECLARE_TR_FUNCTIONS(VxSafeFile)
public:
    explicit VxSafeFile(const QString &fileName);
    /// Without a commit the former file stays.
    ~VxSafeFile() override;

    /// Opens for writing. False with the reason in failure().
    bool start();
    /// The same for a file that only its owner can read and write, whatever the permissions of a
    /// former file of that name.
    bool startPrivate() { return startLike({}); }
    /// The same for a file that gets the permissions and group of another one.
    bool startLike(const QString &model);
    /// Synchronises what was written to the disk, so that commit() does not have to wait for it.
    /// False when that or an earlier write failed.
    bool flush() { return passOnBuffer() && synchronize(); }
    /// Synchronises to the disk and replaces the former file. False, with the former file
    /// unchanged, when that or an earlier write failed.
    bool commit();

    /// The reason of the first failure; empty without one.
    QString failure() const { return m_failure; }

    bool isSequential() const override { return true; }

protected:
    qint64 readData(char *, qint64) override { return -1; }
    /// After a failure always -1, with the reason as error string.
    qint64 writeData(const char *data, qint64 size) override;

private:
    bool openBeside();
    bool applyPermissions();
    bool passOn(const char *data, qint64 size);
    bool passOnBuffer();
    bool synchronize();
    bool fail(const QString &reason);

    const QString m_name; // the file to be replaced, links resolved
    QFile m_file;         // the new one
    QString m_model;      // whose permissions it gets; empty for a private one
    QByteArray m_buffer;
    QString m_failure;
};

#endif
