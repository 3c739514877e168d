#ifndef TIME_PLAYBACKCLOCK_H
#define TIME_PLAYBACKCLOCK_H

#include <QtCore/qglobal.h>
#include <vxcore/vxtimerange.h>

/// What is played, and how.
struct PlaybackSettings
{
    VxTime step = 160; ///< ticks per frame, at least 1
    VxTimeRange range; ///< ends included; the end does not lie before the start
    bool looping = false;
    bool dropFrames = true;
};

/// What is to be shown.
struct PlaybackFrame
{
    VxTime time = 0;
    bool ended = false; ///< nothing follows: the end of the range is shown, without looping
};

/// Tells which time is to be shown when, from the nanoseconds of a clock that the caller reads.
///
/// Everything is counted in whole ticks from an anchor: a time, and the nanosecond at which it was
/// shown. So nothing adds up over hours. Shown are the start of the range, the multiples of the
/// step within it, and its end, each until the next; the end for a whole step when looping.
///
/// Where every frame is shown and one came late, the following ones are shown for half of their
/// time until the clock is reached again. The anchor moves when somebody intervenes, and when
/// playback of every frame is more than half a second behind: that is let go.
class PlaybackClock
{
public:
    /// Starts at a time that is on show from the nanosecond now on. A time before the range is
    /// followed at once by the start; one after it by the start when looping, else by the end.
    void start(VxTime time, const PlaybackSettings &settings, qint64 now);
    /// Goes on from the time on show, which stays on show for what is left of its frame.
    void configure(const PlaybackSettings &settings);
    /// Goes on from another time, as start() does.
    void setTime(VxTime time, qint64 now);

    /// What is to be shown at the nanosecond now.
    PlaybackFrame advance(qint64 now);
    /// The nanosecond from which advance() gives something new; meaningless after the end.
    qint64 nextDue() const;

    const PlaybackSettings &settings() const { return m_settings; }

private:
    /// A frame on the way from the anchor.
    struct Step
    {
        qint64 begin = 0; ///< ticks from the anchor
        qint64 next = 0;  ///< where the following frame begins
        VxTime time = 0;
        bool ended = false;
    };

    void anchor(VxTime time, qint64 now);
    Step stepAt(qint64 ticks) const;
    void advanceEveryFrame(qint64 now);

    PlaybackSettings m_settings;
    VxTime m_anchorTime = 0;
    qint64 m_anchorNow = 0;
    /// Until when the frame on show is not taken away, where every frame is shown.
    qint64 m_notBefore = 0;
    Step m_shown;
    /// The anchor's frame differs from the time it was made with and was not handed out yet.
    bool m_pending = false;
};

#endif
