#ifndef VXPROPERTYCHOICE_H
#define VXPROPERTYCHOICE_H

#include <QtCore/QVector>

class QItemSelectionModel;
class QModelIndex;
class VxProperty;
class VxPropertyListItemModel;

/// The target rows and properties of a command on a property list.
namespace VxPropertyChoice {

using Properties = QVector<VxProperty *>;

/// The properties of one row; a heading has those of its group. None for an invalid index.
Properties propertiesOf(const VxPropertyListItemModel *model, const QModelIndex &index);

/// A command on a selected row applies to all selected ones, else to that row alone. A heading
/// represents the rows of its group. Each row's properties, from the top.
QVector<Properties> rowsOf(const VxPropertyListItemModel *model,
                           const QItemSelectionModel *selection, const QModelIndex &index);

} // namespace VxPropertyChoice

#endif
