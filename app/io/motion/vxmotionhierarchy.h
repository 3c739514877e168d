#ifndef VXIO_VXMOTIONHIERARCHY_H
#define VXIO_VXMOTIONHIERARCHY_H

#include "io/motion/vximportedmotion.h"

/// Brings the nodes of a motion into the form that scenes have. Channels follow their nodes.
///
/// - A node with an orientation becomes two: one with translation and orientation, and below it
///   the node itself with rotation and scale.
/// - Bones without a figure's root above them get one: the node right above the top bones, else a
///   new node named figureName.
/// - An up axis other than Y gets a node above everything that turns it to Y.
/// - Nodes without a name get one.
///
/// Returns whether the up axis was turned.
bool vxArrangeHierarchy(const QString &figureName, VxImportedMotion *motion);

#endif
