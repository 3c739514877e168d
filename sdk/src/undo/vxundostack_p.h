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

/// Exchanges the kept states of items with the present ones; undo runs from the last to the first.
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
    /// Ends a hold. When it is the outermost one, its items leave: into an entry when text is
    /// given, else into nothing.
    void close(const VxUndoStackHold *hold, const QString *text);
    /// Ends a hold and puts back what its items keep. False, and just ended, unless outermost.
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
    /// A step runs; clear() is carried out at its end.
    bool stepping = false;
    bool clearAfterStep = false;
};

#endif
