#ifndef VXNODE_H
#define VXNODE_H

#include <QtGui/QMatrix4x4>
#include <QtGui/QVector3D>
#include <array>
#include <optional>
#include <vxcore/vxelement.h>
#include <vxcore/vxeuler.h>
#include <vxcore/vxtime.h>

class QIcon;
class VxFloatProperty;
class VxObject;
class VxScene;
class VxSkeleton;

/// The values of the ten transform controls of a node at rest, in their order: translation along X,
/// Y and Z, rotation about X, Y and Z in degrees, uniform scale, scale along X, Y and Z.
using VxRestPose = std::array<float, 10>;

/// A node of the scene: a transform with ten controls in the hierarchy.
///
/// The controls are float properties in the groups "/General/Transforms/Translation",
/// ".../Rotation" (degrees) and ".../Scale". A node owns its child nodes and its object. Nodes
/// enter a scene with VxScene::addNode(). Within a scene and while a hold is open, changes of
/// hierarchy, object, label, visibility, selectability, rotation order, origin, end point and rest
/// pose are recorded for undo; the selection is not.
class VXCORE_EXPORT VxNode : public VxElement
{
    Q_OBJECT
    Q_PROPERTY(bool selected READ isSelected WRITE select)
    Q_PROPERTY(bool visible READ isVisible WRITE setVisible)
    Q_PROPERTY(bool selectable READ isSelectable WRITE setSelectable)
public:
    class Private;

    /// The deepest nesting of nodes, in levels: a root node is on level 1.
    static constexpr int MaxDepth = 4096;

    /// The order in which the rotations about the axes are multiplied, from left to right: ZYX is
    /// Rz * Ry * Rx, so X rotates a point first. Motion files list channels this way.
    enum RotationOrder { XYZ, XZY, YXZ, YZX, ZXY, ZYX };
    Q_ENUM(RotationOrder)

    explicit VxNode(const QString &name);
    ~VxNode() override;

    /// The scene the node is in, or null.
    VxScene *getScene() const;

    /// The highest identifier: numbers up to it are exact in every file format and in scripts.
    static constexpr quint64 MaxId = (quint64(1) << 53) - 1;
    /// The node's identifier, unique in its scene and kept in scene files; see
    /// VxScene::findNodeById(). 0 until the node is added to a scene for the first time. It stays
    /// the same when the node is removed and the removal is undone. A property has no number of its
    /// own: its name, which never changes, identifies it within its element.
    quint64 getId() const;
    /// Gives a node outside of a scene the identifier that it has in a file. When another node of
    /// the scene has it, or it is above MaxId, the node gets a new one there. Within a scene the
    /// call is ignored with a warning.
    void setId(quint64 id);

    Q_INVOKABLE VxNode *getNodeParent() const;
    Q_INVOKABLE int getNumNodeChildren() const;
    /// Null when index is outside 0 .. getNumNodeChildren() - 1.
    Q_INVOKABLE VxNode *getNodeChild(int index) const;
    /// Appends the children to a list; with recursive, each child is followed by its own.
    void getNodeChildren(QVector<VxNode *> &list, bool recursive = false) const;
    bool isAncestorOf(const VxNode *node) const;
    /// The node's level: the number of nodes from the top of its hierarchy to itself, at least 1.
    int getDepth() const;
    /// The index among the siblings (the parent's children, or the scene's root nodes); -1
    /// outside of both.
    int getSiblingIndex() const;

    /// False when the node itself, a node below it or a node of another scene would become its
    /// parent, or when a node would be on a level beyond MaxDepth. Null is the top level.
    bool canMoveBelow(const VxNode *parent) const;
    /// Makes the node a child of another, or a root node (null), with the given index among its
    /// new siblings (-1, or one beyond the end: last). False, and nothing changes, unless
    /// canMoveBelow().
    /// Emits parentChanged() when the parent differs. Outside of a scene a node without a parent
    /// belongs to the caller.
    bool setNodeParent(VxNode *parent, int index = -1);
    /// Builds a hierarchy outside of a scene: takes ownership of a node that has no parent.
    /// False, and the child stays the caller's, under the conditions of setNodeParent() or when
    /// the child has a parent or either is in a scene.
    bool addNodeChild(VxNode *child);

