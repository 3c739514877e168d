#ifndef VXCLEARKEYSTARGETS_H
#define VXCLEARKEYSTARGETS_H

#include <QtCore/QVector>
#include <vxcore/vxclearkeysactions.h>

class VxNode;
class VxProperty;

/// The target nodes and properties of a clear-keys command: plain functions over lists, so that
/// they can be tested without an application.
namespace VxClearKeysTargets {

/** The given nodes; or, for Figures, the skeleton of each with all nodes of that figure. Each node
 *  once, in the order of discovery. Nodes below a figure that belong to another one, or to none,
 *  are not part of it. */
QVector<VxNode *> nodes(const QVector<VxNode *> &selected, VxClearKeysAction::Nodes which);

/** The properties of a node, its object and its object's parts. Pose: the transforms; Shape: the
 *  others. Without aliases and overridden properties: their keys are other properties'. */
QVector<VxProperty *> properties(const VxNode *node, VxClearKeysAction::Properties which);

} // namespace VxClearKeysTargets

#endif
