#include "scene/vxnode_p.h"

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

void VxNode::Private::elementLost(VxElement *element)
{
    if (element == object)
        object = nullptr;
    invalidateGroups();
    tellPropertiesChanged();
}

void VxNode::Private::touchView()
{
    if (scene)
        VxScene::Private::of(scene)->touchView();
}

VxObject *VxNode::Private::exchangeObject(VxObject *newObject)
{
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
        QVector<VxElement *> elements;
        collect(newObject, elements);
        for (VxElement *element : qAsConst(elements))
            VxElement::Private::of(element)->removalAnnounced = false;
    }
    invalidateGroups();
    Q_EMIT self()->objectChanged(self(), former, newObject);
    tellPropertiesChanged();
    touchView();
    return former;
}

void VxNode::Private::collectNodes(VxNode *top, QVector<VxNode *> &list)
{
    // The children are stacked from the last to the first, so that the first one comes off next;
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

void VxNode::Private::moveOutside(VxNode *newParent, int index)
{
    VxNode *oldParent = parent;
    if (oldParent)
        of(oldParent)->children.removeOne(self());
    parent = newParent;
    if (newParent) {
        QVector<VxNode *> &siblings = of(newParent)->children;
        siblingHint = index < 0 || index > siblings.size() ? siblings.size() : index;
        siblings.insert(siblingHint, self());
    }
    if (oldParent != newParent)
        Q_EMIT self()->parentChanged(self(), oldParent, newParent);
}
