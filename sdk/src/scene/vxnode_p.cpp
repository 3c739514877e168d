#include "scene/vxnode_p.h"

#include "keys/vxproperty_p.h"
#include "scene/deferreddeletion.h"
#include "scene/vxscene_p.h"

#include <algorithm>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxobject.h>

bool VxNode::Private::isBuiltIn(const VxProperty *property) const
{
    return std::find(controls.begin(), controls.end(), property) != controls.end();
}

void VxNode::Private::propertyLost(VxProperty *property)
{
    for (VxFloatProperty *&control : controls) {
        if (control == property)
            control = nullptr;
    }
}

VxFloatProperty *VxNode::Private::make(NodeControl control, int index)
{
    VxFloatProperty *property = makeNodeControl(control);
    property->setParent(q);
    VxProperty::Private::of(property)->owner = q;
    properties[index] = property;
    byName.insert(property->getName(), property);
    controls[size_t(control)] = property;
    unmade = quint16(unmade & ~(1u << control));
    return property;
}

/** Unmade controls and null entries of the list have the same order. */
int VxNode::Private::indexOfUnmade(NodeControl control) const
{
    int before = 0;
    for (int i = 0; i < control; ++i)
        before += unmade >> i & 1;
    int index = properties.indexOf(nullptr);
    for (; before > 0; --before)
        index = properties.indexOf(nullptr, index + 1);
    return index;
}

VxProperty *VxNode::Private::makeProperty(int index)
{
    auto before = std::count(properties.cbegin(), properties.cbegin() + index, nullptr);
    int control = 0;
    while (!(unmade >> control & 1) || before-- > 0)
        ++control;
    return make(static_cast<NodeControl>(control), index);
}

int VxNode::Private::unmadeIndexOf(const QString &controlName) const
{
    const int control = unmade ? nodeControlOfName(controlName) : -1;
    return control >= 0 && (unmade >> control & 1)
               ? indexOfUnmade(static_cast<NodeControl>(control))
               : -1;
}

VxFloatProperty *VxNode::Private::control(NodeControl control)
{
    return unmade >> control & 1 ? make(control, indexOfUnmade(control))
                                 : controls[size_t(control)];
}

const NodeControls &VxNode::Private::allControls()
{
    for (int i = 0; unmade != 0 && i < NodeControlCount; ++i)
        control(static_cast<NodeControl>(i));
    return controls;
}

void VxNode::Private::elementLost(VxElement *element)
{
    if (element == object)
        object = nullptr;
    invalidateGroups();
    notifyPropertiesChanged();
}

void VxNode::Private::touchView()
{
    if (scene)
        VxScene::Private::of(scene)->touchView();
}

VxObject *VxNode::Private::exchangeObject(VxObject *newObject)
{
    const DeferredDeletion hold;
    VxObject *former = object;
    if (former) {
        VxElement::Private::of(former)->announceRemovalOfAll();
        VxElement::Private::of(former)->owner = nullptr;
        former->setParent(nullptr);
    }
    object = newObject;
    if (newObject) {
        newObject->setParent(q);
        VxElement::Private::of(newObject)->owner = q;
        VxElement::Private::of(newObject)->noteInsertionOfAll();
    }
    invalidateGroups();
    Q_EMIT self()->objectChanged(self(), former, newObject);
    notifyPropertiesChanged();
    touchView();
    return former;
}

void VxNode::Private::collectNodes(VxNode *top, QVector<VxNode *> &list)
{
    // The children are stacked from last to first, so that the first one is popped first;
    // hierarchies can be deep chains, so no recursion.
    QVector<VxNode *> open{top};
    while (!open.isEmpty()) {
        VxNode *node = open.takeLast();
        list.append(node);
        const QVector<VxNode *> &below = of(node)->children;
        for (int i = below.size() - 1; i >= 0; --i)
            open.append(below.at(i));
    }
}

bool VxNode::Private::fitsBelow(const VxNode *newParent) const
{
    const int offset = of(newParent)->depth + 1 - depth;
    if (children.isEmpty())
        return depth + offset <= MaxDepth;
    QVector<VxNode *> nodes;
    collectNodes(const_cast<Private *>(this)->self(), nodes);
    return std::all_of(nodes.cbegin(), nodes.cend(), [offset](const VxNode *node) {
        return of(node)->depth + offset <= MaxDepth;
    });
}

void VxNode::Private::updateDepth()
{
    const int offset = (parent ? of(parent)->depth + 1 : 1) - depth;
    if (offset == 0)
        return;
    QVector<VxNode *> nodes;
    collectNodes(self(), nodes);
    for (VxNode *node : qAsConst(nodes))
        of(node)->depth += offset;
}

void VxNode::Private::moveOutside(VxNode *newParent, int index)
{
    const DeferredDeletion hold;
    VxNode *oldParent = parent;
    if (oldParent)
        of(oldParent)->children.removeOne(self());
    parent = newParent;
    if (newParent) {
        QVector<VxNode *> &siblings = of(newParent)->children;
        siblingHint = index < 0 || index > siblings.size() ? siblings.size() : index;
        siblings.insert(siblingHint, self());
    }
    updateDepth();
    if (oldParent != newParent)
        Q_EMIT self()->parentChanged(self(), oldParent, newParent);
}
