#include "style/vxtimelineprimitives.h"

#include "style/vxcolors.h"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <algorithm>
#include <cmath>
#include <vxcore/vxstyle.h>

namespace {

// Extent of the range marks' flags into the play range, in pixels.
constexpr int flagReach = 4;
// Below this side the playhead has no space for its point.
constexpr int smallestPlayhead = 6;

QColor named(const QStyleOption *option, const char *name)
{
    return VxColors::interfaceColor(VxColors::schemeFor(option->palette), QLatin1String(name));
}

QColor faded(QColor color, qreal alpha)
{
    color.setAlphaF(color.alphaF() * alpha);
    return color;
}

int valueOf(const QStyleOption *option, int fallback)
{
    const auto *custom = qstyleoption_cast<const VxStyleOptionCustom *>(option);
    return custom != nullptr ? custom->value : fallback;
}

// The given part of the rectangle's height, from the bottom, as a column at its left edge.
QRect lowerColumn(const QStyleOption *option, qreal part)
{
    const QRect &rect = option->rect;
    const int height = qRound(rect.height() * part);
    return QRect(rect.left(), rect.bottom() + 1 - height, rect.width(), height);
}

// A line with a foot that points into the play range. The upper part of the ruler stays free for
// the frame number, which is centred over the line.
void drawRangeMark(const QStyleOption *option, QPainter *painter, bool start)
{
    const QColor color = named(option, "Style_Play_Range");
    const QRect line = lowerColumn(option, 0.54);
    painter->fillRect(line, color);
    const qreal foot = line.bottom() + 1;
    const qreal edge = start ? line.right() + 1 : line.left();
    const qreal tip = edge + (start ? flagReach : -flagReach);
    const QPointF flag[] = {{edge, foot - flagReach}, {tip, foot}, {edge, foot}};
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(color);
    painter->drawConvexPolygon(flag, 3);
    painter->restore();
}

QPainterPath playheadShape(const QRectF &rect)
{
    // The middle of the pixel column right of the centre: that of the frame's tick when the
    // marker's rectangle is twice as wide as the time line's margin.
    const qreal middle = rect.left() + std::floor(rect.width() / 2) + 0.5;
    const qreal side = std::min(rect.width(), rect.height());
    const qreal half = std::max<qreal>(2, std::floor(side * 0.25)) + 0.5;
    const qreal top = rect.bottom() - std::floor(side * 0.6);
    const qreal shoulder = rect.bottom() - half - 0.5;
    // The point is one pixel wide, so that it is visible down to the last row.
    QPainterPath path(QPointF(middle + 0.5, rect.bottom()));
    path.lineTo(middle - 0.5, rect.bottom());
    path.lineTo(middle - half, shoulder);
    path.lineTo(middle - half, top + 2);
    path.quadTo(middle - half, top, middle - half + 2, top);
    path.lineTo(middle + half - 2, top);
    path.quadTo(middle + half, top, middle + half, top + 2);
    path.lineTo(middle + half, shoulder);
    path.closeSubpath();
    return path;
}

void fillWithOutline(QPainter *painter, const QPainterPath &path, const QColor &fill,
                     const QColor &outline)
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->fillPath(path, outline);
    painter->setClipPath(path);
    const QRectF box = path.boundingRect();
    const QPointF middle = box.center();
    painter->translate(middle);
    painter->scale((box.width() - 2) / box.width(), (box.height() - 2.6) / box.height());
    painter->translate(-middle);
    painter->fillPath(path, fill);
    painter->restore();
}

// The arrow of a range handle points outwards, the direction that extends the range.
QPainterPath handleArrow(const QRectF &box, bool start)
{
    const qreal height = std::max<qreal>(4, std::floor(box.height() * 0.4));
    const qreal width = height * 0.6;
    const qreal direction = start ? -1 : 1;
    const QPointF middle = box.center();
    QPainterPath path(middle + QPointF(direction * width / 2, 0));
    path.lineTo(middle + QPointF(-direction * width / 2, -height / 2));
    path.lineTo(middle + QPointF(-direction * width / 2, height / 2));
    path.closeSubpath();
    return path;
}

} // namespace

void VxTimelinePrimitives::drawNameColumn(const QStyleOption *option, QPainter *painter)
{
    const QRect &rect = option->rect;
    const QPalette &palette = option->palette;
    painter->fillRect(rect, palette.color(QPalette::AlternateBase));
    const QRect edge(rect.right(), rect.top(), 1, rect.height());
    painter->fillRect(
        edge, VxColors::mix(palette.color(QPalette::Dark), palette.color(QPalette::Base), 0.35));
}

void VxTimelinePrimitives::drawRulerTick(const QStyleOption *option, QPainter *painter)
{
    const QColor text = option->palette.color(QPalette::WindowText);
    switch (valueOf(option, VxStyle::MinorTick)) {
    case VxStyle::StartMark:
        return drawRangeMark(option, painter, true);
    case VxStyle::EndMark:
        return drawRangeMark(option, painter, false);
    case VxStyle::MajorTick:
        return painter->fillRect(lowerColumn(option, 0.38), faded(text, 0.8));
    default:
        return painter->fillRect(lowerColumn(option, 0.2), faded(text, 0.45));
    }
}

void VxTimelinePrimitives::drawPlayhead(const QStyleOption *option, QPainter *painter)
{
    const QRect &rect = option->rect;
    const QColor color = named(option, "Style_Playhead");
    const int side = std::min(rect.width(), rect.height());
    if (side < smallestPlayhead)
        return painter->fillRect(rect, color);
    painter->fillRect(rect.left() + rect.width() / 2, rect.top(), 1, rect.height() - side * 6 / 10,
                      faded(color, 0.6));
    fillWithOutline(painter, playheadShape(rect), color, named(option, "Style_Playhead_Outline"));
}

void VxTimelinePrimitives::drawCurrentTimeMarker(const QStyleOption *option, QPainter *painter)
{
    const QRect &rect = option->rect;
    const QColor color = named(option, "Style_Playhead");
    painter->fillRect(rect, faded(color, 0.16));
    painter->fillRect(rect.left() + rect.width() / 2, rect.top(), 1, rect.height(),
                      faded(color, 0.85));
}

void VxTimelinePrimitives::drawRangeHandle(const QStyleOption *option, QPainter *painter)
{
    const QRectF box = QRectF(option->rect);
    const QPalette &palette = option->palette;
    const bool hovered = option->state & QStyle::State_MouseOver;
    const QColor ground = hovered ? palette.color(QPalette::Highlight)
                                  : VxColors::mix(palette.color(QPalette::Button),
                                                  palette.color(QPalette::ButtonText), 0.22);
    const QColor ink = palette.color(hovered ? QPalette::HighlightedText : QPalette::ButtonText);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    // The slider's own background may be as light as the handle.
    QPainterPath edge, body;
    edge.addRoundedRect(box, 2, 2);
    body.addRoundedRect(box.adjusted(1, 1, -1, -1), 1, 1);
    painter->fillPath(edge, VxColors::mix(ground, ink, 0.45));
    painter->fillPath(body, ground);
    const bool start = valueOf(option, VxStyle::RangeStartHandle) != VxStyle::RangeEndHandle;
    painter->fillPath(handleArrow(box, start), ink);
    painter->restore();
}
