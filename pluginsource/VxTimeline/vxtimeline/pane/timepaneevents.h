#ifndef TIMEPANEEVENTS_H
#define TIMEPANEEVENTS_H

#include <QtCore/QEvent>

// The two events that the pane posts to itself, so that many changes of the scene's selection in
// one turn of the event loop lead to one piece of work. They carry nothing: what to do is read
// from the scene when they arrive.

// The dope sheet's selected rows are to follow the scene's selected nodes.
class VxTimelineScenePrimarySelectionChangeEvent : public QEvent
{
public:
    VxTimelineScenePrimarySelectionChangeEvent();
    static QEvent::Type eventType();
};

// The row of the scene's primary selection is to be scrolled into view.
class VxTimelineDopesheetEnsureItemVisibleEvent : public QEvent
{
public:
    VxTimelineDopesheetEnsureItemVisibleEvent();
    static QEvent::Type eventType();
};

#endif
