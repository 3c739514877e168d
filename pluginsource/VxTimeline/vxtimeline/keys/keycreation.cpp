#include "vxtimeline/keys/keycreation.h"

#include "vxtimeline/keys/timelinepropertytypes.h"

#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxpropertygrouptree.h>

namespace KeyCreation {

namespace {

// All types that a property requires.
int neededTypes(const VxProperty *property, const VxNode *node)
{
    using namespace TimelinePropertyTypes;
    int needed = ofTransform(property, node) | (isHidden(property) ? Hidden : 0);
    if (property->isAlias()) {
        needed |= Alias;
        const VxProperty *aliased = property->getAliasedProperty();
        if (aliased && isHidden(aliased))
            needed |= Hidden;
    }
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
    const int needed = neededTypes(property, node);
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
