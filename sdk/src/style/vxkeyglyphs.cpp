#include <QtGui/QPainterPath>

#include "style/vxglyphpen.h"
#include "style/vxglyphs.h"

using namespace VxGlyphPen;

namespace {

void deleteKeys(QPainter &painter, const VxGlyphColors &colors)
{
    fill(painter, diamond(6, 7, 5.5), colors.ink);
    fillOver(painter, polygon({{9, 11}, {15, 11}, {15, 13}, {9, 13}}), colors.accent);
}

void createKeys(QPainter &painter, const VxGlyphColors &colors)
{
    fill(painter, diamond(6, 7, 5.5), colors.ink);
    fillOver(painter,
             polygon({{11, 9},
                      {13, 9},
                      {13, 11},
                      {15, 11},
                      {15, 13},
                      {13, 13},
                      {13, 15},
                      {11, 15},
                      {11, 13},
                      {9, 13},
                      {9, 11},
                      {11, 11}}),
             colors.accent);
}

// Two sheets, the front one with a key on it.
void copyKeys(QPainter &painter, const VxGlyphColors &colors)
{
    lines(painter, colors.soft, 1.5);
    polyline(painter, {{3.5, 11.25}, {1.75, 11.25}, {1.75, 1.75}, {9.25, 1.75}, {9.25, 2.75}});
    lines(painter, colors.ink, 1.5);
    painter.drawRoundedRect(QRectF(4.75, 4.75, 9.5, 10), 1, 1);
    fill(painter, diamond(9.5, 9.75, 3.2), colors.accent);
}

void pasteKeys(QPainter &painter, const VxGlyphColors &colors)
{
    lines(painter, colors.ink, 1.5);
    painter.drawRoundedRect(QRectF(2.75, 3.25, 10.5, 11.5), 1.5, 1.5);
    fillOver(painter, polygon({{5.5, 1.5}, {10.5, 1.5}, {10.5, 4.5}, {5.5, 4.5}}), colors.ink);
    fill(painter, diamond(8, 9.7, 3.3), colors.accent);
}

void axes(QPainter &painter, const QColor &color)
{
    fill(painter, QRectF(1, 1, 1, 14), color);
    fill(painter, QRectF(1, 14, 14, 1), color);
}

void keyGraph(QPainter &painter, const VxGlyphColors &colors)
{
    axes(painter, colors.soft);
    lines(painter, colors.ink, 1.5);
    QPainterPath curve(QPointF(4, 11));
    curve.cubicTo(8, 11, 8, 4, 13, 4);
    painter.drawPath(curve);
    fill(painter, diamond(4.5, 11, 2.2), colors.accent);
    fill(painter, diamond(12.5, 4, 2.2), colors.accent);
}

// The three icons of the interpolation types end in the marks of their type.
void interpolationLinear(QPainter &painter, const VxGlyphColors &colors)
{
    lines(painter, colors.ink, 1.5);
    polyline(painter, {{3.5, 12.5}, {12.5, 3.5}});
    fill(painter, diamond(3.5, 12.5, 3), colors.ink);
    fill(painter, diamond(12.5, 3.5, 3), colors.ink);
}

void interpolationConstant(QPainter &painter, const VxGlyphColors &colors)
{
    lines(painter, colors.ink, 1.5);
    polyline(painter, {{3, 12.75}, {8, 12.75}, {8, 3.25}, {13, 3.25}});
    fill(painter, QRectF(1, 10.5, 4.5, 4.5), colors.ink);
    fill(painter, QRectF(10.5, 1, 4.5, 4.5), colors.ink);
}

void interpolationTcb(QPainter &painter, const VxGlyphColors &colors)
{
    lines(painter, colors.ink, 1.5);
    QPainterPath curve(QPointF(3.5, 12.5));
    curve.cubicTo(10, 12.5, 6, 3.5, 12.5, 3.5);
    painter.drawPath(curve);
    dot(painter, 3.5, 12.5, 2.5, colors.ink);
    dot(painter, 12.5, 3.5, 2.5, colors.ink);
}

} // namespace

VxGlyph vxKeyGlyph(VxStyle::StandardIconId id)
{
    switch (id) {
    case VxStyle::SP_VxDeleteKeys:
        return deleteKeys;
    case VxStyle::SP_VxCreateKeys:
        return createKeys;
    case VxStyle::SP_VxCopyKeys:
        return copyKeys;
    case VxStyle::SP_VxPasteKeys:
        return pasteKeys;
    case VxStyle::SP_VxKeyGraph:
        return keyGraph;
    case VxStyle::SP_VxInterpolationLinear:
        return interpolationLinear;
    case VxStyle::SP_VxInterpolationConstant:
        return interpolationConstant;
    case VxStyle::SP_VxInterpolationTcb:
        return interpolationTcb;
    default:
        return nullptr;
    }
}
