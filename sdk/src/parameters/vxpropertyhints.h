#ifndef PANE_VXPROPERTYHINTS_H
#define PANE_VXPROPERTYHINTS_H

#include <QtCore/QString>
#include <QtCore/QVector>
#include <vxcore/vxpropertylistitemmodel.h>
#include <vxcore/vxtime.h>

class VxNumericProperty;

/// The tool tips of a property list: what a mark means, and why a value cannot be changed.
namespace VxPropertyHints {

/// Empty for a row that takes no keys.
QString keyHint(VxPropertyListItemModel::KeyState state, bool editable);
/// Group and label, and below it what is special about the property. Not for an empty list.
QString propertyHint(const QVector<VxProperty *> &properties);
/// What a field may be too narrow to tell of the values at a time: every digit, or between which
/// ones they lie. Empty for what is no number.
QString valueHint(const QVector<VxProperty *> &properties, VxTime time);

/// By how much values that differ are being dragged, in the first one's steps: with its sign.
QString offset(const VxNumericProperty *property, double steps);

/// Why values were not set: `refused` out of `count`, of which `locked` are locked or follow
/// another value. Empty when none was refused.
QString refusal(const QString &label, int refused, int locked, int count);
/// That a value, as shown, was cut off at the limits of a property or rounded by it.
QString limits(const VxNumericProperty *property, double value);
/// That a text is no value.
QString unreadable(const QString &text);

} // namespace VxPropertyHints

#endif
