#ifndef TIMEPANEEVENTS_H
#define TIMEPANEEVENTS_H

#include <QtCore/QEvent>

// The two events that the pane posts to itself, to compress many changes of the scene's selection
// in one event loop iteration. They have no data: the handlers read the scene.

// Synchronises the dope sheet's selected rows with the scene's selected nodes.
class VxTimelineScenePrimarySelectionChangeEvent : public QEvent
{
public:
    VxTimelineScenePrimarySelectionChangeEvent();
    static QEvent::Type eventType();
};

// Scrolls the row of the scene's primary selection into view.
class VxTimelineDopesheetEnsureItemVisibleEvent : public QEvent
{
public:
    VxTimelineDopesheetEnsureItemVisibleEvent();
    static QEvent::Type eventType();
};

#endif
