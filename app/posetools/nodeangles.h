#ifndef NODEANGLES_H
#define NODEANGLES_H

#include "posetools/gesturenode.h"

#include <vxcore/vxlimbsolver.h>

/// The angles of a node that a gesture rotates, from its angles at the start.
namespace NodeAngles {

/// The rotation about an axis of the parent's space by an angle in degrees, applied after the
/// node's own. The angles continue those of the start over any number of revolutions.
VxEuler rotated(const GestureNode &node, const VxVector &axis, double degrees);
/// The same as far as limits allow: it ends where a channel would exceed its limits by more than at
/// the start. `allowed` receives the angle reached, in degrees.
VxEuler rotatedWithinLimits(const GestureNode &node, const VxVector &axis, double degrees,
                            double *allowed);

/// The axis about which one channel rotates the node, in the parent's space.
VxVector channelAxis(const GestureNode &node, int channel);
/// True when the rotation about an axis changes free channels only.
bool isRotatable(const GestureNode &node, const VxVector &axis);
/// True when any of the three angles is locked or linked.
bool hasLockedAngle(const GestureNode &node);

} // namespace NodeAngles

#endif
