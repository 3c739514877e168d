#ifndef VXMOTIONHIERARCHY_H
#define VXMOTIONHIERARCHY_H

#include "io/motion/vximportedmotion.h"

/// Normalises the nodes of a motion for scenes. Channels follow their nodes.
///
/// - A node with an orientation becomes two: one with translation and orientation, and below it
///   the node itself with rotation and scale.
/// - Bones without a figure's root above them get one: the node right above the top bones, else a
///   new node named figureName.
/// - An up axis other than Y gets a top node that rotates it to Y.
/// - Nodes without a name get one.
///
/// Returns whether the up axis was rotated.
bool vxArrangeHierarchy(const QString &figureName, VxImportedMotion *motion);

#endif
