#ifndef VXPROPERTYLISTROWS_H
#define VXPROPERTYLISTROWS_H

#include <QtCore/QString>
#include <QtCore/QVector>

class VxNode;
class VxProperty;

/// A row of a property list: a heading, or a property, the first of those in the row.
struct VxPropertyListRow
{
    QString heading; ///< empty for a property
    QString path;    ///< of the group
    QVector<VxProperty *> properties;

    bool operator==(const VxPropertyListRow &other) const
    {
        return heading == other.heading && path == other.path && properties == other.properties;
    }
};

/// The rows for some nodes, the decisive one first; no rows without nodes. A group whose name
/// another group has too is headed by its parent's name as well.
QVector<VxPropertyListRow> vxPropertyListRows(const QVector<VxNode *> &nodes);

#endif
