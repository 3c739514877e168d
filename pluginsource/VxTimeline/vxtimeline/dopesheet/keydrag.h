#ifndef KEYDRAG_H
#define KEYDRAG_H

#include <memory>
#include <vxcore/vxkeyedit.h>
#include <vxcore/vxtime.h>

class VxDopeSheetItem;
struct SelectedKeys;

// Keys on the move: where they stood when the drag began, and where they stand now.
//
// Every step is planned from the beginning, so steps never add up, and going back to offset 0 puts
// everything back. Until the drop, keys that are not dragged stay as they are: a key that would
// land on one waits beside it. Each row keeps its own keys selected. Keys, properties and rows
// that vanish meanwhile are left out from then on.
class KeyDrag
{
public:
    KeyDrag();
    ~KeyDrag();

    // Takes keys in, with their present times. The rows remember them, too.
    void add(const SelectedKeys &keys);
    // Of all keys, when the drag began; earliest > latest when there are none.
    VxTime earliest() const;
    VxTime latest() const;

    // Puts every key offset ticks from where it began, each property in one pass and with one
    // report. False when a property refused, or keys were lost: these are where they were.
    bool moveTo(qint64 offset, VxCollision rule);

    // Calls visit(VxDopeSheetItem *) for each row that is still there.
    template <typename Visit> void visitRows(const Visit &visit) const
    {
        for (int i = 0; i < rowCount(); ++i) {
            if (VxDopeSheetItem *item = rowAt(i))
                visit(item);
        }
    }

private:
    int rowCount() const;
    VxDopeSheetItem *rowAt(int index) const; // null when it is gone

    class Private;
    std::unique_ptr<Private> d;
};

#endif
