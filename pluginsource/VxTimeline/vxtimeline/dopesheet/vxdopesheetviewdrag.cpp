// Dragging the selected keys in time.

#include <vxcore/vxscene.h>

#include "vxtimeline/dopesheet/dopesheetclock.h"
#include "vxtimeline/dopesheet/vxdopesheetview_p.h"

KeyDragMath::Scale VxDopeSheetView::Private::dragScale() const
{
    const DopeSheetClock times = DopeSheetClock::ofScene();
    KeyDragMath::Scale scale;
    scale.metrics = TimelineMetrics::shared();
    scale.keysLeft = view->columnViewportPosition(KeysColumn);
    scale.playStart = times.playRange.getStart();
    scale.step = times.step;
    return scale;
}

// Takes note of where the keys stand, before anything moves.
void VxDopeSheetView::Private::prepareDrag()
{
    drag = std::make_unique<KeyDrag>();
    dragShown = false;
    for (const SelectedKeys &keys : collectSelected())
        drag->add(keys);
    pace.begin(clock.elapsed());
}

// The keys that are being dragged count, whatever becomes of their rows and of the selection.
VxTime VxDopeSheetView::Private::dragOffset() const
{
    const bool snaps = !pressModifiers.testFlag(Qt::ControlModifier);
    const qint64 offset =
        KeyDragMath::rawOffset(dragScale(), pressPoint.x(), currentPoint.x(), hitTime, snaps);
    return KeyDragMath::limitedOffset(
        offset, {drag->earliest(), drag->latest(), DopeSheetClock::ofScene().duration});
}

// Shows the keys where they would land now, if it is time for that.
void VxDopeSheetView::Private::showDrag()
{
    if (!dragHold)
        dragHold = std::make_unique<VxUndoStackHold>();
    if (!pace.isDue(clock.elapsed()))
        return;
    dragShown = true;
    drag->moveTo(dragOffset(), VxCollision::WaitBeside);
    drag->visitRows([this](const VxDopeSheetItem *item) { sendSelection(item); });
}

void VxDopeSheetView::Private::dropKeys()
{
    const VxTime offset = dragOffset();
    if (offset == 0) {
        putKeysBack();
        return;
    }
    if (!dragHold)
        dragHold = std::make_unique<VxUndoStackHold>();
    drag->moveTo(offset, VxCollision::Replace);
    drag->visitRows([this](const VxDopeSheetItem *item) { sendSelection(item); });
    dragHold->accept(tr("Move Keys"));
    dragHold.reset();
    drag.reset();
}

// A drag that leaves no trace. If a key could not be put back, because its property was locked or
// others took it away meanwhile, there is a change, which is kept so that it can be undone.
void VxDopeSheetView::Private::putKeysBack()
{
    const bool complete = !dragShown || !drag || drag->moveTo(0, VxCollision::WaitBeside);
    if (dragHold && complete)
        dragHold->cancel();
    else if (dragHold)
        dragHold->accept(tr("Move Keys"));
    dragHold.reset();
    drag.reset();
    dragShown = false;
}
