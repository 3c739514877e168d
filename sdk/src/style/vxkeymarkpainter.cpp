#include "style/vxkeymarkpainter.h"

#include "style/vxcolors.h"

#include <QtCore/QtMath>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <algorithm>
#include <cmath>

namespace {

// shade is the outline's on the left side. Where keys are closer than a mark is wide, each mark
// covers all but the left side of the previous one: the visible slivers must still look like keys,
// and selected ones like selected keys, not like one dark bar.
struct MarkColors
{
    QColor fill, outline, shade;
};

MarkColors colorsOf(const VxKeyMarkLook &look)
{
    const auto named = [&look](const char *name) {
        return VxColors::interfaceColor(look.scheme, QLatin1String(name));
    };
    MarkColors colors;
    colors.fill = named(look.selected ? "Style_Key_Selected" : "Style_Key");
    colors.outline = named(look.selected ? "Style_Key_Selected_Outline" : "Style_Key_Outline");
    if (!look.enabled) {
        const QColor ground = VxColors::palette(look.scheme).color(QPalette::Base);
        colors.fill = VxColors::mix(colors.fill, ground, 0.55);
        colors.outline = VxColors::mix(colors.outline, ground, 0.45);
    }
    colors.shade = VxColors::mix(colors.outline, colors.fill, 0.85);
    return colors;
}

// The mark's square in device pixels; for an even side one pixel less, to have a middle column.
QRect markBox(const QSize &size, qreal ratio)
{
    const int side = std::min(size.width(), size.height());
    const int left = (size.width() - side) / 2;
    const int top = size.height() > size.width() ? size.height() - side : 0;
    const int free = side % 2 == 0 && side > 2 ? 1 : 0;
    const int deviceSide = std::max(1, qFloor((side - free) * ratio));
    return QRect(qRound((left + free) * ratio), qRound((top + free) * ratio), deviceSide,
                 deviceSide);
}

QPainterPath polygon(std::initializer_list<QPointF> points)
{
    QPainterPath path;
    path.addPolygon(QPolygonF(QVector<QPointF>(points)));
    path.closeSubpath();
    return path;
}

// As high as the whole mark: the row that the box leaves free is above it.
QPainterPath diamond(const QRectF &box, qreal unit, qreal inset)
{
    // A slanted line looks thicker than a vertical one of the same width.
    const qreal reach = box.width() / 2 - inset;
    const qreal height = box.top() >= unit ? reach + unit / 2 : reach;
    const QPointF middle(box.center().x(), box.bottom() - inset - height);
    return polygon({middle - QPointF(0, height), middle + QPointF(reach, 0),
                    middle + QPointF(0, height), middle - QPointF(reach, 0)});
}

// A bar with pointed ends, half as wide as high.
QPainterPath aggregate(const QRectF &box, qreal unit, qreal inset)
{
    const qreal half = std::max<qreal>(1, qRound(box.width() * 0.26 / unit)) * unit +
                       std::fmod(box.width(), 2 * unit) / 2 - inset;
    const qreal reach = box.height() / 2 - inset * M_SQRT2;
    const qreal shoulder = std::max<qreal>(0, reach - half);
    const QPointF middle = box.center();
    return polygon({middle + QPointF(0, -reach), middle + QPointF(half, -shoulder),
                    middle + QPointF(half, shoulder), middle + QPointF(0, reach),
                    middle + QPointF(-half, shoulder), middle + QPointF(-half, -shoulder)});
}

// A low bar on the bottom edge, in whole device pixels and without an outline: in a ruler many are
// adjacent, and the labels above them must stay readable. A selected one is twice as high.
QPainterPath plain(const QRectF &box, qreal unit, bool selected)
{
    const qreal width = std::max<qreal>(1, qRound(box.width() * 0.3 / unit)) * unit;
    const qreal part = selected ? 0.8 : 0.4;
    const qreal height = std::max<qreal>(1, qRound(box.height() * part / unit)) * unit;
    QPainterPath path;
    path.addRect(box.left() + std::floor((box.width() - width) / 2), box.bottom() - height, width,
                 height);
    return path;
}

QPainterPath square(const QRectF &box, qreal inset)
{
    const qreal margin = std::round(box.width() * 0.12) + inset;
    QPainterPath path;
    path.addRect(box.adjusted(margin, margin, -margin, -margin));
    return path;
}

QPainterPath circle(const QRectF &box, qreal inset)
{
    QPainterPath path;
    const qreal margin = std::floor(box.width() / 13) + inset;
    path.addEllipse(box.adjusted(margin, margin, -margin, -margin));
    return path;
}

// unit is the width of one line; inset excludes the outline.
QPainterPath shapePath(const VxKeyMarkLook &look, const QRectF &box, qreal unit, qreal inset)
{
    switch (look.shape) {
    case VxKeyMarkLook::Diamond:
        return diamond(box, unit, inset);
    case VxKeyMarkLook::Square:
        return square(box, inset);
    case VxKeyMarkLook::Circle:
        return circle(box, inset);
    case VxKeyMarkLook::Aggregate:
        return aggregate(box, unit, inset);
    default:
        return plain(box, unit, look.selected);
    }
}

VxKeyMarkLook::Shape shapeOf(QStyle::State state)
{
    if (state & QStyle::State_Children)
        return VxKeyMarkLook::Aggregate;
    if (state & QStyle::State_Editing)
        return VxKeyMarkLook::Circle;
    if (state & QStyle::State_Sunken)
        return VxKeyMarkLook::Square;
    if (state & QStyle::State_Raised)
        return VxKeyMarkLook::Diamond;
    return VxKeyMarkLook::Plain;
}

} // namespace

VxKeyMarkLook VxKeyMarkLook::fromState(QStyle::State state, VxStyle::ColorScheme scheme)
{
    VxKeyMarkLook look;
    look.shape = shapeOf(state);
    look.selected = state & QStyle::State_Selected;
    look.enabled = state & QStyle::State_Enabled;
    look.scheme = scheme;
    return look;
}

QPixmap vxRenderKeyMark(const VxKeyMarkLook &look, const QSize &size, qreal devicePixelRatio)
{
    if (size.isEmpty())
        return QPixmap();
    QPixmap pixmap(qMax(1, qRound(size.width() * devicePixelRatio)),
                   qMax(1, qRound(size.height() * devicePixelRatio)));
    pixmap.fill(Qt::transparent);
    const QRectF box = markBox(size, devicePixelRatio);
    const qreal unit = std::max(1, qFloor(devicePixelRatio + 0.25));
    const MarkColors colors = colorsOf(look);

    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPainterPath outline = shapePath(look, box, unit, 0);
    painter.fillPath(outline, colors.outline);
    painter.setClipRect(QRectF(0, 0, QRectF(box).center().x(), pixmap.height()));
    painter.fillPath(outline, colors.shade);
    painter.setClipping(false);
    painter.fillPath(shapePath(look, box, unit, unit), colors.fill);
    painter.end();
    pixmap.setDevicePixelRatio(devicePixelRatio);
    return pixmap;
}
