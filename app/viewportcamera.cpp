#include "viewportcamera.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr float HalfFieldOfView = 20; // degrees, over the shorter side of the view
constexpr float DegreesPerPixel = 0.4f;
constexpr float SteepestPitch = 89;
constexpr float SmallestDistance = 1e-3f;
constexpr float LargestDistance = 1e7f;
constexpr float FramedPart = 0.85f; // of the view
constexpr float AxisPixels = 30;

float radians(float degrees)
{
    return degrees * float(M_PI) / 180;
}

QVector3D middleOf(const QVector<QVector3D> &points)
{
    QVector3D low = points.constFirst();
    QVector3D high = low;
    for (const QVector3D &point : points) {
        for (int axis = 0; axis < 3; ++axis) {
            low[axis] = std::min(low[axis], point[axis]);
            high[axis] = std::max(high[axis], point[axis]);
        }
    }
    return (low + high) / 2;
}

} // namespace

ViewportCamera::ViewportCamera()
{
    updateAxes();
}

void ViewportCamera::setViewSize(const QSizeF &size)
{
    m_size = QSizeF(std::max(1.0, size.width()), std::max(1.0, size.height()));
}

QVector3D ViewportCamera::eye() const
{
    return m_target + m_back * m_distance;
}

void ViewportCamera::orbit(const QPointF &pixels)
{
    m_yaw = std::fmod(m_yaw - float(pixels.x()) * DegreesPerPixel, 360.0f);
    m_pitch =
        std::clamp(m_pitch + float(pixels.y()) * DegreesPerPixel, -SteepestPitch, SteepestPitch);
    updateAxes();
}

void ViewportCamera::pan(const QPointF &pixels)
{
    const float units = unitsPerPixel();
    m_target += m_up * (float(pixels.y()) * units) - m_right * (float(pixels.x()) * units);
}

void ViewportCamera::zoom(double factor)
{
    if (factor > 0 && std::isfinite(factor))
        m_distance = std::clamp(m_distance / float(factor), SmallestDistance, LargestDistance);
}

void ViewportCamera::frame(const QVector<QVector3D> &points)
{
    if (points.isEmpty())
        return;
    m_target = middleOf(points);
    const float side = float(std::min(m_size.width(), m_size.height()));
    const float slope = std::tan(radians(HalfFieldOfView)) * FramedPart / side;
    const float slopeX = slope * float(m_size.width());
    const float slopeY = slope * float(m_size.height());
    float needed = 0;
    for (const QVector3D &point : points) {
        const QVector3D offset = point - m_target;
        const float x = std::abs(QVector3D::dotProduct(offset, m_right));
        const float y = std::abs(QVector3D::dotProduct(offset, m_up));
        const float nearer = QVector3D::dotProduct(offset, m_back);
        needed = std::max(needed, std::max(x / slopeX, y / slopeY) + nearer);
    }
    m_distance = needed > 0 ? std::clamp(needed, SmallestDistance, LargestDistance) : FirstDistance;
}

std::optional<QPointF> ViewportCamera::project(const QVector3D &point) const
{
    const QVector3D inView = toView(point);
    if (inView.z() < nearDepth())
        return std::nullopt;
    return toPixel(inView);
}

std::optional<QLineF> ViewportCamera::project(const QVector3D &from, const QVector3D &to) const
{
    QVector3D a = toView(from);
    QVector3D b = toView(to);
    const float nearest = nearDepth();
    if (a.z() < nearest && b.z() < nearest)
        return std::nullopt;
    if (a.z() < nearest)
        a += (b - a) * ((nearest - a.z()) / (b.z() - a.z()));
    else if (b.z() < nearest)
        b += (a - b) * ((nearest - b.z()) / (a.z() - b.z()));
    return QLineF(toPixel(a), toPixel(b));
}

float ViewportCamera::unitsPerPixel() const
{
    const float side = float(std::min(m_size.width(), m_size.height()));
    return 2 * m_distance * std::tan(radians(HalfFieldOfView)) / side;
}

float ViewportCamera::depth(const QVector3D &point) const
{
    return toView(point).z();
}

float ViewportCamera::axisLength() const
{
    return AxisPixels * unitsPerPixel();
}

/** x to the right, y up, z the depth before the eye. */
QVector3D ViewportCamera::toView(const QVector3D &point) const
{
    const QVector3D offset = point - m_target;
    return {QVector3D::dotProduct(offset, m_right), QVector3D::dotProduct(offset, m_up),
            m_distance - QVector3D::dotProduct(offset, m_back)};
}

QPointF ViewportCamera::toPixel(const QVector3D &viewPoint) const
{
    const double pixelsPerUnit = double(m_distance) / double(unitsPerPixel() * viewPoint.z());
    return {m_size.width() / 2 + double(viewPoint.x()) * pixelsPerUnit,
            m_size.height() / 2 - double(viewPoint.y()) * pixelsPerUnit};
}

float ViewportCamera::nearDepth() const
{
    return m_distance / 1000;
}

void ViewportCamera::updateAxes()
{
    const float yaw = radians(m_yaw);
    const float pitch = radians(m_pitch);
    m_right = {std::cos(yaw), 0, -std::sin(yaw)};
    m_back = {std::sin(yaw) * std::cos(pitch), std::sin(pitch), std::cos(yaw) * std::cos(pitch)};
    m_up = QVector3D::crossProduct(m_back, m_right);
}
