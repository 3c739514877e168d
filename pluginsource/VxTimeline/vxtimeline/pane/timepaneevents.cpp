#include "vxtimeline/pane/timepaneevents.h"

namespace {

QEvent::Type registeredType()
{
    return static_cast<QEvent::Type>(QEvent::registerEventType());
}

const QEvent::Type selectionChangeType = registeredType();
const QEvent::Type ensureVisibleType = registeredType();

} // namespace

VxTimelineScenePrimarySelectionChangeEvent::VxTimelineScenePrimarySelectionChangeEvent()
    : QEvent(selectionChangeType)
{
}

QEvent::Type VxTimelineScenePrimarySelectionChangeEvent::eventType()
{
    return selectionChangeType;
}

VxTimelineDopesheetEnsureItemVisibleEvent::VxTimelineDopesheetEnsureItemVisibleEvent()
    : QEvent(ensureVisibleType)
{
}

QEvent::Type VxTimelineDopesheetEnsureItemVisibleEvent::eventType()
{
    return ensureVisibleType;
}
