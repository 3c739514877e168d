#ifndef KEYCREATION_H
#define KEYCREATION_H

#include <QtCore/QVector>
#include <vxcore/vxtime.h>

class VxNode;
class VxProperty;

/// Creates keys from the values of properties.
namespace KeyCreation {

/// Whether a node's property is keyed for the given types: bits of TimelinePropertyTypes. Only
/// numeric, animatable, unlocked properties are; hidden and aliased ones, and the transform
/// controls, require their bit. Any other property requires none.
bool isKeyable(const VxProperty *property, const VxNode *node, int propertyTypes);

/// Makes a key at each target (strictly ascending) with the property's value at source. A float key
/// gets the interpolation of the key at source when there is one, else of the one before the first
/// target, else the property's default. Properties that are not numeric are ignored.
void setKeysFrom(VxProperty *property, VxTime source, const QVector<VxTime> &targets);

/// Keys the properties in the node's group tree that isKeyable() accepts; with recurse, those of
/// descendants too.
void setNodeKeys(const VxNode *node, int propertyTypes, bool recurse, VxTime source,
                 const QVector<VxTime> &targets);

/// Sets the property's present value again, which keys it at the current time.
void keyCurrentValue(VxProperty *property);

} // namespace KeyCreation

#endif
