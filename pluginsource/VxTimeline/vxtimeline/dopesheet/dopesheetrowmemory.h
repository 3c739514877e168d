#ifndef DOPESHEETROWMEMORY_H
#define DOPESHEETROWMEMORY_H

#include <QtCore/QPointer>
#include <QtCore/QVector>

class VxDopeSheetItem;
class VxDopeSheetView;

// Which rows of a view are open and selected and which one is at the top, kept while the text
// filter leaves rows out: as soon as they are back they are as they were.
//
// A filter model moves every index that is kept, and a view keeps one for each open row, each time
// that it takes up or drops some rows of one parent: with thousands of rows open that takes
// seconds. So the rows are closed while the filter changes. And a view that loses its current row
// selects another one, which nobody has asked for.
class DopeSheetRowMemory
{
public:
    explicit DopeSheetRowMemory(VxDopeSheetView *view);

    // Before the filter changes; closes all rows.
    void note(bool isFiltered);
    // After it has changed.
    void restore(bool isFiltered);

private:
    using Items = QVector<VxDopeSheetItem *>; // sorted by address
    using KeptItems = QVector<QPointer<VxDopeSheetItem>>;

    void noteOpenRows();
    void noteSelectedRows();
    void openRows() const;
    void selectRows();
    void scroll(bool isFiltered) const;
    Items selectedItems() const;

    VxDopeSheetView *m_view;
    KeptItems m_open;      // those left out at present, too
    KeptItems m_selected;  // the same
    Items m_shownSelected; // what was selected after the last change; compared, never followed
    bool m_selectionIsNew = false; // other rows have been selected since then
    QPointer<VxDopeSheetItem> m_current;
    QPointer<VxDopeSheetItem> m_top;
    QPointer<VxDopeSheetItem> m_unfilteredTop; // while nothing was left out
};

#endif
