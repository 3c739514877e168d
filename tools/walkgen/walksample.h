#ifndef WALKSAMPLE_H
#define WALKSAMPLE_H

#include "io/bvh/vxbvhdocument.h"

class VxScene;

/// The sample scene: a walking figure with every kind of key and property that the program
/// supports.
namespace WalkSample {

/// Replaces what the scene holds. Trunk and legs are baked (a linear key each frame), the arms have
/// a few TCB keys, the fingers constant ones. Beside the figure there are an alias, both kinds of
/// link, a hidden, a percentage, an int, a switch, a text and a locked property.
void build(VxScene *scene);

/// The same walk as motion data: all rotations and the hip's position, sampled each frame.
VxBvhDocument motion();

} // namespace WalkSample

#endif
