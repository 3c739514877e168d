// Dragging the selected keys in time.

#include "vxtimeline/dopesheet/scenetimes.h"
#include "vxtimeline/dopesheet/vxdopesheetview_p.h"

#include <vxcore/vxscene.h>

KeyDragMath::Scale VxDopeSheetView::Private::dragScale() const
{
    const SceneTimes times = SceneTimes::current();
    KeyDragMath::Scale scale;
    scale.metrics = TimelineMetrics::shared();
    scale.keysLeft = view->columnViewportPosition(KeysColumn);
    scale.playStart = times.playRange.getStart();
    scale.step = times.step;
    return scale;
}

// Saves the times of the selected keys, before anything moves.
void VxDopeSheetView::Private::prepareDrag()
{
    drag = std::make_unique<KeyDrag>();
    dragShown = false;
    for (const SelectedKeys &selected : keys.collect())
        drag->add(selected);
    throttle.begin(clock.elapsed());
}

// Limited by the dragged keys, even if their rows or the selection change meanwhile.
VxTime VxDopeSheetView::Private::dragOffset() const
{
    const bool snaps = !pressModifiers.testFlag(Qt::ControlModifier);
    const qint64 offset =
        KeyDragMath::rawOffset(dragScale(), pressPoint.x(), currentPoint.x(), hitTime, snaps);
    return KeyDragMath::limitedOffset(
        offset, {drag->earliest(), drag->latest(), SceneTimes::current().duration});
}

// Moves the keys to their preview positions, at a limited rate.
void VxDopeSheetView::Private::showDrag()
{
    if (!dragHold)
        dragHold = std::make_unique<VxUndoStackHold>();
    if (!throttle.isDue(clock.elapsed()))
        return;
    dragShown = true;
    drag->moveTo(dragOffset(), VxCollision::WaitBeside);
    drag->visitRows([this](const VxDopeSheetItem *item) { keys.sendSelection(item); });
}

void VxDopeSheetView::Private::dropKeys()
{
    const VxTime offset = dragOffset();
    if (offset == 0) {
        putKeysBack();
        keys.sendSelected();
        return;
    }
    if (!dragHold)
        dragHold = std::make_unique<VxUndoStackHold>();
    drag->moveTo(offset, VxCollision::Replace);
    drag->visitRows([this](const VxDopeSheetItem *item) { keys.sendSelection(item); });
    dragHold->accept(tr("Move Keys"));
    dragHold.reset();
    drag.reset();
}

// Without an undo entry, unless a key could not be restored, because its property was locked or the
// key was removed meanwhile: then the change can be undone.
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
