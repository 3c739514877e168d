#ifndef SCENEEDITS_H
#define SCENEEDITS_H

#include <QString>
#include <QVector>

class VxNode;
class VxScene;

/// What a user can do to the nodes of a scene by hand. Each function makes one entry in the
/// history, under a text that names the node, or says how many there are; a call that changes
/// nothing makes none and returns false.
namespace SceneEdits {

/// Gives a node another label, blanks at its ends left out. An empty one is refused.
bool rename(VxNode *node, const QString &label);

/// Takes the nodes out of the scene with everything below them.
bool remove(VxScene *scene, const QVector<VxNode *> &nodes);

bool setVisible(const QVector<VxNode *> &nodes, bool visible);

/// What a node keeps when it gets another parent: its place in the world at the scene's time and
/// at its keys, which get other values for it, or the values of its controls, with which it jumps
/// to where they lead below the new parent.
enum class Kept { WorldPlace, Values };

/// Puts the nodes, in the order of the hierarchy, below a parent (null: the top level), before the
/// child that is at `index` now; -1, or one beyond the end: behind the last one. Nodes below
/// another one of the list go along with it. Those that could not keep their places, see
/// VxNodeHelper::keepWorldPlace(), are appended to `displaced`.
bool move(VxScene *scene, const QVector<VxNode *> &nodes, VxNode *parent, int index,
          Kept kept = Kept::WorldPlace, QVector<VxNode *> *displaced = nullptr);
/// False when the parent is one of the nodes or below one.
bool canMove(const QVector<VxNode *> &nodes, const VxNode *parent);

/// Those of the nodes that are not below another one of them, in the order of the hierarchy.
QVector<VxNode *> topmost(const VxScene *scene, const QVector<VxNode *> &nodes);

} // namespace SceneEdits

#endif
