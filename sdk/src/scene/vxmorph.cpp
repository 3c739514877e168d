#include <vxcore/vxmorph.h>

#include "scene/vxelement_p.h"

#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxobject.h>

class VxMorph::Private : public VxElement::Private
{
public:
    bool isBuiltIn(const VxProperty *property) const override { return property == value; }
    void propertyLost(VxProperty *property) override
    {
        if (property == value)
            value = nullptr;
    }

    VxFloatProperty *value = nullptr;
};

VxMorph::VxMorph(const QString &name, const QString &path)
    : VxElement(name, new Private)
{
    auto *value = new VxFloatProperty(name);
    value->setMinMax(0.0f, 1.0f);
    value->setSensitivity(0.01f);
    value->setPercentage(true);
    priv()->value = value;
    addProperty(value, path);
}

VxMorph::~VxMorph()
{
    priv()->announceRemoval();
}

VxMorph::Private *VxMorph::priv() const
{
    return static_cast<Private *>(VxElement::priv());
}

VxFloatProperty *VxMorph::getValueControl() const
{
    return priv()->value;
}

VxObject *VxMorph::getObject() const
{
    return qobject_cast<VxObject *>(getOwnerElement());
}
