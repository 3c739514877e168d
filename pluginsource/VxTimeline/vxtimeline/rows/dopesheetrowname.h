#ifndef DOPESHEETROWNAME_H
#define DOPESHEETROWNAME_H

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QString>

class VxDopeSheetItem;
class VxDopeSheetModel;

/// Identifies a row across models: by its property, by its node, or by the node and the labels of
/// the groups from the node down, joined by "/".
struct DopeSheetRowName
{
    QPointer<QObject> object; // a property, or a node; null for no row and for a destroyed one
    QString group;            // empty unless it is a group's row

    /// No name for null.
    static DopeSheetRowName of(const VxDopeSheetItem *item);
    /// The row in a model; null when it has none. Makes the property rows of the node if needed.
    VxDopeSheetItem *find(const VxDopeSheetModel *model) const;

    friend bool operator==(const DopeSheetRowName &a, const DopeSheetRowName &b)
    {
        return a.object == b.object && a.group == b.group;
    }
};

#endif
