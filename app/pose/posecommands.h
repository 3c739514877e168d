#ifndef POSECOMMANDS_H
#define POSECOMMANDS_H

#include <QString>
#include <QVector>

class VxNode;
class VxScene;

/// What a command did, as one sentence or a few for the status line; never empty.
struct PoseResult
{
    bool done = false; ///< false: nothing was changed
    QString message;

    static PoseResult nothingSelected();
};

/// Commands on the pose of figures at the scene's time. Each that changes the scene makes one undo
/// entry; the selection is not recorded. Values are set as by hand, see PoseWriter.
namespace PoseCommands {

/// Keeps the pose of the selected nodes and everything below them, until the next copy.
PoseResult copy(const VxScene *scene);
/// Gives the copied pose to the nodes of the same names in the figures of the selection; without a
/// selection in the figure that it was copied from. Mirrored: to the nodes of the other side, as
/// the mirror image at the figure's mirror plane.
PoseResult paste(VxScene *scene, bool mirrored);
/// Gives the pose of the selected nodes and everything below them to the nodes of the other side,
/// mirrored relative to the parents. Nodes of both sides are swapped, and nodes of no side mirrored
/// in place.
PoseResult mirrorSelected(VxScene *scene);
/// Sets the selected nodes to their rest pose; a skeleton includes all its nodes.
PoseResult resetToRest(VxScene *scene);
/// Makes the present pose the rest pose of the selected nodes; a skeleton includes all its nodes.
PoseResult setRest(VxScene *scene);

/// Selects the nodes of the other side instead of the selected ones.
PoseResult selectMirror(VxScene *scene);
/// Adds everything below the selected nodes to the selection.
PoseResult selectChildren(VxScene *scene);
/// Selects the parents of the selected nodes instead of them.
PoseResult selectParents(VxScene *scene);

/// The selected nodes and everything below them, parents first.
QVector<VxNode *> selectedTrees(const VxScene *scene);
/// The selected nodes; a skeleton includes all nodes below it, unless it has none.
QVector<VxNode *> selectedJoints(const VxScene *scene);

} // namespace PoseCommands

#endif
