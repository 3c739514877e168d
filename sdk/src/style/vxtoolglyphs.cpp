#include "style/vxglyphpen.h"
#include "style/vxglyphs.h"

using namespace VxGlyphPen;

namespace {

void graphPan(QPainter &painter, const VxGlyphColors &colors)
{
    fill(painter, QRectF(7, 3, 2, 10), colors.ink);
    fill(painter, QRectF(3, 7, 10, 2), colors.ink);
    fill(painter, polygon({{8, 0.5}, {11, 4}, {5, 4}}), colors.ink);
    fill(painter, polygon({{8, 15.5}, {11, 12}, {5, 12}}), colors.ink);
    fill(painter, polygon({{0.5, 8}, {4, 5}, {4, 11}}), colors.ink);
    fill(painter, polygon({{15.5, 8}, {12, 5}, {12, 11}}), colors.ink);
}

void lens(QPainter &painter, const VxGlyphColors &colors)
{
    lines(painter, colors.ink, 2.4);
    polyline(painter, {{10.5, 10.5}, {14, 14}});
    lines(painter, colors.ink, 1.6);
    painter.drawEllipse(QPointF(6.5, 6.5), 4.9, 4.9);
}

void search(QPainter &painter, const VxGlyphColors &colors)
{
    lens(painter, colors);
}

void graphZoom(QPainter &painter, const VxGlyphColors &colors)
{
    lens(painter, colors);
    fill(painter, QRectF(4, 5.75, 5, 1.5), colors.accent);
    fill(painter, QRectF(5.75, 4, 1.5, 5), colors.accent);
}

void graphFrame(QPainter &painter, const VxGlyphColors &colors)
{
    for (const qreal x : {1., 13.}) {
        fill(painter, QRectF(x, 1, 2, 4), colors.ink);
        fill(painter, QRectF(x, 11, 2, 4), colors.ink);
    }
    for (const qreal y : {1., 13.}) {
        fill(painter, QRectF(1, y, 4, 2), colors.ink);
        fill(painter, QRectF(11, y, 4, 2), colors.ink);
    }
    fill(painter, diamond(8, 8, 3.5), colors.accent);
}

void optionsMenu(QPainter &painter, const VxGlyphColors &colors)
{
    fill(painter, QRectF(2, 3, 12, 2), colors.ink);
    fill(painter, QRectF(2, 7, 12, 2), colors.ink);
    fill(painter, QRectF(2, 11, 12, 2), colors.ink);
}

} // namespace

VxGlyph vxToolGlyph(VxStyle::StandardIconId id)
{
    switch (id) {
    case VxStyle::SP_VxGraphPan:
        return graphPan;
    case VxStyle::SP_VxGraphZoom:
        return graphZoom;
    case VxStyle::SP_VxGraphFrame:
        return graphFrame;
    case VxStyle::SP_VxSearch:
        return search;
    case VxStyle::SP_VxOptionsMenu:
        return optionsMenu;
    default:
        return nullptr;
    }
}
