#ifndef TREEVIEWSTATE_H
#define TREEVIEWSTATE_H

#include "vxtimeline/rows/dopesheetrowname.h"

#include <vector>

class QModelIndex;
class VxDopeSheetView;

/// The open and selected rows of a view and its top row, saved while the text filter leaves rows
/// out and while the model is rebuilt: rows that are shown again return to their former state.
/// While a filter text is set the ancestors of matches are open as well.
///
/// A filter model updates every persistent index each time that it adds or removes rows of one
/// parent. A view keeps one for each open row and a selection two for each range: with thousands
/// that takes seconds. So all rows are closed and deselected while the filter changes.
class TreeViewState
{
public:
    explicit TreeViewState(VxDopeSheetView *view);

    /// Before the filter or the model changes; closes and deselects all rows.
    void save();
    /// After the change.
    void restore();
    /// For a row that the user closed: the filter no longer controls it.
    void handleCollapsed(const QModelIndex &index);

private:
    using Names = std::vector<DopeSheetRowName>;

    bool isFiltered() const;
    void saveOpenRows();
    void saveSelectedRows();
    void openRows();
    void openRowsToMatches();
    void selectRows();
    void scroll() const;
    QModelIndex find(const DopeSheetRowName &name) const;
    Names selectedRows() const;

    VxDopeSheetView *m_view;
    bool m_wasFiltered = false;
    bool m_isBusy = false;
    Names m_open;                  // including rows filtered out at present
    Names m_openedToMatches;       // opened by the filter, to be closed with its text
    Names m_selected;              // including rows filtered out at present
    Names m_shownSelected;         // those selected after the last change
    bool m_selectionIsNew = false; // other rows have been selected since then
    DopeSheetRowName m_current;
    DopeSheetRowName m_top;
    DopeSheetRowName m_unfilteredTop; // while no filter was set
};

#endif
