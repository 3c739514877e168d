#ifndef FIGUREPICK_H
#define FIGUREPICK_H

#include <QPointF>

class ViewportCamera;
class VxNode;
struct FigureLines;

/// How near, in pixels, the mouse has to come to a joint or to a line.
constexpr double JointReach = 8;
constexpr double LineReach = 5;

/// The node that a view shows at a pixel, by the same lines and points that it paints: the nearest
/// joint within reach, else the nearest bone or axis; of those equally near the one before the
/// others. Nodes that cannot be selected are looked through. Null for nothing.
VxNode *pickFigure(const FigureLines &figure, const ViewportCamera &camera, const QPointF &pixel);

/// From a point to the nearest point of a line; the ends belong to it.
double distanceToLine(const QPointF &point, const QPointF &from, const QPointF &to);

#endif
