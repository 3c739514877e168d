#include "vxtimeline/pane/timepaneaxis.h"

#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/keygraph/paint/keygraphscale.h"
#include "vxtimeline/keygraph/vxkeygraphview.h"
#include "vxtimeline/widgets/timerangemath.h"
#include "vxtimeline/widgets/vxtimerangeslider.h"

#include <QtGui/QWheelEvent>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QScrollBar>
#include <cmath>
#include <tuple>
#include <vxcore/vxscene.h>

namespace {

constexpr double DeltaPerDoubling = 200.0; // of the wheel; a notch is 120
constexpr double PixelsPerDelta = 0.5;
constexpr double FineZoom = 0.05;
constexpr double FineShift = 0.2;
constexpr int PanStepsOfHeight = 8;    // of the graph
constexpr int PixelsPerZoomStep = 100; // of a drag of the graph's button

} // namespace

bool TimePaneAxis::State::operator==(const State &other) const
{
    const auto fields = [](const State &s) {
        return std::make_tuple(s.metrics.fps, s.metrics.divisor, s.metrics.zoom,
                               s.metrics.frameWidth, s.metrics.keyMargin, s.left, s.width,
                               s.playStart);
    };
    return fields(*this) == fields(other);
}

TimePaneAxis::TimePaneAxis(QObject *pane, QWidget *views, VxDopeSheetView *sheet,
                           VxKeyGraphView *graph, VxTimeRangeSlider *slider)
    : VxTimeAxis(pane)
    , m_views(views)
    , m_sheet(sheet)
    , m_graph(graph)
    , m_slider(slider)
{
    for (QWidget *widget : std::initializer_list<QWidget *>{
             sheet->viewport(), sheet->header()->viewport(), graph, slider})
        widget->installEventFilter(this);
    connect(sheet->horizontalScrollBar(), &QScrollBar::valueChanged, this, &TimePaneAxis::update);
}

int TimePaneAxis::keysLeftIn(const QWidget *widget) const
{
    const int left = m_sheet->columnViewportPosition(VxDopeSheetView::KeysColumn);
    const QWidget *pane = m_views->parentWidget();
    const QPoint inPane = m_sheet->viewport()->mapTo(pane, QPoint(left, 0));
    return widget->mapFrom(pane, inPane).x();
}

TimePaneAxis::State TimePaneAxis::currentState() const
{
    State state;
    state.metrics = TimelineMetrics::shared();
    state.left = keysLeftIn(m_views);
    state.width = m_sheet->columnWidth(VxDopeSheetView::KeysColumn);
    state.playStart = vxScene->getPlayRange().getStart();
    return state;
}

int TimePaneAxis::xOf(VxTime time) const
{
    return TimelineMetrics::shared().keyMiddle(keysLeftIn(m_views), time,
                                               vxScene->getPlayRange().getStart());
}

VxTime TimePaneAxis::timeAt(int x) const
{
    const TimelineMetrics &metrics = TimelineMetrics::shared();
    const qint64 origin = qint64(keysLeftIn(m_views)) + metrics.halfFrame() +
                          metrics.keysOrigin(vxScene->getPlayRange().getStart());
    return metrics.xToTime(TimelineSnap::limited(x - origin));
}

VxTimeRange TimePaneAxis::visible() const
{
    const State state = currentState();
    return VxTimeRange(timeAt(state.left), timeAt(state.left + qMax(1, state.width) - 1));
}

QWidget *TimePaneAxis::overlayParent() const
{
    return m_views;
}

double TimePaneAxis::valuePerPixel() const
{
    return m_graph->isVisible() ? -m_graph->getScale().valuePerPixel : 0;
}

bool TimePaneAxis::panValues(int steps)
{
    if (!m_graph->isVisible())
        return false;
    m_graph->panStart();
    m_graph->panAdjust(QPoint(0, steps * (m_graph->height() / PanStepsOfHeight)));
    return true;
}

bool TimePaneAxis::zoomValues(int steps)
{
    if (!m_graph->isVisible())
        return false;
    m_graph->zoomStart();
    m_graph->zoomAdjust(QPoint(0, steps * PixelsPerZoomStep));
    return true;
}

void TimePaneAxis::update()
{
    m_graph->followTimeline(keysLeftIn(m_graph));
    const State state = currentState();
    if (state == m_reported)
        return;
    m_reported = state;
    Q_EMIT changed();
}

// The slider shows the whole animation, the other widgets the play range.
double TimePaneAxis::timeUnder(const QWidget *widget, double x) const
{
    if (widget == m_slider) {
        const double duration = vxScene->getAnimRange().getDuration();
        return duration * x / qMax(1, widget->width());
    }
    const QWidget *pane = m_views->parentWidget();
    return timeAt(m_views->mapFrom(pane, widget->mapTo(pane, QPoint(int(x), 0))).x());
}

// During a gesture the axis stays: the dragged item would move under the mouse.
bool TimePaneAxis::handleWheel(const QWidget *widget, const QWheelEvent *event)
{
    const QPoint delta = event->angleDelta();
    const bool shift = event->modifiers() & Qt::ShiftModifier;
    const bool alt = event->modifiers() & Qt::AltModifier;
    const bool fine = event->modifiers() & Qt::ControlModifier;
    const bool sideways = delta.y() == 0 && delta.x() != 0;
    // Together with Alt some platforms swap the wheel's axes.
    if (!shift && (!sideways || alt))
        return false;
    if (event->buttons() != Qt::NoButton)
        return true;
    const double amount = sideways ? delta.x() : delta.y();
    const VxTimeRange range = vxScene->getPlayRange();
    const PlayRangeView::Limits limits{vxScene->getAnimRange(), vxScene->getTimeStep()};
    if (shift && !alt) {
        const double factor = std::exp2(-amount * (fine ? FineZoom : 1.0) / DeltaPerDoubling);
        const double time = timeUnder(widget, event->position().x());
        vxScene->setPlayRange(m_view.zoomed(range, time, factor, limits));
    } else {
        const double pixels = amount * PixelsPerDelta * (fine ? FineShift : 1.0);
        const double ticks = -pixels * TimelineMetrics::shared().ticksPerPixel();
        vxScene->setPlayRange(m_view.shifted(range, ticks, limits));
    }
    return true;
}

bool TimePaneAxis::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Wheel)
        return VxTimeAxis::eventFilter(watched, event);
    auto *wheel = static_cast<QWheelEvent *>(event);
    if (!handleWheel(static_cast<const QWidget *>(watched), wheel))
        return false;
    wheel->accept();
    return true;
}
