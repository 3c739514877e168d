// Mouse gestures in the key graph view.

#include "vxtimeline/keygraph/keygraphdrag.h"
#include "vxtimeline/keygraph/vxkeygraph.h"
#include "vxtimeline/keygraph/vxkeygraphchannel.h"
#include "vxtimeline/keygraph/vxkeygraphview_p.h"
#include "vxtimeline/keys/timelinemenus.h"
#include "vxtimeline/keys/vxkeycommunication.h"
#include "vxtimeline/time/timelineplayback.h"
#include "vxtimeline/time/timelinesnap.h"

#include <QtGui/QMouseEvent>
#include <algorithm>
#include <cmath>
#include <vxcore/vxapp.h>
#include <vxcore/vxchangeblock.h>
#include <vxcore/vxgestureguard.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxmenu.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxviewportmgr.h>

namespace {

constexpr double TimeLineGrip = 3.0; // pixels

int viewOperationOf(const QMouseEvent *event)
{
    const VxMainWindow *window = vxApp->getInterface();
    if (!window)
        return VxViewportMgr::NoOperation;
    const VxViewportMgr *manager = window->getViewportMgr();
    return manager->getOperation(
        manager->getMouseBtnAccelerator(event->button(), event->modifiers()));
}

void addKeyActions(VxMenu *menu)
{
    using TimelineMenus::add;
    using TimelineMenus::Line;
    add(menu, {"VxTimePaneFrameGraphKeysAction", Line, "VxTimePaneCreateKeysAction", Line});
    add(menu->addSubMenu(VxKeyGraphView::tr("Key Creation Scope")), TimelineMenus::keyScopes);
    add(menu, {Line, "VxTimePaneDeleteSelectedKeysAction", Line, "VxTimePaneCopySelectedKeysAction",
               "VxTimePanePasteKeysAction", Line});
    add(menu->addSubMenu(VxKeyGraphView::tr("Set Key Interpolation")),
        TimelineMenus::interpolations);
}

} // namespace

VxKeyGraphView::Private::Hit VxKeyGraphView::Private::keyAt(const QPoint &position) const
{
    for (VxKeyGraphChannel *channel : channels()) {
        const KeyGraphKeys keys = channel->getKeys();
        const int index = keyGraphKeyAt(keys, scale, position);
        if (index >= 0)
            return {channel, index, keys.times[index], keys.value(index)};
    }
    return {};
}

void VxKeyGraphView::Private::send(const VxKeyMessage &message)
{
    if (keyGraph && keyGraph->getKeyCommunication())
        keyGraph->getKeyCommunication()->send(message);
}

void VxKeyGraphView::Private::beginGesture(QMouseEvent *event)
{
    pressed = true;
    guard->begin();
    timeAtPress = vxScene->getTime();
    pressPos = currentPos = previousPos = event->pos();
    q->grabMouse();
    hit = keyAt(pressPos);
    if (viewOperation != VxViewportMgr::NoOperation) {
        mouseState = ViewOperation;
        savedOffsetY = scale.offsetY;
    } else if (hit.channel) {
        mouseState = DragKeys;
        pressOnKey(event->modifiers());
    } else if (highlighted) {
        mouseState = DragTime;
    } else {
        mouseState = RubberBand;
        pressOnSpace(event->modifiers());
    }
    repaint();
}

void VxKeyGraphView::Private::pressOnSpace(Qt::KeyboardModifiers modifiers)
{
    q->unsetCursor();
    VxKeyMessage message;
    message.clearSelection = !(modifiers & (Qt::ControlModifier | Qt::AltModifier));
    for (VxKeyGraphChannel *channel : channels()) {
        if (message.clearSelection)
            channel->deselectAllKeys();
        channel->refreshDragStart();
    }
    send(message);
}

