#include "vxtimeline/pane/timepaneisolation.h"

#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/pane/timepaneviews.h"
#include "vxtimeline/rows/vxdopesheetfiltermodel.h"

#include <QtCore/QItemSelectionModel>
#include <vxcore/vxnodeisolation.h>
#include <vxcore/vxpane.h>

// The rows follow the scene's selected nodes by events that are posted; the curves are shown after
// those.
TimePaneIsolation::TimePaneIsolation(VxPane *pane, const TimePaneViews &views)
    : m_views(views)
    , m_isolation(new VxNodeIsolation(pane))
{
    connect(m_isolation, &VxNodeIsolation::changed, this, [this] {
        m_views.filterModel()->setIsolatedNodes(m_isolation->nodes());
        QMetaObject::invokeMethod(this, &TimePaneIsolation::showCurves, Qt::QueuedConnection);
    });
}

void TimePaneIsolation::showCurves()
{
    VxDopeSheetView *sheet = m_views.sheet();
    QItemSelection rows;
    for (VxNode *node : m_isolation->nodes()) {
        sheet->ensureNodeVisible(node);
        rows += sheet->openKeyedProperties(node);
    }
    if (rows.isEmpty())
        return;
    sheet->selectionModel()->select(rows, QItemSelectionModel::ClearAndSelect |
                                              QItemSelectionModel::Rows);
    // As many of the selected rows as there is room for, from the first one on.
    const QModelIndexList listed = rows.indexes();
    sheet->scrollTo(listed.last());
    sheet->scrollTo(listed.first());
}
