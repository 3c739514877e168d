// The mouse over the dope sheet. What it means stands in KeyDragMath; here that is carried out.

#include <QtGui/QMouseEvent>
#include <vxcore/vxgestureguard.h>
#include <vxcore/vxmenu.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>

#include "vxtimeline/dopesheet/dopesheetclock.h"
#include "vxtimeline/dopesheet/dopesheetcontextmenu.h"
#include "vxtimeline/dopesheet/dopesheetgeometry.h"
#include "vxtimeline/dopesheet/vxdopesheetview_p.h"
#include "vxtimeline/keys/vxkeycommunication.h"
#include "vxtimeline/time/timelineplayback.h"

using KeyDragMath::Change;
using KeyDragMath::Hit;
using KeyDragMath::Release;

namespace {

// Rows are found at their left edge, so that all of their width counts.
constexpr int RowProbe = 1;

} // namespace

// Open rows with others below them show no keys.
VxDopeSheetView::Private::RowHit VxDopeSheetView::Private::hitAt(const QPoint &position) const
{
    RowHit hit;
    hit.row = view->indexAt(QPoint(RowProbe, position.y()));
    const VxDopeSheetItem *item = view->getItem(hit.row);
    if (!item || (view->isExpanded(hit.row) && hit.row.model()->hasChildren(hit.row)))
        return hit;
    const KeyDragMath::Scale scale = dragScale();
    const QRect cell(scale.keysLeft, 0, view->columnWidth(KeysColumn), 1);
    const DopeSheetRowKeys keys = DopeSheetRowKeys::of(item);
    const DopeSheetHit found =
        DopeSheetGeometry(cell, scale.metrics, scale.playStart).hit(keys, position.x());
    if (found.first < 0)
        return hit;
    hit.kind = found.firstSelected < 0 ? Hit::Key : Hit::SelectedKey;
    hit.time = keys.times[found.first];
    return hit;
}

void VxDopeSheetView::Private::deselectAll()
{
    deselectItems();
    Q_EMIT view->keySelectionChanged();
}

void VxDopeSheetView::Private::sendClear() const
{
    if (!bus || !bus->isHeard())
        return;
    VxKeyMessage clear;
    clear.clearSelection = true;
    bus->send(clear);
}

void VxDopeSheetView::Private::sendSelected() const
{
    if (bus && bus->isHeard())
        visitSelected([this](const VxDopeSheetItem *item) { sendSelection(item); });
}

void VxDopeSheetView::Private::selectRows(const QModelIndex &start, const QModelIndex &end,
                                          bool select)
{
    walk(start, end, [this, select](VxDopeSheetItem *item) { selectKeys(item, select); });
    updateCommonTcb();
    Q_EMIT view->keySelectionChanged();
}

void VxDopeSheetView::Private::beginGesture(const QPoint &position)
{
    rubberBandActive = true;
    guard->begin();
    pressPoint = position;
    currentPoint = position;
    bandRect = QRect();
    view->viewport()->update();
    const RowHit hit = hitAt(position);
    const KeyDragMath::PressEffect effect = KeyDragMath::pressEffect(hit.kind, pressModifiers);
    pressRow = hit.kind == Hit::Nothing ? QModelIndex() : hit.row;
    hitTime = hit.time;
    keyDragActive = effect.canDrag;
    if (effect.change != Change::None)
        selectPressed(hit, effect);
    if (keyDragActive)
        prepareDrag();
}

// The key graph is told to begin anew whenever the selection is not added to, and gets what is
// selected after that.
void VxDopeSheetView::Private::selectPressed(const RowHit &hit,
                                             const KeyDragMath::PressEffect &effect)
{
    if (effect.clearsAll)
        deselectAll();
    const bool adds = pressModifiers & (Qt::ControlModifier | Qt::AltModifier);
    if (!adds)
        sendClear();
    spanStart = hit.time;
    spanEnd = hit.time;
    selectRows(hit.row, hit.row, effect.change == Change::Select);
    if (!adds && !effect.clearsAll)
        sendSelected();
}

void VxDopeSheetView::Private::growBand()
{
    const QRect rect = KeyDragMath::bandRect(pressPoint, currentPoint);
    view->viewport()->update(rect.united(bandRect));
    bandRect = rect;
    view->viewport()->unsetCursor();
}

void VxDopeSheetView::Private::continueGesture(const QPoint &position)
{
    currentPoint = position;
    if (!keyDragActive) {
        growBand();
        return;
    }
    view->viewport()->setCursor(Qt::PointingHandCursor);
    showDrag();
    view->viewport()->update();
}

void VxDopeSheetView::Private::finishGesture(const QPoint &position)
{
    const KeyDragMath::ReleaseEffect effect = KeyDragMath::releaseEffect(
        keyDragActive, KeyDragMath::isDrag(pressPoint, position), pressModifiers);
    guard->end();
    rubberBandActive = false;
    keyDragActive = false;
    currentPoint = position;
    if (effect.kind == Release::Drop) {
        dropKeys();
    } else {
        putKeysBack();
        if (effect.clearsAll) {
            deselectAll();
            sendClear();
        }
        if (effect.kind == Release::Band)
            selectBand(effect);
        else
            selectClicked(effect);
    }
    view->viewport()->update();
}

