#ifndef JOURNALFILEWRITER_H
#define JOURNALFILEWRITER_H

#include "io/vxjournalfile.h"

#include <QFile>
#include <QString>
#include <memory>
#include <vector>

class VxSafeFile;

/// A journal file that is being appended to, and its replacement together with the snapshot. Used
/// by one thread.
///
/// A new journal is complete on the disk, under a name of its own, before its snapshot replaces the
/// former one. Each journal names its snapshot: whenever the program ends, one of the two fits.
class JournalFileWriter
{
public:
    /// A record and the change that it holds; changes are counted from 1.
    struct Change
    {
        quint64 position = 0;
        VxJournalRecord record;
    };

    static QString newFileName(const QString &journalFile);

    bool isOpen() const { return m_file != nullptr; }
    void close();
    /// Appends records. False with the reason in failure(): what was written of them is cut off
    /// where that is possible, and the journal is closed.
    bool append(const std::vector<Change> &changes);
    /// Returns when what was appended is on the disk.
    bool synchronize();
    /// Replaces the scene by a file that was written completely, and the journal by a new one: of
    /// the present records those of the entries `kept`; then `further` entries that the scene has,
    /// too, and `later` changes. False with the reason in
    /// failure(): unless the scene was replaced by then, the present journal is continued.
    bool replace(VxSafeFile *scene, const QByteArray &digest, const QString &journalFile,
                 const std::vector<quint64> &kept, const std::vector<Change> &further,
                 const std::vector<Change> &later);
    QString failure() const { return m_failure; }

private:
    struct Place
    {
        quint64 position;
        qint64 offset; // of the record's bytes
        int size;
    };

    bool readKept(const std::vector<quint64> &kept, std::vector<Change> *changes);
    bool create(const QString &name);
    bool write(const QByteArray &bytes);
    void note(const Change &change);
    bool fail(const QString &reason);

    std::unique_ptr<QFile> m_file;
    QString m_name;
    qint64 m_end = 0;
    std::vector<Place> m_places;
    QString m_failure;
};

#endif
