#include <QtGui/QPainterPath>

#include "style/vxglyphpen.h"
#include "style/vxglyphs.h"

using namespace VxGlyphPen;

namespace {

// Draws the glyph mirrored horizontally.
void mirrored(QPainter &painter, const VxGlyphColors &colors, VxGlyph glyph)
{
    painter.save();
    painter.translate(16, 0);
    painter.scale(-1, 1);
    glyph(painter, colors);
    painter.restore();
}

void play(QPainter &painter, const VxGlyphColors &colors)
{
    fill(painter, polygon({{4, 2}, {14, 8}, {4, 14}}), colors.ink);
}

void pause(QPainter &painter, const VxGlyphColors &colors)
{
    fill(painter, QRectF(3, 2, 4, 12), colors.ink);
    fill(painter, QRectF(9, 2, 4, 12), colors.ink);
}

void skipToEnd(QPainter &painter, const VxGlyphColors &colors)
{
    fill(painter, polygon({{2, 3}, {7, 8}, {2, 13}}), colors.ink);
    fill(painter, polygon({{7, 3}, {12, 8}, {7, 13}}), colors.ink);
    fill(painter, QRectF(12, 3, 2, 10), colors.ink);
}

void nextFrame(QPainter &painter, const VxGlyphColors &colors)
{
    fill(painter, QRectF(4, 3, 2, 10), colors.ink);
    fill(painter, polygon({{8, 3}, {13.5, 8}, {8, 13}}), colors.ink);
}

void nextKey(QPainter &painter, const VxGlyphColors &colors)
{
    fill(painter, polygon({{1, 3}, {6.5, 8}, {1, 13}}), colors.ink);
    fill(painter, diamond(11.5, 8, 4.2), colors.accent);
}

void skipToStart(QPainter &painter, const VxGlyphColors &colors)
{
    mirrored(painter, colors, skipToEnd);
}

void previousFrame(QPainter &painter, const VxGlyphColors &colors)
{
    mirrored(painter, colors, nextFrame);
}

void previousKey(QPainter &painter, const VxGlyphColors &colors)
{
    mirrored(painter, colors, nextKey);
}

// Two arrows that form a loop.
void loopArrows(QPainter &painter, const QColor &color)
{
    lines(painter, color, 1.7);
    QPainterPath upper(QPointF(2, 8));
    upper.lineTo(2, 7.5);
    upper.quadTo(2, 4.5, 5, 4.5);
    upper.lineTo(11, 4.5);
    QPainterPath lower(QPointF(14, 8));
    lower.lineTo(14, 8.5);
    lower.quadTo(14, 11.5, 11, 11.5);
    lower.lineTo(5, 11.5);
    painter.drawPath(upper);
    painter.drawPath(lower);
    fill(painter, polygon({{10.5, 1.3}, {14.6, 4.5}, {10.5, 7.7}}), color);
    fill(painter, polygon({{5.5, 8.3}, {1.4, 11.5}, {5.5, 14.7}}), color);
}

void loopOn(QPainter &painter, const VxGlyphColors &colors)
{
    loopArrows(painter, colors.accent);
}

// Once, and then the end: another shape, to distinguish on and off without colours.
void loopOff(QPainter &painter, const VxGlyphColors &colors)
{
    fill(painter, QRectF(1, 7, 7, 2), colors.ink);
    fill(painter, polygon({{7, 4}, {12, 8}, {7, 12}}), colors.ink);
    fill(painter, QRectF(13, 3, 2, 10), colors.ink);
}

} // namespace

VxGlyph vxTransportGlyph(VxStyle::StandardIconId id)
{
    switch (id) {
    case VxStyle::SP_VxLoopOn:
        return loopOn;
    case VxStyle::SP_VxLoopOff:
        return loopOff;
    case VxStyle::SP_VxSkipToStart:
        return skipToStart;
    case VxStyle::SP_VxPreviousKey:
        return previousKey;
    case VxStyle::SP_VxPreviousFrame:
        return previousFrame;
    case VxStyle::SP_VxPlay:
        return play;
    case VxStyle::SP_VxPause:
        return pause;
    case VxStyle::SP_VxNextFrame:
        return nextFrame;
    case VxStyle::SP_VxNextKey:
        return nextKey;
    case VxStyle::SP_VxSkipToEnd:
        return skipToEnd;
    default:
        return nullptr;
    }
}
