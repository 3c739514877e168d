#include <vxcore/vxobject.h>

#include "scene/deferreddeletion.h"
#include "scene/elementundo.h"
#include "scene/vxelement_p.h"

#include <vxcore/vxnode.h>

class VxObject::Private : public VxElement::Private
{
public:
    void elementLost(VxElement *element) override
    {
        subElements.removeOne(element);
        invalidateGroups();
        notifyPropertiesChanged();
    }
    int placeOfElement(const VxElement *element) const override
    {
        return subElements.indexOf(const_cast<VxElement *>(element));
    }
    void detachElement(VxElement *element) override;
    void insertElement(VxElement *element, int index) override;

    QVector<VxElement *> subElements;
};

void VxObject::Private::detachElement(VxElement *element)
{
    const DeferredDeletion hold;
    of(element)->announceRemovalOfAll();
    of(element)->owner = nullptr;
    element->setParent(nullptr);
    subElements.removeOne(element);
    invalidateGroups();
    notifyPropertiesChanged();
}

void VxObject::Private::insertElement(VxElement *element, int index)
{
    const DeferredDeletion hold;
    element->setParent(q);
    of(element)->owner = q;
    subElements.insert(qMin(index, subElements.size()), element);
    of(element)->noteInsertionOfAll();
    invalidateGroups();
    notifyPropertiesChanged();
}

VxObject::VxObject(const QString &name)
    : VxElement(name, new Private)
{
}

VxObject::~VxObject()
{
    priv()->announceRemoval();
    const QVector<VxElement *> elements = std::move(priv()->subElements);
    priv()->subElements.clear();
    for (VxElement *element : elements) {
        VxElement::Private::of(element)->owner = nullptr;
        delete element;
    }
}

VxObject::Private *VxObject::priv() const
{
    return static_cast<Private *>(VxElement::priv());
}

VxNode *VxObject::getNode() const
{
    VxElement *element = getOwnerElement();
    while (element && !qobject_cast<VxNode *>(element))
        element = element->getOwnerElement();
    return qobject_cast<VxNode *>(element);
}

int VxObject::getNumSubElements() const
{
    return priv()->subElements.size();
}

VxElement *VxObject::getSubElement(int index) const
{
    return priv()->subElements.value(index);
}

bool VxObject::addSubElement(VxElement *element)
{
    bool refused = !element || element->getOwnerElement() || qobject_cast<VxNode *>(element);
    for (const VxElement *above = this; above && !refused; above = above->getOwnerElement())
        refused = above == element;
    if (refused) {
        qWarning("VxObject::addSubElement(): \"%s\" cannot own %s", qUtf8Printable(getName()),
                 element ? qUtf8Printable(element->getName()) : "null");
        return false;
    }
    recordNewSubElement(this, element);
    priv()->insertElement(element, priv()->subElements.size());
    return true;
}

QVector<VxElement *> VxObject::groupedElements() const
{
    return priv()->subElements;
}
