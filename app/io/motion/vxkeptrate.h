#ifndef VXKEPTRATE_H
#define VXKEPTRATE_H

#include <QString>
#include <vxcore/vxtime.h>

class VxNode;

/// The true frame rate of motion whose frames are no whole number of ticks, such as 29.97 frames
/// per second, stored with its top node in a property that cannot be keyed or edited. The scene
/// has the nearest step; the keys are at the nearest ticks of their true times.

/// Stores a rate (frames per second, above 0) with a node, replacing a stored one.
void vxKeepRate(VxNode *node, double rate);

/// The rate stored with a node or an ancestor, if it belongs to a step of the scene (ticks a
/// frame); 0 otherwise.
double vxKeptRate(const VxNode *node, VxTime step);

/// The same in a pass from parents to children: the node's own rate, or that of its parent.
double vxKeptRate(const VxNode *node, VxTime step, double ofParent);

/// The name of the property.
QString vxKeptRateName();

/// The exact rate for one in single precision: 30000 / 1001 for 29.97003, or the reciprocal of a
/// frame time with up to eight decimal places.
double vxExactRate(double rate);

#endif
