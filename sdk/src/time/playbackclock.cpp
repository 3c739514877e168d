#include "time/playbackclock.h"

#include <algorithm>

namespace {

constexpr qint64 NanosecondsPerSecond = 1000000000;

// A longer delay is not made up when every frame is shown: rushing through the missed frames would
// look worse than the visible pause.
constexpr qint64 LongestCatchUp = NanosecondsPerSecond / 2;

// Whole seconds are converted separately, so that no product exceeds 64 bits.
qint64 ticksIn(qint64 nanoseconds)
{
    const qint64 rest = nanoseconds % NanosecondsPerSecond;
    return nanoseconds / NanosecondsPerSecond * VxTicksPerSecond +
           rest * VxTicksPerSecond / NanosecondsPerSecond;
}

/// The first nanosecond at which that many ticks have passed.
qint64 nanosecondsOf(qint64 ticks)
{
    const qint64 rest = ticks % VxTicksPerSecond * NanosecondsPerSecond;
    return ticks / VxTicksPerSecond * NanosecondsPerSecond +
           (rest + VxTicksPerSecond - 1) / VxTicksPerSecond;
}

/// The last multiple of step at or before time.
qint64 frameAt(qint64 time, qint64 step)
{
    const qint64 rest = time % step;
    return time - (rest < 0 ? rest + step : rest);
}

} // namespace

void PlaybackClock::start(VxTime time, const PlaybackSettings &settings, qint64 now)
{
    m_settings = settings;
    anchor(time, now);
}

void PlaybackClock::configure(const PlaybackSettings &settings)
{
    const VxTime shown = m_shown.time;
    const qint64 since = m_anchorNow + nanosecondsOf(m_shown.begin);
    const qint64 notBefore = m_notBefore;
    m_settings = settings;
    anchor(shown, since);
    m_notBefore = std::max(since, notBefore);
}

void PlaybackClock::setTime(VxTime time, qint64 now)
{
    anchor(time, now);
}

void PlaybackClock::anchor(VxTime time, qint64 now)
{
    const VxTimeRange &range = m_settings.range;
    m_anchorNow = now;
    m_notBefore = now;
    m_anchorTime = range.clamp(time);
    if (time > range.getEnd() && m_settings.looping)
        m_anchorTime = range.getStart();
    m_shown = stepAt(0);
    m_pending = m_shown.time != time || m_shown.ended;
}

PlaybackFrame PlaybackClock::advance(qint64 now)
{
    if (m_pending) {
        m_pending = false;
        return {m_shown.time, m_shown.ended};
    }
    if (!m_settings.dropFrames)
        advanceEveryFrame(now);
    else
        m_shown = stepAt(std::max(m_shown.begin, ticksIn(now - m_anchorNow)));
    return {m_shown.time, m_shown.ended};
}

void PlaybackClock::advanceEveryFrame(qint64 now)
{
    if (m_shown.ended || now < nextDue())
        return;
    m_shown = stepAt(m_shown.next);
    if (now - (m_anchorNow + nanosecondsOf(m_shown.begin)) > LongestCatchUp) {
        if (!m_shown.ended)
            anchor(m_shown.time, now);
        return;
    }
    // Less than a frame late, the next one may be in time; a timer that is always late by part of
    // a frame must not accumulate delay.
    const qint64 length = nanosecondsOf(m_shown.next - m_shown.begin);
    const bool overdue = now >= m_anchorNow + nanosecondsOf(m_shown.next);
    m_notBefore = now + (overdue ? length / 2 : length / 4);
}

qint64 PlaybackClock::nextDue() const
{
    if (m_pending)
        return m_anchorNow;
    const qint64 due = m_anchorNow + nanosecondsOf(m_shown.next);
    return m_settings.dropFrames ? due : std::max(due, m_notBefore);
}

PlaybackClock::Step PlaybackClock::stepAt(qint64 ticks) const
{
    const qint64 start = m_settings.range.getStart();
    const qint64 length = m_settings.range.getEnd() - start;
    const qint64 step = std::max(m_settings.step, 1);
    // The end is shown for a step like any other frame before the next lap begins.
    const qint64 lapLength = length + step;
    const qint64 run = m_anchorTime - start + ticks;
    if (!m_settings.looping && run >= length)
        return {ticks, ticks + step, m_settings.range.getEnd(), true};

    const qint64 lap = run / lapLength;
    const qint64 lapBegin = lap * lapLength - (m_anchorTime - start);
    const qint64 position = run % lapLength;
    Step result;
    if (position >= length) {
        result = {lapBegin + length, lapBegin + lapLength, m_settings.range.getEnd(), false};
    } else {
        const qint64 frame = frameAt(start + position, step);
        const qint64 time = std::max(frame, start);
        result = {lapBegin + time - start, lapBegin + std::min(frame + step - start, length),
                  static_cast<VxTime>(time), false};
    }
    if (result.begin < 0) {
        // An anchor within a frame is shown itself until the next frame.
        result.begin = 0;
        result.time = m_anchorTime;
    }
    return result;
}
