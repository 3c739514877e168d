#ifndef RECENTFILES_H
#define RECENTFILES_H

#include <QObject>
#include <QStringList>

class VxSettings;

/// The files that were opened or saved last, the latest first: kept with the settings, each once.
///
/// A file that is no longer there stays in the list, since it may come back with the drive it lies
/// on; who shows the list says so.
class RecentFiles : public QObject
{
    Q_OBJECT
public:
    static constexpr int Capacity = 10;

    explicit RecentFiles(QObject *parent = nullptr);

    /// Absolute paths.
    QStringList files() const { return m_files; }
    /// The folder of the latest file; empty when there is none.
    QString latestFolder() const;

    /// Puts a file at the top; the oldest beyond the capacity is dropped.
    void add(const QString &fileName);
    void clear();
    /// Drops the files that do not exist.
    void removeMissing();

    /// Replaces the list by the stored one.
    void restore(const VxSettings &settings);
    void store(VxSettings *settings) const;

Q_SIGNALS:
    void changed();

private:
    QStringList m_files;
};

#endif
