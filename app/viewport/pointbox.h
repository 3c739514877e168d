#ifndef POINTBOX_H
#define POINTBOX_H

#include <QVector3D>
#include <QVector>
#include <algorithm>
#include <cmath>

/// True for a position that is finite and whose coordinates have squares in single precision.
inline bool isPlace(const QVector3D &at)
{
    constexpr float Farthest = 1e18f;
    return std::abs(at.x()) < Farthest && std::abs(at.y()) < Farthest &&
           std::abs(at.z()) < Farthest;
}

/// The smallest box around points, along the axes of the world; a point at the origin for none.
struct PointBox
{
    explicit PointBox(const QVector<QVector3D> &points)
    {
        if (!points.isEmpty())
            low = high = points.first();
        for (const QVector3D &point : points) {
            for (int axis = 0; axis < 3; ++axis) {
                low[axis] = std::min(low[axis], point[axis]);
                high[axis] = std::max(high[axis], point[axis]);
            }
        }
    }

    QVector3D middle() const { return (low + high) / 2; }
    /// From corner to corner.
    float size() const { return (high - low).length(); }

    QVector3D low;
    QVector3D high;
};

#endif
