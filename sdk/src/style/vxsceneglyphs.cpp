#include <QtGui/QPainterPath>

#include "style/vxglyphpen.h"
#include "style/vxglyphs.h"

using namespace VxGlyphPen;

namespace {

// A point in space: three axes from one origin.
void node(QPainter &painter, const VxGlyphColors &colors)
{
    lines(painter, colors.ink, 1.5);
    polyline(painter, {{7, 9}, {7, 2}});
    polyline(painter, {{7, 9}, {14, 9}});
    polyline(painter, {{7, 9}, {2.5, 13.5}});
    dot(painter, 7, 9, 2.2, colors.accent);
}

// A long kite between two joints.
void bone(QPainter &painter, const VxGlyphColors &colors)
{
    fill(painter, polygon({{2, 14}, {3.2, 8}, {14, 2}, {8, 12.8}}), colors.soft);
    fill(painter, polygon({{2, 14}, {3.2, 8}, {14, 2}}), colors.ink);
    dot(painter, 2.8, 13.2, 1.8, colors.accent);
}

void skeleton(QPainter &painter, const VxGlyphColors &colors)
{
    dot(painter, 8, 3, 2.2, colors.accent);
    lines(painter, colors.ink, 1.6);
    polyline(painter, {{8, 6}, {8, 10}});
    polyline(painter, {{3, 8.5}, {5, 6.2}, {11, 6.2}, {13, 8.5}});
    polyline(painter, {{4.5, 14.5}, {6, 10.5}, {10, 10.5}, {11.5, 14.5}});
}

void object(QPainter &painter, const VxGlyphColors &colors)
{
    fill(painter, polygon({{8, 1.5}, {14, 4.5}, {8, 7.5}, {2, 4.5}}), colors.accent);
    fill(painter, polygon({{2, 5.5}, {7.5, 8.3}, {7.5, 14.5}, {2, 11.7}}), colors.ink);
    fill(painter, polygon({{14, 5.5}, {8.5, 8.3}, {8.5, 14.5}, {14, 11.7}}), colors.soft);
}

void propertyGroup(QPainter &painter, const VxGlyphColors &colors)
{
    fill(painter, polygon({{1, 3}, {6, 3}, {7.5, 5}, {14, 5}, {14, 6}, {1, 6}}), colors.soft);
    fill(painter, polygon({{1, 6}, {15, 6}, {13.5, 13}, {1, 13}}), colors.ink);
}

// A slider: the rail and its grip.
void property(QPainter &painter, const VxGlyphColors &colors)
{
    fill(painter, QRectF(1, 7, 14, 2), colors.soft);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colors.ink);
    painter.drawRoundedRect(QRectF(6, 3, 4, 10), 1.2, 1.2);
}

// A slider whose rail bends from one shape into another.
void morphProperty(QPainter &painter, const VxGlyphColors &colors)
{
    lines(painter, colors.soft, 1.8);
    QPainterPath rail(QPointF(1.5, 12));
    rail.cubicTo(6, 12, 5, 4, 8, 4);
    rail.cubicTo(11, 4, 10, 12, 14.5, 12);
    painter.drawPath(rail);
    dot(painter, 8, 4.5, 3.2, colors.accent);
}

// A slider with the arrow of a link.
void aliasProperty(QPainter &painter, const VxGlyphColors &colors)
{
    fill(painter, QRectF(1, 5, 14, 2), colors.soft);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colors.ink);
    painter.drawRoundedRect(QRectF(4, 1.5, 4, 9), 1.2, 1.2);
    fillOver(painter,
             polygon({{8, 11}, {11, 11}, {11, 8.8}, {15, 12}, {11, 15.2}, {11, 13}, {8, 13}}),
             colors.accent);
}

void visible(QPainter &painter, const VxGlyphColors &colors)
{
    lines(painter, colors.ink, 1.5);
    QPainterPath lids(QPointF(1.2, 8));
    lids.quadTo(8, 0.5, 14.8, 8);
    lids.quadTo(8, 15.5, 1.2, 8);
    painter.drawPath(lids);
    dot(painter, 8, 8, 2.4, colors.ink);
}

} // namespace

VxGlyph vxSceneGlyph(VxStyle::StandardIconId id)
{
    switch (id) {
    case VxStyle::SP_VxNode:
        return node;
    case VxStyle::SP_VxBone:
        return bone;
    case VxStyle::SP_VxSkeleton:
        return skeleton;
    case VxStyle::SP_VxObject:
        return object;
    case VxStyle::SP_VxPropertyGroup:
        return propertyGroup;
    case VxStyle::SP_VxProperty:
        return property;
    case VxStyle::SP_VxMorphProperty:
        return morphProperty;
    case VxStyle::SP_VxAliasProperty:
        return aliasProperty;
    case VxStyle::SP_VxVisible:
        return visible;
    default:
        return nullptr;
    }
}
