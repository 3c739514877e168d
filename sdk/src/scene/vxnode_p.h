#ifndef VXNODE_P_H
#define VXNODE_P_H

#include "scene/nodecontrols.h"
#include "scene/vxelement_p.h"

#include <QtGui/QIcon>

enum class NodeIcon { Node, Skeleton, Bone };
/// The icon of a kind of nodes, or an empty one without an application. Implemented with the
/// application, which has the style.
QIcon vxNodeIcon(NodeIcon kind);

class VxNode::Private : public VxElement::Private
{
public:
    static Private *of(VxNode *node) { return node->priv(); }
    static const Private *of(const VxNode *node) { return node->priv(); }

    bool isBuiltIn(const VxProperty *property) const override;
    void propertyLost(VxProperty *property) override;
    void elementLost(VxElement *element) override;

    VxProperty *makeProperty(int index) override;
    int unmadeIndexOf(const QString &controlName) const override;
    /// A control, created if missing; null when it was destroyed.
    VxFloatProperty *control(NodeControl control);
    /// All of them.
    const NodeControls &allControls();

    VxNode *self() const { return static_cast<VxNode *>(q); }
    /// Changes a plain value by vxChange(), recorded when the node is in a scene. kind is a
    /// VxSceneUndoKind.
    template <auto get, auto set, class Value>
    bool change(int kind, Value *member, const Value &value);
    /// Notifies the scene that its views need repainting.
    void touchView();
    /// Replaces the object by another one, which has no owner, or by null, and reports it. Returns
    /// the former one, which then has no owner.
    VxObject *exchangeObject(VxObject *object);
    /// The node with everything below it, each parent before its children.
    static void collectNodes(VxNode *top, QVector<VxNode *> &list);
    /// False when the lowest node of this hierarchy would exceed MaxDepth below another.
    bool fitsBelow(const VxNode *newParent) const;
    /// Sets the node's depth by its parent, and the depths of everything below it.
    void updateDepth();
    /// Moves the node within a hierarchy that is in no scene.
    void moveOutside(VxNode *newParent, int index);

    quint64 id = 0;
    VxNode *parent = nullptr;
    QVector<VxNode *> children;
    VxObject *object = nullptr;
    /// Null for those not yet created (see unmade) and those that were destroyed; both count with
    /// their default values.
    NodeControls controls = {};
    /// A bit for each control not yet created. In the list of properties they are null, in their
    /// order.
    quint16 unmade = (1u << NodeControlCount) - 1;
    RotationOrder rotationOrder = XYZ;
    QVector3D origin;
    QVector3D endPoint;
    std::optional<VxRestPose> restPose;
    /// The number of nodes from the top of the hierarchy to this one; 1 without a parent.
    int depth = 1;
    /// The node's last known index among its siblings.
    int siblingHint = 0;
    /// The index in the selection's list, or -1 when not selected.
    int selectionIndex = -1;
    bool selectable = true;
    bool visible = true;
    bool ik = false;
    bool pinned = false;
    /// Between the announcement of its removal and the removal.
    bool leaving = false;

private:
    VxFloatProperty *make(NodeControl control, int index);
    int indexOfUnmade(NodeControl control) const;
};

#endif
