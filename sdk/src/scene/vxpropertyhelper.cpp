#include <vxcore/vxpropertyhelper.h>

#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxmorph.h>
#include <vxcore/vxnode.h>

VxNode *VxPropertyHelper::getNode(const VxProperty *property)
{
    VxElement *element = property ? property->getOwner() : nullptr;
    while (element && element->getOwnerElement())
        element = element->getOwnerElement();
    return qobject_cast<VxNode *>(element);
}

bool VxPropertyHelper::isMorphProperty(const VxProperty *property)
{
    return property && qobject_cast<VxMorph *>(property->getOwner());
}

int VxPropertyHelper::getTransformAxis(const VxProperty *property)
{
    const auto *channel = qobject_cast<const VxFloatProperty *>(property);
    return channel ? channel->getAxis() : VxFloatProperty::NoAxis;
}
