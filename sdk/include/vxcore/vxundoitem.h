#ifndef VXUNDOITEM_H
#define VXUNDOITEM_H

#include <QtCore/qglobal.h>
#include <vxcore/vxcoreglobal.h>

class VxJournalWriter;

/// One object's part of an undo entry: its former state, to be exchanged with the present one.
///
/// Undo and redo are the same step, swap(). An item refers to its object through a guarded pointer:
/// once the object is destroyed, swap() does nothing.
class VXCORE_EXPORT VxUndoItem
{
public:
    /// object and kind identify an item within a hold; the object is not dereferenced.
    VxUndoItem(const void *object, int kind)
        : m_object(object)
        , m_kind(kind)
    {
    }
    virtual ~VxUndoItem();

    const void *object() const { return m_object; }
    int kind() const { return m_kind; }

    /// Exchanges the kept state with the present one.
    virtual void swap() = 0;
    /// Called after swap(), when all items of the entry have been exchanged and before any change
    /// is reported: for state that refers to that of other items, such as a selection.
    virtual void settle() {}
    /// Called once when the hold is accepted: drops unchanged state. Returns false when nothing is
    /// left, and the item is dropped.
    virtual bool finish() { return true; }
    /// Writes what the item changed, the kept state and the present one, to a record of the
    /// journal. Called when the entry was just added, undone or redone. False when the item cannot
    /// be written: the journal takes a snapshot of the document instead, and drops what was
    /// written.
    virtual bool write(VxJournalWriter &) const { return false; }
    /// Bytes kept.
    virtual qint64 memoryUsed() const { return 0; }

private:
    Q_DISABLE_COPY(VxUndoItem)
    const void *m_object;
    int m_kind;
};

#endif
