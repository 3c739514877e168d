#ifndef KEYCREATION_H
#define KEYCREATION_H

#include <QtCore/QVector>
#include <vxcore/vxtime.h>

class VxNode;
class VxProperty;

// Making keys from the values that properties have.
namespace KeyCreation {

// Whether a node's property is keyed when only the given types are: bits of the pane's
// PropertyTypes. Only numeric properties that can be animated and are not locked are; hidden and
// aliased ones, and the transform controls, need their bit. Any other property needs none.
bool isWanted(const VxProperty *property, const VxNode *node, int propertyTypes);

// Makes a key at each target (ascending, no doubles) with the value the property has at source. A
// float key takes the interpolation of the key at source when there is one, else of the one before
// the first target, else the property's default. Properties that are not numeric are left alone.
void setKeysFrom(VxProperty *property, VxTime source, const QVector<VxTime> &targets);

// Keys those properties in the node's group tree that are wanted; with recurse, those of the nodes
// below too.
void setNodeKeys(const VxNode *node, int propertyTypes, bool recurse, VxTime source,
                 const QVector<VxTime> &targets);

// Sets the property's present value again, which keys it at the current time.
void keyCurrentValue(VxProperty *property);

} // namespace KeyCreation

#endif
