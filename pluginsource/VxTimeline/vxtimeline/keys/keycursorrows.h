#ifndef KEYCURSORROWS_H
#define KEYCURSORROWS_H

#include "vxtimeline/keys/accessiblekeys.h"

#include <vector>

class QWidget;

/// The rows of one view among which the key cursor moves: rows of the dope sheet, channels of the
/// key graph.
class KeyCursorRows
{
public:
    virtual ~KeyCursorRows() = default;

    /// The widget in which the rows are painted.
    virtual QWidget *area() const = 0;
    virtual bool isEmpty() const = 0;
    /// The present row; a first one is chosen where there is none any more. Null for an empty view.
    virtual AccessibleKeys::Source row() = 0;
    /// Whether the view shows keys in that row.
    virtual bool showsKeys() = 0;
    /// Moves by a number of rows, as far as there are any; false when the row stays.
    virtual bool move(int rows) = 0;
    /// The row in global pixels; empty when it is not visible or has no place of its own.
    virtual QRect rect() { return QRect(); }
    /// Scrolls to the row, and in the key graph to the values of a key of it; -1 for none.
    virtual void reveal(int key) = 0;
    /// Opens or closes the row; nothing for a row without rows below it.
    virtual void setOpen(bool) {}

    /// Remembers the present row as the beginning of a selection.
    virtual void setAnchor() = 0;
    /// The rows with keys from there to the present one, both included.
    virtual std::vector<AccessibleKeys::Source> fromAnchor() = 0;
};

#endif
