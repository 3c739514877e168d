// Painting: rows, the line of the current time, the rubber band.

#include "vxtimeline/dopesheet/vxdopesheetview_p.h"
#include "vxtimeline/time/timelinemetrics.h"

#include <QtCore/QScopedValueRollback>
#include <QtGui/QPaintEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QRubberBand>
#include <QtWidgets/QStyleOption>
#include <vxcore/vxapp.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxstyle.h>

namespace {

// Extent of the line of the current time to each side; pixels.
constexpr int TimeLineReach = 2;
// The band is painted over the keys.
constexpr double RubberBandOpacity = 0.5;

} // namespace

int VxDopeSheetView::Private::timeX(VxTime time) const
{
    return TimelineMetrics::shared().keyMiddle(view->columnWidth(NameColumn), time,
                                               vxScene->getPlayRange().getStart());
}

void VxDopeSheetView::Private::updateTimeLine(int x) const
{
    view->viewport()->update(x - TimeLineReach, 0, 2 * TimeLineReach + 1,
                             view->viewport()->height());
}

// Playback calls this many times a second: only the old and the new area of the line are painted.
void VxDopeSheetView::timeChanged(VxTime time)
{
    d->updateTimeLine(d->paintedTimeX);
    d->updateTimeLine(d->timeX(time));
}

bool VxDopeSheetView::isToBePainted(const QRect &rect) const
{
    return d->paintedRegion.isEmpty() || d->paintedRegion.intersects(rect);
}

// The name column and the line of the current time are visible where rows paint nothing.
void VxDopeSheetView::Private::paintBehindRows(QPainter *painter)
{
    const int nameWidth = view->columnWidth(NameColumn);
    QStyleOption option;
    option.initFrom(view);
    option.rect = QRect(QPoint(0, 0), QPoint(nameWidth - 2, view->viewport()->height() - 1));
    view->style()->drawPrimitive(
        static_cast<QStyle::PrimitiveElement>(VxStyle::PE_VxTimelineNameColumn), &option, painter,
        view);
    paintedTimeX = timeX(vxScene->getTime());
    painter->drawLine(paintedTimeX, 0, paintedTimeX, view->height());
}

void VxDopeSheetView::Private::paintRubberBand(QPainter *painter) const
{
    QStyleOptionRubberBand option;
    option.initFrom(view);
    option.shape = QRubberBand::Rectangle;
    option.opaque = false;
    // Without the margin, and without the last column and row.
    option.rect = KeyDragMath::bandRect(pressPoint, currentPoint).adjusted(1, 1, -2, -2);
    painter->setOpacity(RubberBandOpacity);
    view->style()->drawControl(QStyle::CE_RubberBand, &option, painter, view);
}

// Explains why the sheet is empty.
void VxDopeSheetView::Private::paintHint(QPainter *painter) const
{
    const auto *filter = qobject_cast<const QAbstractProxyModel *>(view->model());
    const bool hasRows = filter && filter->sourceModel() && filter->sourceModel()->rowCount() > 0;
    painter->setPen(view->palette().color(QPalette::Disabled, QPalette::Text));
    painter->drawText(view->viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap,
                      hasRows ? tr("No rows match the search text.")
                              : tr("The scene has no nodes with rows to show."));
}

// Names and branches take most of the time, and do not depend on the current time. In the other
// column there are just the row's panel, without selection, and the cell.
//
// The tree view's own function queries the selection several times for each row, which walks
// through all its ranges: thousands in a large open tree.
void VxDopeSheetView::drawRow(QPainter *painter, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const
{
    if (isRightToLeft()) {
        QTreeView::drawRow(painter, option, index);
        return;
    }
    const auto cellOf = [this, &option](int column) {
        return QRect(columnViewportPosition(column), option.rect.y(), columnWidth(column),
                     option.rect.height());
    };
    if (isToBePainted(cellOf(NameColumn)))
        d->paintName(painter, option, cellOf(NameColumn), index);
    QStyleOptionViewItem keys = option;
    keys.rect = cellOf(KeysColumn);
    style()->drawPrimitive(QStyle::PE_PanelItemViewRow, &keys, painter, this);
    itemDelegateForColumn(KeysColumn)->paint(painter, keys, index.sibling(index.row(), KeysColumn));
}

void VxDopeSheetView::Private::paintName(QPainter *painter, const QStyleOptionViewItem &row,
                                         const QRect &cell, const QModelIndex &index) const
{
    QStyleOptionViewItem name = row;
    name.viewItemPosition = QStyleOptionViewItem::Beginning;
    name.showDecorationSelected = true;
    name.palette.setCurrentColorGroup(!(row.state & QStyle::State_Enabled) ? QPalette::Disabled
                                      : row.state & QStyle::State_Active   ? QPalette::Active
                                                                           : QPalette::Inactive);
    if (view->isRowSelected(index))
        name.state |= QStyle::State_Selected;
    if (view->hasFocus() && view->currentIndex() == index)
        name.state |= QStyle::State_HasFocus;
    const QStyle *style = view->style();
    const int indent = view->visualRect(index).left() - cell.left();
    painter->save();
    painter->setClipRect(cell, Qt::IntersectClip);
    name.rect = QRect(cell.topLeft(), QSize(indent, cell.height()));
    if (style->styleHint(QStyle::SH_ItemView_ShowDecorationSelected, &name, view))
        style->drawPrimitive(QStyle::PE_PanelItemViewRow, &name, painter, view);
    paintArrow(painter, name, index);
    painter->restore();
    name.rect = cell.adjusted(indent, 0, 0, 0);
    QStyleOptionViewItem ground = name;
    ground.state &= ~QStyle::State_Selected;
    style->drawPrimitive(QStyle::PE_PanelItemViewRow, &ground, painter, view);
    view->itemDelegateForColumn(NameColumn)->paint(painter, name, index);
}

// Of the branches, the application's style draws the arrow alone. Given a widget, it would query
// the selection.
void VxDopeSheetView::Private::paintArrow(QPainter *painter, const QStyleOptionViewItem &row,
                                          const QModelIndex &index) const
{
    if (!view->model()->hasChildren(index))
        return;
    QStyleOptionViewItem arrow = row;
    arrow.rect.setLeft(row.rect.right() + 1 - view->indentation());
    arrow.state = QStyle::State_Item | QStyle::State_Children |
                  (row.state & (QStyle::State_Enabled | QStyle::State_Active));
    if (view->isExpanded(index))
        arrow.state |= QStyle::State_Open;
    if (row.state & QStyle::State_Selected)
        arrow.palette.setColor(QPalette::WindowText,
                               arrow.palette.color(QPalette::HighlightedText));
    view->style()->drawPrimitive(QStyle::PE_IndicatorBranch, &arrow, painter, nullptr);
}

void VxDopeSheetView::paintEvent(QPaintEvent *event)
{
    const QScopedValueRollback<QRegion> painting(d->paintedRegion, event->region());
    {
        QPainter painter(viewport());
        d->paintBehindRows(&painter);
    }
    QTreeView::paintEvent(event);
    if (model() && model()->rowCount() == 0) {
        QPainter painter(viewport());
        d->paintHint(&painter);
    }
    if (d->rubberBandActive && !d->keyDragActive) {
        QPainter painter(viewport());
        d->paintRubberBand(&painter);
    }
}
