#ifndef KEYSEGMENT_H
#define KEYSEGMENT_H

#include <vxcore/vxkey.h>

/// A key as the curve formulas use it. Times are ticks, in double because products of spans exceed
/// 32 bits.
struct CurveKey
{
    double time = 0;
    double value = 0;
    double tension = 0;
    double continuity = 0;
    double bias = 0;
};

/// The curve from one key to the next as a polynomial in s, which runs from 0 to 1 between them.
struct CurveSegment
{
    double start = 0;      // time of the left key
    double perTick = 0;    // 1 / span
    double c0 = 0, c1 = 0; // value = c0 + c1 s + c2 s^2 + c3 s^3
    double c2 = 0, c3 = 0;

    double at(double time) const
    {
        const double s = (time - start) * perTick;
        return c0 + s * (c1 + s * (c2 + s * c3));
    }
};

/// The chord from one key to the next.
struct CurveChord
{
    double rise = 0; // in value
    double span = 0; // in ticks

    CurveChord() = default;
    CurveChord(const CurveKey &from, const CurveKey &to)
        : rise(to.value - from.value)
        , span(to.time - from.time)
    {
    }
};

/// The tangent a key gives to the segment on its left, for s of that segment. The factor in spans
/// compensates unequal distances: without it the curve would overshoot on the shorter side.
inline double incomingTangent(const CurveKey &key, const CurveChord &left, const CurveChord &right)
{
    const double shape = (1 - key.continuity) * (1 + key.bias) * left.rise +
                         (1 + key.continuity) * (1 - key.bias) * right.rise;
    return (1 - key.tension) / 2 * shape * (2 * left.span / (left.span + right.span));
}

/// The tangent a key gives to the segment on its right.
inline double outgoingTangent(const CurveKey &key, const CurveChord &left, const CurveChord &right)
{
    const double shape = (1 + key.continuity) * (1 + key.bias) * left.rise +
                         (1 - key.continuity) * (1 - key.bias) * right.rise;
    return (1 - key.tension) / 2 * shape * (2 * right.span / (left.span + right.span));
}

inline CurveSegment linearSegment(const CurveKey &left, const CurveKey &right)
{
    return {left.time, 1 / (right.time - left.time), left.value, right.value - left.value, 0, 0};
}

/// The tangent on either side of a key without tension, continuity and bias, between two chords of
/// the same span: bit for bit the result of the formulas above.
inline double evenTangent(double leftRise, double rightRise)
{
    return 0.5 * (leftRise + rightRise);
}

/// The smooth segment through four such keys, given their values; a chord missing at an end of the
/// curve equals its neighbour.
inline CurveSegment evenSegment(double start, double span, double chord, double value,
                                double chordBefore, double chordAfter)
{
    const double out = evenTangent(chordBefore, chord);
    const double in = evenTangent(chord, chordAfter);
    return {start, 1 / span, value, out, 3 * chord - 2 * out - in, out + in - 2 * chord};
}

/// The smooth segment from `left` to `right`. `before` and `after` are the keys beyond them, null
/// at an end of the curve: the missing chord then equals the existing one.
inline CurveSegment tcbSegment(const CurveKey *before, const CurveKey &left, const CurveKey &right,
                               const CurveKey *after)
{
    const CurveChord chord(left, right);
    const double out = outgoingTangent(left, before ? CurveChord(*before, left) : chord, chord);
    const double in = incomingTangent(right, chord, after ? CurveChord(right, *after) : chord);
    return {left.time,
            1 / chord.span,
            left.value,
            out,
            3 * chord.rise - 2 * out - in,
            out + in - 2 * chord.rise};
}

/// The segment after key i of `count` by its type; keyAt(i) gives the keys.
template <class KeyAt> CurveSegment segmentAt(int i, int count, quint8 type, const KeyAt &keyAt)
{
    const CurveKey left = keyAt(i);
    const CurveKey right = keyAt(i + 1);
    if (type == VxKeyInterp::Constant)
        return {left.time, 1 / (right.time - left.time), left.value, 0, 0, 0};
    if (type == VxKeyInterp::Linear)
        return linearSegment(left, right);
    const CurveKey before = i > 0 ? keyAt(i - 1) : CurveKey();
    const CurveKey after = i + 2 < count ? keyAt(i + 2) : CurveKey();
    return tcbSegment(i > 0 ? &before : nullptr, left, right, i + 2 < count ? &after : nullptr);
}

#endif
