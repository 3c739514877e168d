#ifndef VXNODEHELPER_H
#define VXNODEHELPER_H

#include <vxcore/vxcoreglobal.h>
#include <vxcore/vxtime.h>

class VxNode;

/// Functions on a node together with its ancestors.
namespace VxNodeHelper {

/// True when the node and all its ancestors are visible, so that a view shows it.
VXCORE_EXPORT bool isShown(const VxNode *node);
/// The topmost ancestor that is not visible; null when there is none.
VXCORE_EXPORT VxNode *getHiddenAncestor(const VxNode *node);

/// Keeps the world transform of a node that moves from one parent to another (null: the top
/// level). Call it before or after VxNode::setNodeParent(), for a node that is an ancestor of
/// neither.
///
/// Controls without keys get new values, for the given time. Keys keep their times and get the
/// values that preserve the world transform at each of them; keys are added where a control has to
/// move differently than before, and at the given time when the curve through the keys would miss
/// the transform. An offset that is equal for all keys changes nothing but their values. Between
/// keys the motion may differ from before.
///
/// Returns false when the world transform at the given time changed: a skew that rotation and
/// scale cannot express is lost; controls that are locked, linked or overridden stay unchanged (all
/// three of the rotation, if one of them does); and below a parent of zero scale, or with values
/// that are not finite, nothing is changed at all. Recorded for undo while a hold is open.
VXCORE_EXPORT bool keepWorldTransform(VxNode *node, const VxNode *oldParent,
                                      const VxNode *newParent, VxTime time);

} // namespace VxNodeHelper

#endif
