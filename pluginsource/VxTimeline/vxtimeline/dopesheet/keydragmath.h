#ifndef KEYDRAGMATH_H
#define KEYDRAGMATH_H

#include "vxtimeline/time/timelinemetrics.h"

#include <QtCore/QPoint>
#include <QtCore/QRect>
#include <vxcore/vxtime.h>

/// The arithmetic of mouse gestures in the keys column of the dope sheet, as plain functions: the
/// keys that a press and a release select, the offset of a drag, and the extent of a rubber band.
namespace KeyDragMath {

/// The scale from times to pixels during a gesture.
struct Scale
{
    TimelineMetrics metrics;
    int keysLeft = 0;     // pixels; left edge of the keys column
    VxTime playStart = 0; // of the play range
    VxTime step = 1;      // ticks of a frame

    /// The time at x to the tick, and at the nearest whole frame.
    VxTime timeAt(int x) const;
    VxTime frameTimeAt(int x) const;

private:
    int distance(int x) const; // from time 0, in pixels
};

/// The ticks from the press to x, unlimited. Snapped, the time of the hit key becomes a whole
/// frame, so the offset itself need not be a number of frames.
qint64 rawOffset(const Scale &scale, int pressX, int x, VxTime hitTime, bool snaps);

/// The limits for dragged keys: 0 and the end of the animation range.
struct Bounds
{
    VxTime earliest = VxTimeMax; // of the dragged keys
    VxTime latest = -1;
    VxTime duration = 0; // of the animation range
};
/// The offset, limited to keep the keys within. Keys outside are brought to the edge.
VxTime limitedOffset(qint64 offset, const Bounds &bounds);

/// False while the mouse distance is within that of a click.
bool isDrag(const QPoint &press, const QPoint &release);

/// The object under the mouse.
enum class Hit { Nothing, Key, SelectedKey };
enum class Change { None, Select, Deselect };

struct PressEffect
{
    bool clearsAll = false;       // all keys are deselected first
    Change change = Change::None; // of the row's keys at the hit time
    bool canDrag = false;
};
/// Ctrl adds to the selection, Alt removes from it.
PressEffect pressEffect(Hit hit, Qt::KeyboardModifiers modifiers);

enum class Release { Drop, Click, Band };
struct ReleaseEffect
{
    Release kind = Release::Click;
    bool clearsAll = false; // as above; the rest is for a click or a band
    bool selects = true;    // else it deselects
    bool addsNode = false;  // a click adds the node to those selected in the scene
};
/// modifiers: those of the press.
ReleaseEffect releaseEffect(bool canDrag, bool moved, Qt::KeyboardModifiers modifiers);

/// The area that a rubber band covers, with a margin of one pixel.
QRect bandRect(const QPoint &press, const QPoint &current);
/// The extent of a band: the times from start on and before end (at just that time when they are
/// the same), and the y of its first and last row, in a viewport of the given height.
struct BandSpan
{
    VxTime start;
    VxTime end;
    int top;
    int bottom;
};
BandSpan bandSpan(const Scale &scale, const QPoint &press, const QPoint &release, int height);

/// Limits how often a drag updates its preview: not at every mouse move, but when some time has
/// passed, and only while the view's timer keeps up. Times are milliseconds of one clock.
class DragThrottle
{
public:
    void begin(qint64 now) { m_lastApplied = now; }
    void tick(qint64 now) { m_lastTick = now; }
    /// True when an update is due; then the next span begins.
    bool isDue(qint64 now);

private:
    qint64 m_lastApplied = 0;
    qint64 m_lastTick = -1000; // long ago
};

} // namespace KeyDragMath

#endif
