#include "vxtimeline/dopesheet/vxtimelinedopesheetkeyscolumndelegate.h"

#include "vxtimeline/dopesheet/dopesheetgeometry.h"
#include "vxtimeline/dopesheet/scenetimes.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/rows/vxdopesheetitem.h"

#include <QtGui/QPainter>
#include <vxcore/vxapp.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxstyle.h>

namespace {

constexpr int SelectionAlpha = 64;

// The colours of the whole interface, whatever the view's palette.
QPalette interfacePalette(const QWidget *view)
{
    const QWidget *window = vxApp ? vxApp->getInterface() : nullptr;
    return window ? window->palette() : view->palette();
}

void fill(QPainter *painter, const VxDopeSheetView *view, const std::vector<QRect> &rects,
          const QColor &color)
{
    for (const QRect &rect : rects) {
        if (view->isToBePainted(rect))
            painter->fillRect(rect, color);
    }
}

QStyle::State markState(quint8 state)
{
    static constexpr QStyle::StateFlag looks[] = {QStyle::State_Raised, QStyle::State_Sunken,
                                                  QStyle::State_Editing, QStyle::State_Children};
    QStyle::State flags = looks[DopeSheetRowKeys::lookOf(state)];
    if (state & DopeSheetRowKeys::Selected)
        flags |= QStyle::State_Selected;
    return flags;
}

// Calls the host's style directly: a style sheet of the application would look up its rules for
// every single mark, and has none for them.
void paintMarks(QPainter *painter, const VxDopeSheetView *view, const DopeSheetGeometry &geometry,
                const std::vector<DopeSheetMark> &marks)
{
    const QStyle *style = vxApp && vxApp->getStyle() ? vxApp->getStyle() : view->style();
    VxStyleOptionCustom option;
    option.initFrom(view);
    const QStyle::State viewState = option.state;
    for (const DopeSheetMark &mark : marks) {
        option.rect = geometry.markRect(mark.left);
        if (!view->isToBePainted(option.rect))
            continue;
        option.state = viewState | markState(mark.state);
        style->drawPrimitive(static_cast<QStyle::PrimitiveElement>(VxStyle::PE_VxKeyMark), &option,
                             painter, view);
    }
}

bool hasKeyAt(const VxDopeSheetItem *item, VxTime time)
{
    const int index = item->firstKeyFrom(time);
    return index < item->keyCount() && item->keyTimes()[index] == time;
}

void paintRow(QPainter *painter, const QRect &cell, const VxDopeSheetView *view,
              const VxDopeSheetItem *item, const QColor &lineColor)
{
    const SceneTimes times = SceneTimes::current();
    const DopeSheetGeometry geometry(cell, TimelineMetrics::shared(), times.playRange.getStart());
    const DopeSheetRowKeys keys = DopeSheetRowKeys::of(item);
    const VxTime end =
        keys.count > 0 ? qMax(times.duration, keys.times[keys.count - 1]) : times.duration;

    painter->fillRect(geometry.baseline(end), lineColor);
    fill(painter, view, geometry.secondTicks(end), lineColor);
    fill(painter, view, geometry.frameTicks(times.duration, times.step), lineColor);
    paintMarks(painter, view, geometry, geometry.marks(keys));
    if (!hasKeyAt(item, times.time))
        painter->fillRect(geometry.timeTick(times.time), Qt::white);
}

} // namespace

VxTimelineDopeSheetKeysColumnDelegate::VxTimelineDopeSheetKeysColumnDelegate(QObject *parent)
    : QStyledItemDelegate(parent)
{
}

void VxTimelineDopeSheetKeysColumnDelegate::paint(QPainter *painter,
                                                  const QStyleOptionViewItem &option,
                                                  const QModelIndex &index) const
{
    const auto *view = qobject_cast<const VxDopeSheetView *>(parent());
    if (option.rect.width() < 1 || !view)
        return;
    const auto *item = index.data(Qt::UserRole).value<VxDopeSheetItem *>();
    if (!item)
        return;
    const QModelIndex row = index.sibling(index.row(), VxDopeSheetView::NameColumn);
    if (view->isExpanded(row) && index.model()->hasChildren(row))
        return;

    const bool selected = view->isRowSelected(row);
    const QPalette palette = interfacePalette(view);
    if (selected) {
        QColor color = palette.color(QPalette::Highlight);
        color.setAlpha(SelectionAlpha);
        painter->fillRect(option.rect, color);
    }
    paintRow(painter, option.rect, view, item,
             palette.color(selected ? QPalette::HighlightedText : QPalette::Dark));
}
