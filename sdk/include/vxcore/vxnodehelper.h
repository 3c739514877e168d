#ifndef VXCORE_VXNODEHELPER_H
#define VXCORE_VXNODEHELPER_H

#include <vxcore/vxcoreglobal.h>
#include <vxcore/vxtime.h>

class VxNode;

/// Questions and edits that concern a node together with the nodes above it.
namespace VxNodeHelper {

/// True when the node and all nodes above it are visible, so that a view shows it.
VXCORE_EXPORT bool isShown(const VxNode *node);
/// The topmost node above the node that is not visible; null when there is none.
VXCORE_EXPORT VxNode *getHiddenAncestor(const VxNode *node);

/// Lets a node that goes from one parent to another (null: the top level) stay where it is in the
/// world: to be called before or after VxNode::setNodeParent(), for a node that is not above any
/// of the two.
///
/// Controls without keys get new values, for the given time. Keys stay at their times and get the
/// values with which the node is where it was at each of them; keys are added where a control has
/// to move in another way than before, and at the given time when the curve through the keys would
/// lead past the place. A difference that is the same for all keys changes nothing but their
/// values. Between keys the way may differ from before.
///
/// Returns false when the node is not where it was at the given time: a skew that rotation and
/// scale cannot express is lost; controls that are locked, linked or overridden stay as they are
/// (of the rotation all three, when one of them does); and below a parent of no size, or with
/// values that are no numbers, nothing is changed at all. Recorded for undo while a hold is open.
VXCORE_EXPORT bool keepWorldPlace(VxNode *node, const VxNode *oldParent, const VxNode *newParent,
                                  VxTime time);

} // namespace VxNodeHelper

#endif
