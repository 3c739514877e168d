#include "scene/vxnode_p.h"

#include "scene/deferreddeletion.h"
#include "scene/elementundo.h"
#include "scene/scenenodes.h"
#include "scene/vxscene_p.h"
#include "undo/vxundovalueitem.h"

#include <algorithm>
#include <cmath>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxobject.h>

namespace {

bool isFinite(const QVector3D &point)
{
    return std::isfinite(point.x()) && std::isfinite(point.y()) && std::isfinite(point.z());
}

} // namespace

template <auto get, auto set, class Value>
bool VxNode::Private::change(int kind, Value *member, const Value &value)
{
    return vxChange<get, set>(self(), kind, member, value, scene != nullptr);
}

VxNode::VxNode(const QString &name)
    : VxNode(name, new Private)
{
}

VxNode::VxNode(const QString &name, Private *priv)
    : VxElement(name, priv)
{
    priv->properties.fill(nullptr, NodeControlCount);
}

VxNode::~VxNode()
{
    Private *record = priv();
    if (record->scene) {
        if (VxUndoStack *stack = VxUndoStack::current())
            stack->noteUnrecordedChange();
        VxScene::Private::of(record->scene)->nodes.take({this});
    }
    record->announceRemoval();
    if (record->parent)
        Private::of(record->parent)->children.removeOne(this);
    // From the lowest up, so that no destructor recurses, however deep the hierarchy is.
    QVector<VxNode *> below;
    Private::collectNodes(this, below);
    for (int i = below.size() - 1; i > 0; --i) {
        Private *lower = Private::of(below.at(i));
        lower->parent = nullptr;
        lower->children.clear();
        delete below.at(i);
    }
    record->children.clear();
    if (VxObject *object = record->object) {
        record->object = nullptr;
        VxElement::Private::of(object)->owner = nullptr;
        delete object;
    }
}

VxNode::Private *VxNode::priv() const
{
    return static_cast<Private *>(VxElement::priv());
}

VxScene *VxNode::getScene() const
{
    return priv()->scene;
}

quint64 VxNode::getId() const
{
    return priv()->id;
}

void VxNode::setId(quint64 id)
{
    if (priv()->scene)
        qWarning("VxNode::setId(): %s is in a scene", qUtf8Printable(getName()));
    else
        priv()->id = id;
}

VxNode *VxNode::getNodeParent() const
{
    return priv()->parent;
}

int VxNode::getNumNodeChildren() const
{
    return priv()->children.size();
}

VxNode *VxNode::getNodeChild(int index) const
{
    return priv()->children.value(index);
}

void VxNode::getNodeChildren(QVector<VxNode *> &list, bool recursive) const
{
    if (!recursive) {
        list += priv()->children;
        return;
    }
    for (VxNode *child : qAsConst(priv()->children))
        Private::collectNodes(child, list);
}

bool VxNode::isAncestorOf(const VxNode *node) const
{
    // Skips the walk up for a node without children, as in building long chains.
    const bool canBe = node && !priv()->children.isEmpty();
    const VxNode *above = canBe ? node->getNodeParent() : nullptr;
    while (above && above != this)
        above = above->getNodeParent();
    return above != nullptr;
}

int VxNode::getDepth() const
{
    return priv()->depth;
}

int VxNode::getSiblingIndex() const
{
    const Private *record = priv();
    if (record->parent)
        return SceneNodes::indexIn(Private::of(record->parent)->children, this);
    return record->scene
               ? SceneNodes::indexIn(VxScene::Private::of(record->scene)->nodes.roots(), this)
               : -1;
}

bool VxNode::canMoveBelow(const VxNode *parent) const
{
    return !parent || (parent != this && !isAncestorOf(parent) &&
                       parent->getScene() == getScene() && priv()->fitsBelow(parent));
}

bool VxNode::setNodeParent(VxNode *parent, int index)
{
    if (!canMoveBelow(parent))
        return false;
    if (getScene())
        VxScene::Private::of(getScene())->nodes.move(this, parent, index);
    else
        priv()->moveOutside(parent, index);
    return true;
}

