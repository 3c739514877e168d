#ifndef TIMEPANEEVENTS_H
#define TIMEPANEEVENTS_H

#include <QtCore/QEvent>

// The two events that the pane posts to itself, to compress many changes of the scene's selection
// in one event loop iteration. They have no data: the handlers read the scene. Their types are
// registered when the plug-in is loaded.

/// Synchronises the dope sheet's selected rows with the scene's selected nodes.
class VxTimelineScenePrimarySelectionChangeEvent : public QEvent
{
public:
    VxTimelineScenePrimarySelectionChangeEvent()
        : QEvent(s_type)
    {
    }
    static QEvent::Type eventType() { return s_type; }

private:
    static inline const auto s_type = static_cast<QEvent::Type>(QEvent::registerEventType());
};

/// Scrolls the row of the scene's primary selection into view.
class VxTimelineDopesheetEnsureItemVisibleEvent : public QEvent
{
public:
    VxTimelineDopesheetEnsureItemVisibleEvent()
        : QEvent(s_type)
    {
    }
    static QEvent::Type eventType() { return s_type; }

private:
    static inline const auto s_type = static_cast<QEvent::Type>(QEvent::registerEventType());
};

#endif
