#ifndef PANE_VXPROPERTYLISTMEMORY_H
#define PANE_VXPROPERTYLISTMEMORY_H

#include <QtCore/QPair>
#include <QtCore/QSet>
#include <QtCore/QString>

class VxSideNavPropertyListView;

/// What a property list's view shows and has selected, by the names of the rows, so that it can be
/// found again when the rows are those of another node.
class VxPropertyListMemory
{
public:
    /// Takes note of selection, current row and scroll position.
    void remember(const VxSideNavPropertyListView *view);
    /// Selects what is there of it, in one change of the selection.
    void restore(VxSideNavPropertyListView *view);

private:
    /// Group path and property name; no name for a heading.
    using RowName = QPair<QString, QString>;
    static RowName nameOf(const VxSideNavPropertyListView *view, int row);

    QSet<RowName> m_selected;
    RowName m_current;
    bool m_hasCurrent = false;
    int m_scroll = 0; // that was wanted
    int m_shown = 0;  // what of it the list was long enough for
};

#endif
