#ifndef RECENTFILES_H
#define RECENTFILES_H

#include <QObject>
#include <QStringList>

class VxSettings;

/// The recently opened or saved files, the latest first: stored in the settings, each once.
///
/// A missing file stays in the list, since its drive may be connected again; the user of the list
/// marks it.
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
