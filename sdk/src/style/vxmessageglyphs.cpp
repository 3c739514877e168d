#include <QtGui/QPainterPath>

#include "style/vxglyphpen.h"
#include "style/vxglyphs.h"

using namespace VxGlyphPen;

namespace {

// The icons of message boxes. A warning is amber and an error red on every background; the symbols
// on them contrast with those.
const QColor amber(0xe8, 0xa3, 0x3d);
const QColor red(0xd0, 0x3f, 0x3a);
const QColor blue(0x2f, 0x7a, 0xd0);
const QColor dark(0x26, 0x22, 0x1a);

void information(QPainter &painter, const VxGlyphColors &)
{
    dot(painter, 8, 8, 7.5, blue);
    dot(painter, 8, 4.6, 1.2, Qt::white);
    fill(painter, QRectF(7, 7, 2, 5.5), Qt::white);
}

void question(QPainter &painter, const VxGlyphColors &)
{
    dot(painter, 8, 8, 7.5, blue);
    lines(painter, Qt::white, 1.8);
    QPainterPath hook(QPointF(5.6, 6));
    hook.cubicTo({5.6, 2.6}, {10.6, 2.8}, {10.4, 5.9});
    hook.cubicTo({10.3, 7.6}, {8, 7.6}, {8, 9.6});
    painter.drawPath(hook);
    dot(painter, 8, 12.2, 1.2, Qt::white);
}

void warning(QPainter &painter, const VxGlyphColors &)
{
    painter.setBrush(amber);
    painter.setPen(QPen(amber, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolygon(polygon({{8, 1.8}, {15, 14}, {1, 14}}));
    fill(painter, polygon({{6.9, 5.4}, {9.1, 5.4}, {8.7, 10.4}, {7.3, 10.4}}), dark);
    dot(painter, 8, 12.2, 1.1, dark);
}

void critical(QPainter &painter, const VxGlyphColors &)
{
    dot(painter, 8, 8, 7.5, red);
    lines(painter, Qt::white, 2);
    polyline(painter, {{5.2, 5.2}, {10.8, 10.8}});
    polyline(painter, {{10.8, 5.2}, {5.2, 10.8}});
}

} // namespace

VxGlyph vxMessageGlyph(VxStyle::StandardIconId id)
{
    switch (static_cast<quint32>(id)) {
    case QStyle::SP_MessageBoxInformation:
        return information;
    case QStyle::SP_MessageBoxQuestion:
        return question;
    case QStyle::SP_MessageBoxWarning:
        return warning;
    case QStyle::SP_MessageBoxCritical:
        return critical;
    default:
        return nullptr;
    }
}
