#include "vxtimelineactions/vxtimepaneitemkeysactions.h"

#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/pane/vxtimepane.h"

#include <QtCore/QItemSelectionModel>
#include <QtCore/QSet>
#include <QtGui/QGuiApplication>
#include <vxcore/vxscene.h>

namespace {

// The selected rows, each once and in the order in which they were selected, by their first column.
QModelIndexList selectedRows(const VxDopeSheetView *view)
{
    QModelIndexList rows;
    if (!view->selectionModel())
        return rows;
    QSet<QModelIndex> seen;
    const QModelIndexList indexes = view->selectionModel()->selectedIndexes();
    for (const QModelIndex &index : indexes) {
        const QModelIndex row = index.siblingAtColumn(VxDopeSheetView::NameColumn);
        if (!seen.contains(row)) {
            seen.insert(row);
            rows.append(row);
        }
    }
    return rows;
}

// The view excludes the end of a time span; a range includes its last time.
VxTime spanEnd(const VxTimeRange &range)
{
    return range.getEnd() == VxTimeMax ? VxTimeMax : range.getEnd() + 1;
}

} // namespace

VxTimePaneItemKeysSelectionAction::VxTimePaneItemKeysSelectionAction(Direction direction,
                                                                     Range range,
                                                                     const QString &text,
                                                                     const QString &description)
    : VxAnimationAction(text, description)
    , m_direction(direction)
    , m_range(range)
{
}

QString VxTimePaneItemKeysSelectionAction::getActionGroup() const
{
    return QString();
}

void VxTimePaneItemKeysSelectionAction::executeAction()
{
    VxTimePane *pane = requireTimePane(&staticMetaObject, "executeAction");
    if (!pane)
        return;
    VxDopeSheetView *view = pane->getDopeSheetView();
    const bool select = m_direction == Select;
    const bool add = QGuiApplication::keyboardModifiers().testFlag(Qt::ControlModifier);
    if (select && !add)
        view->clearSelectedKeys();
    const VxTimeRange range = m_range == AllTimes ? VxTimeRange::all() : vxScene->getPlayRange();
    const QModelIndexList rows = selectedRows(view);
    for (const QModelIndex &row : rows)
        view->setKeySelection(select, row, row, range.getStart(), spanEnd(range));
}

VxTimePaneSelectItemPlayRangeKeysAction::VxTimePaneSelectItemPlayRangeKeysAction()
    : VxTimePaneItemKeysSelectionAction(
          Select, PlayRange, tr("Select Item Keys (Filtered)"),
          tr("Selects keys within the play range for the properties associated with the "
             "currently selected item(s) in the navigation column of the Timeline pane "
             "dopesheet view. If a selected item is collapsible and is currently collapsed, "
             "all keys that are represented by the collapsed key will become selected."))
{
}

VxTimePaneSelectItemAnimRangeKeysAction::VxTimePaneSelectItemAnimRangeKeysAction()
    : VxTimePaneItemKeysSelectionAction(
          Select, AllTimes, tr("Select All Item Keys (Filtered)"),
          tr("Selects all keys in the entire animation range for the properties associated "
             "with the currently selected item(s) in the navigation column of the Timeline "
             "pane dopesheet view. If a selected item is collapsible and is currently "
             "collapsed, all keys that are represented by the collapsed key will become "
             "selected."))
{
}

VxTimePaneDeselectItemPlayRangeKeysAction::VxTimePaneDeselectItemPlayRangeKeysAction()
    : VxTimePaneItemKeysSelectionAction(
          Deselect, PlayRange, tr("Deselect Item Keys (Filtered)"),
          tr("Deselects keys within the play range for the properties associated with the "
             "currently selected item(s) in the navigation column of the Timeline pane "
             "dopesheet view. If a selected item is collapsible and is currently collapsed, "
             "all keys that are represented by the collapsed key will become selected."))
{
}

VxTimePaneDeselectItemAnimRangeKeysAction::VxTimePaneDeselectItemAnimRangeKeysAction()
    : VxTimePaneItemKeysSelectionAction(
          Deselect, AllTimes, tr("Deselect All Item Keys (Filtered)"),
          tr("Deselects all keys in the entire animation range for the properties associated"
             " with the currently selected item(s) in the navigation column of the Timeline "
             "pane dopesheet view. If a selected item is collapsible and is currently "
             "collapsed, all keys that are represented by the collapsed key will become "
             "selected."))
{
}
