#ifndef VIEWPORTCAMERA_H
#define VIEWPORTCAMERA_H

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

    QVector3D target() const { return m_target; }
    /// From the target to the eye, above 0.
    float distance() const { return m_distance; }
    QVector3D eye() const;

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
    float depth(const QVector3D &point) const;
    /// World units that one pixel covers at the target's depth.
    float unitsPerPixel() const;
    /// World units of the axes that show a node: the same part of the view at any distance.
    float axisLength() const;

    friend bool operator==(const ViewportCamera &a, const ViewportCamera &b)
    {
        return a.m_size == b.m_size && a.m_target == b.m_target && a.m_distance == b.m_distance &&
               a.m_yaw == b.m_yaw && a.m_pitch == b.m_pitch;
    }
    friend bool operator!=(const ViewportCamera &a, const ViewportCamera &b) { return !(a == b); }

private:
    static constexpr float FirstDistance = 6;
    static constexpr float FramedPart = 0.85f; // of the view

    QVector3D toView(const QVector3D &point) const;
    QPointF toPixel(const QVector3D &viewPoint) const;
    float nearDepth() const;
    void updateAxes();

    QSizeF m_size{100, 100};
    QVector3D m_target{0, 1, 0};
    float m_distance = FirstDistance;
    float m_yaw = 35;   // degrees about the vertical axis; 0 looks along -z
    float m_pitch = 18; // degrees above the ground
    QVector3D m_right;  // the view's axes, from the two angles
    QVector3D m_up;
    QVector3D m_back;
};

#endif
