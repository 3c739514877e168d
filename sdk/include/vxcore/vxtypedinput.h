#ifndef VXTYPEDINPUT_H
#define VXTYPEDINPUT_H

#include <QtCore/QString>
#include <vxcore/vxcoreglobal.h>
#include <vxcore/vxtime.h>

struct VxTimeDisplay;

/// A parsed text for a value or a time: the number itself, or a change of a present one.
///
/// Both kinds are arithmetic: numbers with + - * / and parentheses, a comma or a point as decimal
/// separator. With += -= *= or /= before it, it is a change, such as "+=5", "*=2".
struct VXCORE_EXPORT VxTypedInput
{
    enum Kind {
        Empty,      ///< nothing but blanks
        Unreadable, ///< no arithmetic, or without a finite result
        Value,      ///< amount is the value
        Offset,     ///< amount is added
        Factor      ///< amount is multiplied with
    };

    /// The meaning of a leading + or -.
    enum Signs {
        OfValues, ///< the sign of the value: "-5" is the value -5
        OfOffsets ///< a change: "+10" adds 10, "-5" subtracts 5, "=-5" is the value -5, and a
                  ///< percent sign at the end makes a factor: "150%" multiplies with 1.5
    };

    /// A number without unit. With signs of values a percent sign at the end is ignored.
    static VxTypedInput read(const QString &text, Signs signs = OfValues);

    /// A time, or a change of one; amounts in ticks, not rounded. Numbers may have a unit: f or
    /// none (frames), s, ms, t (ticks); hh:mm:ss:ff, mm:ss:ff or ss:ff is a non-drop-frame
    /// timecode. Times can be added, and multiplied with and divided by plain numbers:
    /// "1.5s - 2", "2 * 00:00:01:12". A frame has `ticksPerFrame` ticks, above 0; a timecode uses
    /// the nearest whole number of frames a second.
    static VxTypedInput readTime(const QString &text, VxTime ticksPerFrame, Signs signs = OfValues);
    /// The same with timecodes as VxTimeDisplay::read() reads them.
    static VxTypedInput readTime(const QString &text, VxTime ticksPerFrame,
                                 const VxTimeDisplay &display, Signs signs = OfValues);

    /// The value that results from a present one; the present one itself when there is no change.
    double appliedTo(double present) const;

    Kind kind = Empty;
    double amount = 0;
};

#endif