void VxDopeSheetView::Private::abandonGesture()
{
    guard->end();
    rubberBandActive = false;
    keyDragActive = false;
    putKeysBack();
    sendSelected();
    view->viewport()->unsetCursor();
    view->viewport()->update();
}

// A band that begins below the last row takes in nothing, one that ends there everything up to it.
void VxDopeSheetView::Private::selectBand(const KeyDragMath::ReleaseEffect &effect)
{
    const KeyDragMath::BandSpan span =
        KeyDragMath::bandSpan(dragScale(), pressPoint, currentPoint, view->viewport()->height());
    spanStart = span.start;
    spanEnd = span.end;
    selectRows(view->indexAt(QPoint(RowProbe, span.top)),
               view->indexAt(QPoint(RowProbe, span.bottom)), effect.selects);
}

// A click beside the keys selects none.
void VxDopeSheetView::Private::selectClicked(const KeyDragMath::ReleaseEffect &effect)
{
    const QModelIndex row = view->indexAt(QPoint(RowProbe, pressPoint.y()));
    spanStart = hitTime;
    spanEnd = hitTime;
    selectRows(pressRow, pressRow, effect.selects);
    selectNodeOf(row, effect.addsNode);
}

void VxDopeSheetView::Private::selectNodeOf(const QModelIndex &row, bool adds) const
{
    const VxDopeSheetItem *item = view->getItem(row);
    while (item && !item->node())
        item = item->parentItem();
    if (!item)
        return;
    if (!adds)
        vxScene->selectAllNodes(false);
    item->node()->select(true);
}

void VxDopeSheetView::Private::hover(const QPoint &position)
{
    const int column = view->columnAt(position.x());
    const bool over = column == KeysColumn
                          ? hitAt(position).kind != Hit::Nothing
                          : view->indexAt(QPoint(RowProbe, position.y())).isValid();
    if (over)
        view->viewport()->setCursor(Qt::PointingHandCursor);
    else
        view->viewport()->unsetCursor();
}

void VxDopeSheetView::Private::openContextMenu(const QPoint &position)
{
    contextIndex = view->indexAt(QPoint(RowProbe, position.y()));
    DopeSheetMenuState state;
    state.hasRows = view->model() && view->model()->rowCount() > 0;
    state.hasRowSelection = view->hasItemSelection();
    state.hasContextItem = view->hasContextItem();
    state.hasSelectedKeys = view->hasSelectedKeys();
    VxMenu menu;
    fillDopeSheetMenu(&menu, state);
    menu.exec(view->viewport()->mapToGlobal(position));
}

// A press while a gesture is still going on means that its release went elsewhere.
void VxDopeSheetView::mousePressEvent(QMouseEvent *event)
{
    event->accept();
    if (event->button() != Qt::LeftButton)
        return;
    if (d->rubberBandActive)
        d->abandonGesture();
    d->pressModifiers = event->modifiers();
    if (columnAt(event->x()) == KeysColumn) {
        d->beginGesture(event->pos());
        return;
    }
    event->ignore();
    QTreeView::mousePressEvent(event);
}

void VxDopeSheetView::mouseMoveEvent(QMouseEvent *event)
{
    event->accept();
    if (d->rubberBandActive) {
        d->continueGesture(event->pos());
        return;
    }
    const int column = columnAt(event->x());
    if (column == NameColumn || column == KeysColumn) {
        d->hover(event->pos());
        return;
    }
    viewport()->unsetCursor();
    event->ignore();
    QTreeView::mouseMoveEvent(event);
}

void VxDopeSheetView::mouseReleaseEvent(QMouseEvent *event)
{
    event->accept();
    if (event->button() == Qt::RightButton && !d->rubberBandActive)
        d->openContextMenu(event->pos());
    if (event->button() != Qt::LeftButton)
        return;
    if (d->rubberBandActive) {
        d->finishGesture(event->pos());
    } else {
        event->ignore();
        QTreeView::mouseReleaseEvent(event);
    }
    d->pressModifiers = Qt::NoModifier;
}

void VxDopeSheetView::mouseDoubleClickEvent(QMouseEvent *event)
{
    event->accept();
    if (event->button() != Qt::LeftButton)
        return;
    d->pressModifiers = event->modifiers();
    if (columnAt(event->x()) == KeysColumn) {
        const KeyDragMath::Scale scale = d->dragScale();
        const bool exact = event->modifiers() & Qt::ControlModifier;
        TimelinePlayback::setTime(exact ? scale.timeAt(event->x()) : scale.frameTimeAt(event->x()));
        return;
    }
    event->ignore();
    QTreeView::mouseDoubleClickEvent(event);
}
