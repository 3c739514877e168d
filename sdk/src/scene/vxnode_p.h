#ifndef VXNODE_P_H
#define VXNODE_P_H

#include "scene/nodecontrols.h"
#include "scene/vxelement_p.h"
#include <QtGui/QIcon>

/// The icons of nodes, which the application has.
enum class NodeIcon { Node, Skeleton, Bone };
/// Gives the icon of a kind of nodes; set by the application object while it exists, else null.
extern QIcon (*vxNodeIconSource)(NodeIcon kind);
/// The icon, or an empty one without an application.
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
    /// A control, made now if it does not exist yet; null when it was destroyed.
    VxFloatProperty *control(NodeControl control);
    /// All of them.
    const NodeControls &allControls();

    VxNode *self() const { return static_cast<VxNode *>(q); }
    /// Records a plain value for undo when the node is in a scene. kind is a VxSceneUndoKind.
    template <class Value>
    void record(int kind, Value (*get)(const VxNode *), void (*set)(VxNode *, const Value &));
    /// Tells the scene that a picture of it is out of date.
    void touchView();
    /// Puts another object, which no element has, or null in the place of the present one, and
    /// tells of it. Returns the former one, which belongs to nobody then.
    VxObject *exchangeObject(VxObject *object);
    /// The node with everything below it, each parent before its children.
    static void collectNodes(VxNode *top, QVector<VxNode *> &list);
    /// False when the lowest node of this hierarchy would be deeper than MaxDepth below another.
    bool fitsBelow(const VxNode *newParent) const;
    /// Sets the node's depth by its parent, and the depths of everything below it.
    void updateDepth();
    /// Moves the node within a hierarchy that is in no scene.
    void moveOutside(VxNode *newParent, int index);

    VxNode *parent = nullptr;
    QVector<VxNode *> children;
    VxObject *object = nullptr;
    /// Null for those that are not made yet (unmade says which) and those that were destroyed;
    /// both count with their default values.
    NodeControls controls = {};
    /// A bit for each control that is not made yet. In the list of properties they are null, in
    /// their order.
    quint16 unmade = (1u << NodeControlCount) - 1;
    RotationOrder rotationOrder = XYZ;
    QVector3D origin;
    QVector3D endPoint;
    /// The number of nodes from the top of the hierarchy to this one; 1 without a parent.
    int depth = 1;
    /// Where the node was last found among its siblings.
    int siblingHint = 0;
    /// The place in the selection's list, or -1 when not selected.
    int selectionIndex = -1;
    bool selectable = true;
    bool visible = true;
    bool ik = false;
    /// Between the announcement of its removal and the removal.
    bool leaving = false;

private:
    VxFloatProperty *make(NodeControl control, int index);
    int indexOfUnmade(NodeControl control) const;
};

#endif
