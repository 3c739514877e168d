#include <vxcore/vxobject.h>

#include "scene/vxelement_p.h"
#include <vxcore/vxnode.h>

class VxObject::Private : public VxElement::Private
{
public:
    void elementLost(VxElement *element) override
    {
        subElements.removeOne(element);
        invalidateGroups();
        tellPropertiesChanged();
    }

    QVector<VxElement *> subElements;
};

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
        qWarning("VxObject::addSubElement(): \"%s\" does not take %s", qUtf8Printable(getName()),
                 element ? qUtf8Printable(element->getName()) : "null");
        return false;
    }
    element->setParent(this);
    VxElement::Private::of(element)->owner = this;
    priv()->subElements.append(element);
    invalidatePropertyGroups();
    priv()->tellPropertiesChanged();
    return true;
}

QVector<VxElement *> VxObject::groupedElements() const
{
    return priv()->subElements;
}