    /// The node's object or null; owned by the node. setObject() takes ownership. After
    /// objectChanged() the former object is destroyed, or kept by the history when the change is
    /// recorded. An object of another node is refused with a warning.
    Q_INVOKABLE VxObject *getObject() const;
    void setObject(VxObject *object);

    /// The nearest skeleton above a bone, the node itself for a skeleton, null for others.
    Q_INVOKABLE virtual VxSkeleton *getSkeleton() const;

    Q_INVOKABLE VxFloatProperty *getXPosControl() const;
    Q_INVOKABLE VxFloatProperty *getYPosControl() const;
    Q_INVOKABLE VxFloatProperty *getZPosControl() const;
    Q_INVOKABLE VxFloatProperty *getXRotControl() const;
    Q_INVOKABLE VxFloatProperty *getYRotControl() const;
    Q_INVOKABLE VxFloatProperty *getZRotControl() const;
    Q_INVOKABLE VxFloatProperty *getScaleControl() const;
    Q_INVOKABLE VxFloatProperty *getXScaleControl() const;
    Q_INVOKABLE VxFloatProperty *getYScaleControl() const;
    Q_INVOKABLE VxFloatProperty *getZScaleControl() const;
    /// One of these by its index in VxRestPose, 0 to 9, and the index of a name; -1 for other
    /// names.
    VxFloatProperty *getTransformControl(int index) const;
    static int getTransformControlIndex(const QString &name);

    bool isSelected() const;
    /// Selecting makes the node the primary selection. Selecting a node that is not selectable,
    /// or in no scene, does nothing.
    void select(bool onOff = true);
    /// A node that becomes unselectable is deselected.
    bool isSelectable() const;
    void setSelectable(bool selectable);
    bool isVisible() const;
    void setVisible(bool visible);
    /// True for a helper node that drives others by inverse kinematics.
    bool isIkNode() const;
    void setIkNode(bool ik);
    /// True for a hand or foot that stays where it is while nodes above it are posed: its limb is
    /// solved by inverse kinematics.
    bool isPinned() const;
    void setPinned(bool pinned);

    RotationOrder getRotationOrder() const;
    void setRotationOrder(RotationOrder order);
    /// The position in the parent's space before translation, and the end of the node's bone or
    /// axis, in the node's space.
    QVector3D getOrigin() const;
    void setOrigin(const QVector3D &origin);
    QVector3D getEndPoint() const;
    void setEndPoint(const QVector3D &endPoint);
    /// The rest pose, in which poses are mirrored and to which they are reset; none, as initially,
    /// when it is what the controls hold without their keys. Numbers must be finite.
    const std::optional<VxRestPose> &getRestPose() const;
    void setRestPose(const std::optional<VxRestPose> &restPose);
    /// The rest pose; where none was set, what the controls hold without their keys. A control that
    /// was not made yet, or holds no finite number, counts with its default.
    VxRestPose getRestValues() const;

    /// The transform at a time relative to the parent: translate(origin + position) * rotation *
    /// scale, where each axis is scaled by the uniform scale times its own; and relative to the
    /// world.
    QMatrix4x4 getLocalTransform(VxTime time) const;
    QMatrix4x4 getWorldTransform(VxTime time) const;

    /// The icon of the node's kind, from the application's style.
    virtual QIcon getIcon() const;

Q_SIGNALS:
    /// The node now has another parent (null: top level).
    void parentChanged(VxNode *node, VxNode *oldParent, VxNode *newParent);
    void objectChanged(VxNode *node, VxObject *oldObject, VxObject *newObject);
    void selectedChanged(bool selected);
    void visibleChanged(bool visible);

protected:
    VxNode(const QString &name, Private *priv);
    QVector<VxElement *> groupedElements() const override;
    Private *priv() const;
};

/// A node's rotation order for the functions of vxeuler.h.
inline VxRotationOrder vxRotationOrder(VxNode::RotationOrder order)
{
    return static_cast<VxRotationOrder>(order);
}

#endif
