// Painting the dope sheet's header.

#include "vxtimeline/dopesheet/dopesheetruler.h"
#include "vxtimeline/dopesheet/vxdopesheetheaderview_p.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/rows/vxdopesheetitem.h"

#include <QtCore/QScopedValueRollback>
#include <QtGui/QPaintEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QStyleOptionHeader>
#include <vxcore/vxapp.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxstyle.h>

namespace {

// How far the style's marks may exceed their columns; pixels.
constexpr int MarkReach = 8;

QStyle::PrimitiveElement primitive(VxStyle::PrimitiveId id)
{
    return static_cast<QStyle::PrimitiveElement>(id);
}

int rulerFlags(const QWidget *header)
{
    return vxApp->getStyle()->styleHint(static_cast<QStyle::StyleHint>(VxStyle::SH_VxRulerFlags),
                                        nullptr, header);
}

int labelSpacing()
{
    return vxApp->getStyle()->metric(VxStyle::PM_VxRulerLabelSpacing);
}

} // namespace

// The playhead moves over the header in playback: only its old and new area is painted.
void VxDopeSheetHeaderView::paintEvent(QPaintEvent *event)
{
    const QScopedValueRollback<QRegion> painting(d->paintedRegion, event->region());
    QHeaderView::paintEvent(event);
}

bool VxDopeSheetHeaderView::isToBePainted(const QRect &rect) const
{
    return d->paintedRegion.isEmpty() || d->paintedRegion.intersects(rect);
}

void VxDopeSheetHeaderView::paintSection(QPainter *painter, const QRect &rect,
                                         int logicalIndex) const
{
    if (!rect.isValid())
        return;
    QStyleOptionHeader option;
    initStyleOption(&option);
    option.rect = rect;
    option.section = logicalIndex;
    option.position = logicalIndex == VxDopeSheetView::NameColumn ? QStyleOptionHeader::Beginning
                                                                  : QStyleOptionHeader::End;
    style()->drawControl(QStyle::CE_HeaderSection, &option, painter, this);
    if (logicalIndex == VxDopeSheetView::KeysColumn)
        paintRuler(painter, rect);
}

// Marks before the play range must not cover the names; the number of its first frame may, as it
// is centred over the edge.
void VxDopeSheetHeaderView::paintRuler(QPainter *painter, const QRect &rect) const
{
    const DopeSheetRuler scale = ruler();
    painter->save();
    paintLabels(painter, scale, rect);
    painter->setClipRect(rect, Qt::IntersectClip);
    paintMarks(painter, scale, rect);
    paintKeys(painter, scale, rect);
    paintMarker(painter, scale, rect);
    painter->restore();
}

void VxDopeSheetHeaderView::paintLabels(QPainter *painter, const DopeSheetRuler &ruler,
                                        const QRect &rect) const
{
    const VxTextStyle text = vxApp->getStyle()->textStyle(VxStyle::TS_Ruler);
    painter->setPen(text.getColor());
    painter->setFont(text.getFont());
    for (const DopeSheetRulerLabel &label : ruler.labels(rulerFlags(this), labelSpacing())) {
        const int width = text.getWidth(label.text);
        const int left = label.middle - width / 2;
        if (isToBePainted(QRect(left, rect.top(), width, rect.height())))
            painter->drawText(left, rect.top() + text.getAscent(), label.text);
    }
}

void VxDopeSheetHeaderView::paintMarks(QPainter *painter, const DopeSheetRuler &ruler,
                                       const QRect &rect) const
{
    const VxStyle *style = vxApp->getStyle();
    const int width = style->metric(VxStyle::PM_VxRulerTickWidth);
    VxStyleOptionCustom option;
    option.initFrom(this);
    for (const DopeSheetRulerMark &mark : ruler.marks(rulerFlags(this), labelSpacing())) {
        option.rect = QRect(mark.x, rect.top(), width, rect.height());
        option.value = mark.value;
        if (isToBePainted(option.rect.adjusted(-MarkReach, 0, MarkReach, 0)))
            style->drawPrimitive(primitive(VxStyle::PE_VxRulerTick), &option, painter, this);
    }
}

void VxDopeSheetHeaderView::paintKeys(QPainter *painter, const DopeSheetRuler &ruler,
                                      const QRect &rect) const
{
    const VxDopeSheetItem *source = getKeySource();
    if (!source)
        return;
    const int width = TimelineMetrics::shared().frameWidth;
    VxStyleOptionCustom option;
    option.initFrom(this);
    for (const int left : ruler.keyMarks(source->keyTimes(), source->keyCount())) {
        option.rect = QRect(left, rect.top(), width, rect.height());
        if (isToBePainted(option.rect))
            vxApp->getStyle()->drawPrimitive(primitive(VxStyle::PE_VxKeyMark), &option, painter,
                                             this);
    }
}

// Without a play range there is no marker; the style is called all the same.
void VxDopeSheetHeaderView::paintMarker(QPainter *painter, const DopeSheetRuler &ruler,
                                        const QRect &rect) const
{
    const VxStyle *style = vxApp->getStyle();
    QStyleOption option;
    if (ruler.hasMarker()) {
        option.initFrom(this);
        const int width = style->metric(VxStyle::PM_VxCurrentTimeMarkerWidth);
        option.rect =
            QRect(ruler.markerLeft(vxScene->getTime(), width), rect.top(), width, rect.height());
    }
    style->drawPrimitive(primitive(VxStyle::PE_VxCurrentTimeMarker), &option, painter, this);
}
