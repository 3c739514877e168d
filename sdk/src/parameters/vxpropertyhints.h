#ifndef VXPROPERTYHINTS_H
#define VXPROPERTYHINTS_H

#include <QtCore/QString>
#include <QtCore/QVector>
#include <vxcore/vxpropertylistitemmodel.h>
#include <vxcore/vxtime.h>

class VxNumericProperty;

/// The tool tips of a property list: the meaning of marks, and why a value cannot be changed.
namespace VxPropertyHints {

/// Empty for a row that cannot have keys.
QString keyHint(VxPropertyListItemModel::KeyState state, bool editable);
/// Group and label, and below it the property's special traits. Not for an empty list.
QString propertyHint(const QVector<VxProperty *> &properties);
/// The values at a time that a field may be too narrow for: full precision, or their minimum and
/// maximum. Empty for values that are not numbers.
QString valueHint(const QVector<VxProperty *> &properties, VxTime time);

/// The offset of a drag of different values, in the first one's steps: with its sign.
QString offset(const VxNumericProperty *property, double steps);

/// Why values were not set: `refused` out of `count`, of which `locked` are locked or follow
/// another value. Empty when none was refused.
QString refusal(const QString &label, int refused, int locked, int count);
/// The message for a shown value that a property limited or rounded.
QString limits(const VxNumericProperty *property, double value);
/// The message for an invalid text.
QString unreadable(const QString &text);

} // namespace VxPropertyHints

#endif
