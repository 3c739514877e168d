#ifndef VXCLEARKEYSTARGETS_H
#define VXCLEARKEYSTARGETS_H

#include <QtCore/QVector>
#include <vxcore/vxclearkeysactions.h>

class VxNode;
class VxProperty;

/// Which nodes and which of their properties a clear-keys command works on: plain functions over
/// lists, so that they can be tested without an application.
namespace VxClearKeysTargets {

/** The given nodes; or, for Figures, the skeleton of each with all nodes of that figure. Each node
 *  once, in the order in which it is met. Nodes below a figure that belong to another one, or to
 *  none, are not part of it. */
QVector<VxNode *> nodes(const QVector<VxNode *> &selected, VxClearKeysAction::Nodes which);

/** The properties of a node, its object and its object's parts. Pose: the transforms; Shape: the
 *  others. A property that shows the keys of another one is left out: the keys are the other's. */
QVector<VxProperty *> properties(const VxNode *node, VxClearKeysAction::Properties which);

} // namespace VxClearKeysTargets

#endif
