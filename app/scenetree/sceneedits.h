#ifndef SCENEEDITS_H
#define SCENEEDITS_H

#include <QString>
#include <QVector>

class VxNode;
class VxScene;

/// A user's edits of the nodes of a scene. Each function makes one undo entry, whose text has the
/// name or the number of the nodes; a call that changes nothing makes none and returns false.
namespace SceneEdits {

/// Gives a node another label, trimmed. An empty one is refused.
bool rename(VxNode *node, const QString &label);

/// Removes the nodes and everything below them from the scene.
bool remove(VxScene *scene, const QVector<VxNode *> &nodes);

bool setVisible(const QVector<VxNode *> &nodes, bool visible);

/// Selects these nodes and no others. Makes no undo entry.
void selectOnly(VxScene *scene, const QVector<VxNode *> &nodes);
/// Adds everything below the selected nodes to the selection; the primary one stays. Makes no undo
/// entry.
void selectChildren(VxScene *scene);

/// The invariant of a reparented node: its world transform at the scene's time and at its keys,
/// which get other values for it, or the values of its controls, with which it jumps to another
/// place below the new parent.
enum class Kept { WorldPlace, Values };

/// Moves the nodes, in the order of the hierarchy, below a parent (null: the top level), before the
/// child that is at `index` now; -1, or one beyond the end: behind the last one. Nodes below
/// another one of the list move along with it. `displaced` receives those whose world transform
/// changed, see VxNodeHelper::keepWorldTransform().
bool move(VxScene *scene, const QVector<VxNode *> &nodes, VxNode *parent, int index,
          Kept kept = Kept::WorldPlace, QVector<VxNode *> *displaced = nullptr);
/// False when the parent is one of the nodes or below one.
bool canMove(const QVector<VxNode *> &nodes, const VxNode *parent);

/// The nodes that are not below another one of the list, in the order of the hierarchy.
QVector<VxNode *> topmost(const VxScene *scene, const QVector<VxNode *> &nodes);
/// The nodes and everything below them, each once, parents first.
QVector<VxNode *> trees(const VxScene *scene, const QVector<VxNode *> &nodes);

} // namespace SceneEdits

#endif
