#ifndef GIZMO_H
#define GIZMO_H

#include <QPolygonF>
#include <QVector3D>
#include <QVector>
#include <array>

class ViewportCamera;

/// What can be grabbed in a gizmo.
enum class GizmoPart {
    None,
    X, ///< an arrow, a ring or a handle of one axis
    Y,
    Z,
    YZ, ///< the square between two arrows
    ZX,
    XY,
    View ///< the square in the middle, or the ring around the others: parallel to the view
};
constexpr int GizmoPartCount = 8;

enum class GizmoKind { Move, Rotate, Scale };

/// The position and axes of a gizmo in the world.
struct GizmoFrame
{
    QVector3D origin;
    std::array<QVector3D, 3> axes; ///< of length 1; perpendicular, except for those of channels

    /// The axis of a part that has one, see gizmoAxis().
    QVector3D axisOf(GizmoPart part) const;
};

/// Parts that cannot be grabbed, by GizmoPart.
using GizmoLocks = std::array<bool, GizmoPartCount>;

/// A part as it is painted and hit, in pixels.
struct GizmoShape
{
    GizmoPart part;
    QPolygonF line; ///< open, or closed by its first point again
    QPolygonF back; ///< the far half of a ring: painted faintly, not hit
    QPolygonF area; ///< filled: an arrow's head or a square; empty for a ring
    bool locked;
};

/// Distance from the mouse within which a line is hit, in pixels: an area at least 10 wide.
constexpr double GizmoReach = 5;

/// The axis of a part, 0 for X to 2 for Z: of a square, the one perpendicular to it; -1 for others.
int gizmoAxis(GizmoPart part);
bool isGizmoPlane(GizmoPart part);

/// The parts of a gizmo, of the same size at any distance. Empty behind the camera. An arrow that
/// points at the camera is left out, and so is a square seen from its edge.
QVector<GizmoShape> gizmoShapes(GizmoKind kind, const GizmoFrame &frame, const GizmoLocks &locks,
                                const ViewportCamera &camera);

/// The part at a pixel: of those in reach the nearest that is not locked; the square in the middle
/// before all others.
GizmoPart hitGizmo(const QVector<GizmoShape> &shapes, const QPointF &pixel);

#endif
