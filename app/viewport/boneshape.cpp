#include "viewport/boneshape.h"

#include "viewport/viewportcamera.h"

#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>

namespace {

enum Corner { From, To, FirstWaist };
constexpr int Waists = 4;
constexpr int Corners = FirstWaist + Waists;

using Pixels = std::array<QPointF, Corners>;

double cross(const QPointF &a, const QPointF &b)
{
    return a.x() * b.y() - a.y() * b.x();
}

/** Of length 1 and at right angles to the bone, as near to its side as possible. */
QVector3D sideOf(const FigureLines::Bone &bone, const QVector3D &direction)
{
    const QVector3D candidates[] = {bone.side, {1, 0, 0}, {0, 0, 1}};
    for (const QVector3D &candidate : candidates) {
        const QVector3D side = candidate - direction * QVector3D::dotProduct(candidate, direction);
        if (side.length() > 0.1f)
            return side.normalized();
    }
    return {0, 1, 0};
}

/** Andrew's monotone chain (Another efficient algorithm for convex hulls in two dimensions, 1979).
 */
QPolygonF convexHull(Pixels points)
{
    std::sort(points.begin(), points.end(), [](const QPointF &a, const QPointF &b) {
        return a.x() < b.x() || (a.x() == b.x() && a.y() < b.y());
    });
    QPolygonF hull;
    const auto extend = [&hull](int keep, const QPointF &point) {
        while (hull.size() >= keep + 2 &&
               cross(hull.last() - hull.at(hull.size() - 2), point - hull.last()) <= 0)
            hull.removeLast();
        hull.append(point);
    };
    for (const QPointF &point : points)
        extend(0, point);
    const int half = hull.size() - 1;
    for (std::size_t i = points.size() - 1; i-- > 0;)
        extend(half, points[i]);
    hull.removeLast();
    return hull;
}

/** Each edge that has a face on both sides and is not part of the outline, where one faces the eye.
 */
QVector<QLineF> visibleRidges(const Pixels &at)
{
    const auto waist = [](int i) { return std::size_t(FirstWaist + (i + Waists) % Waists); };
    const auto faces = [&at](std::size_t a, std::size_t b, std::size_t c) {
        return cross(at[b] - at[a], at[c] - at[a]) > 0;
    };
    std::array<bool, Waists> lower{};
    std::array<bool, Waists> upper{};
    for (int i = 0; i < Waists; ++i) {
        lower[std::size_t(i)] = faces(From, waist(i), waist(i + 1));
        upper[std::size_t(i)] = faces(To, waist(i + 1), waist(i));
    }
    QVector<QLineF> ridges;
    for (int i = 0; i < Waists; ++i) {
        const auto here = std::size_t(i);
        const auto before = std::size_t((i + Waists - 1) % Waists);
        if (lower[here] && lower[before])
            ridges.append(QLineF(at[From], at[waist(i)]));
        if (upper[here] && upper[before])
            ridges.append(QLineF(at[To], at[waist(i)]));
        if (lower[here] && upper[here])
            ridges.append(QLineF(at[waist(i)], at[waist(i + 1)]));
    }
    return ridges;
}

} // namespace

void BoneShape::paint(QPainter *painter) const
{
    if (!outline.isEmpty())
        painter->drawConvexPolygon(outline);
    painter->drawLines(ridges);
}

std::optional<BoneShape> boneShape(const FigureLines::Bone &bone, const ViewportCamera &camera)
{
    const QVector3D along = bone.to - bone.from;
    const float length = along.length();
    if (!(length > 0) || !std::isfinite(length))
        return std::nullopt;
    const auto axis = camera.project(bone.from, bone.to);
    if (!axis)
        return std::nullopt;
    BoneShape shape;
    const auto from = camera.project(bone.from);
    const auto to = camera.project(bone.to);
    if (from && to && QLineF(*from, *to).length() >= BoneShape::ShortestBody) {
        const QVector3D direction = along / length;
        const QVector3D side = sideOf(bone, direction);
        const QVector3D other = QVector3D::crossProduct(direction, side);
        const QVector3D middle = bone.from + along * BoneShape::WaistAt;
        const float radius = length * BoneShape::WaistRadius;
        Pixels at;
        at[From] = *from;
        at[To] = *to;
        const QVector3D offsets[Waists] = {side, other, -side, -other};
        bool isWhole = true;
        for (int i = 0; i < Waists; ++i) {
            const auto pixel = camera.project(middle + offsets[i] * radius);
            isWhole = isWhole && pixel;
            at[std::size_t(FirstWaist + i)] = pixel.value_or(QPointF());
        }
        // Lines far beyond the view would be slow to paint.
        const QRectF near(QPointF(-2000, -2000), camera.viewSize() + QSizeF(4000, 4000));
        isWhole = isWhole && std::all_of(at.begin(), at.end(),
                                         [&near](const QPointF &p) { return near.contains(p); });
        if (isWhole) {
            shape.outline = convexHull(at);
            shape.ridges = visibleRidges(at);
            return shape;
        }
    }
    shape.ridges.append(*axis);
    return shape;
}