void VxKeyGraphView::Private::pressOnKey(Qt::KeyboardModifiers modifiers)
{
    q->setCursor(Qt::PointingHandCursor);
    const bool deselects = modifiers & Qt::AltModifier;
    const bool wasSelected = hit.channel->isKeySelected(hit.index);
    VxKeyMessage message;
    if (deselects) {
        hit.channel->selectKey(hit.index, false);
        message.deselectedKeys[hit.channel->getProperty()].append(hit.index);
    } else if (!wasSelected) {
        message.clearSelection = !(modifiers & Qt::ControlModifier);
        for (VxKeyGraphChannel *channel : channels()) {
            if (message.clearSelection)
                channel->deselectAllKeys();
        }
        hit.channel->selectKey(hit.index, true);
        message.selectedKeys[hit.channel->getProperty()].append(hit.index);
    }
    for (VxKeyGraphChannel *channel : channels())
        channel->refreshDragStart();
    send(message);
}

// The selection moves with the keys, and so does its copy in the dope sheet. Rolling back selects
// keys in all rows of a holder; the flags of its channels are restored from the press: of the
// selected keys alone, because others may have moved to their times with another channel.
void VxKeyGraphView::Private::putKeysBack()
{
    if (!hold)
        return;
    const QVector<VxKeyGraphChannel *> list = channels();
    std::vector<QVector<VxKeyGraphKey>> before;
    for (const VxKeyGraphChannel *channel : list) {
        before.emplace_back();
        for (VxKeyGraphKey key : channel->getKeyCache()) {
            key.time = key.dragStartTime;
            if (key.selected)
                before.back().append(key);
        }
    }
    hold->rollBack();
    if (channels() != list)
        return;
    VxKeyMessage message;
    for (int i = 0; i < list.size(); ++i) {
        std::sort(before[size_t(i)].begin(), before[size_t(i)].end(),
                  [](const auto &a, const auto &b) { return a.time < b.time; });
        VxKeyGraphChannel *channel = list.at(i);
        channel->restoreKeyCache(before[size_t(i)]);
        for (int k = 0; k < channel->getNumKeys(); ++k) {
            auto &keys = channel->isKeySelected(k) ? message.selectedKeys : message.deselectedKeys;
            keys[channel->getProperty()].append(k);
        }
    }
    send(message);
}

void VxKeyGraphView::Private::dropGesture()
{
    switch (mouseState) {
    case DragKeys:
        putKeysBack();
        break;
    case RubberBand:
        currentPos = pressPos;
        dragRubberBand(Qt::NoModifier);
        break;
    case DragTime:
        vxScene->setTime(timeAtPress);
        break;
    case ViewOperation:
        scale.offsetY = savedOffsetY;
        break;
    case Idle:
        break;
    }
    hold.reset();
    endGesture();
}

void VxKeyGraphView::Private::endGesture()
{
    guard->end();
    if (hold && mouseState == DragKeys)
        hold->accept(VxKeyGraphView::tr("Move Keys"));
    hold.reset();
    if (pressed)
        q->releaseMouse();
    pressed = false;
    mouseState = Idle;
    highlighted = false;
    q->unsetCursor();
    repaint();
}

void VxKeyGraphView::Private::hover()
{
    if (keyAt(currentPos).channel) {
        q->setCursor(Qt::PointingHandCursor);
        return;
    }
    timeLineGrab = scale.x(vxScene->getTime()) - currentPos.x();
    if (std::abs(timeLineGrab) < TimeLineGrip) {
        highlighted = true;
        q->setCursor(Qt::SplitHCursor);
    }
}

// All channels' changes are reported together; then each publishes its selection, because the
// other side identifies keys by their former times. A drag restricted to the value axis leaves
// keys off the frames at their times.
void VxKeyGraphView::Private::dragKeys(Qt::KeyboardModifiers modifiers)
{
    q->setCursor(Qt::PointingHandCursor);
    QPointF delta(currentPos - pressPos);
    if (modifiers & Qt::ShiftModifier)
        delta = KeyGraphDrag::oneAxis(delta);
    const VxTime deltaTime = TimelineSnap::saturatedInt(delta.x() * scale.ticksPerPixel);
    const double deltaValue = delta.y() * scale.valuePerPixel;
    const bool fromLast = currentPos.x() >= previousPos.x();
    const bool keepsTimes = (modifiers & Qt::ShiftModifier) && delta.x() == 0.0;
    const bool snaps = !(modifiers & Qt::ControlModifier) && !keepsTimes;
    const VxTime timeStep = snaps ? vxScene->getTimeStep() : 0;
    if (!hold)
        hold = std::make_unique<VxUndoStackHold>();

    const QVector<VxKeyGraphChannel *> list = channels();
    QVector<VxKeyGraphChannel *> moved;
    {
        const VxChangeBlock block;
        moved = KeyGraphDrag::moveSelected(list, {deltaTime, deltaValue, timeStep, fromLast});
    }
    if (channels() != list)
        return;
    for (const VxKeyGraphChannel *channel : qAsConst(moved))
        channel->publishSelection();
}

