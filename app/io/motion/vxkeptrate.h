#ifndef VXIO_VXKEPTRATE_H
#define VXIO_VXKEPTRATE_H

#include <vxcore/vxtime.h>

class VxNode;

/// The true frame rate of motion whose frames are no whole number of ticks, such as 29.97 frames
/// per second, kept with its top node in a property that has no keys and cannot be edited. The
/// scene has the nearest step; the keys lie at the nearest ticks of their true times.

/// Keeps a rate (frames per second, above 0) with a node; replaces one that was kept before.
void vxKeepRate(VxNode *node, double rate);

/// The rate that is kept with a node or with one above it, where it belongs to a step of the scene
/// (ticks a frame); 0 otherwise.
double vxKeptRate(const VxNode *node, VxTime step);

#endif
