#ifndef BONESHAPE_H
#define BONESHAPE_H

#include "viewport/figurelines.h"

#include <QLineF>
#include <QPolygonF>
#include <QVector>
#include <optional>

class QPainter;
class ViewportCamera;

/// A bone as a view shows it: an octahedron from its joint to its end, widest near the joint.
struct BoneShape
{
    /// Fewer pixels from end to end are shown as a line.
    static constexpr double ShortestBody = 12;
    /// The part of the length at which the body is widest, and half the width there.
    static constexpr float WaistAt = 0.12f;
    static constexpr float WaistRadius = 0.08f;

    QPolygonF outline;      ///< convex; empty for a short or flat bone
    QVector<QLineF> ridges; ///< edges within the outline that face the eye; else the line itself

    bool contains(const QPointF &pixel) const
    {
        return outline.containsPoint(pixel, Qt::WindingFill);
    }
    /// With the painter's pen and brush.
    void paint(QPainter *painter) const;
};

/// What a camera sees of a bone. None for a bone that is not before the camera, or without length.
std::optional<BoneShape> boneShape(const FigureLines::Bone &bone, const ViewportCamera &camera);

#endif
