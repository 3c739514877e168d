#ifndef PANE_VXPROPERTYROW_H
#define PANE_VXPROPERTYROW_H

#include <QtCore/QString>
#include <vxcore/vxpropertylistitemmodel.h>
#include <vxcore/vxtime.h>

class VxProperty;
class VxPropertyListNode;

/// What one row of a property list shows for all the properties it stands for. These may be a
/// thousand, and the rows are asked for each frame while the scene plays: no copies are made.
namespace VxPropertyRow {

/// The first property that still lives, which decides what is shown. Null for a heading.
const VxProperty *leading(const VxPropertyListNode *row);
/// True when the values at a time differ. False for a heading.
bool isMixed(const VxPropertyListNode *row, VxTime time);
VxPropertyListItemModel::KeyState keyState(const VxPropertyListNode *row, VxTime time);

/// In words, for those who do not see the row.
QString spokenValue(const VxPropertyListNode *row, VxTime time);
QString spokenKeyState(VxPropertyListItemModel::KeyState state);

} // namespace VxPropertyRow

#endif
