#include "vxtimeline/dopesheet/keydragmath.h"

#include "vxtimeline/time/timelinesnap.h"

#include <algorithm>

namespace KeyDragMath {

namespace {

constexpr int ClickDistance = 2;    // pixels, both directions together
constexpr qint64 PreviewSpan = 200; // minimum milliseconds between two previews
constexpr qint64 LatestTick = 100;  // maximum age of the last tick; milliseconds

bool isPlain(Qt::KeyboardModifiers modifiers)
{
    return !(modifiers & (Qt::ControlModifier | Qt::AltModifier));
}

} // namespace

int Scale::distance(int x) const
{
    return TimelineSnap::limited(qint64(x) - keysLeft - metrics.keysOrigin(playStart));
}

VxTime Scale::timeAt(int x) const
{
    return metrics.xToTime(distance(x));
}

VxTime Scale::frameTimeAt(int x) const
{
    return metrics.xToFrameTime(distance(x), step);
}

qint64 rawOffset(const Scale &scale, int pressX, int x, VxTime hitTime, bool snaps)
{
    if (!snaps)
        return scale.metrics.xToTime(x - pressX);
    const VxTime pressed = scale.frameTimeAt(pressX);
    const int pressedX = scale.metrics.keyLeft(scale.keysLeft, pressed, scale.playStart);
    return qint64(pressed) - hitTime + scale.metrics.xToFrameTime(x - pressedX, scale.step);
}

VxTime limitedOffset(qint64 offset, const Bounds &bounds)
{
    if (offset < 1 && bounds.earliest + offset < 0)
        offset = -qint64(bounds.earliest);
    else if (offset >= 1 && bounds.latest + offset > bounds.duration)
        offset = qint64(bounds.duration) - bounds.latest;
    return TimelineSnap::limited(offset);
}

bool isDrag(const QPoint &press, const QPoint &release)
{
    return (release - press).manhattanLength() > ClickDistance;
}

PressEffect pressEffect(Hit hit, Qt::KeyboardModifiers modifiers)
{
    if (hit == Hit::Nothing)
        return {};
    if (modifiers & Qt::AltModifier)
        return {false, Change::Deselect, false};
    return {isPlain(modifiers) && hit == Hit::Key, Change::Select, true};
}

ReleaseEffect releaseEffect(bool canDrag, bool moved, Qt::KeyboardModifiers modifiers)
{
    const bool takesAway = modifiers & Qt::AltModifier;
    ReleaseEffect effect;
    if (moved)
        effect.kind = canDrag && !takesAway ? Release::Drop : Release::Band;
    effect.clearsAll = isPlain(modifiers) && effect.kind != Release::Drop;
    effect.selects = !takesAway;
    effect.addsNode = modifiers & Qt::ControlModifier;
    return effect;
}

QRect bandRect(const QPoint &press, const QPoint &current)
{
    return QRect(
        QPoint(std::min(press.x(), current.x()) - 1, std::min(press.y(), current.y()) - 1),
        QPoint(std::max(press.x(), current.x()) + 1, std::max(press.y(), current.y()) + 1));
}

BandSpan bandSpan(const Scale &scale, const QPoint &press, const QPoint &release, int height)
{
    const auto x = std::minmax({press.x(), release.x()});
    const auto y = std::minmax({press.y(), release.y()});
    const auto within = [height](int position) {
        return std::max(0, std::min(position, height - 1));
    };
    return {scale.timeAt(x.first), scale.timeAt(x.second), within(y.first), within(y.second)};
}

bool DragThrottle::isDue(qint64 now)
{
    if (now - m_lastApplied <= PreviewSpan || now - m_lastTick >= LatestTick)
        return false;
    m_lastApplied = now;
    return true;
}

} // namespace KeyDragMath
