#ifndef VXIO_VXSAFEFILE_H
#define VXIO_VXSAFEFILE_H

#include <QByteArray>
#include <QIODevice>
#include <QSaveFile>

/// A file that takes the place of another one whole, or not at all.
///
/// The toolkit's safe file is committed although its last piece did not fit on the disk any more:
/// what its buffer cannot get rid of on closing counts for nothing, and the former file gives way
/// to a torn one. So the buffer is here, what leaves it goes straight to the system, and the first
/// failure is kept with its reason and forbids the commit.
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
    /// Everything is on the disk now, in place of the former file. False, and the former file is
    /// as it was, when that or a write before failed.
    bool commit();

    /// The reason of the first failure; empty as long as there is none.
    QString failure() const { return m_failure; }

    bool isSequential() const override { return true; }

protected:
    qint64 readData(char *data, qint64 size) override;
    /// After a failure nothing is taken any more: -1, with the reason as error string.
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
