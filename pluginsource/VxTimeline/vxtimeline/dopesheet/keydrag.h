#ifndef KEYDRAG_H
#define KEYDRAG_H

#include <functional>
#include <memory>
#include <vxcore/vxkeyedit.h>
#include <vxcore/vxtime.h>

class VxDopeSheetItem;
struct SelectedKeys;

/// Dragged keys: their times at the start of the drag, and their present times.
///
/// Every step is planned from the start times, so steps never accumulate, and offset 0 restores
/// everything. Until the drop, keys that are not dragged stay unchanged: a key that would land on
/// one waits beside it. Each row keeps its own keys selected. Keys, properties and rows that are
/// destroyed meanwhile are left out from then on.
class KeyDrag
{
public:
    KeyDrag();
    ~KeyDrag();

    /// Adds keys at their present times, which the rows save, too.
    void add(const SelectedKeys &keys);
    /// Of all keys, at the start of the drag; earliest > latest when there are none.
    VxTime earliest() const;
    VxTime latest() const;

    /// Moves every key to offset ticks from its start, each property in one pass and with one
    /// report. False when a property refused, or keys were lost: these stay unmoved.
    bool moveTo(qint64 offset, VxCollision rule);

    /// For each row that still exists.
    void visitRows(const std::function<void(VxDopeSheetItem *)> &visit) const;

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
