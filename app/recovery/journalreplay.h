#ifndef JOURNALREPLAY_H
#define JOURNALREPLAY_H

#include "io/vxjournalfile.h"

#include <vector>

class VxScene;
class VxUndoStack;

/// Applies the records of a journal to the scene of its snapshot, so that the history has the
/// entries again.
///
/// The entries that the snapshot has are reverted first, as far as their records allow it. Records
/// from the first one that does not fit are left out; the scene never holds a part of an entry.
class JournalReplay
{
public:
    /// Both are borrowed.
    JournalReplay(VxScene *scene, VxUndoStack *history)
        : m_scene(scene)
        , m_history(history)
    {
    }

    /// Clears the history first. False when the entries that the snapshot has could be reverted but
    /// not applied again: the scene must be read again, and the journal without them be applied.
    bool run(const VxJournalContents &contents);
    /// The records of the entries before the present index of the history.
    const std::vector<QByteArray> &entries() const { return m_entries; }

private:
    bool revert(const QByteArray &entry);
    bool apply(const VxJournalRecord &record);
    bool applyEntry(const QByteArray &entry);
    bool applyStep(const QByteArray &step);

    VxScene *m_scene;
    VxUndoStack *m_history;
    std::vector<QByteArray> m_all; // of all entries, undone ones last
    std::vector<QByteArray> m_entries;
};

#endif