bool VxNode::addNodeChild(VxNode *child)
{
    if (!child || child->getNodeParent() || child->getScene() || getScene())
        return false;
    return child->setNodeParent(this);
}

VxObject *VxNode::getObject() const
{
    return priv()->object;
}

void VxNode::setObject(VxObject *object)
{
    VxObject *former = priv()->object;
    if (object == former)
        return;
    if (object && object->getOwnerElement()) {
        qWarning("VxNode::setObject(): \"%s\" belongs to \"%s\" and cannot be added to \"%s\"",
                 qUtf8Printable(object->getName()),
                 qUtf8Printable(object->getOwnerElement()->getName()), qUtf8Printable(getName()));
        return;
    }
    // The history needs no object that the hold itself has set.
    const DeferredDeletion hold;
    const NodeObjectItem *item = recordObject(this);
    const bool isKept = item && item->kept() == former;
    priv()->exchangeObject(object);
    if (!isKept)
        DeferredDeletion::discard(former);
}

VxSkeleton *VxNode::getSkeleton() const
{
    return nullptr;
}

VxFloatProperty *VxNode::getTransformControl(int index) const
{
    return priv()->control(static_cast<NodeControl>(index));
}

int VxNode::getTransformControlIndex(const QString &name)
{
    return nodeControlOfName(name);
}

// Not in the header: modules that were built before call them in the library.
VxFloatProperty *VxNode::getXPosControl() const
{
    return priv()->control(XPosition);
}

VxFloatProperty *VxNode::getYPosControl() const
{
    return priv()->control(YPosition);
}

VxFloatProperty *VxNode::getZPosControl() const
{
    return priv()->control(ZPosition);
}

VxFloatProperty *VxNode::getXRotControl() const
{
    return priv()->control(XRotation);
}

VxFloatProperty *VxNode::getYRotControl() const
{
    return priv()->control(YRotation);
}

VxFloatProperty *VxNode::getZRotControl() const
{
    return priv()->control(ZRotation);
}

VxFloatProperty *VxNode::getScaleControl() const
{
    return priv()->control(UniformScale);
}

VxFloatProperty *VxNode::getXScaleControl() const
{
    return priv()->control(XScale);
}

VxFloatProperty *VxNode::getYScaleControl() const
{
    return priv()->control(YScale);
}

VxFloatProperty *VxNode::getZScaleControl() const
{
    return priv()->control(ZScale);
}

bool VxNode::isSelected() const
{
    return priv()->selectionIndex >= 0;
}

void VxNode::select(bool onOff)
{
    if (!getScene())
        return;
    SceneSelection &selection = VxScene::Private::of(getScene())->selection;
    if (onOff)
        selection.select({this});
    else
        selection.deselect({this});
}

bool VxNode::isSelectable() const
{
    return priv()->selectable;
}

void VxNode::setSelectable(bool selectable)
{
    if (!priv()->change<&VxNode::isSelectable, &VxNode::setSelectable>(
            VxUndoNodeSelectable, &priv()->selectable, selectable))
        return;
    const DeferredDeletion hold;
    if (!selectable)
        select(false);
}

bool VxNode::isVisible() const
{
    return priv()->visible;
}

void VxNode::setVisible(bool visible)
{
    if (!priv()->change<&VxNode::isVisible, &VxNode::setVisible>(VxUndoNodeVisible,
                                                                 &priv()->visible, visible))
        return;
    const DeferredDeletion hold;
    Q_EMIT visibleChanged(visible);
    if (VxScene *scene = getScene())
        Q_EMIT scene->nodeVisibleChanged(this, visible);
    priv()->touchView();
}

bool VxNode::isIkNode() const
{
    return priv()->ik;
}

void VxNode::setIkNode(bool ik)
{
    if (priv()->change<&VxNode::isIkNode, &VxNode::setIkNode>(VxUndoNodeIk, &priv()->ik, ik))
        priv()->touchView();
}

