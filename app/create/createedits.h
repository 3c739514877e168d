#ifndef CREATEEDITS_H
#define CREATEEDITS_H

#include <QString>
#include <QVector3D>
#include <QVector>

class VxNode;
class VxScene;

/// What a create command made, or why it made nothing.
struct CreateResult
{
    QVector<VxNode *> nodes; ///< the new nodes at the top of what was made; selected
    QString message;         ///< for the status line; empty when there is nothing to report

    bool isEmpty() const { return nodes.isEmpty(); }
};

/// New nodes in a scene. Each function makes one undo entry when it makes anything, selects what it
/// made and gives it a name that no other node has.
namespace CreateEdits {

/// The length of a new bone, in the scene's unit (centimetres in the shipped figure).
constexpr float BoneLength = 10;

/// A plain node at the origin of the parent's space (null: of the world).
CreateResult addNode(VxScene *scene, VxNode *parent);
/// An empty figure at the world's origin.
CreateResult addSkeleton(VxScene *scene);
/// A bone at the end of the parent bone, or at the origin of a parent of another kind. It continues
/// in the parent bone's direction, or leads up along Y when the parent has none. Nothing without a
/// parent.
CreateResult addBone(VxScene *scene, VxNode *parent);
/// A bone as addBone() makes it that ends at a point in the world, at the scene's time. Nothing
/// when the parent's world transform has no inverse.
CreateResult addBoneTo(VxScene *scene, VxNode *parent, const QVector3D &end);
/// A chain of bones from joint to joint, in the world at the scene's time; two joints at least. The
/// first bone is a child of the parent, a new skeleton without one. Nothing when the parent's world
/// transform has no inverse. Selects the last bone.
CreateResult addBoneChain(VxScene *scene, VxNode *parent, const QVector<QVector3D> &joints);
/// The shipped figure, see makeStandardFigure().
CreateResult addFigure(VxScene *scene);

/// Copies nodes with their keys and everything below them. A copy is the last child of the same
/// parent. See NodeCopy for references.
CreateResult duplicate(VxScene *scene, const QVector<VxNode *> &nodes);
/// Puts nodes below a new node, which is a child of their nearest common ancestor. They keep their
/// world transforms; the message reports those that could not.
CreateResult group(VxScene *scene, const QVector<VxNode *> &nodes);

} // namespace CreateEdits

#endif
