#ifndef VXPROPERTYKEYS_H
#define VXPROPERTYKEYS_H

#include <QtCore/QVector>
#include <vxcore/vxpropertylistitemmodel.h>
#include <vxcore/vxtime.h>

/// The key commands of a property list. Each is one undo entry, or none when it changes nothing;
/// locked properties are skipped.
namespace VxPropertyKeys {

using Properties = QVector<VxProperty *>;

/// MixedKeys when the states of properties that can have keys differ.
VxPropertyListItemModel::KeyState state(const Properties &properties, VxTime time);
VxPropertyListItemModel::KeyState state(const VxProperty *property, VxTime time);
/// Combines the state of a row so far with that of another property.
VxPropertyListItemModel::KeyState together(VxPropertyListItemModel::KeyState one,
                                           VxPropertyListItemModel::KeyState other);

/// Makes a key with the present value at the time where there is none.
void setKeys(const Properties &properties, VxTime time);
/// Removes the keys at exactly the time.
void deleteKeys(const Properties &properties, VxTime time);
void deleteAllKeys(const Properties &properties);
/// Removes the keys when each property has one at the time, else makes the missing ones.
void toggleKeys(const Properties &properties, VxTime time);
/// Sets every number to its default value at the time.
void reset(const Properties &properties, VxTime time);

/// The time of the nearest key before or after a time, of all properties together. False when
/// there is none.
bool findKeyBeside(const Properties &properties, VxTime time, bool after, VxTime *found);

} // namespace VxPropertyKeys

#endif
