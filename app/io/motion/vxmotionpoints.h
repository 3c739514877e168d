#ifndef VXMOTIONPOINTS_H
#define VXMOTIONPOINTS_H

#include "io/motion/vximportedmotion.h"

#include <vxcore/vxcurvefit.h>
#include <vxcore/vxeuler.h>

/// The points of one curve on the scene's ticks while its clips are joined, and the losses.
struct VxMotionPoints
{
    std::vector<VxCurvePoint> points;
    int merged = 0;     ///< keys dropped because another one has their tick
    double error = 0.0; ///< from rounding keys to whole ticks and from angles, in the value's unit

    /// Appends a point; replaces the last one at the same time.
    void append(const VxCurvePoint &point);
    /// Appends a point that holds its value up to the next one.
    void appendHold(VxTime time, double value);
};

/// Appends a curve to the points. offset: seconds, added to its times.
void vxAppendCurve(const VxMotionCurve &curve, double offset, VxMotionPoints *points);

/// The same for a rotation track, as angles about X, Y and Z in an order. They begin with the
/// triple nearest to `rest` and continue without jumps. Keys are added where the angles between
/// two keys would differ from the track's rotation by more than `tolerance` degrees.
/// maxPoints: for each axis; false when more would be needed.
bool vxAppendRotation(const VxMotionRotationTrack &track, double offset, VxRotationOrder order,
                      const VxEuler &rest, double tolerance, std::size_t maxPoints,
                      std::array<VxMotionPoints, 3> *points);

/// Keys for joined points: as they are where no segment is smooth, else fitted.
/// tolerance: in the value's unit.
VxFittedKeys vxKeysOf(const VxMotionPoints &points, double tolerance);

/// The keys of a curve with TCB and without cubic segments, as it has them; empty for any other.
VxFittedKeys vxTcbKeysOf(const VxMotionCurve &curve, double offset);

#endif
