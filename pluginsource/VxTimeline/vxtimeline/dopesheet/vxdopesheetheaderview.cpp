#include "vxtimeline/dopesheet/vxdopesheetheaderview.h"

#include "vxtimeline/dopesheet/dopesheetruler.h"
#include "vxtimeline/dopesheet/scenetimes.h"
#include "vxtimeline/dopesheet/vxdopesheetheaderview_p.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/rows/vxdopesheetitem.h"
#include "vxtimeline/time/timelineplayback.h"

#include <QtGui/QMouseEvent>
#include <QtWidgets/QStyleOptionHeader>
#include <utility>
#include <vxcore/vxapp.h>
#include <vxcore/vxgestureguard.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxstyle.h>

namespace {

constexpr int KeysSection = VxDopeSheetView::KeysColumn;

} // namespace

VxDopeSheetHeaderView::VxDopeSheetHeaderView(QWidget *parent)
    : QHeaderView(Qt::Horizontal, parent)
    , d(std::make_unique<Private>())
{
    setMouseTracking(true);
    setStretchLastSection(true);
    setMinimumSectionSize(0);
    d->guard = new VxGestureGuard(viewport());
    connect(d->guard, &VxGestureGuard::cancelled, this, [this] { dropGesture(); });
    connect(this, &QHeaderView::sectionResized, this, &VxDopeSheetHeaderView::handleSectionResized);
    connect(this, &QHeaderView::sectionMoved, this, &VxDopeSheetHeaderView::handleSectionMoved);
}

// The private record is destroyed before the base class hides the widget.
VxDopeSheetHeaderView::~VxDopeSheetHeaderView()
{
    d->guard->end();
}

QSize VxDopeSheetHeaderView::sizeHint() const
{
    return QHeaderView::sizeHint().expandedTo(minimumSize());
}

void VxDopeSheetHeaderView::setKeySource(VxDopeSheetItem *item)
{
    if (item == d->keySource)
        return;
    if (d->keySource)
        disconnect(d->keySource, nullptr, this, nullptr);
    d->keySource = item;
    if (item) {
        connect(item, &VxDopeSheetItem::keysChanged, this, &VxDopeSheetHeaderView::updateViewport);
        connect(item, &QObject::destroyed, this, &VxDopeSheetHeaderView::updateViewport);
    }
    updateViewport();
}

VxDopeSheetItem *VxDopeSheetHeaderView::getKeySource() const
{
    return d->keySource;
}

void VxDopeSheetHeaderView::updateViewport()
{
    viewport()->update();
}

void VxDopeSheetHeaderView::handleSectionResized(int logicalIdx)
{
    Q_UNUSED(logicalIdx)
    updateViewport();
}

void VxDopeSheetHeaderView::handleSectionMoved(int logicalIdx, int oldVisualIndex,
                                               int newVisualIndex)
{
    Q_UNUSED(logicalIdx)
    Q_UNUSED(oldVisualIndex)
    Q_UNUSED(newVisualIndex)
    updateViewport();
}

void VxDopeSheetHeaderView::leaveEvent(QEvent *event)
{
    QHeaderView::leaveEvent(event);
    updateViewport();
}

DopeSheetRuler VxDopeSheetHeaderView::ruler() const
{
    const SceneTimes times = SceneTimes::current();
    return DopeSheetRuler(sectionViewportPosition(KeysSection), sectionSize(KeysSection),
                          TimelineMetrics::shared(), times.playRange, times.step);
}

// The grip has the width at which the base class resizes.
bool VxDopeSheetHeaderView::isOnGrip(int x) const
{
    const int grip = style()->pixelMetric(QStyle::PM_HeaderGripMargin, nullptr, this);
    return count() > KeysSection &&
           isOnSectionGrip(x + offset(), sectionPosition(KeysSection), sectionSize(KeysSection),
                           grip, offset(), length());
}

bool VxDopeSheetHeaderView::isInKeysSection(int x) const
{
    return count() > KeysSection && logicalIndexAt(x) == KeysSection;
}

bool VxDopeSheetHeaderView::isOnMarker(int x) const
{
    const int width = vxApp->getStyle()->metric(VxStyle::PM_VxCurrentTimeMarkerWidth);
    return isInKeysSection(x) && ruler().isOnMarker(x, vxScene->getTime(), width);
}

void VxDopeSheetHeaderView::showHoverCursor(int x)
{
    if (isInKeysSection(x) && !isOnGrip(x))
        setCursor(isOnMarker(x) ? Qt::OpenHandCursor : Qt::PointingHandCursor);
    else
        unsetCursor();
}

void VxDopeSheetHeaderView::setTimeAt(int x) const
{
    TimelinePlayback::setTime(ruler().timeAt(x));
}

void VxDopeSheetHeaderView::dropGesture()
{
    if (std::exchange(d->markerDragged, false))
        TimelinePlayback::setTime(d->timeAtPress);
    d->basePressed = false;
    unsetCursor();
    updateViewport();
}

// A press beside the marker moves it under the mouse, and a drag can follow.
void VxDopeSheetHeaderView::mousePressEvent(QMouseEvent *event)
{
    const int x = event->pos().x();
    if (event->button() == Qt::LeftButton) {
        d->timeAtPress = vxScene->getTime();
        d->guard->begin();
    }
    if (event->button() != Qt::LeftButton) {
        QHeaderView::mousePressEvent(event);
    } else if (isOnGrip(x)) {
        setCursor(Qt::SplitHCursor);
        d->basePressed = true;
        QHeaderView::mousePressEvent(event);
    } else if (isOnMarker(x)) {
        setCursor(Qt::ClosedHandCursor);
        d->markerDragged = true;
    } else if (isInKeysSection(x)) {
        setTimeAt(x);
        d->markerDragged = true;
    } else {
        d->basePressed = true;
        QHeaderView::mousePressEvent(event);
    }
    updateViewport();
}

// The second press of a double click in the ruler is an ordinary press.
void VxDopeSheetHeaderView::mouseDoubleClickEvent(QMouseEvent *event)
{
    const int x = event->pos().x();
    if (event->button() == Qt::LeftButton && isInKeysSection(x) && !isOnGrip(x))
        mousePressEvent(event);
    else
        QHeaderView::mouseDoubleClickEvent(event);
}

void VxDopeSheetHeaderView::mouseMoveEvent(QMouseEvent *event)
{
    const int x = event->pos().x();
    if (d->markerDragged) {
        setCursor(Qt::ClosedHandCursor);
        setTimeAt(x);
    } else if (d->basePressed) {
        QHeaderView::mouseMoveEvent(event);
    } else {
        showHoverCursor(x);
        if (!isInKeysSection(x) || isOnGrip(x))
            QHeaderView::mouseMoveEvent(event);
    }
    updateViewport();
}

void VxDopeSheetHeaderView::mouseReleaseEvent(QMouseEvent *event)
{
    const int x = event->pos().x();
    if (event->button() != Qt::LeftButton) {
        QHeaderView::mouseReleaseEvent(event);
        return;
    }
    d->guard->end();
    d->markerDragged = false;
    if (std::exchange(d->basePressed, false))
        QHeaderView::mouseReleaseEvent(event);
    if (isOnGrip(x))
        setCursor(Qt::SplitHCursor);
    else
        showHoverCursor(x);
    updateViewport();
}
