#ifndef VXJOURNALFILE_H
#define VXJOURNALFILE_H

#include <QByteArray>
#include <QVector>

/// One change of the history: a new entry, or a step to another one.
struct VxJournalRecord
{
    enum Kind : quint8 {
        Entry = 1, ///< its text and its items, as VxJournalWriter writes them
        Step       ///< the number of entries redone, negative for undone ones, as a qint32; then
                   ///< what that changed, for a document whose history lacks the entry, or nothing
    };
    Kind kind = Entry;
    QByteArray bytes;
};

/// The records of a journal, up to the first one that is torn or altered.
struct VxJournalContents
{
    /// The number of entries at the beginning that the snapshot already has: they can be undone.
    int kept = 0;
    QVector<VxJournalRecord> records;
};

/// The bytes of a journal file: a header that names the snapshot by its digest, and records, each
/// with its number and a checksum.
namespace VxJournalFile {

QByteArray digestOf(const QByteArray &snapshot);
QByteArray header(const QByteArray &digest, int kept);
/// number counts the records of a file from 0.
QByteArray framed(quint32 number, const VxJournalRecord &record);
/// False for a journal that belongs to another snapshot, and for what is none.
bool read(const QByteArray &bytes, const QByteArray &digest, VxJournalContents *contents);

} // namespace VxJournalFile

#endif
