#ifndef FIGUREPICK_H
#define FIGUREPICK_H

#include <QPointF>

class ViewportCamera;
class VxNode;
struct FigureLines;

/// Maximum distance, in pixels, from the mouse to a joint or to a line.
constexpr double JointReach = 8;
constexpr double LineReach = 5;

/// The visible node at a pixel, by the same lines and points that are painted: the nearest joint
/// within reach, else a bone whose body is there, else the nearest line or axis; of those equally
/// near the frontmost. Nodes that are not selectable are ignored. Null for none.
VxNode *pickFigure(const FigureLines &figure, const ViewportCamera &camera, const QPointF &pixel);

/// The distance from a point to a line segment, ends included.
double distanceToLine(const QPointF &point, const QPointF &from, const QPointF &to);

#endif
