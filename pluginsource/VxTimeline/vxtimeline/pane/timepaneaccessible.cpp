#include "vxtimeline/pane/timepaneaccessible.h"

#include "vxtimeline/dopesheet/accessiblesheet.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/keygraph/accessiblegraph.h"
#include "vxtimeline/keygraph/vxkeygraph.h"
#include "vxtimeline/keygraph/vxkeygraphview.h"
#include "vxtimeline/pane/timepaneviews.h"
#include "vxtimeline/widgets/accessibletimeline.h"
#include "vxtimeline/widgets/vxplayheadwgt.h"
#include "vxtimeline/widgets/vxtimerangeslider.h"

#include <vxcore/vxapp.h>
#include <vxcore/vxkeyselection.h>
#include <vxcore/vxscene.h>

namespace {

QAccessibleInterface *makeObject(const QString &className, QObject *object)
{
    if (className == QLatin1String("VxDopeSheetView"))
        return new AccessibleSheet(static_cast<VxDopeSheetView *>(object));
    if (className == QLatin1String("VxKeyGraphView"))
        return new AccessibleGraph(static_cast<VxKeyGraphView *>(object));
    if (className == QLatin1String("VxPlayheadWgt"))
        return new AccessiblePlayhead(static_cast<VxPlayheadWgt *>(object));
    if (className == QLatin1String("VxTimeRangeSlider"))
        return new AccessibleTimeRange(static_cast<VxTimeRangeSlider *>(object));
    return nullptr;
}

void sendEvent(QObject *object, QAccessible::Event type)
{
    QAccessibleEvent event(object, type);
    QAccessible::updateAccessibility(&event);
}

void sendValue(QObject *object, const QVariant &value)
{
    QAccessibleValueChangeEvent event(object, value);
    QAccessible::updateAccessibility(&event);
}

} // namespace

void TimePaneAccessible::install()
{
    QAccessible::installFactory(makeObject);
}

TimePaneAccessible::TimePaneAccessible(const TimePaneViews &views)
    : m_views(views)
{
    connect(vxApp->getKeySelection(), &VxKeySelection::changed, this,
            &TimePaneAccessible::handleSelectionChanged);
    connect(vxScene, &VxScene::timeChanged, this, &TimePaneAccessible::handleTimeChanged);
    connect(vxScene, &VxScene::playRangeChanged, this, &TimePaneAccessible::handlePlayRangeChanged);
    connect(views.sheet(), &QTreeView::expanded, this, &TimePaneAccessible::handleOpened);
    connect(views.sheet(), &QTreeView::collapsed, this, &TimePaneAccessible::handleOpened);
    connect(views.graph(), &VxKeyGraph::channelsChanged, this, [this] {
        if (QAccessible::isActive())
            sendEvent(m_views.graphView(), QAccessible::ObjectReorder);
    });
}

void TimePaneAccessible::handleSelectionChanged()
{
    if (!QAccessible::isActive())
        return;
    sendEvent(m_views.sheet(), QAccessible::SelectionWithin);
    sendEvent(m_views.graphView(), QAccessible::SelectionWithin);
    // The current row's number of keys, selected keys and keys near the current time.
    VxDopeSheetView *sheet = m_views.sheet();
    AccessibleKeys::report(AccessibleSheet::rowOf(sheet, sheet->getItem(sheet->currentIndex())),
                           QAccessible::DescriptionChanged);
}

// Playback changes the time at every frame.
void TimePaneAccessible::handleTimeChanged()
{
    if (QAccessible::isActive() && !vxScene->isPlaying())
        sendValue(m_views.playhead(), double(vxScene->getTime()) / vxScene->getTimeStep());
}

void TimePaneAccessible::handlePlayRangeChanged()
{
    if (QAccessible::isActive() && !vxScene->isPlaying())
        sendValue(m_views.slider(),
                  double(vxScene->getPlayRange().getStart()) / vxScene->getTimeStep());
}

void TimePaneAccessible::handleOpened(const QModelIndex &row)
{
    if (!QAccessible::isActive())
        return;
    VxDopeSheetView *sheet = m_views.sheet();
    QAccessibleInterface *object = AccessibleSheet::rowOf(sheet, sheet->getItem(row));
    if (!object)
        return;
    QAccessible::State changed;
    changed.expanded = true;
    QAccessibleStateChangeEvent event(object, changed);
    QAccessible::updateAccessibility(&event);
}