bool VxNode::isPinned() const
{
    return priv()->pinned;
}

void VxNode::setPinned(bool pinned)
{
    if (priv()->change<&VxNode::isPinned, &VxNode::setPinned>(VxUndoNodePinned, &priv()->pinned,
                                                              pinned))
        priv()->touchView();
}

VxNode::RotationOrder VxNode::getRotationOrder() const
{
    return priv()->rotationOrder;
}

void VxNode::setRotationOrder(RotationOrder order)
{
    if (order < XYZ || order > ZYX) {
        qWarning("VxNode::setRotationOrder(): %d is not a rotation order", int(order));
        return;
    }
    if (priv()->change<&VxNode::getRotationOrder, &VxNode::setRotationOrder>(
            VxUndoNodeRotationOrder, &priv()->rotationOrder, order))
        priv()->touchView();
}

QVector3D VxNode::getOrigin() const
{
    return priv()->origin;
}

void VxNode::setOrigin(const QVector3D &origin)
{
    if (!isFinite(origin)) {
        qWarning("VxNode::setOrigin(): the origin of \"%s\" is not finite",
                 qUtf8Printable(getName()));
        return;
    }
    if (priv()->change<&VxNode::getOrigin, &VxNode::setOrigin>(VxUndoNodeOrigin, &priv()->origin,
                                                               origin))
        priv()->touchView();
}

QVector3D VxNode::getEndPoint() const
{
    return priv()->endPoint;
}

void VxNode::setEndPoint(const QVector3D &endPoint)
{
    if (!isFinite(endPoint)) {
        qWarning("VxNode::setEndPoint(): the end point of \"%s\" is not finite",
                 qUtf8Printable(getName()));
        return;
    }
    if (priv()->change<&VxNode::getEndPoint, &VxNode::setEndPoint>(VxUndoNodeEndPoint,
                                                                   &priv()->endPoint, endPoint))
        priv()->touchView();
}

const std::optional<VxRestPose> &VxNode::getRestPose() const
{
    return priv()->restPose;
}

void VxNode::setRestPose(const std::optional<VxRestPose> &restPose)
{
    if (restPose && !std::all_of(restPose->begin(), restPose->end(),
                                 [](float value) { return std::isfinite(value); })) {
        qWarning("VxNode::setRestPose(): the rest pose of \"%s\" is not finite",
                 qUtf8Printable(getName()));
        return;
    }
    priv()->change<&VxNode::getRestPose, &VxNode::setRestPose>(VxUndoNodeRestPose,
                                                               &priv()->restPose, restPose);
}

VxRestPose VxNode::getRestValues() const
{
    if (const std::optional<VxRestPose> &set = priv()->restPose)
        return *set;
    VxRestPose values;
    for (size_t i = 0; i < values.size(); ++i) {
        const VxFloatProperty *control = priv()->controls[i];
        const bool isUsable = control && std::isfinite(control->getStoredValue());
        values[i] = isUsable ? control->getStoredValue()
                             : float(nodeControlDefault(static_cast<NodeControl>(i)));
    }
    return values;
}

QMatrix4x4 VxNode::getLocalTransform(VxTime time) const
{
    const Private *record = priv();
    return nodeTransform(nodeControlValues(record->controls, time), record->rotationOrder,
                         record->origin)
        .toMatrix();
}

QMatrix4x4 VxNode::getWorldTransform(VxTime time) const
{
    QMatrix4x4 matrix = getLocalTransform(time);
    for (const VxNode *above = getNodeParent(); above; above = above->getNodeParent())
        matrix = above->getLocalTransform(time) * matrix;
    return matrix;
}

QIcon VxNode::getIcon() const
{
    return vxNodeIcon(NodeIcon::Node);
}

QVector<VxElement *> VxNode::groupedElements() const
{
    return priv()->object ? QVector<VxElement *>{priv()->object} : QVector<VxElement *>{};
}
