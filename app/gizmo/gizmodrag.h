#ifndef GIZMODRAG_H
#define GIZMODRAG_H

#include "viewport/viewportcamera.h"

#include <optional>

/// The world coordinates of a drag: what a pixel means for an axis, a plane or a rotation.

/// A direction of length 1 at right angles to an axis.
QVector3D perpendicularTo(const QVector3D &axis);

/// The position on a line, in world units from `origin` along `axis` (of length 1), that is nearest
/// to what a pixel shows. None when the line points at the eye.
std::optional<double> offsetOnAxis(const ViewportCamera &camera, const QVector3D &origin,
                                   const QVector3D &axis, const QPointF &pixel);

/// The point of a plane that a pixel shows. None when the plane is seen from its edge, or the point
/// is behind the eye.
std::optional<QVector3D> pointOnPlane(const ViewportCamera &camera, const QVector3D &origin,
                                      const QVector3D &normal, const QPointF &pixel);

/// The angle of a drag about an axis, continuous over any number of revolutions.
///
/// The mouse is followed around the origin in the plane of the ring; a ring seen from its edge is
/// dragged along its tangent instead, a radian for every radius of the ring in pixels.
class RotationDrag
{
public:
    /// axis: of length 1, a rotation about it is counterclockwise seen from its tip.
    RotationDrag(const ViewportCamera &camera, const QVector3D &origin, const QVector3D &axis,
                 const QPointF &pixel);

    /// Degrees from the press to a pixel. Call it for every move: each step counts as the shorter
    /// way around.
    double follow(const QPointF &pixel);

private:
    std::optional<double> directionTo(const QPointF &pixel) const;

    ViewportCamera m_camera;
    QVector3D m_origin;
    QVector3D m_axis;
    QVector3D m_right; // in the plane of the ring
    QVector3D m_up;
    QPointF m_start;
    QPointF m_tangent; // per pixel, in degrees; null unless seen from the edge
    std::optional<double> m_direction;
    double m_angle = 0;
};

#endif
