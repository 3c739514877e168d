#ifndef VXUNDOSTACK_H
#define VXUNDOSTACK_H

#include <QtCore/QObject>
#include <memory>
#include <vxcore/vxcoreglobal.h>
#include <vxcore/vxsignalguard.h>

class QUndoStack;
class VxJournalWriter;
class VxUndoItem;

/// The scene's history: a list of entries, each made by an accepted VxUndoStackHold.
class VXCORE_EXPORT VxUndoStack : public VxSignalGuard<QObject>
{
    Q_OBJECT
    Q_PROPERTY(int count READ count)
    Q_PROPERTY(int index READ index)
    Q_PROPERTY(bool clean READ isClean NOTIFY cleanChanged)
public:
    explicit VxUndoStack(QObject *parent = nullptr);
    ~VxUndoStack() override;

    /// The stack that records changes: the oldest existing one, which is the application's. Null
    /// when there is none.
    static VxUndoStack *current();

    /// For views of the history and for undo and redo actions. Owned by this object.
    QUndoStack *qtStack() const;

    bool isClean() const;

    /// True while a hold is open, so that changes are recorded, and no undo or redo is running.
    bool isRecording() const;
    /// True while an undo or redo is being carried out.
    bool isApplying() const;
    /// Adds an item to the open hold; deletes it when nothing is being recorded. Takes ownership.
    void record(VxUndoItem *item);
    /// The item that the open hold already has for an object and a kind, or null.
    VxUndoItem *findItem(const void *object, int kind) const;

    /// Writes the items of an entry, 0 .. count() - 1, that was just added, undone or redone; see
    /// VxUndoItem::write(). False when one of them cannot be written.
    bool writeEntry(int index, VxJournalWriter &writer) const;
    /// Notes a change of the document that no entry holds, such as one outside of any hold. Sends
    /// unrecordedChange() in the next event loop turn, once until takeUnrecordedChange().
    void noteUnrecordedChange();
    /// True when such a change was noted since the last call.
    bool takeUnrecordedChange();

    /// Bytes used by all entries, as reported by their items.
    qint64 memoryUsed() const;

public Q_SLOTS:
    /// Undoes or redoes one entry. Ignored while a hold is open. Each property reports once.
    void undo();
    void redo();
    bool canUndo() const;
    bool canRedo() const;
    int count() const;
    /// The number of entries done, out of count().
    int index() const;
    /// The text of an entry; empty when there is none.
    QString text(int index) const;
    QString undoText() const;
    QString redoText() const;
    /// Undoes or redoes as many entries as it takes for index() to be the given one; a number
    /// outside of 0 .. count() is ignored, as is every call while a hold is open.
    void setIndex(int index);
    /// Removes every entry, and the items that an open hold has collected.
    void clear();
    /// Marks the present state as saved.
    void setClean();
    /// A bracket for scripts: like a hold from beginHold() to acceptHold() or cancelHold().
    void beginHold();
    void acceptHold(const QString &text);
    void cancelHold();

Q_SIGNALS:
    void indexChanged(int index);
    /// A hold has become the last entry.
    void entryAdded(const QString &text);
    /// Undo or redo has moved the index, in either direction.
    void stepped(int from, int to);
    void cleanChanged(bool clean);
    /// See noteUnrecordedChange().
    void unrecordedChange();

private:
    friend class VxUndoStackHold;
    class Private;
    std::unique_ptr<Private> d;
};

#endif
