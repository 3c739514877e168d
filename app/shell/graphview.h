#ifndef GRAPHVIEW_H
#define GRAPHVIEW_H

#include <QString>

class VxPaneMgr;

/// What the buttons of the timeline's key graph do by drags of the mouse, as steps for commands.
/// Each function returns the reason where the graph is not visible, else nothing.
namespace GraphView {

/// Moves the visible values by an eighth of the graph's height a step; above 0: shows higher ones.
QString panValues(const VxPaneMgr &panes, int steps);
/// Zooms the values about the middle of the graph; steps above 0 enlarge.
QString zoomValues(const VxPaneMgr &panes, int steps);

} // namespace GraphView

#endif
