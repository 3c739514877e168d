#ifndef MOVEDRAG_H
#define MOVEDRAG_H

#include "gizmo/gizmo.h"
#include "viewport/viewportcamera.h"

#include <QString>
#include <optional>

/// The offset of a drag along an axis, in a plane of the gizmo or parallel to the view.
class MoveDrag
{
public:
    MoveDrag(const ViewportCamera &camera, const GizmoFrame &frame, GizmoPart part,
             const QPointF &pixel);

    /// In world units, from the press to the last pixel or amount.
    QVector3D offset() const { return m_offset; }

    /// Ignored where a pixel has no point of the line or plane.
    void follow(const QPointF &pixel);
    /// The same in steps of the ground grid: to its lines when the frame has the world's axes,
    /// elsewhere to whole steps from the press.
    void followGrid(const QPointF &pixel, bool isWorld);

    /// True for a part with a single amount: an axis.
    bool hasAmount() const { return m_part != GizmoPart::View && !isGizmoPlane(m_part); }
    /// Sets the offset along the axis, in world units.
    void setAmount(double amount);
    /// "X 1.25", or three numbers.
    QString text() const;

private:
    std::optional<QVector3D> pointAt(const QPointF &pixel) const;

    ViewportCamera m_camera;
    GizmoFrame m_frame;
    GizmoPart m_part;
    QVector3D m_grabbed; // at the press
    QVector3D m_offset;
};

#endif
