#include "vxtimeline/widgets/vxtimerangeslider.h"

#include "vxtimeline/time/timelineplayback.h"
#include "vxtimeline/time/timelinesnap.h"

#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QScrollBar>
#include <vxcore/vxgestureguard.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxstyle.h>
#include <vxcore/vxstyleoption.h>

using TimeRangeMath::Part;

namespace {

// The end of an empty saved range.
constexpr VxTime NothingSaved = -1;

// The play range that the next double click restores; one per process.
VxTimeRange savedRange(NothingSaved, NothingSaved);

Part partAt(const QSize &bar, const QPoint &position)
{
    const QRect range = TimeRangeMath::rangeRect(bar, vxScene->getPlayRange(),
                                                 vxScene->getAnimRange().getDuration());
    return TimeRangeMath::partAt(range, position);
}

} // namespace

class VxTimeRangeSlider::Private
{
public:
    QScrollBar *scrollBar = nullptr;
    VxGestureGuard *guard = nullptr;
    bool pressed = false;
    Part hovered = Part::None; // under the mouse
    Part dragged = Part::None; // grabbed by the press
    QPoint pressPos;
    VxTime startAtPress = 0;
    VxTime endAtPress = 0;
};

VxTimeRangeSlider::VxTimeRangeSlider(QWidget *parent)
    : QAbstractSlider(parent)
    , d(std::make_unique<Private>())
{
    setMouseTracking(true);
    // An opaque background, so that mouse moves do not repaint the widgets behind. The style
    // clears the attribute for opaque painting from sliders.
    setBackgroundRole(QPalette::Dark);
    setForegroundRole(QPalette::ButtonText);
    setAutoFillBackground(true);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    d->scrollBar = new QScrollBar(Qt::Horizontal, this);
    d->scrollBar->hide();
    layout->addWidget(d->scrollBar);

    d->guard = new VxGestureGuard(this);
    connect(d->guard, &VxGestureGuard::cancelled, this, [this] { dropDrag(); });

    // The pane repaints the slider when its time scale changes, but not while the keys column is
    // too narrow.
    const auto repaint = [this] { update(); };
    connect(vxScene, &VxScene::playRangeChanged, this, repaint);
    connect(vxScene, &VxScene::animRangeChanged, this, repaint);
    connect(vxScene, &VxScene::timeStepChanged, this, repaint);
}

// The private record is destroyed before the base class hides the widget.
VxTimeRangeSlider::~VxTimeRangeSlider()
{
    d->guard->end();
}

QScrollBar *VxTimeRangeSlider::getScrollBar() const
{
    return d->scrollBar;
}

void VxTimeRangeSlider::updateCursor(Part part, const QPoint &position)
{
    if (part == Part::StartHandle || part == Part::EndHandle)
        setCursor(Qt::SplitHCursor);
    else if (rect().contains(position))
        setCursor(Qt::PointingHandCursor);
    else
        unsetCursor();
}

void VxTimeRangeSlider::hover(const QPoint &position)
{
    d->hovered = partAt(size(), position);
    updateCursor(d->hovered, position);
    update();
}

// Computed from the range at the press, so that a drag back and forth loses nothing.
void VxTimeRangeSlider::drag(int x, bool isFinal)
{
    const VxTime duration = vxScene->getAnimRange().getDuration();
    const VxTime step = vxScene->getTimeStep();
    VxTime distance = TimeRangeMath::dragDistance(duration, width(), x - d->pressPos.x());
    if (isFinal)
        distance = TimelineSnap::toFrame(distance, step);
    const VxTimeRange atPress(d->startAtPress, d->endAtPress);
    vxScene->setPlayRange(TimeRangeMath::dragged(d->dragged, atPress, distance, duration, step));
    if (isFinal && !vxScene->isPlaying())
        TimelinePlayback::setTime(TimelineSnap::toFrame(vxScene->getTime(), step));
    update();
}

void VxTimeRangeSlider::dropDrag()
{
    if (d->dragged != Part::None)
        vxScene->setPlayRange(VxTimeRange(d->startAtPress, d->endAtPress));
    d->pressed = false;
    d->dragged = Part::None;
    unsetCursor();
    update();
}

void VxTimeRangeSlider::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton) {
        d->pressed = true;
        d->guard->begin();
        d->pressPos = event->pos();
        d->dragged = partAt(size(), event->pos());
        updateCursor(d->dragged, event->pos());
        const VxTimeRange range = vxScene->getPlayRange();
        d->startAtPress = range.getStart();
        d->endAtPress = range.getEnd();
    }
    update();
}

void VxTimeRangeSlider::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton) {
        d->guard->end();
        if (d->pressed) {
            updateCursor(d->hovered, event->pos());
            drag(event->x(), true);
        }
        d->pressed = false;
        d->dragged = Part::None;
    }
    update();
}

void VxTimeRangeSlider::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const VxTimeRange playRange = vxScene->getPlayRange();
    const VxTimeRange animRange = vxScene->getAnimRange();
    if (playRange != animRange) {
        savedRange = playRange;
        vxScene->setPlayRange(animRange);
    } else if (savedRange.getEnd() != NothingSaved) {
        vxScene->setPlayRange(savedRange);
    }
    hover(event->pos());
}

void VxTimeRangeSlider::mouseMoveEvent(QMouseEvent *event)
{
    if (d->pressed)
        drag(event->x(), false);
    else
        hover(event->pos());
}

void VxTimeRangeSlider::enterEvent(QEvent *event)
{
    Q_UNUSED(event)
}

void VxTimeRangeSlider::leaveEvent(QEvent *event)
{
    Q_UNUSED(event)
    d->hovered = Part::None;
    d->dragged = Part::None;
    update();
}

void VxTimeRangeSlider::paintHandle(QPainter *painter, const QRect &rect, int which,
                                    bool hovered) const
{
    VxStyleOptionCustom option(which);
    option.initFrom(this);
    option.rect = rect;
    // State_MouseOver covers the whole widget under the mouse; here it is set for the hovered part.
    option.state.setFlag(QStyle::State_MouseOver, hovered);
    style()->drawPrimitive(static_cast<QStyle::PrimitiveElement>(VxStyle::PE_VxRangeHandle),
                           &option, painter, this);
}

void VxTimeRangeSlider::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    painter.fillRect(rect(), palette().dark());
    const VxTimeRange range = vxScene->getPlayRange();
    const QRect stretch =
        TimeRangeMath::rangeRect(size(), range, vxScene->getAnimRange().getDuration());
    if (stretch.isNull())
        return;
    painter.fillRect(stretch, palette().button());

    const VxTime step = vxScene->getTimeStep();
    const QFontMetrics metrics = painter.fontMetrics();
    const QString start = QString::number(TimeRangeMath::nearestFrame(range.getStart(), step));
    const QString end = QString::number(TimeRangeMath::nearestFrame(range.getEnd(), step));
    const TimeRangeMath::Picture picture =
        TimeRangeMath::picture(stretch, metrics.horizontalAdvance(start),
                               metrics.horizontalAdvance(end), metrics.height());
    paintHandle(&painter, picture.startHandle, VxStyle::RangeStartHandle,
                d->hovered == Part::StartHandle);
    painter.drawText(picture.startLabel, Qt::AlignLeft, start);
    paintHandle(&painter, picture.endHandle, VxStyle::RangeEndHandle,
                d->hovered == Part::EndHandle);
    painter.drawText(picture.endLabel, Qt::AlignLeft, end);
    painter.setPen(d->hovered == Part::Body ? palette().highlight().color()
                                            : palette().dark().color());
    painter.drawRect(picture.outline);
}
