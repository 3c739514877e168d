#ifndef PANE_VXPROPERTYKEYS_H
#define PANE_VXPROPERTYKEYS_H

#include <QtCore/QVector>
#include <vxcore/vxpropertylistitemmodel.h>
#include <vxcore/vxtime.h>

/// The commands of a property list on the keys of some properties. Each is one undo entry, or none
/// when it changes nothing; locked properties are passed over.
namespace VxPropertyKeys {

using Properties = QVector<VxProperty *>;

/// MixedKeys when the states of those that take keys differ.
VxPropertyListItemModel::KeyState state(const Properties &properties, VxTime time);
VxPropertyListItemModel::KeyState state(const VxProperty *property, VxTime time);
/// The state of a row that has one state so far and another property with a second one.
VxPropertyListItemModel::KeyState together(VxPropertyListItemModel::KeyState one,
                                           VxPropertyListItemModel::KeyState other);

/// Makes a key with the present value where there is none at the time.
void setKeys(const Properties &properties, VxTime time);
/// Removes the keys at exactly the time.
void deleteKeys(const Properties &properties, VxTime time);
void deleteAllKeys(const Properties &properties);
/// Removes the keys when each property has one at the time, else makes those that are missing.
void toggleKeys(const Properties &properties, VxTime time);
/// Gives every number its default value at the time.
void reset(const Properties &properties, VxTime time);

/// The time of the nearest key before or after a time, of all properties together. False when
/// there is none.
bool findKeyBeside(const Properties &properties, VxTime time, bool after, VxTime *found);

} // namespace VxPropertyKeys

#endif
