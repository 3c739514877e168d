#ifndef PANE_VXPROPERTYHINTS_H
#define PANE_VXPROPERTYHINTS_H

#include <QtCore/QString>
#include <QtCore/QVector>
#include <vxcore/vxpropertylistitemmodel.h>

/// The tool tips of a property list: what a mark means, and why a value cannot be changed.
namespace VxPropertyHints {

/// Empty for a row that takes no keys.
QString keyHint(VxPropertyListItemModel::KeyState state, bool editable);
/// Group and label, and below it what is special about the property. Not for an empty list.
QString propertyHint(const QVector<VxProperty *> &properties);

} // namespace VxPropertyHints

#endif
