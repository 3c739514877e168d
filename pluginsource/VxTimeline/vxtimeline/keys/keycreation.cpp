#include "vxtimeline/keys/keycreation.h"

#include <algorithm>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxpropertygrouptree.h>

namespace KeyCreation {

namespace {

// The bits of the pane's property types that are used here.
enum TypeBit { Translate = 0x1, Rotate = 0x2, Scale = 0x4, Alias = 0x10, Hidden = 0x20 };

bool isHiddenNow(const VxProperty *property)
{
    return property->isHidden() || property->isDynamicallyHidden();
}

bool isOneOf(const VxProperty *property, std::initializer_list<const VxFloatProperty *> controls)
{
    return std::find(controls.begin(), controls.end(), property) != controls.end();
}

// The bit that a transform control of the node requires; 0 for any other property.
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

// All bits that a property requires.
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

VxKeyShape shapeOf(const VxFloatProperty *property, int key)
{
    VxKeyShape shape;
    shape.type = static_cast<quint8>(property->getKeyInterpolationType(
        key, &shape.tcb.tension, &shape.tcb.continuity, &shape.tcb.bias));
    return shape;
}

// The shape of a new key that gets its value from another time.
VxKeyShape shapeFor(const VxFloatProperty *property, VxTime source, VxTime target)
{
    int model = property->findKey(source);
    if (model < 0)
        model = property->getFirstKeyFrom(target) - 1;
    if (model >= 0)
        return shapeOf(property, model);
    return {static_cast<quint8>(property->getDefaultInterpolation()), {}};
}

// Keys like the one at the first target, which may have had to limit its value.
void repeatFloatKey(VxFloatProperty *property, const QVector<VxTime> &targets)
{
    const int model = property->findKey(targets.first());
    if (model < 0)
        return;
    const VxKeyShape shape = shapeOf(property, model);
    const QVector<float> values(targets.size() - 1, property->getKeyValue(model));
    const QVector<quint8> types(values.size(), shape.type);
    const QVector<VxTcb> tcb(shape.tcb == VxTcb() ? 0 : values.size(), shape.tcb);
    VxKeyColumns<float> keys;
    keys.times = targets.constData() + 1;
    keys.values = values.constData();
    keys.types = types.constData();
    keys.tcb = tcb.isEmpty() ? nullptr : tcb.constData();
    keys.count = values.size();
    property->setKeys(keys);
}

void setFloatKeys(VxFloatProperty *property, VxTime source, const QVector<VxTime> &targets)
{
    const VxKeyShape shape = shapeFor(property, source, targets.first());
    const bool taken = property->setKey(targets.first(), property->getValue(source), shape.type,
                                        shape.tcb.tension, shape.tcb.continuity, shape.tcb.bias);
    if (taken && targets.size() > 1)
        repeatFloatKey(property, targets);
}

void setIntKeys(VxIntProperty *property, VxTime source, const QVector<VxTime> &targets)
{
    const bool taken = property->setKey(targets.first(), property->getValue(source));
    const int model = property->findKey(targets.first());
    if (!taken || model < 0 || targets.size() == 1)
        return;
    const QVector<qint32> values(targets.size() - 1, property->getKeyValue(model));
    VxKeyColumns<qint32> keys;
    keys.times = targets.constData() + 1;
    keys.values = values.constData();
    keys.count = values.size();
    property->setKeys(keys);
}

} // namespace

bool isKeyable(const VxProperty *property, const VxNode *node, int propertyTypes)
{
    if (!qobject_cast<const VxNumericProperty *>(property) || !property->isAnimatable() ||
        property->isLocked())
        return false;
    const int needed = neededBits(property, node);
    return (propertyTypes & needed) == needed;
}

// In one call, because single keys would shift the same arrays again and again.
void setKeysFrom(VxProperty *property, VxTime source, const QVector<VxTime> &targets)
{
    if (targets.isEmpty())
        return;
    if (auto *number = qobject_cast<VxFloatProperty *>(property))
        setFloatKeys(number, source, targets);
    else if (auto *whole = qobject_cast<VxIntProperty *>(property))
        setIntKeys(whole, source, targets);
}

void setNodeKeys(const VxNode *node, int propertyTypes, bool recurse, VxTime source,
                 const QVector<VxTime> &targets)
{
    for (VxProperty *property : node->getPropertyGroups()->collectAllProperties()) {
        if (isKeyable(property, node, propertyTypes))
            setKeysFrom(property, source, targets);
    }
    for (int i = 0; recurse && i < node->getNumNodeChildren(); ++i)
        setNodeKeys(node->getNodeChild(i), propertyTypes, true, source, targets);
}

void keyCurrentValue(VxProperty *property)
{
    if (auto *number = qobject_cast<VxFloatProperty *>(property))
        number->setValue(number->getValue());
    else if (auto *whole = qobject_cast<VxIntProperty *>(property))
        whole->setValue(whole->getValue());
}

} // namespace KeyCreation
