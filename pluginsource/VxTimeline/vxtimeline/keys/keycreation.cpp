#include "vxtimeline/keys/keycreation.h"

#include <algorithm>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxpropertygrouptree.h>

namespace KeyCreation {

namespace {

// The bits of the pane's property types that are asked for here.
enum TypeBit { Translate = 0x1, Rotate = 0x2, Scale = 0x4, Alias = 0x10, Hidden = 0x20 };

bool isHiddenNow(const VxProperty *property)
{
    return property->isHidden() || property->isDynamicallyHidden();
}

bool isOneOf(const VxProperty *property, std::initializer_list<const VxFloatProperty *> controls)
{
    return std::find(controls.begin(), controls.end(), property) != controls.end();
}

// The bit that a transform control of the node needs; 0 for any other property.
int transformBit(const VxFloatProperty *property, const VxNode *node)
{
    if (property->getAxis() == VxFloatProperty::NoAxis)
        return 0;
    if (isOneOf(property, {node->getXPosControl(), node->getYPosControl(), node->getZPosControl()}))
        return Translate;
    if (isOneOf(property, {node->getXRotControl(), node->getYRotControl(), node->getZRotControl()}))
        return Rotate;
    if (isOneOf(property, {node->getScaleControl(), node->getXScaleControl(),
                           node->getYScaleControl(), node->getZScaleControl()}))
        return Scale;
    return 0;
}

// All bits that a property needs.
int neededBits(const VxProperty *property, const VxNode *node)
{
    int needed = isHiddenNow(property) ? Hidden : 0;
    if (property->isAlias()) {
        needed |= Alias;
        const VxProperty *aliased = property->getAliasedProperty();
        if (aliased && isHiddenNow(aliased))
            needed |= Hidden;
    }
    if (const auto *control = qobject_cast<const VxFloatProperty *>(property))
        needed |= transformBit(control, node);
    return needed;
}

void setFloatKey(VxFloatProperty *property, VxTime source, VxTime target)
{
    int model = property->findKey(source);
    if (model < 0)
        model = property->getFirstKeyFrom(target) - 1;
    float tension = 0.0f;
    float continuity = 0.0f;
    float bias = 0.0f;
    const int type = model < 0
                         ? property->getDefaultInterpolation()
                         : property->getKeyInterpolationType(model, &tension, &continuity, &bias);
    property->setKey(target, property->getValue(source), type, tension, continuity, bias);
}

} // namespace

bool isWanted(const VxProperty *property, const VxNode *node, int propertyTypes)
{
    if (!qobject_cast<const VxNumericProperty *>(property) || !property->isAnimatable() ||
        property->isLocked())
        return false;
    const int needed = neededBits(property, node);
    return (propertyTypes & needed) == needed;
}

void setKeyFrom(VxProperty *property, VxTime source, VxTime target)
{
    if (auto *number = qobject_cast<VxFloatProperty *>(property))
        setFloatKey(number, source, target);
    else if (auto *whole = qobject_cast<VxIntProperty *>(property))
        whole->setKey(target, whole->getValue(source));
}

void setNodeKeys(const VxNode *node, int propertyTypes, bool recurse, VxTime source, VxTime target)
{
    for (VxProperty *property : node->getPropertyGroups()->collectAllProperties()) {
        if (isWanted(property, node, propertyTypes))
            setKeyFrom(property, source, target);
    }
    for (int i = 0; recurse && i < node->getNumNodeChildren(); ++i)
        setNodeKeys(node->getNodeChild(i), propertyTypes, true, source, target);
}

void keyCurrentValue(VxProperty *property)
{
    if (auto *number = qobject_cast<VxFloatProperty *>(property))
        number->setValue(number->getValue());
    else if (auto *whole = qobject_cast<VxIntProperty *>(property))
        whole->setValue(whole->getValue());
}

} // namespace KeyCreation
