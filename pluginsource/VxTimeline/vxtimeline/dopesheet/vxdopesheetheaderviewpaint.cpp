// The picture of the dope sheet's header.

#include <QtGui/QPainter>
#include <QtWidgets/QStyleOptionHeader>
#include <vxcore/vxapp.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxstyle.h>

#include "vxtimeline/dopesheet/dopesheetruler.h"
#include "vxtimeline/dopesheet/vxdopesheetheaderview.h"
#include "vxtimeline/dopesheet/vxdopesheetitem.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"

namespace {

QStyle::PrimitiveElement primitive(VxStyle::PrimitiveId id)
{
    return static_cast<QStyle::PrimitiveElement>(id);
}

void paintMarks(QPainter *painter, const QWidget *header, const QRect &section,
                const std::vector<DopeSheetRulerMark> &marks)
{
    const VxStyle *style = vxApp->getStyle();
    const int width = style->metric(VxStyle::PM_VxRulerTickWidth);
    VxStyleOptionCustom option;
    option.initFrom(header);
    for (const DopeSheetRulerMark &mark : marks) {
        option.rect = QRect(mark.x, section.top(), width, section.height());
        option.value = mark.value;
        style->drawPrimitive(primitive(VxStyle::PE_VxRulerTick), &option, painter, header);
    }
}

void paintLabels(QPainter *painter, const QRect &section,
                 const std::vector<DopeSheetRulerLabel> &labels)
{
    const VxTextStyle text = vxApp->getStyle()->textStyle(VxStyle::TS_Ruler);
    painter->setPen(text.getColor());
    painter->setFont(text.getFont());
    for (const DopeSheetRulerLabel &label : labels)
        painter->drawText(label.middle - text.getWidth(label.text) / 2,
                          section.top() + text.getAscent(), label.text);
}

} // namespace

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

// What lies before the play range must not reach over the names; the number of its first frame
// may, as it is centred over the edge.
void VxDopeSheetHeaderView::paintRuler(QPainter *painter, const QRect &rect) const
{
    const VxStyle *style = vxApp->getStyle();
    const int flags =
        style->styleHint(static_cast<QStyle::StyleHint>(VxStyle::SH_VxRulerFlags), nullptr, this);
    const int spacing = style->metric(VxStyle::PM_VxRulerLabelSpacing);
    const DopeSheetRuler scale = ruler();
    painter->save();
    paintLabels(painter, rect, scale.labels(flags, spacing));
    painter->setClipRect(rect, Qt::IntersectClip);
    paintMarks(painter, this, rect, scale.marks(flags, spacing));
    paintKeys(painter, scale, rect);
    paintMarker(painter, scale, rect);
    painter->restore();
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
        vxApp->getStyle()->drawPrimitive(primitive(VxStyle::PE_VxKeyMark), &option, painter, this);
    }
}

// Without a play range there is no place for the marker; the style still hears of it.
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
