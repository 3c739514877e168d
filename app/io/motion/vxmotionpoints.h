#ifndef VXIO_VXMOTIONPOINTS_H
#define VXIO_VXMOTIONPOINTS_H

#include "io/motion/vximportedmotion.h"

#include <vxcore/vxcurvefit.h>
#include <vxcore/vxeuler.h>

/// The points of one curve on the scene's ticks while its clips are joined, and what was lost.
struct VxMotionPoints
{
    std::vector<VxCurvePoint> points;
    int merged = 0;     ///< keys that fell on the tick of another one and were dropped
    double error = 0.0; ///< from moving keys to whole ticks and from angles, in the value's unit

    /// A point after the last one; in its place where both have the same time.
    void append(const VxCurvePoint &point);
    /// A point that holds its value up to the next one.
    void appendHold(VxTime time, double value);
};

/// Puts a curve behind the points that there are. offset: seconds, added to its times.
void vxAppendCurve(const VxMotionCurve &curve, double offset, VxMotionPoints *points);

/// The same for a rotation track, as angles about X, Y and Z in an order. They begin with the
/// triple nearest to `rest` and continue without jumps. Keys are added where the angles between
/// two keys would differ from the track's rotation by more than `tolerance` degrees.
/// maxPoints: for each axis; false when they would not do.
bool vxAppendRotation(const VxMotionRotationTrack &track, double offset, VxRotationOrder order,
                      const VxEuler &rest, double tolerance, std::size_t maxPoints,
                      std::array<VxMotionPoints, 3> *points);

/// Keys for joined points: as they are where no segment is smooth, else fitted.
/// tolerance: in the value's unit.
VxFittedKeys vxKeysOf(const VxMotionPoints &points, double tolerance);

/// The keys of a curve with TCB and without cubic segments, as it has them; empty for any other.
VxFittedKeys vxTcbKeysOf(const VxMotionCurve &curve, double offset);

#endif
