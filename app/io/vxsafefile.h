#ifndef VXIO_VXSAFEFILE_H
#define VXIO_VXSAFEFILE_H

#include <QByteArray>
#include <QIODevice>
#include <QSaveFile>

/// A file that replaces another one atomically.
///
/// The toolkit's safe file is committed although its last part did not fit on the disk: an error
/// while closing flushes its buffer is ignored, and the former file is replaced by a truncated one.
/// So the buffer is here, it is flushed straight to the system, and the first failure is stored
/// with its reason and prevents the commit.
class VxSafeFile : public QIODevice
{
public:
    explicit VxSafeFile(const QString &fileName);
    /// Without a commit the former file stays.
    ~VxSafeFile() override;

    /// Opens for writing. False with the reason in failure().
    bool start();
    /// The same for a file that only its owner can read and write, whatever the permissions of a
    /// former file of that name.
    bool startPrivate();
    /// Synchronises what was written to the disk, so that commit() does not have to wait for it.
    /// False when that or an earlier write failed.
    bool flush();
    /// Synchronises to the disk and replaces the former file. False, with the former file
    /// unchanged, when that or an earlier write failed.
    bool commit();

    /// The reason of the first failure; empty without one.
    QString failure() const { return m_failure; }

    bool isSequential() const override { return true; }

protected:
    qint64 readData(char *data, qint64 size) override;
    /// After a failure always -1, with the reason as error string.
    qint64 writeData(const char *data, qint64 size) override;

private:
    bool passOn(const char *data, qint64 size);
    bool passOnBuffer();
    bool synchronize();
    bool fail(const QString &reason);

    QSaveFile m_file;
    QByteArray m_buffer;
    QString m_failure;
};

#endif