void VxKeyGraphView::Private::dragRubberBand(Qt::KeyboardModifiers modifiers)
{
    const KeyGraphBox box = KeyGraphBox::between(scale, pressPos, currentPos);
    for (VxKeyGraphChannel *channel : channels())
        channel->selectInBox(box, !(modifiers & Qt::AltModifier));
    repaint();
}

void VxKeyGraphView::Private::dragTime()
{
    const VxTime time = scale.time(currentPos.x() + timeLineGrab);
    vxScene->setTime(
        TimelineSnap::toFrame(vxScene->getPlayRange().clamp(time), vxScene->getTimeStep()));
}

void VxKeyGraphView::Private::showContextMenu(const QPoint &globalPosition)
{
    const QPointer<VxMenu> menu = new VxMenu(q);
    if (!channels().isEmpty())
        addKeyActions(menu);
    if (menu->isEmpty())
        menu->addItem(VxKeyGraphView::tr("No Selection"));
    menu->exec(globalPosition);
    delete menu.data();
}

void VxKeyGraphView::mousePressEvent(QMouseEvent *event)
{
    if (d->pressed)
        return;
    d->viewOperation = viewOperationOf(event);
    if (d->viewOperation == VxViewportMgr::NoOperation && event->button() != Qt::LeftButton)
        return;
    d->beginGesture(event);
}

void VxKeyGraphView::mouseMoveEvent(QMouseEvent *event)
{
    d->previousPos = d->currentPos;
    d->currentPos = event->pos();
    const bool wasHighlighted = d->highlighted;
    if (d->mouseState != Private::DragTime) {
        d->highlighted = false;
        unsetCursor();
    }
    switch (d->mouseState) {
    case Private::Idle:
        d->hover();
        break;
    case Private::DragKeys:
        d->dragKeys(event->modifiers());
        break;
    case Private::RubberBand:
        d->dragRubberBand(event->modifiers());
        break;
    case Private::DragTime:
        d->dragTime();
        break;
    case Private::ViewOperation:
        if (d->viewOperation == VxViewportMgr::Pan) {
            d->scale.offsetY = d->savedOffsetY + (d->currentPos.y() - d->pressPos.y());
            d->repaint();
        }
        break;
    }
    if (d->mouseState != Private::Idle || d->highlighted != wasHighlighted)
        update();
}

void VxKeyGraphView::mouseReleaseEvent(QMouseEvent *event)
{
    const bool viewOperation = d->mouseState == Private::ViewOperation;
    if (event->button() == Qt::RightButton && !viewOperation) {
        // The menu's own mouse events would hide the end of a drag.
        if (d->pressed)
            d->endGesture();
        event->accept();
        d->showContextMenu(event->globalPos());
        return;
    }
    if (event->button() != Qt::LeftButton && !viewOperation)
        return;
    d->endGesture();
}

void VxKeyGraphView::mouseDoubleClickEvent(QMouseEvent *event)
{
    event->accept();
    d->hit = d->keyAt(event->pos());
    if (d->hit.channel) {
        TimelinePlayback::setTime(d->scale.time(event->pos().x()));
        return;
    }
    event->ignore();
    QWidget::mouseDoubleClickEvent(event);
}

void VxKeyGraphView::leaveEvent(QEvent *event)
{
    if (!d->pressed && d->highlighted) {
        d->highlighted = false;
        unsetCursor();
        update();
    }
    QWidget::leaveEvent(event);
}
