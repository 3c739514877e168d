#ifndef VXPROPERTYLISTMEMORY_H
#define VXPROPERTYLISTMEMORY_H

#include <QtCore/QPair>
#include <QtCore/QSet>
#include <QtCore/QString>
#include <optional>

class VxSideNavPropertyListView;

/// The selection and scroll position of a property list's view, by the names of the rows, to be
/// restored when the list shows another node.
class VxPropertyListMemory
{
public:
    /// Saves selection, current row and scroll position.
    void save(const VxSideNavPropertyListView *view);
    /// Selects the saved rows that exist, in one change of the selection.
    void restore(VxSideNavPropertyListView *view);

private:
    /// Group path and property name; no name for a heading.
    using RowName = QPair<QString, QString>;
    /// Null for a row whose properties were removed.
    static std::optional<RowName> nameOf(const VxSideNavPropertyListView *view, int row);

    QSet<RowName> m_selected;
    std::optional<RowName> m_current;
    int m_scroll = 0; // the requested position
    int m_shown = 0;  // that position, limited by the list's length
};

#endif
