#ifndef VXUNDOSTACK_P_H
#define VXUNDOSTACK_P_H

#include <QtCore/QHash>
#include <QtWidgets/QUndoCommand>
#include <QtWidgets/QUndoStack>
#include <memory>
#include <vector>
#include <vxcore/vxundoitem.h>
#include <vxcore/vxundostack.h>
#include <vxcore/vxundostackhold.h>

using VxUndoItems = std::vector<std::unique_ptr<VxUndoItem>>;

/// Exchanges the stored states of items with the present ones; undo runs from last to first.
void vxSwapItems(const VxUndoItems &items, bool undo, bool *applying);

/// One entry of the history: the items of an accepted hold. The toolkit's stack runs redo() when
/// an entry is pushed; the changes are in place by then, so that first call does nothing.
class VxUndoEntry : public QUndoCommand
{
public:
    VxUndoEntry(const QString &text, VxUndoItems items, bool *applying);
    void undo() override;
    void redo() override;
    qint64 memoryUsed() const;
    bool write(VxJournalWriter &writer) const;

private:
    VxUndoItems m_items;
    bool *m_applying;
    bool m_inPlace = true;
};

class VxUndoStack::Private
{
public:
    using Key = QPair<const void *, int>;

    void open(const VxUndoStackHold *hold);
    /// Ends a hold. If it is the outermost one, its items are moved to an entry when text is given,
    /// else dropped.
    void close(const VxUndoStackHold *hold, const QString *text);
    /// Ends a hold and restores the states of its items. Only ends it, with false, unless
    /// outermost.
    bool rollBack(const VxUndoStackHold *hold);
    /// Moves the toolkit's stack to an index and reports it.
    void step(int to);

    VxUndoStack *q = nullptr;
    QUndoStack *stack = nullptr;
    /// The open holds in the order of their opening; the first one is the outermost.
    std::vector<const VxUndoStackHold *> holds;
    VxUndoItems items;
    QHash<Key, VxUndoItem *> index;
    std::vector<std::unique_ptr<VxUndoStackHold>> scriptHolds;
    bool applying = false;
    /// A step is running; clear() is deferred to its end.
    bool stepping = false;
    bool clearAfterStep = false;
    bool hasUnrecordedChange = false;
};

#endif
