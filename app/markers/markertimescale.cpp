#include "markers/markertimescale.h"

#include <QEvent>
#include <QWidget>
#include <algorithm>
#include <cmath>
#include <vxcore/vxpane.h>
#include <vxcore/vxpanemgr.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxtimeaxis.h>

namespace {

constexpr int StripMargin = 8; // pixels beside the play range, without an axis
constexpr double FarthestColumn = 1 << 30;

} // namespace

MarkerTimeScale::MarkerTimeScale(VxScene *scene, VxPaneMgr *panes, QWidget *strip)
    : QObject(strip)
    , m_scene(scene)
    , m_panes(panes)
    , m_strip(strip)
{
    strip->installEventFilter(this);
    watchAxis();
    connect(scene, &VxScene::playRangeChanged, this, &MarkerTimeScale::changed);
    if (!panes)
        return;
    connect(panes, &VxPaneMgr::paneAdded, this, &MarkerTimeScale::findAxis);
    connect(panes, &VxPaneMgr::paneRemoved, this, &MarkerTimeScale::findAxis);
    findAxis();
}

void MarkerTimeScale::findAxis()
{
    VxTimeAxis *found = nullptr;
    for (const VxPane *pane : m_panes->getPanes()) {
        if (!found)
            found = VxTimeAxis::of(pane);
    }
    if (found == m_axis)
        return;
    if (m_axis)
        m_axis->disconnect(this);
    m_axis = found;
    if (found)
        connect(found, &VxTimeAxis::changed, this, &MarkerTimeScale::changed);
    watchAxis();
    Q_EMIT changed();
}

/** Follows the positions of the axis' widget and of the strip, which depend on all widgets above.
 */
void MarkerTimeScale::watchAxis()
{
    for (const QPointer<QWidget> &widget : qAsConst(m_watched)) {
        if (widget && widget != m_strip)
            widget->removeEventFilter(this);
    }
    m_watched.clear();
    for (QWidget *first : {m_axis ? m_axis->overlayParent() : nullptr, m_strip->parentWidget()}) {
        for (QWidget *widget = first; widget;
             widget = widget->isWindow() ? nullptr : widget->parentWidget()) {
            widget->installEventFilter(this);
            m_watched.append(widget);
        }
    }
}

bool MarkerTimeScale::isAligned() const
{
    const QWidget *views = m_axis ? m_axis->overlayParent() : nullptr;
    const QWidget *window = m_strip->window();
    if (!views || !views->isVisible() || views->window() != window)
        return false;
    // A dock behind another tab is not hidden, but beside the window.
    return QRect(views->mapTo(window, QPoint()), views->size()).intersects(window->rect());
}

int MarkerTimeScale::axisOffset() const
{
    const QWidget *window = m_strip->window();
    return m_axis->overlayParent()->mapTo(window, QPoint()).x() -
           m_strip->mapTo(window, QPoint()).x();
}

int MarkerTimeScale::xOf(VxTime time) const
{
    if (isAligned())
        return m_axis->xOf(time) + axisOffset();
    const VxTimeRange range = m_scene->getPlayRange();
    const double ticks = std::max(1.0, double(range.getEnd()) - range.getStart());
    const int pixels = std::max(1, m_strip->width() - 1 - 2 * StripMargin);
    const double x = StripMargin + (double(time) - range.getStart()) / ticks * pixels;
    return int(std::lround(std::clamp(x, -FarthestColumn, FarthestColumn)));
}

VxTime MarkerTimeScale::timeAt(int x) const
{
    if (isAligned())
        return m_axis->timeAt(x - axisOffset());
    const VxTimeRange range = m_scene->getPlayRange();
    const double ticks = std::max(1.0, double(range.getEnd()) - range.getStart());
    const int pixels = std::max(1, m_strip->width() - 1 - 2 * StripMargin);
    const double time = range.getStart() + (x - StripMargin) * ticks / pixels;
    return VxTime(std::llround(std::clamp(time, double(VxTimeMin), double(VxTimeMax))));
}

int MarkerTimeScale::left() const
{
    return isAligned() ? qMax(0, xOf(m_axis->visible().getStart())) : 0;
}

int MarkerTimeScale::right() const
{
    const int last = m_strip->width() - 1;
    return isAligned() ? qMin(last, xOf(m_axis->visible().getEnd())) : last;
}

bool MarkerTimeScale::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::ParentChange:
        watchAxis();
        Q_EMIT changed();
        break;
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Show:
    case QEvent::Hide:
        Q_EMIT changed();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}
