#ifndef TCBCHAIN_H
#define TCBCHAIN_H

#include "keys/keysegment.h"

#include <array>
#include <vector>
#include <vxcore/vxcurvefit.h>

/// Relative difference below which values in single precision count as equal.
constexpr double SinglePrecision = 1.2e-7;

/// The target of a fit: one curve, or three that are judged together.
class FitTarget
{
public:
    static constexpr int MaxChannels = 3;
    struct Point
    {
        std::array<double, MaxChannels> value;
        std::array<double, MaxChannels> slope; ///< per tick
    };

    virtual ~FitTarget() = default;
    virtual Point at(VxTime time) const = 0;
    /// The distance between values and the target at a time.
    virtual double error(VxTime time, const std::array<double, MaxChannels> &values) const = 0;
    /// The times between two keys, both excluded, at which the error is measured.
    virtual void places(VxTime from, VxTime to, std::vector<VxTime> *times) const = 0;
};

/// Keys of one to three channels at common times, with the desired tangents of the curves.
///
///     times     t0        t1        t2
///     slopes    | out  in | out  in |      per tick and channel
///
/// keys() expresses the tangents by tension, continuity and bias. refine() adds keys until the
/// resulting curves are within an error of the target.
class TcbChain
{
public:
    struct Knot
    {
        VxTime time = 0;
        quint8 type = VxKeyInterp::Tcb; ///< of the segment on the right
        std::array<double, FitTarget::MaxChannels> value = {};
        std::array<double, FitTarget::MaxChannels> in = {};
        std::array<double, FitTarget::MaxChannels> out = {};
    };

    TcbChain(int channels, std::vector<Knot> knots);

    /// Returns the remaining error: above `error` only where no tick is left for a key.
    double refine(const FitTarget &target, double error);
    VxFittedKeys keys(int channel) const;

private:
    struct Split
    {
        std::size_t segment;
        VxTime time;
    };
    void straightenAfterSmooth();
    void shapeKeys();
    CurveSegment segment(std::size_t i, int channel) const;
    CurveKey curveKey(std::size_t i, int channel) const;
    double worst(const FitTarget &target, std::size_t segment, VxTime *time);
    void insert(const FitTarget &target, const std::vector<Split> &splits);

    int m_channels;
    std::vector<Knot> m_knots;
    std::vector<std::array<VxTcb, FitTarget::MaxChannels>> m_tcb;
    std::vector<VxTime> m_places;
};

/// The shape that gives a key the tangents `in` and `out` (per tick) between two chords.
VxTcb tcbOfTangents(const CurveChord &left, const CurveChord &right, double in, double out);

#endif
