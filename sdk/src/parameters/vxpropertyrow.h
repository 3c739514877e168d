#ifndef VXPROPERTYROW_H
#define VXPROPERTYROW_H

#include <QtCore/QString>
#include <vxcore/vxpropertylistitemmodel.h>
#include <vxcore/vxtime.h>

class VxProperty;
class VxPropertyListNode;

/// The contents of one row of a property list for all its properties. These may be a thousand, and
/// the rows are read each frame while the scene plays: no copies are made.
namespace VxPropertyRow {

/// The first existing property, which is shown. Null for a heading.
const VxProperty *leading(const VxPropertyListNode *row);
/// True when the values at a time differ. False for a heading.
bool isMixed(const VxPropertyListNode *row, VxTime time);
VxPropertyListItemModel::KeyState keyState(const VxPropertyListNode *row, VxTime time);

/// Text for screen readers.
QString spokenValue(const VxPropertyListNode *row, VxTime time);
QString spokenKeyState(VxPropertyListItemModel::KeyState state);

} // namespace VxPropertyRow

#endif
