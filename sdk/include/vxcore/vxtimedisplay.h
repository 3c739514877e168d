#ifndef VXTIMEDISPLAY_H
#define VXTIMEDISPLAY_H

#include <QtCore/QString>
#include <vxcore/vxcoreglobal.h>
#include <vxcore/vxtypedinput.h>

/// Frames a second as a fraction, such as 30000/1001 for 29.97.
struct VXCORE_EXPORT VxFrameRate
{
    static constexpr int MaxRate = 4800; ///< frames a second, one a tick

    int frames = 0;  ///< 0: none
    int seconds = 1; ///< above 0

    /// That of a time step; ticksPerFrame below 1 count as 1.
    static VxFrameRate ofStep(VxTime ticksPerFrame);
    /// The nearest usual rate: a whole number, or one divided by 1.001 when given with two or more
    /// decimals (29.97, 23.976); else with three decimals. Invalid when not from above 0 to
    /// MaxRate.
    static VxFrameRate of(double framesPerSecond);

    bool isValid() const;
    double value() const { return double(frames) / seconds; }
    /// The frames that a timecode counts in a second, at least 1: 30 for 29.97.
    int nominal() const;
    /// True for 29.97 and multiples of it, for which drop-frame timecode is defined.
    bool canDropFrames() const;
    /// Such as "29.97" or "24"; empty when invalid.
    QString text() const;

    friend bool operator==(VxFrameRate a, VxFrameRate b)
    {
        return a.frames == b.frames && a.seconds == b.seconds;
    }
    friend bool operator!=(VxFrameRate a, VxFrameRate b) { return !(a == b); }
};

/// Timecodes, hours:minutes:seconds:frames, with `nominal` frames a second (at least 1).
///
/// Drop-frame timecode skips the numbers of the first two frames of every minute except each tenth
/// (four at twice the rate, and so on). So a timecode counted at 30 frames a second stays within
/// 0.16 seconds of the clock over a day at 29.97, instead of losing 86 seconds. Only numbers are
/// skipped. Source: SMPTE ST 12-1, "Time and Control Code".
namespace VxTimecode {

/// Such as "00:01:00;02", the frames after ";" with drop-frame and ":" without. A negative frame
/// has a "-" before the timecode of its distance from 0.
VXCORE_EXPORT QString text(qint64 frame, int nominal, bool dropsFrames);
/// The frame of a timecode, counted in nominal frames; minutes and seconds may exceed 59. -1 for a
/// number that drop-frame skips, and for negative or too large numbers.
VXCORE_EXPORT qint64 frameOf(double hours, double minutes, double seconds, double frames,
                             int nominal, bool dropsFrames);

} // namespace VxTimecode

/// How times are shown and typed: a unit, and the rate of timecodes.
///
/// A frame is a time step of whole ticks, which 29.97 and 23.976 frames a second do not have. Such
/// motion has the step of 30 or 24, and the rate says how its frames are counted in timecodes.
/// Frames, seconds (of playback) and ticks do not depend on the rate.
struct VXCORE_EXPORT VxTimeDisplay
{
    enum Unit { Frames, Seconds, Ticks, Timecode };

    Unit unit = Frames;
    VxFrameRate rate;        ///< invalid: that of the time step
    bool dropsFrames = true; ///< without effect at rates that have no drop-frame timecode

    /// Such as "12", "1.5s", "720t" or "00:00:01:12"; read() reads it as the same time. Between
    /// frames, Timecode gives frames with decimals. ticksPerFrame below 1 count as 1.
    QString text(VxTime time, VxTime ticksPerFrame) const;
    /// As VxTypedInput::readTime(), with timecodes of this rate. The frames of a drop-frame
    /// timecode follow ";" or, with dropsFrames, ":" as well.
    VxTypedInput read(const QString &text, VxTime ticksPerFrame,
                      VxTypedInput::Signs signs = VxTypedInput::OfValues) const;

    /// The rate of timecodes at a time step.
    VxFrameRate timecodeRate(VxTime ticksPerFrame) const;

    friend bool operator==(const VxTimeDisplay &a, const VxTimeDisplay &b)
    {
        return a.unit == b.unit && a.rate == b.rate && a.dropsFrames == b.dropsFrames;
    }
    friend bool operator!=(const VxTimeDisplay &a, const VxTimeDisplay &b) { return !(a == b); }
};

#endif
