#include "shell/graphview.h"

#include "widgets/studiotext.h"

#include <QMetaObject>
#include <QWidget>
#include <vxcore/vxpane.h>
#include <vxcore/vxpanemgr.h>

namespace {

constexpr int PanStepsOfHeight = 8;
constexpr int ZoomStep = 100; // pixels of a drag

/// Null while it is not visible.
QWidget *visibleGraph(const VxPaneMgr &panes)
{
    const VxPane *pane = panes.findPane(QStringLiteral("VxTimePane"));
    auto *graph =
        pane ? pane->findChild<QWidget *>(QStringLiteral("TimelineKeyGraphView")) : nullptr;
    return graph && graph->isVisible() ? graph : nullptr;
}

/// A drag of one of the graph's buttons, by the slots that they are connected to.
QString drag(QWidget *graph, const char *start, const char *adjust, int distance)
{
    if (!graph)
        return StudioText::tr("The key graph is not visible.");
    QMetaObject::invokeMethod(graph, start);
    QMetaObject::invokeMethod(graph, adjust, Q_ARG(QPoint, QPoint(0, distance)));
    return QString();
}

} // namespace

QString GraphView::panValues(const VxPaneMgr &panes, int steps)
{
    QWidget *graph = visibleGraph(panes);
    const int step = graph ? graph->height() / PanStepsOfHeight : 0;
    return drag(graph, "panStart", "panAdjust", steps * step);
}

QString GraphView::zoomValues(const VxPaneMgr &panes, int steps)
{
    return drag(visibleGraph(panes), "zoomStart", "zoomAdjust", steps * ZoomStep);
}
