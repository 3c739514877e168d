#include "viewport/viewportcamera.h"

#include "viewport/pointbox.h"

#include <QRectF>
#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr float DegreesPerPixel = 0.4f;
constexpr float SteepestPitch = 89; // of a drag
constexpr double Surroundings = 64; // pixels around the view in which lines are drawn, too
constexpr float AxisPixels = 30;

float radians(float degrees)
{
    return degrees * float(M_PI) / 180;
}

/// Clips the parts below `low` or above `high` in one coordinate, which starts at `from` and ends
/// at `from + step`; first and last are the parameters of the remaining line.
void cut(double from, double step, double low, double high, double *first, double *last)
{
    if (step == 0) {
        if (from < low || from > high)
            *last = -1;
        return;
    }
    const double a = (low - from) / step;
    const double b = (high - from) / step;
    *first = std::max(*first, std::min(a, b));
    *last = std::min(*last, std::max(a, b));
}

/// The part of a line within a box, if any. A painter would be slow with lines far beyond its
/// image.
std::optional<QLineF> within(const QLineF &line, const QRectF &box)
{
    double first = 0;
    double last = 1;
    cut(line.x1(), line.dx(), box.left(), box.right(), &first, &last);
    cut(line.y1(), line.dy(), box.top(), box.bottom(), &first, &last);
    if (first > last)
        return std::nullopt;
    return QLineF(first > 0 ? line.pointAt(first) : line.p1(),
                  last < 1 ? line.pointAt(last) : line.p2());
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

void ViewportCamera::setState(const VxCameraState &state)
{
    m_state = state.corrected();
    updateAxes();
}

void ViewportCamera::setFieldOfView(float degrees)
{
    VxCameraState changed = m_state;
    changed.fieldOfView = degrees;
    changed = changed.corrected();
    const float before = slope();
    m_state.fieldOfView = changed.fieldOfView;
    m_state.distance = std::clamp(m_state.distance * before / slope(), VxCameraState::MinDistance,
                                  VxCameraState::MaxDistance);
}

void ViewportCamera::setDirection(float yaw, float pitch)
{
    VxCameraState changed = m_state;
    changed.yaw = yaw;
    changed.pitch = pitch;
    setState(changed);
}

void ViewportCamera::orbit(const QPointF &pixels)
{
    m_state.yaw = std::fmod(m_state.yaw - float(pixels.x()) * DegreesPerPixel, 360.0f);
    m_state.pitch = std::clamp(m_state.pitch + float(pixels.y()) * DegreesPerPixel, -SteepestPitch,
                               SteepestPitch);
    updateAxes();
}

void ViewportCamera::pan(const QPointF &pixels)
{
    const float units = unitsPerPixel();
    m_state.target += m_up * (float(pixels.y()) * units) - m_right * (float(pixels.x()) * units);
}

void ViewportCamera::zoom(double factor)
{
    zoom(factor, QPointF(m_size.width(), m_size.height()) / 2);
}

void ViewportCamera::zoom(double factor, const QPointF &pixel)
{
    if (!(factor > 0) || !std::isfinite(factor))
        return;
    const QPointF offset = pixel - QPointF(m_size.width(), m_size.height()) / 2;
    const float before = unitsPerPixel();
    m_state.distance =
        float(std::clamp(double(m_state.distance) / factor, double(VxCameraState::MinDistance),
                         double(VxCameraState::MaxDistance)));
    const float gained = before - unitsPerPixel();
    m_state.target += (m_right * float(offset.x()) - m_up * float(offset.y())) * gained;
}

void ViewportCamera::frame(const QVector<QVector3D> &points, float heightPart)
{
    if (points.isEmpty())
        return;
    m_state.target = PointBox(points).middle();
    const float side = float(std::min(m_size.width(), m_size.height()));
    const float slopeX = slope() / side * FramedPart * float(m_size.width());
    const float slopeY = slope() / side * heightPart * float(m_size.height());
    float needed = 0;
    for (const QVector3D &point : points) {
        const QVector3D offset = point - m_state.target;
        const float x = std::abs(QVector3D::dotProduct(offset, m_right));
        const float y = std::abs(QVector3D::dotProduct(offset, m_up));
        const float nearer = isOrthographic() ? 0 : QVector3D::dotProduct(offset, m_back);
        needed = std::max(needed, std::max(x / slopeX, y / slopeY) + nearer);
    }
    m_state.distance =
        needed > 0 ? std::clamp(needed, VxCameraState::MinDistance, VxCameraState::MaxDistance)
                   : VxCameraState().distance;
}

std::optional<QPointF> ViewportCamera::project(const QVector3D &point) const
{
    const QVector3D inView = toView(point);
    if (inView.z() < nearDepth())
        return std::nullopt;
    const QPointF pixel = toPixel(inView);
    // Of a point too far for single precision.
    const bool isFinite = std::isfinite(pixel.x()) && std::isfinite(pixel.y());
    return isFinite ? std::optional<QPointF>(pixel) : std::nullopt;
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
    const QRectF view(QPointF(), m_size);
    return within(QLineF(toPixel(a), toPixel(b)),
                  view.adjusted(-Surroundings, -Surroundings, Surroundings, Surroundings));
}

float ViewportCamera::unitsPerPixel() const
{
    const float side = float(std::min(m_size.width(), m_size.height()));
    return 2 * m_state.distance * slope() / side;
}

float ViewportCamera::unitsPerPixel(const QVector3D &point) const
{
    return isOrthographic() ? unitsPerPixel()
                            : unitsPerPixel() * std::max(0.0f, depth(point)) / m_state.distance;
}

float ViewportCamera::standardDistance() const
{
    return m_state.distance * slope() / std::tan(radians(VxCameraState().fieldOfView / 2));
}

QVector3D ViewportCamera::pointAt(const QPointF &pixel, float depth) const
{
    const QPointF offset = pixel - QPointF(m_size.width(), m_size.height()) / 2;
    const float units = unitsPerPixel() * (isOrthographic() ? 1 : depth / m_state.distance);
    return eye() - m_back * depth +
           (m_right * float(offset.x()) - m_up * float(offset.y())) * units;
}

QVector3D ViewportCamera::directionAt(const QPointF &pixel) const
{
    return isOrthographic() ? -m_back : (pointAt(pixel, m_state.distance) - eye()).normalized();
}

float ViewportCamera::axisLength() const
{
    return AxisPixels * unitsPerPixel();
}

/** x to the right, y up, z the depth before the eye. */
QVector3D ViewportCamera::toView(const QVector3D &point) const
{
    const QVector3D offset = point - m_state.target;
    return {QVector3D::dotProduct(offset, m_right), QVector3D::dotProduct(offset, m_up),
            m_state.distance - QVector3D::dotProduct(offset, m_back)};
}

QPointF ViewportCamera::toPixel(const QVector3D &viewPoint) const
{
    const double depth = isOrthographic() ? double(m_state.distance) : double(viewPoint.z());
    const double pixelsPerUnit = double(m_state.distance) / (double(unitsPerPixel()) * depth);
    return {m_size.width() / 2 + double(viewPoint.x()) * pixelsPerUnit,
            m_size.height() / 2 - double(viewPoint.y()) * pixelsPerUnit};
}

float ViewportCamera::nearDepth() const
{
    return isOrthographic() ? std::numeric_limits<float>::lowest() : m_state.distance / 1000;
}

/** Half of what the shorter side of the view shows at a distance of 1. */
float ViewportCamera::slope() const
{
    return std::tan(radians(m_state.fieldOfView / 2));
}

void ViewportCamera::updateAxes()
{
    const float yaw = radians(m_state.yaw);
    const float pitch = radians(m_state.pitch);
    m_right = {std::cos(yaw), 0, -std::sin(yaw)};
    m_back = {std::sin(yaw) * std::cos(pitch), std::sin(pitch), std::cos(yaw) * std::cos(pitch)};
    m_up = QVector3D::crossProduct(m_back, m_right);
}
