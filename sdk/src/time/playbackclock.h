#ifndef PLAYBACKCLOCK_H
#define PLAYBACKCLOCK_H

#include <QtCore/qglobal.h>
#include <vxcore/vxtimerange.h>

/// The settings of playback.
struct PlaybackSettings
{
    VxTime step = 160; ///< ticks per frame, at least 1
    VxTimeRange range; ///< ends included; the end is not before the start
    bool looping = false;
    bool dropFrames = true;
};

/// The time to show.
struct PlaybackFrame
{
    VxTime time = 0;
    bool ended = false; ///< playback has ended: the end of the range is shown, without looping
};

/// Schedules the shown times, by the nanoseconds of a clock that the caller reads.
///
/// Everything is counted in whole ticks from an anchor: a time, and the nanosecond at which it was
/// shown, so that errors do not accumulate over hours. The start of the range, the multiples of the
/// step within it, and its end are shown, each until the next; the end for a whole step when
/// looping.
///
/// When every frame is shown and one was late, the following ones are shown for half of their time
/// until the clock is caught up. The anchor moves on an intervention, and when playback of every
/// frame is more than half a second behind: that delay is dropped.
class PlaybackClock
{
public:
    /// Starts at a time that is shown from the nanosecond now on. A time before the range is
    /// followed at once by the start; one after it by the start when looping, else by the end.
    void start(VxTime time, const PlaybackSettings &settings, qint64 now);
    /// Continues from the shown time, which stays for the rest of its frame.
    void configure(const PlaybackSettings &settings);
    /// Continues from another time, like start().
    void setTime(VxTime time, qint64 now);

    /// The time to show at the nanosecond now.
    PlaybackFrame advance(qint64 now);
    /// The nanosecond from which advance() returns a new time; meaningless after the end.
    qint64 nextDue() const;

    const PlaybackSettings &settings() const { return m_settings; }

private:
    /// A frame relative to the anchor.
    struct Step
    {
        qint64 begin = 0; ///< ticks from the anchor
        qint64 next = 0;  ///< start of the following frame
        VxTime time = 0;
        bool ended = false;
    };

    void anchor(VxTime time, qint64 now);
    Step stepAt(qint64 ticks) const;
    void advanceEveryFrame(qint64 now);

    PlaybackSettings m_settings;
    VxTime m_anchorTime = 0;
    qint64 m_anchorNow = 0;
    /// The minimum end of the shown frame, when every frame is shown.
    qint64 m_notBefore = 0;
    Step m_shown;
    /// The anchor's frame differs from its original time and was not returned yet.
    bool m_pending = false;
};

#endif
