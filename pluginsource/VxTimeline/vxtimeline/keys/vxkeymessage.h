#ifndef VXKEYMESSAGE_H
#define VXKEYMESSAGE_H

#include <QtCore/QHash>
#include <QtCore/QMap>
#include <QtCore/QMetaType>
#include <QtCore/QVector>

class VxProperty;

/// One change of the key selection, sent by the view in which it was made to the other one.
///
/// A plain value. Key indexes are positions in the property's list of keys at the time of sending,
/// ascending; a receiver applies the message at once. A property in none of the maps keeps its
/// selection, unless everything is cleared.
class VxKeyMessage
{
public:
    /// The receiver deselects all its keys before it applies the two maps.
    bool clearSelection = false;
    /// Selection by key time, for receivers that keep times instead of indexes. The key graph
    /// neither fills nor reads them.
    QHash<VxProperty *, QVector<qint32>> selectedTimes;
    QHash<VxProperty *, QVector<qint32>> deselectedTimes;
    QMap<VxProperty *, QVector<qint32>> selectedKeys;
    QMap<VxProperty *, QVector<qint32>> deselectedKeys;
};

Q_DECLARE_METATYPE(VxKeyMessage)

#endif
