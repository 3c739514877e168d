#ifndef VIEWPORTCAMERA_H
#define VIEWPORTCAMERA_H

#include "io/vxscenecamera.h"

#include <QLineF>
#include <QPointF>
#include <QSizeF>
#include <QVector3D>
#include <QVector>
#include <optional>

/// A camera that orbits a point: the mapping from the world to a view's pixels, and its mouse
/// operations. A plain value without a window; y is up, the view's origin is its upper left corner.
class ViewportCamera
{
public:
    ViewportCamera();

    /// Pixels of the view; sides below 1 count as 1.
    void setViewSize(const QSizeF &size);
    QSizeF viewSize() const { return m_size; }

    QVector3D target() const { return m_state.target; }
    /// From the target to the eye, above 0.
    float distance() const { return m_state.distance; }
    QVector3D eye() const { return m_state.target + m_back * m_state.distance; }
    /// From the target toward the eye, of length 1; the view's right and up are at right angles.
    QVector3D back() const { return m_back; }
    QVector3D right() const { return m_right; }
    QVector3D up() const { return m_up; }

    /// Everything but the view's size, for a document; a state that is not valid is corrected.
    const VxCameraState &state() const { return m_state; }
    void setState(const VxCameraState &state);

    /// Without perspective, lines that are parallel in the world are parallel in the view. Sizes at
    /// the target's depth stay as they are.
    bool isOrthographic() const { return m_state.orthographic; }
    void setOrthographic(bool orthographic) { m_state.orthographic = orthographic; }
    /// Degrees over the shorter side of the view; limited as in VxCameraState. The eye moves, so
    /// that sizes at the target's depth stay as they are.
    float fieldOfView() const { return m_state.fieldOfView; }
    void setFieldOfView(float degrees);
    /// Degrees, as in VxCameraState.
    void setDirection(float yaw, float pitch);

    /// Orbits about the target for a mouse delta in pixels; never over the top.
    void orbit(const QPointF &pixels);
    /// Shifts the target so that points at its depth follow the mouse.
    void pan(const QPointF &pixels);
    /// Divides the distance by a factor above 0; others are ignored. The point at a pixel, at the
    /// target's depth, keeps its position; without a pixel that is the target.
    void zoom(double factor);
    void zoom(double factor, const QPointF &pixel);
    /// Keeps the direction and shows all points, as large as fits with a margin, with the center
    /// of their bounding box as the target. A single point is shown from the initial distance;
    /// without points nothing changes. heightPart: the part of the view's height that the points
    /// may fill, above 0 and at most 1.
    void frame(const QVector<QVector3D> &points, float heightPart = FramedPart);

    /// The pixel of a point; none for a point behind the camera.
    std::optional<QPointF> project(const QVector3D &point) const;
    /// The part of a line that is before the camera and within the view, or close to it, if any.
    std::optional<QLineF> project(const QVector3D &from, const QVector3D &to) const;

    /// The distance of a point from the eye, along the view's direction; below 0 behind it.
    float depth(const QVector3D &point) const { return toView(point).z(); }
    /// The point seen at a pixel, at a depth from the eye.
    QVector3D pointAt(const QPointF &pixel, float depth) const;
    /// The direction from the eye to what a pixel shows, of length 1.
    QVector3D directionAt(const QPointF &pixel) const;
    /// World units that one pixel covers at the target's depth.
    float unitsPerPixel() const;
    /// The same at a point's depth; 0 for a point behind the eye.
    float unitsPerPixel(const QVector3D &point) const;
    /// The distance from which the initial field of view shows as much as this camera.
    float standardDistance() const;
    /// World units of the axes that show a node: the same part of the view at any distance.
    float axisLength() const;

    friend bool operator==(const ViewportCamera &a, const ViewportCamera &b)
    {
        return a.m_size == b.m_size && a.m_state == b.m_state;
    }
    friend bool operator!=(const ViewportCamera &a, const ViewportCamera &b) { return !(a == b); }

private:
    static constexpr float FramedPart = 0.85f; // of the view

    QVector3D toView(const QVector3D &point) const;
    QPointF toPixel(const QVector3D &viewPoint) const;
    float nearDepth() const;
    float slope() const;
    void updateAxes();

    QSizeF m_size{100, 100};
    VxCameraState m_state;
    QVector3D m_right; // the view's axes, from the two angles
    QVector3D m_up;
    QVector3D m_back;
};

#endif
