// Mouse gestures in the dope sheet: KeyDragMath decides the effect of a press, a move or a release.

#include "vxtimeline/dopesheet/dopesheetcontextmenu.h"
#include "vxtimeline/dopesheet/dopesheetgeometry.h"
#include "vxtimeline/dopesheet/vxdopesheetview_p.h"
#include "vxtimeline/rows/vxdopesheetitem.h"
#include "vxtimeline/time/timelineplayback.h"

#include <QtGui/QMouseEvent>
#include <vxcore/vxgestureguard.h>
#include <vxcore/vxmenu.h>
#include <vxcore/vxscene.h>

using KeyDragMath::Change;
using KeyDragMath::Hit;
using KeyDragMath::Release;

namespace {

// Rows are looked up at their left edge, so that their whole width counts.
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
    const DopeSheetRowKeys rowKeys = DopeSheetRowKeys::of(item);
    const DopeSheetHit found =
        DopeSheetGeometry(cell, scale.metrics, scale.playStart).hit(rowKeys, position.x());
    if (found.first < 0)
        return hit;
    hit.kind = found.firstSelected < 0 ? Hit::Key : Hit::SelectedKey;
    hit.time = rowKeys.times[found.first];
    return hit;
}

void VxDopeSheetView::Private::deselectAll()
{
    keys.deselectAll();
    Q_EMIT view->keySelectionChanged();
}

void VxDopeSheetView::Private::selectKeys(const QModelIndex &first, const QModelIndex &last,
                                          bool select, VxTime start, VxTime end)
{
    keys.select(first, last, select, start, end);
    keys.invalidateCommonTcb();
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

// The key graph's selection is cleared whenever the selection is not extended, and then set to the
// selected keys.
void VxDopeSheetView::Private::selectPressed(const RowHit &hit,
                                             const KeyDragMath::PressEffect &effect)
{
    if (effect.clearsAll)
        deselectAll();
    const bool adds = pressModifiers & (Qt::ControlModifier | Qt::AltModifier);
    if (!adds)
        keys.sendClear();
    selectKeys(hit.row, hit.row, effect.change == Change::Select, hit.time, hit.time);
    if (!adds && !effect.clearsAll)
        keys.sendSelected();
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
            keys.sendClear();
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
    keys.sendSelected();
    view->viewport()->unsetCursor();
    view->viewport()->update();
}

// A band that begins below the last row selects nothing, one that ends there everything up to it.
void VxDopeSheetView::Private::selectBand(const KeyDragMath::ReleaseEffect &effect)
{
    const KeyDragMath::BandSpan span =
        KeyDragMath::bandSpan(dragScale(), pressPoint, currentPoint, view->viewport()->height());
    selectKeys(view->indexAt(QPoint(RowProbe, span.top)),
               view->indexAt(QPoint(RowProbe, span.bottom)), effect.selects, span.start, span.end);
}

// A click beside the keys deselects all.
void VxDopeSheetView::Private::selectClicked(const KeyDragMath::ReleaseEffect &effect)
{
    const QModelIndex row = view->indexAt(QPoint(RowProbe, pressPoint.y()));
    selectKeys(pressRow, pressRow, effect.selects, hitTime, hitTime);
    rows.selectNodeOf(row, effect.addsNode);
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

// A press during a gesture shows that its release was lost.
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
        // A click on a selected row changes no row, but its node may have been deselected.
        d->rows.selectNodes(d->pressModifiers);
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

void VxDopeSheetView::keyPressEvent(QKeyEvent *event)
{
    d->endManyChangesNow();
    const Qt::KeyboardModifiers modifiers = event->modifiers() & ~Qt::KeypadModifier;
    if (modifiers == Qt::AltModifier &&
        (event->key() == Qt::Key_Right || event->key() == Qt::Key_Left)) {
        setOpen(currentIndex(), event->key() == Qt::Key_Right);
        event->accept();
        return;
    }
    QTreeView::keyPressEvent(event);
}
