#ifndef PANE_VXPROPERTYCHOICE_H
#define PANE_VXPROPERTYCHOICE_H

#include <QtCore/QVector>

class QItemSelectionModel;
class QModelIndex;
class VxProperty;
class VxPropertyListItemModel;

/// Which rows and properties of a property list a command is about.
namespace VxPropertyChoice {

using Properties = QVector<VxProperty *>;

/// Those of one row; a heading has those of its group. None for an invalid index.
Properties propertiesOf(const VxPropertyListItemModel *model, const QModelIndex &index);

/// A command on a row is about all selected ones when it is one of them, else about itself. A
/// heading stands for the rows of its group. Each row's properties, from the top.
QVector<Properties> rowsOf(const VxPropertyListItemModel *model,
                           const QItemSelectionModel *selection, const QModelIndex &index);

} // namespace VxPropertyChoice

#endif
